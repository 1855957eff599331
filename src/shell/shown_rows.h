#pragma once

#include "databook/record_desk.h"

#include <functional>

namespace vasclip::shell {

class Program;
class RecordOnShow;

/// Which rows the grid shows, in which order and with which columns: search, conditions, sort, layouts.
class ShownRows : public QObject
{
    Q_OBJECT
public:
    ShownRows(Program& program, RecordOnShow& shown);

    void cmdSearch_Click();
    /// No search and no quick find: every record, and the one on show stays it.
    void ShowAllRecords();
    void ShowGridLayout();

private:
    void CloseCondition(const QString& chip);
    void ShowOtherRecords(const std::function<void()>& change);
    void grddatabook_HeadClick(const QString& field);

    Program& m_program;
    databook::RecordDesk& m_records;
    RecordOnShow& m_shown;
};

} // namespace vasclip::shell
