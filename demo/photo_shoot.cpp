#include "demo/photo_shoot.h"

#include "demo/dice.h"
#include "demo/drawing/house_picture.h"
#include "platform/text/runtime_error.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

constexpr int kThreads = 2;

/// The threads that draw, and the finished pictures that wait to be written.
class Studio
{
public:
    explicit Studio(const QList<Shot>& shots)
        : m_shots(shots)
        , m_finished(shots.size())
        , m_ready(shots.size(), false)
    {
        for (int i = 0; i < kThreads; ++i)
            m_threads[i] = std::thread([this] { Draw(); });
    }
    ~Studio()
    {
        m_next = m_shots.size();
        for (std::thread& thread : m_threads)
            thread.join();
    }
    Studio(const Studio&) = delete;
    Studio& operator=(const Studio&) = delete;

    [[nodiscard]] QByteArray WaitFor(qsizetype index)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_ready[index]; });
        return std::exchange(m_finished[index], QByteArray());
    }

private:
    void Draw()
    {
        for (qsizetype index = m_next++; index < m_shots.size(); index = m_next++) {
            QByteArray bytes = Taken(m_shots.at(index));
            const std::lock_guard lock(m_mutex);
            m_finished[index] = std::move(bytes);
            m_ready[index] = true;
            m_changed.notify_one();
        }
    }

    const QList<Shot>& m_shots;
    QList<QByteArray> m_finished;
    QList<bool> m_ready;
    std::atomic<qsizetype> m_next{0};
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::thread m_threads[kThreads];
};

} // namespace

QByteArray Taken(const Shot& shot)
{
    switch (shot.view) {
    case View::Front:
        return AsJpeg(DrawFrontView(shot.look));
    case View::Rear:
        return AsJpeg(DrawRearView(shot.look));
    case View::Street:
        return AsJpeg(DrawStreetScene(shot.look));
    case View::Inside:
        return AsJpeg(DrawRoomView(shot.look, shot.room));
    }
    return {};
}

void ShootAll(const files::Disk& disk, const QList<Shot>& shots,
              const std::function<void(int done)>& progress)
{
    Studio studio(shots);
    for (qsizetype i = 0; i < shots.size(); ++i) {
        const QByteArray bytes = studio.WaitFor(i);
        if (bytes.isEmpty())
            throw RuntimeError(
                error::kCorruptPicture,
                u"%1 cannot be made: this machine's Qt writes no JPEG pictures"_s.arg(shots[i].path));
        disk.WriteWhole(shots[i].path, bytes);
        progress(static_cast<int>(i + 1));
    }
}

QList<Shot> CapturePictures(const QString& directory)
{
    constexpr int kProperties = 12;
    Dice dice(123);
    QList<Shot> shots;
    int number = 123;
    const auto add = [&](const Look& look, View view) {
        shots.append({directory + u"DSC%1.JPG"_s.arg(number, 5, 10, QChar(u'0')), look, view});
        number += dice.Chance(0.2) ? 2 : 1; // somebody deleted one in the camera
    };
    for (int i = 0; i < kProperties; ++i) {
        Look look;
        look.seed = dice.Next();
        look.day = dice.Next();
        look.design = static_cast<Design>(i);
        look.season = Season::Summer;
        look.light =
            dice.Pick(QList<Daylight>{Daylight::Morning, Daylight::Noon, Daylight::Noon, Daylight::Overcast});
        look.garageCars = dice.Between(1, 3);
        look.sizeStep = dice.Below(3);
        look.fireplace = dice.Chance(0.5);
        add(look, View::Front);
        add(look, i % 2 == 0 ? View::Rear : View::Street);
    }
    return shots;
}

} // namespace vasclip::demo
