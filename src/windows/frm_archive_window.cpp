#include "windows/icons.h"
#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"
#include "windows/work_parts.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

void AddDate(QDialog& window, QGridLayout& fields, const QString& caption, const QString& box, const QString& calendar)
{
    AddField(fields, caption, box, window);
    auto* edit = window.findChild<QLineEdit*>(box);
    edit->setPlaceholderText(QDialog::tr("mm/dd/yyyy"));
    auto* pick = MakeIconButton(window, calendar, u"calendar"_s);
    pick->setFocusPolicy(Qt::TabFocus);
    pick->setAccessibleName(QDialog::tr("Calendar"));
    fields.addWidget(pick, fields.rowCount() - 1, 2);
}

/// Which records go, and what is done with those that the archive has.
QVBoxLayout* RecordsColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("Archive Date Range"), "title"));
    auto* dates = MakeFields();
    AddDate(window, *dates, QDialog::tr("&Start Date"), u"txtstartdate"_s, u"imastart"_s);
    AddDate(window, *dates, QDialog::tr("St&op Date"), u"txtenddate"_s, u"imastop"_s);
    column->addLayout(dates);
    auto* range = MakeLabel(window, u"lblRange"_s, "quiet");
    range->setWordWrap(true);
    column->addWidget(range);
    column->addSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("IF Duplictes are Found"), "title"));
    for (int i = 0; i < 2; ++i)
        column->addWidget(MakeOption(window, u"optduplicates_%1"_s.arg(i)));
    column->addSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("Total Archived"), "title"));
    auto* counts = MakeFields();
    int row = 0;
    for (const auto& [words, name] : {std::pair{QDialog::tr("Moved"), u"lblCountMoved"_s},
                                      {QDialog::tr("Overwritten"), u"lblCountOverwritten"_s}}) {
        counts->addWidget(MakeWords(window, words, ""), row, 0);
        counts->addWidget(MakeLabel(window, name, "title"), row++, 1);
    }
    column->addLayout(counts);
    column->addStretch(1);
    return column;
}

/// Where they go.
QVBoxLayout* TargetColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("Archive Options"), "title"));
    auto* fields = MakeFields();
    AddField(*fields, QDialog::tr("&Path"), u"txtPath"_s, window);
    AddField(*fields, QDialog::tr("&File"), u"txtFileName"_s, window);
    AddField(*fields, QDialog::tr("&Table"), u"txtTable"_s, window);
    column->addLayout(fields);
    auto* stamp = new QHBoxLayout;
    stamp->addWidget(MakeCheck(window, u"ckbDateStamp"_s));
    stamp->addStretch(1);
    stamp->addWidget(MakeButton(window, u"cmdBrowse"_s));
    column->addLayout(stamp);
    auto* files = MakeList(window, u"lstdatabases"_s, QDialog::tr("Databases"));
    files->setMinimumSize(280, 70);
    column->addWidget(MakeWords(window, QDialog::tr("Databases t&here"), "quiet", files));
    column->addWidget(files, 2);
    auto* hidden = MakeList(window, u"fildatabases"_s, QDialog::tr("Databases"));
    column->addWidget(hidden);
    auto* tables = MakeList(window, u"lstTables"_s, QDialog::tr("Tables"));
    tables->setMinimumHeight(60);
    column->addWidget(MakeWords(window, QDialog::tr("Tab&les"), "quiet", tables));
    column->addWidget(tables, 1);
    column->addLayout(MakeButtonRow(window, {u"cmdcreate"_s, u"cmddelete"_s}));
    return column;
}

} // namespace

void Layout_frm_Archive(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(24);
    panes->addLayout(RecordsColumn(window), 1);
    panes->addLayout(TargetColumn(window), 1);
    rows->addLayout(panes, 2);
    AddAccount(*rows, window, QDialog::tr("Records that stay"));
    AddWorkFoot(*rows, window, {u"cmdStop"_s, u"cmdarchive"_s, u"cmdExit"_s}, u"cmdarchive"_s);
    window.resize(860, 540);
}

} // namespace vasclip::windows
