// The main screen killed at any moment while pictures are filed, replaced, trashed and deleted by its own drags and
// buttons. VASCLIP_KILLS sets how often.

#include "faults/fault_home.h"

#include "platform/picture/picture.h"

#include <random>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

class MainScreenKills : public FaultHome
{
protected:
    static constexpr int kSources = 8;
    static QByteArray Picture(int number)
    {
        QImage image(900, 700, QImage::Format_RGB32);
        std::mt19937 random(static_cast<unsigned>(number));
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x % 256, y % 256, static_cast<int>(random() % 64)));
        return picture::ToJpeg(image, 90);
    }
    static bool IsWhole(const QString& native)
    {
        try {
            return !picture::FromNativeFile(native, native, 64).isNull();
        } catch (const std::exception&) {
            return false;
        }
    }
};

TEST_F(MainScreenKills, NoPictureIsLostAndNoRecordNamesHalfOfOne)
{
    QList<QByteArray> sources;
    for (int i = 0; i < kSources; ++i)
        sources.append(Picture(i));
    const QString capture = home.Native(u"VASSNAP"_s);
    const QString store = home.Native(u"VASCLIPS/JPG"_s);
    ASSERT_TRUE(QDir(capture).removeRecursively() && QDir().mkpath(capture));
    std::mt19937 random(20040307);
    int usualMs = 0;
    int filed = 0, deleted = 0, killed = 0;
    const int kills = Kills(12);
    for (int run = 0; run < kills && !HasFailure(); ++run) {
        for (int i = 0; i < kSources; ++i)
            ASSERT_TRUE(Write(capture + u"/SRC%1.JPG"_s.arg(i), sources[i]));
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(ProgramHome::Program(u"test_faults"_s), {u"--main-screen"_s, home.Path()});
        QByteArray said;
        while (!said.contains("ready") && process.waitForReadyRead(kPatienceMs))
            said += process.readAllStandardOutput();
        ASSERT_TRUE(said.contains("ready")) << process.readAllStandardError().toStdString();
        QElapsedTimer took;
        took.start();
        // The first one tells how long it takes where nobody kills it.
        const bool ended = process.waitForFinished(
            run == 0 ? 2 * kPatienceMs : 1 + static_cast<int>(random() % static_cast<unsigned>(usualMs)));
        process.kill();
        process.waitForFinished();
        said += process.readAllStandardOutput();
        killed += ended ? 0 : 1;
        usualMs = run == 0 ? static_cast<int>(took.elapsed()) + 1 : ended ? usualMs * 3 / 4 + 1 : usualMs * 5 / 4 + 1;
        filed += static_cast<int>(said.count("filed "));
        deleted += static_cast<int>(said.count("deleted"));
        for (int i = 0; i < kSources; ++i) {
            const QString name = u"/SRC%1.JPG"_s.arg(i);
            const QByteArray waits = Bytes(capture + name);
            EXPECT_TRUE(waits == sources[i] || Bytes(capture + u"/TRASHCAN"_s + name) == sources[i])
                << name.toStdString() << " is lost in run " << run;
            EXPECT_TRUE(waits == sources[i] || !QFile::exists(capture + name))
                << name.toStdString() << " is half written in run " << run;
        }
        for (const QString& directory : {store, capture, capture + u"/TRASHCAN"_s})
            for (const QString& name : QDir(directory).entryList({u"*.jpg"_s}, QDir::Files))
                EXPECT_TRUE(IsWhole(directory + u'/' + name))
                    << name.toStdString() << " in " << directory.toStdString() << " is half written in run " << run;
        // A photo that was being deleted may be named and gone; its picture then waits to be filed.
        const Ended verified = home.Vasctl({u"photos"_s, u"orphans"_s});
        ASSERT_EQ(verified.code, kDone) << verified.err.toStdString();
        for (const QJsonValue& value : verified.Array()) {
            const QJsonObject orphan = value.toObject();
            if (orphan[u"CENTRALKEY"_s].toString().isEmpty())
                continue;
            EXPECT_TRUE(IsWhole(capture + u'/' + orphan[u"STEM"_s].toString() + u".JPG"_s))
                << orphan[u"CENTRALKEY"_s].toString().toStdString() << " has lost its "
                << orphan[u"VIEW"_s].toString().toStdString() << " in run " << run;
        }
    }
    EXPECT_GT(filed, 0);
    EXPECT_GT(deleted, 0);
    EXPECT_GT(killed, 0);
    EXPECT_EQ(Vasctl({u"doctor"_s}).code, kDone);
}

} // namespace
} // namespace vasclip::tests
