#pragma once

#include "platform/engine/database.h"

namespace vasclip::engine {

/// One entry of a database's lock companion, the .LDB beside it, for as long as the object lives.
///
/// The companion holds one JSON object a line and is replaced as a whole under a lock file, so that processes
/// add and remove their entries without losing each other's. It goes with the last entry. Entries of
/// processes of this host that are no more count as dead and are swept by the next one who opens. Where the
/// directory cannot be written, there is no companion and nobody is refused. While it has the lock file it tries whether that
/// holds: a share may say yes to everybody.
class Companion
{
public:
    /// @param shown  drive path for messages
    /// @throws 3009 somebody has the file exclusively, 3356 others have it open and `mode` is exclusive
    Companion(const QString& nativePath, const QString& shown, OpenMode mode);
    ~Companion();
    Companion(const Companion&) = delete;
    Companion& operator=(const Companion&) = delete;

    [[nodiscard]] static QString FileOf(const QString& nativePath);
    [[nodiscard]] static QList<User> Users(const QString& nativePath);
    /// Are there living users besides those of this process?
    [[nodiscard]] static bool HasOthers(const QString& nativePath);

    /// False if the disk was seen to keep no locks: it refuses them, or gives one to two at once.
    [[nodiscard]] bool LocksHold() const { return m_locksHold; }

private:
    QString m_nativePath;
    QString m_id; ///< empty if there is no entry
    bool m_locksHold = true;
};

} // namespace vasclip::engine
