#include "windows/layout_parts.h"
#include "windows/record_grid.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QHBoxLayout* Row(QDialog& window, const QStringList& buttons)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    for (const QString& name : buttons)
        row->addWidget(MakeButton(window, name));
    row->addStretch(1);
    return row;
}

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
    column->addLayout(Row(window, {u"cmdVerify"_s, u"cmdRemove"_s}));
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
    column->addLayout(Row(window, {u"cmdFile"_s, u"cmdFolder"_s, u"cmdTakeOut"_s}));
    auto* fields = MakeFields();
    AddField(*fields, QDialog::tr("&County, if they tell none"), u"txtcounty"_s, window);
    AddField(*fields, QDialog::tr("Its &state"), u"txtstate"_s, window);
    column->addLayout(fields);
    auto* beside = new QCheckBox(&window);
    beside->setObjectName(u"ckbBeside"_s);
    column->addWidget(beside);
    QHBoxLayout* import = Row(window, {});
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
    panes->addLayout(MapsColumn(window), 2);
    panes->addLayout(SourcesColumn(window), 1);
    rows->addLayout(panes, 3);

    auto* beside = Row(window, {u"cmdDiff"_s, u"cmdUse"_s, u"cmdDiscard"_s});
    auto* waits = MakeLabel(window, u"lblBeside"_s, "quiet");
    waits->setWordWrap(true);
    beside->insertWidget(3, waits, 1);
    rows->addLayout(beside);

    auto* account = MakeList(window, u"lstaccount"_s, QDialog::tr("Account"));
    account->setMinimumHeight(80);
    auto* heading = MakeLabel(window, u"lblAccount"_s, "title");
    heading->setBuddy(account);
    rows->addWidget(heading);
    rows->addWidget(account, 2);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    auto* gauge = MakeGauge(window, u"gauWork"_s);
    gauge->setMinimumWidth(280);
    foot->addWidget(gauge);
    foot->addWidget(MakeButton(window, u"cmdStop"_s));
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(1240, 640);
}

} // namespace vasclip::windows
