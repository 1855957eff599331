#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QCheckBox* MakeCheck(QDialog& window, const QString& name)
{
    auto* box = new QCheckBox(&window);
    box->setObjectName(name);
    return box;
}

/// What is exported, and where to.
QVBoxLayout* TargetColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("Source Data:"), "title"));
    column->addWidget(MakeWords(window, QDialog::tr("Source Data Dir/FileName"), "quiet"));
    auto* source = MakeLabel(window, u"lblSourceDB"_s);
    source->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(source);
    auto* search = MakeLabel(window, u"lblSearch"_s);
    search->setWordWrap(true);
    column->addWidget(search);
    column->addSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("Export Comparables"), "title"));
    auto* fields = MakeFields();
    AddField(*fields, QDialog::tr("Export &Path"), u"txtPath"_s, window);
    AddField(*fields, QDialog::tr("Export File&Name"), u"txtFileName"_s, window);
    AddField(*fields, QDialog::tr("T&able"), u"txtTable"_s, window);
    column->addLayout(fields);
    auto* checks = new QHBoxLayout;
    checks->setSpacing(16);
    checks->addWidget(MakeCheck(window, u"ckbCopy"_s));
    checks->addWidget(MakeCheck(window, u"ckbDateStamp"_s));
    checks->addWidget(MakeCheck(window, u"ckbAccess"_s));
    checks->addStretch(1);
    checks->addWidget(MakeButton(window, u"cmdBrowse"_s));
    column->addLayout(checks);
    column->addStretch(1);
    return column;
}

/// The databases that are there, and the tables of one.
QVBoxLayout* FilesColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* files = MakeList(window, u"filexport"_s, QDialog::tr("Databases"));
    files->setMinimumSize(300, 90);
    column->addWidget(
        MakeWords(window, QDialog::tr("Current &Listed Databases (default EXPORT location)"), "title", files));
    column->addWidget(files, 3);
    auto* tables = MakeList(window, u"lstTables"_s, QDialog::tr("Tables"));
    tables->setMinimumHeight(70);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeWords(window, QDialog::tr("Table&s"), "title", tables), 1);
    head->addWidget(MakeLabel(window, u"lblRecordCount"_s, "quiet"));
    column->addLayout(head);
    column->addWidget(tables, 2);
    auto* deletes = new QHBoxLayout;
    deletes->setSpacing(8);
    deletes->addWidget(MakeButton(window, u"cmdDelete"_s));
    deletes->addWidget(MakeButton(window, u"cmdDeleteDatabase"_s));
    deletes->addStretch(1);
    column->addLayout(deletes);
    return column;
}

} // namespace

void Layout_frm_Export(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(24);
    panes->addLayout(TargetColumn(window), 1);
    panes->addLayout(FilesColumn(window), 1);
    rows->addLayout(panes, 1);

    auto* account = MakeList(window, u"lstaccount"_s, QDialog::tr("Left out"));
    account->setMinimumHeight(80);
    auto* heading = MakeLabel(window, u"lblAccount"_s, "title");
    heading->setBuddy(account);
    rows->addWidget(heading);
    rows->addWidget(account, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    auto* gauge = MakeGauge(window, u"gauWork"_s);
    gauge->setMinimumWidth(280);
    foot->addWidget(gauge);
    foot->addWidget(MakeButton(window, u"cmdStop"_s));
    auto* act = MakeButton(window, u"cmdExport"_s);
    act->setProperty("primary", true);
    foot->addWidget(act);
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(900, 520);
}

} // namespace vasclip::windows
