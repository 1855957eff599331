#pragma once

#include <QString>

namespace vasclip::engine {

/// A file beside the target that becomes it in one step or goes away. What processes that are no more have left there of
/// their own goes when the next one is begun; of one target a process makes one at a time.
class NewFile
{
public:
    /// A database may have files of its own beside it, a journal or what is made of it; anything else has none, and what
    /// stands there under such a name is somebody's.
    enum class Kind { Database, Other };

    /// @param target  native path; `shown` is its drive path for messages
    /// @throws 76 the directory is not there, 75 no right to it, 61 disk full
    NewFile(const QString& target, const QString& shown, Kind kind = Kind::Database);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    [[nodiscard]] const QString& Path() const { return m_path; }
    void Finish(); ///< @throws 75

private:
    void Remove();

    QString m_target;
    QString m_shown;
    QString m_path;
    Kind m_kind;
};

} // namespace vasclip::engine
