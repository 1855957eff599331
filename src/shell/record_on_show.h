#pragma once

#include <QString>

#include <memory>

namespace vasclip::databook {
class GridRows;
class QuickFind;
class RecordDesk;
} // namespace vasclip::databook

namespace vasclip::shell {

class Program;

/// The record that the window speaks of: grid, entry area, photos and status line say the same of it, or of none.
class RecordOnShow
{
public:
    explicit RecordOnShow(Program& program);
    ~RecordOnShow();

    /// CENTRALKEY of the record; "" for none.
    [[nodiscard]] const QString& Key() const { return m_key; }
    /// Rows come and go: the one to stand on is not known yet.
    [[nodiscard]] bool Changing() const { return m_changing; }
    [[nodiscard]] databook::GridRows& Rows() { return *m_rows; }
    [[nodiscard]] databook::QuickFind& QuickFind() { return *m_quickFind; }

    void DisplayAllRecords();
    void grddatabook_RowColChange();
    /// The user means the row: an address that was typed meanwhile gives way to its own.
    void grddatabook_Click();
    /// Shows the records anew and stands on the row of a key. A record that the grid leaves out is shown beside
    /// a grid that stands nowhere; for a key without a record the row that has moved up takes its place.
    void ShowRecord(const QString& key);
    void ShowPhoto();
    /// The row that a drop was let go on becomes the current one.
    /// @param key  of the record that was seen there
    /// @return false if another record stands there now, or none; the status line says so
    bool TakeRow(qint64 row, const QString& key);

private:
    void ShowNoRecord();
    void ShowNoPhotos();
    void ShowOutside(const QString& key);
    [[nodiscard]] qint64 PlaceOf(const QString& key);

    Program& m_program;
    databook::RecordDesk& m_records;
    std::unique_ptr<databook::GridRows> m_rows;
    std::unique_ptr<databook::QuickFind> m_quickFind;
    QString m_key;
    bool m_changing = false;
};

} // namespace vasclip::shell
