#pragma once

#include "upkeep/import_table.h"

#include <memory>

namespace vasclip::store {
class Rows;
}

namespace vasclip::upkeep {

/// What a row of the source is to the Databook.
enum class RowKind {
    New,
    Changed, ///< a record of its key is there and holds something else
    Same,    ///< a record of its key holds the same
    Twin,    ///< a record of another key stands at the same address
    Refused,
};
/// What becomes of a row.
enum class RowChoice {
    Add,        ///< a record of its own
    KeepMine,   ///< stays out
    TakeTheirs, ///< the record takes what the row holds
    FillBlanks, ///< the same, only where the record holds nothing
};
struct RehearsedRow
{
    qint64 place = 0; ///< in the source; -1 for a line of a list whose values can't be stored
    QString key;    ///< of a refused one with its place in the source before it
    QString stored; ///< the key as the source has it, but for the blanks behind it; some have blanks before it
    RowKind kind = RowKind::New;
    RowChoice choice = RowChoice::KeepMine;
    QString mine; ///< key of the record that it meets; "" for none
    QString why;  ///< of a refused one, of one that another row of the source is like, of one that was not carried out
    int differences = 0;
    RowPicture picture = RowPicture::None;
};

/// A field of a row beside that of the record that it meets.
struct FieldPair
{
    QString field, mine, theirs;
};

struct RehearsalResult
{
    bool done = false; ///< false: the Databook is as it was
    bool stopped = false;
    qint64 added = 0;
    qint64 changed = 0;
    QStringList undone; ///< "KEY: why" of rows whose choice came to nothing
    SavedImages pictures;
    QStringList damage; ///< as Rehearsal::Damage
};

/// An import that is looked at before anything is done: what each row would do, and the choice for it.
class Rehearsal
{
public:
    /// Reads source and Databook. @param step  told meanwhile. @throws RuntimeError as PlanImport
    Rehearsal(const TransferDesk& desk, const ImportOrder& order, const WorkStep& step = NeverStops);
    ~Rehearsal();

    [[nodiscard]] bool Stopped() const { return m_stopped; } ///< by the step: it knows only a part, and does nothing
    [[nodiscard]] const QList<RehearsedRow>& Rows() const { return m_rows; }
    [[nodiscard]] qsizetype Count(RowKind kind) const;
    [[nodiscard]] const QStringList& LeftBehind() const { return m_order.list ? m_order.list->LeftBehind() : m_plan.leftBehind; }
    [[nodiscard]] const QString& Source() const { return m_order.Name(); } ///< what people call it
    [[nodiscard]] const QStringList& Damage() const { return m_damage; }    ///< what of the source could not be read
    /// Fields that differ, or with `all` each field that either holds, side by side. @throws RuntimeError of the engine
    [[nodiscard]] QList<FieldPair> FieldsOf(const RehearsedRow& row, bool all = false) const;

    /// May a row of this kind be treated so?
    [[nodiscard]] static bool Fits(RowKind kind, RowChoice choice);
    void Choose(qsizetype row, RowChoice choice); ///< nothing where it does not fit
    void ChooseAll(RowKind kind, RowChoice choice);

    /// Does what was chosen in one transaction. A record that somebody changed meanwhile takes part as it is then; where
    /// one was added under a row's key, or mine was deleted, the row is not carried out, and says so.
    /// @throws RuntimeError of disk and engine; the Databook is then as it was
    RehearsalResult Carry(const WorkStep& step);

    /// Writes the rows that were refused, with the reason in a last column, as a CSV file that can be mended and imported;
    /// those of a list as the list has them. @return how many. @throws RuntimeError 75, also for the source itself
    qsizetype WriteRefused(const QString& file) const;

private:
    using Undone = QHash<qsizetype, QString>; ///< why, by the place among the rows
    void Read(const WorkStep& step);
    void Sort(const WorkStep& step);
    void AddRefusedLines();
    void Compare(const QList<qsizetype>& rows, const WorkStep& step);
    void FindTwins(const WorkStep& step);
    [[nodiscard]] bool GoesOn(const WorkStep& step, qint64 done, qint64 of, const QString& words);
    QStringList AddRows(RehearsalResult& result, Undone& undone); ///< @return the keys of those that came in
    [[nodiscard]] QString ChangeRow(const RehearsedRow& row, RehearsalResult& result);
    [[nodiscard]] QByteArray RefusedText() const;
    [[nodiscard]] bool HasPhotos(const RehearsedRow& row) const; ///< has my record any?

    TransferDesk m_desk;
    ImportOrder m_order;
    std::shared_ptr<engine::Database> m_source;
    ImportPlan m_plan;
    std::unique_ptr<store::Rows> m_theirs;
    QList<RehearsedRow> m_rows;
    QStringList m_damage;
    bool m_stopped = false;
};

[[nodiscard]] QString NameOf(RowKind kind);
[[nodiscard]] QString NameOf(RowChoice choice);
[[nodiscard]] QString WordsOf(const RehearsalResult& result);
/// A line for each row and picture whose choice came to nothing, and for what could not be read.
[[nodiscard]] QStringList LeftOutOf(const RehearsalResult& result);
/// How many rows of each kind there are, in one line.
[[nodiscard]] QString SummaryOf(const Rehearsal& rehearsal);

} // namespace vasclip::upkeep
