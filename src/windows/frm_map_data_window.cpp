#include "windows/layout_parts.h"
#include "windows/record_grid.h"
#include "windows/screen_layouts.h"
#include "windows/work_parts.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The maps that there are, and what is done with one.
QVBoxLayout* MapsColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeLabel(window, u"lblDirectory"_s, "title"), 1);
    head->addWidget(MakeLabel(window, u"lblTotal"_s, "quiet"));
    column->addLayout(head);
    auto* maps = new RecordGrid(&window);
    maps->setObjectName(u"grdmaps"_s);
    maps->setAccessibleName(QDialog::tr("Street maps"));
    maps->FixColumns();
    maps->setMinimumSize(320, 120);
    column->addWidget(maps, 1);
    column->addLayout(MakeButtonRow(window, {u"cmdVerify"_s, u"cmdRemove"_s}));
    return column;
}

/// Where new maps come from.
QVBoxLayout* SourcesColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* sources = MakeList(window, u"lstsources"_s, QDialog::tr("Files and folders of new maps"));
    sources->setMinimumSize(220, 60);
    sources->setTextElideMode(Qt::ElideLeft);
    column->addWidget(MakeWords(window, QDialog::tr("&New maps from"), "title", sources));
    column->addWidget(sources, 1);
    column->addLayout(MakeButtonRow(window, {u"cmdFile"_s, u"cmdFolder"_s, u"cmdTakeOut"_s}));
    auto* fields = MakeFields();
    AddField(*fields, QDialog::tr("&County, if they tell none"), u"txtcounty"_s, window);
    AddField(*fields, QDialog::tr("Its &state"), u"txtstate"_s, window);
    column->addLayout(fields);
    column->addWidget(MakeCheck(window, u"ckbBeside"_s));
    QHBoxLayout* import = MakeButtonRow(window, {});
    auto* button = MakeButton(window, u"cmdImport"_s);
    button->setProperty("primary", true);
    import->addWidget(button);
    column->addLayout(import);
    return column;
}

} // namespace

void Layout_frm_MapData(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(MapsColumn(window), 3);
    panes->addLayout(SourcesColumn(window), 1);
    rows->addLayout(panes, 3);

    auto* beside = MakeButtonRow(window, {u"cmdDiff"_s, u"cmdUse"_s, u"cmdDiscard"_s});
    auto* waits = MakeLabel(window, u"lblBeside"_s, "quiet");
    waits->setWordWrap(true);
    beside->insertWidget(3, waits, 1);
    rows->addLayout(beside);

    AddAccount(*rows, window, QDialog::tr("Account"), 2);
    AddWorkFoot(*rows, window, {u"cmdStop"_s, u"cmdExit"_s});
    window.resize(1272, 640);
}

} // namespace vasclip::windows
