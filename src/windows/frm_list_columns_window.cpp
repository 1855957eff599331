#include "windows/layout_parts.h"
#include "windows/record_grid.h"
#include "windows/screen_layouts.h"
#include "windows/work_parts.h"

#include "upkeep/frm_list_columns.h"

#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QComboBox* AddCombo(QHBoxLayout& row, QDialog& window, const QString& name, const QString& words)
{
    auto* box = new QComboBox(&window);
    box->setObjectName(name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    row.addWidget(MakeWords(window, words, "", box));
    row.addWidget(box);
    return box;
}

/// What the lines are: a sheet, or a text with its delimiter and code page; and how values are written.
QHBoxLayout* WritingRow(QDialog& window, bool book)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    // Both kinds have their control on every screen; those of the other kind stay out of sight.
    const auto spare = [&window](const QString& name) {
        auto* box = new QComboBox(&window);
        box->setObjectName(name);
        box->setAccessibleName(name);
        box->hide();
    };
    if (book) {
        AddCombo(*row, window, u"cboSheet"_s, QDialog::tr("&Sheet"));
        spare(u"cboDelimiter"_s);
        spare(u"cboCodePage"_s);
    } else {
        spare(u"cboSheet"_s);
        AddCombo(*row, window, u"cboDelimiter"_s, QDialog::tr("Be&tween values"));
        AddCombo(*row, window, u"cboCodePage"_s, QDialog::tr("&Code page"));
    }
    auto* headings = new QLineEdit(&window);
    headings->setObjectName(u"txtHeadings"_s);
    headings->setFixedWidth(56);
    headings->setAlignment(Qt::AlignRight);
    headings->setToolTip(QDialog::tr("0 where the list has no headings"));
    row->addWidget(MakeWords(window, QDialog::tr("&Headings in line"), "", headings));
    row->addWidget(headings);
    AddCombo(*row, window, u"cboDates"_s, QDialog::tr("&Dates"));
    AddCombo(*row, window, u"cboDecimal"_s, QDialog::tr("&Numbers"));
    row->addStretch(1);
    return row;
}

QHBoxLayout* PresetRow(QDialog& window)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    auto* field = AddCombo(*row, window, u"cboField"_s, QDialog::tr("This column &goes into"));
    field->setMinimumWidth(240);
    row->addStretch(1);
    auto* preset = AddCombo(*row, window, u"cboPreset"_s, QDialog::tr("&Preset"));
    preset->setEditable(true);
    preset->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    preset->setMinimumWidth(180);
    row->addWidget(MakeButton(window, u"cmdKeep"_s));
    row->addWidget(MakeButton(window, u"cmdForget"_s));
    return row;
}

} // namespace

void Layout_frm_ListColumns(QDialog& window, forms::Screen& screen)
{
    const auto& columns = dynamic_cast<const upkeep::frm_ListColumns&>(screen);
    auto* rows = MakeRows(window);
    rows->addWidget(MakeLabel(window, u"lblSource"_s, "title"));
    rows->addLayout(WritingRow(window, columns.cboSheet.Visible()));
    rows->addWidget(MakeGrid(window, u"grdcolumns"_s, QDialog::tr("Columns of the file")), 3);
    rows->addLayout(PresetRow(window));
    auto* lines = MakeGrid(window, u"grdlines"_s, QDialog::tr("The first lines as they would come in"));
    rows->addWidget(MakeWords(window, QDialog::tr("The first &lines as they would come in"), "title", lines));
    rows->addWidget(lines, 3);
    auto* faults = MakeList(window, u"lstfaults"_s, QDialog::tr("What can't be read"));
    faults->setMinimumHeight(70);
    auto* heading = MakeLabel(window, u"lblFaults"_s, "title");
    heading->setBuddy(faults);
    rows->addWidget(heading);
    rows->addWidget(faults, 1);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    auto* act = MakeButton(window, u"cmdGo"_s);
    act->setProperty("primary", true);
    foot->addWidget(act);
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(1000, 680);
}

} // namespace vasclip::windows
