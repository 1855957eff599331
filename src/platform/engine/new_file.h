#pragma once

#include <QString>

namespace vasclip::engine {

/// A file beside the target that becomes it in one step or goes away.
class NewFile
{
public:
    explicit NewFile(const QString& target);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    [[nodiscard]] const QString& Path() const { return m_path; }
    void Finish(const QString& shown); ///< @throws 75

private:
    void Remove();

    QString m_target;
    QString m_path;
};

/// Makes an empty file for SQLite to fill, so that missing rights and full disks have their own errors.
/// @throws 75, 76
void Touch(const QString& native, const QString& shown);

} // namespace vasclip::engine
