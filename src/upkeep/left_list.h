#pragma once

#include "platform/files/disk.h"

#include <QJsonObject>

namespace vasclip::upkeep {

/// A list beside a Databook of what a process is doing to picture files, by which it is undone or ended when that process
/// was killed: "DATABOOK.MDB", a mark and that of the process and its machine.
class LeftList
{
public:
    /// @param mark  ".placing"
    LeftList(const files::Disk& disk, const QString& databook, const QString& mark);
    ~LeftList() = default;
    LeftList(const LeftList&) = delete;
    LeftList& operator=(const LeftList&) = delete;

    [[nodiscard]] const QString& File() const { return m_file; }
    [[nodiscard]] bool IsThere() const;
    /// Writes it whole, with what tells the process. @throws RuntimeError as Disk::WriteWhole
    void Write(QJsonObject content);
    void Remove();

    /// Hands over each list of that Databook whose process is no more, and deletes those that `settle` answers true for.
    /// Lists of another machine wait for that one: nobody can tell from here whether their process still runs.
    static void Replay(const files::Disk& disk, const QString& databook, const QString& mark,
                       const std::function<bool(const QJsonObject& content)>& settle);

private:
    const files::Disk& m_disk;
    QString m_file;
    bool m_written = false;
};

} // namespace vasclip::upkeep
