#pragma once

#include "forms/controls.h"
#include "platform/files/disk.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>

#include <optional>

namespace vasclip::photos {

/// The names of the pictures in one directory, and the news of them: a watcher tells of changes, and a look
/// every few seconds finds what it doesn't tell (a share, some cards).
class CaptureFolder : public QObject, public forms::ListSource
{
    Q_OBJECT
public:
    /// The disk outlives the folder.
    explicit CaptureFolder(const files::Disk& disk, QObject* parent = nullptr);
    ~CaptureFolder() override;

    /// Names of the pictures in a directory, sorted without regard to case; none for one that can't be read.
    [[nodiscard]] static QStringList PicturesIn(const files::Disk& disk, const QString& directory);

    /// How long Open and Refresh wait for the names before they leave them to come later; for good unless set.
    void SetPatience(int milliseconds) { m_patience = milliseconds; }

    /// Lists a directory; where that takes too long, it is empty until Opened is told.
    /// @param directory  a drive path with its closing backslash
    void Open(const QString& directory);
    /// Lists it again. @return true if the names are others; they may still come, with Changed
    bool Refresh();
    /// The names of the directory that was opened have not come yet.
    [[nodiscard]] bool Reading() const { return m_reading; }
    /// From now on news of the directory are told; nothing is watched before.
    void Watch();
    [[nodiscard]] bool Watching() const { return m_poll.isActive(); }

    [[nodiscard]] const QString& Directory() const { return m_directory; }
    [[nodiscard]] const QStringList& Names() const { return m_names; }
    [[nodiscard]] int Count() const override { return static_cast<int>(m_names.size()); }
    [[nodiscard]] QString Line(int index) const override { return m_names.value(index); }
    /// Place of a name; where it isn't there, the place of the next one behind it, or Count().
    [[nodiscard]] int PlaceOf(const QString& name) const;

    static constexpr int kPollMilliseconds = 3000;
    static constexpr int kRestMilliseconds = 150; ///< news come in swarms
    static constexpr int kShortPatience = 30;     ///< milliseconds that a window may stand still


Q_SIGNALS:
    void Opened(); ///< the names have come that Open did not wait for
    /// The names are others than before, which were `before`.
    void Changed(const QStringList& before);
    void Polled(); ///< a look has been had, whether it found something or not

private:
    struct Answer;
    void Look();
    [[nodiscard]] std::optional<QStringList> Read();
    void Take(const QStringList& names);
    void Attach();

    const files::Disk& m_disk;
    QString m_directory;
    QStringList m_names;
    QFileSystemWatcher* m_watcher = nullptr;
    QTimer m_poll, m_rest;
    QThreadPool m_pool;
    bool m_looking = false;
    bool m_reading = false;
    int m_patience = -1;
    quint64 m_round = 0;
};

} // namespace vasclip::photos
