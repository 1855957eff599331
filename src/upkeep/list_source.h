#pragma once

#include "upkeep/import_plan.h"
#include "upkeep/list_file.h"

namespace vasclip::upkeep {

/// The lines of a list as a database of their own, which goes when this does. Keys come from the addresses where the list
/// has none; dates and numbers are stored as the Databook writes them.
class ListSource
{
public:
    static const QString kTable;

    /// @param file  outlives this. @throws RuntimeError of the disk, 3343 for a list that can't be read to its end
    ListSource(const TransferDesk& desk, std::shared_ptr<const ListFile> file, const ListLook& look, const WorkStep& step);
    ~ListSource();
    ListSource(const ListSource&) = delete;
    ListSource& operator=(const ListSource&) = delete;

    [[nodiscard]] const QString& File() const { return m_file; } ///< of the database
    [[nodiscard]] const QString& Original() const { return m_list->File(); }
    [[nodiscard]] bool Stopped() const { return m_stopped; }
    [[nodiscard]] const QList<RefusedRow>& Refused() const { return m_refused; } ///< lines whose values can't be stored
    [[nodiscard]] const QStringList& LeftBehind() const { return m_leftBehind; }
    /// Refused rows of the database as lines of the list, with the heading of the column that is at fault.
    void NameLines(ImportPlan& plan) const;
    /// The line behind a row of the database.
    [[nodiscard]] qint64 LineOf(qint64 place) const { return m_lines.at(static_cast<std::size_t>(place)); }

    /// The headings and some lines as the list has them, each with its reason behind it, as a CSV text of the list's own
    /// delimiter and code page.
    /// @param reasons  by line. @throws RuntimeError 75 where the file has changed since
    [[nodiscard]] QByteArray Refusals(const QHash<qint64, QString>& reasons) const;

private:
    void Fill(const WorkStep& step);
    void Remove() const;
    [[nodiscard]] QStringList MakeTable() const;
    [[nodiscard]] QString HeadingOf(const QString& field) const;

    const TransferDesk m_desk;
    std::shared_ptr<const ListFile> m_list;
    ListLook m_look;
    QString m_file;
    bool m_stopped = false;
    QList<RefusedRow> m_refused;
    QStringList m_leftBehind;
    std::vector<qint64> m_lines;
};

} // namespace vasclip::upkeep
