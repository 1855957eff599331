#pragma once

#include "store/change_walk.h"
#include "upkeep/account.h"

#include <functional>

namespace vasclip::upkeep {

/// The record that a walk has come to. What is set is told to the account;
/// a text that stands there already (but for blanks around it) is not written again.
class RowEdit
{
public:
    RowEdit(store::ChangeWalk& rows, Account& account);

    [[nodiscard]] bool Has(const QString& field) const;
    [[nodiscard]] bool IsNull(const QString& field) const;
    [[nodiscard]] QString Text(const QString& field) const; ///< trimmed, as set; "" for one that is not there
    [[nodiscard]] QString Key() const;                      ///< before the walk, trimmed
    /// Nothing for a field that the table lacks; what is longer than the field is cut.
    void Set(const QString& field, const QString& text);
    /// The record and its pictures' stems go with the walk.
    void Remove() { m_delete = true; }
    void Remark(const QString& words) { m_account.Remark(Key(), words); }

private:
    friend class Walk;
    void Store();

    store::ChangeWalk& m_rows;
    Account& m_account;
    mutable QString m_key;
    bool m_changed = false;
    bool m_delete = false;
};

/// Every record of a table in turn, in one transaction: all of the changes are stored, or none is.
class Walk
{
public:
    /// Told before a record how many are done of how many; false stops the walk.
    using Step = std::function<bool(qint64 done, qint64 of)>;

    /// @param source  of the table. Its cursor stays where it is.
    /// @param reads   the fields that the walk reads or sets, and the key; empty: all. A walk that deletes needs all.
    Walk(store::DataSource& source, Account& account, const QString& words, const QStringList& reads = {});

    /// @return false if it was stopped, and taken back
    /// @throws RuntimeError, what the disk or the database refuse; all of it is taken back then
    [[nodiscard]] bool Run(const Step& step, const std::function<void(RowEdit&)>& repair);
    /// Stems of the pictures of the records that were deleted, each a line.
    [[nodiscard]] const LineFile& Pictures() const { return m_pictures; }

private:
    void DeleteRow(store::ChangeWalk& rows);

    store::DataSource& m_source;
    Account& m_account;
    QString m_words;
    QStringList m_reads;
    QStringList m_fields; ///< that an account can hold
    LineFile m_pictures;
};

} // namespace vasclip::upkeep
