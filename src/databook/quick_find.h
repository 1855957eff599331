#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "databook/record_desk.h"

#include <QTimer>

#include <memory>
#include <vector>

namespace vasclip::databook {

class GridRows;

/// The fields that the quick-find box looks in.
[[nodiscard]] const QStringList& QuickFindFields();

/// The words of what was typed.
[[nodiscard]] QStringList QuickFindWords(QString typed);
/// What is told of an index that was not right; "" for one that was.
[[nodiscard]] QString IndexText(engine::TextIndexTrouble trouble);

/// Some rows of the grid's records, in their order: a bit a record.
class FoundRows : public forms::GridSource
{
public:
    explicit FoundRows(const GridRows& rows);

    [[nodiscard]] qint64 RowCount() const override { return m_count; }
    [[nodiscard]] QStringList FieldNames() const override;
    [[nodiscard]] QStringList Row(qint64 row) const override;
    [[nodiscard]] QDate Today() const override;

    void Begin(qint64 records);                        ///< none found among so many
    void Add(qint64 position);                         ///< of a record in the grid's order
    void Count();                                      ///< after a few Adds: the rows are there
    [[nodiscard]] qint64 PositionOf(qint64 row) const; ///< -1 outside of the rows
    [[nodiscard]] qint64 RowOf(qint64 position) const; ///< -1 for a record that was not found

private:
    const GridRows& m_rows;
    std::vector<quint64> m_bits;
    std::vector<qint64> m_before; ///< found ones before each word of bits
    qint64 m_count = 0;
};

/// Narrows the grid, as one types in `txtQuickFind`, to the records that hold every word typed in their key,
/// address, city, neighbourhood or notes. Search and statement stay as they are; an emptied box shows all of
/// their records again.
///
/// It works in slices of a few milliseconds, one in the keystroke and the others between events.
class QuickFind : public QObject
{
    Q_OBJECT
public:
    /// All of them outlive it.
    QuickFind(const forms::Ports& ports, RecordDesk& desk, store::DataSource& datsql, GridRows& rows,
              common::StatusDesk& status, const common::Globals& globals);
    ~QuickFind() override;

    /// Does one slice of work: the rest of a find, or of making the index. @return false when there is none
    bool Work();
    [[nodiscard]] bool Searching() const { return m_searching; }
    void Clear(); ///< empties the box
    /// Narrows other records that the grid was given by the words that stand in the box, and keeps the status
    /// line as it is. Done in a later turn of the queue where nobody asks for it.
    void NarrowAgain();
    /// While it is held, other records are narrowed by NarrowAgain alone and not when the queue turns.
    void Hold(bool on) { m_held = on; }

    static constexpr int kSliceMilliseconds = 12;

private:
    void txtQuickFind_Change();
    void Find();
    void Start();
    void Step();
    void ShowFound();
    void ShowAll();
    void ShowCount();
    void KeepIndex();
    void SourceChanged();

    forms::Ports m_ports;
    RecordDesk& m_desk;
    store::DataSource& m_datsql;
    GridRows& m_rows;
    common::StatusDesk& m_status;
    const common::Globals& m_globals;
    FoundRows m_found;
    engine::TextSearch m_search;
    QTimer m_timer;
    bool m_searching = false;
    bool m_narrowed = false;
    bool m_held = false;
    bool m_again = false; ///< other records wait to be narrowed
    bool m_quiet = false; ///< nobody typed: what was said last stays
    bool m_indexed = false;
    engine::TextIndexTrouble m_told = engine::TextIndexTrouble::None;
    qint64 m_stood = -1; ///< the record that was current when the narrowing began
};

} // namespace vasclip::databook
