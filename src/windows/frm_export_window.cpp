#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"
#include "windows/work_parts.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

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

} // namespace

void Layout_frm_Export(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(24);
    panes->addLayout(TargetColumn(window), 1);
    panes->addLayout(MakeFilesColumn(window, QDialog::tr("Current &Listed Databases (default EXPORT location)")), 1);
    rows->addLayout(panes, 1);

    AddAccount(*rows, window, QDialog::tr("Left out"));
    AddWorkFoot(*rows, window, {u"cmdStop"_s, u"cmdExport"_s, u"cmdExit"_s}, u"cmdExport"_s);
    // The export makes a directory that is not there: a click takes no focus from the path, whose question would swallow it.
    window.findChild<QPushButton*>(u"cmdExport"_s)->setFocusPolicy(Qt::TabFocus);
    window.resize(900, 520);
}

} // namespace vasclip::windows
