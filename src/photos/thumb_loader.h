#pragma once

#include "photos/thumb_cache.h"
#include "platform/work/workers.h"

#include <QObject>
#include <QSet>
#include <QStringList>

#include <deque>
#include <memory>
#include <mutex>

namespace vasclip::photos {

/// Makes small pictures of files by workers, in passes: what is kept of an earlier look at once, then
/// what the camera has put into the file's head, then the file decoded at a reduced size. All files on show
/// take the first pass before one takes the second; what is on show comes before what may be shown next.
///
/// Lives in the thread of its screen, where its signals are raised.
class ThumbLoader : public QObject
{
    Q_OBJECT
public:
    /// @param workers  outlive this; asked from its thread
    ThumbLoader(std::unique_ptr<ThumbSource> source, work::Workers& workers);
    ~ThumbLoader() override;

    enum class Pass { Kept, Embedded, Reduced };

    /// The files on show now, in order, and those that are likely to be next. What was asked for before and
    /// is not among them any more is forgotten; what stays on show and has had its passes is not told again.
    /// @param longerSide  pixels of the reduced decode
    void Show(const QStringList& onShow, const QStringList& next, int longerSide);
    /// Makes one file anew, on show or not: it has changed.
    void Again(const QString& path);
    /// The screen has dropped the picture of a file: the next Show tells it anew.
    void Renew(const QString& path) { m_done.remove(path); }
    void Forget(const QString& path);
    void ForgetAll();
    /// Bytes that pictures off the screen may take.
    void SetLimit(qsizetype bytes) { m_cache.SetLimit(bytes); }
    [[nodiscard]] const ThumbCache& Cache() const { return m_cache; }
    [[nodiscard]] bool Idle() const; ///< nothing waits and nothing is being made

Q_SIGNALS:
    void Arrived(const QString& path, const photos::Thumb& thumb, photos::ThumbLoader::Pass pass);
    void Broken(const QString& path, const QString& why); ///< the file is no picture that can be read
    void Settled();                                       ///< the files on show have had their passes

private:
    enum class Work { Head, Decode, Keep };
    struct Task
    {
        QString path;
        Work work;
        int longerSide;
        quint64 round; ///< of Show; a task of an earlier round is not told any more
    };
    void Start();
    void WorkOff();
    void Do(const Task& task);
    void Tell(const Task& task, const Thumb& thumb, Pass pass);
    void Finished(const Task& task);
    [[nodiscard]] bool Unwanted(const QString& path) const;

    std::unique_ptr<ThumbSource> m_source;
    ThumbCache m_cache;
    work::Workers& m_atWork;
    work::CancelToken m_token; ///< cancelled when this goes
    mutable std::mutex m_mutex;
    std::deque<Task> m_tasks;
    int m_workers = 0; ///< jobs asked for that have not found the tasks at an end
    QSet<QString> m_wanted; ///< on show or next; the decoding of others is given up
    quint64 m_round = 0;
    int m_longerSide = 0;
    // In the screen's thread alone:
    QSet<QString> m_onShow;
    QSet<QString> m_done; ///< of these, what has had all its passes
    int m_due = 0; ///< tasks of this round that are not finished
};

} // namespace vasclip::photos
