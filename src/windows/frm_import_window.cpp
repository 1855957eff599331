#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"
#include "windows/work_parts.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Where the records come from, and where they go.
QVBoxLayout* SourceColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("Add to the Databook"), "title"));
    auto* target = MakeLabel(window, u"lblTargetDB"_s);
    target->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(target);
    column->addSpacing(8);
    column->addWidget(MakeWords(window, QDialog::tr("Import Comparables"), "title"));
    auto* locations = new QHBoxLayout;
    locations->setSpacing(12);
    for (int i = 0; i < 3; ++i)
        locations->addWidget(MakeOption(window, u"optLocation_%1"_s.arg(i)));
    locations->addStretch(1);
    column->addLayout(locations);
    auto* fields = MakeFields();
    AddField(*fields, QDialog::tr("Import &Path"), u"txtPath"_s, window);
    AddField(*fields, QDialog::tr("Import File&Name"), u"txtFileName"_s, window);
    AddField(*fields, QDialog::tr("T&able"), u"txtTable"_s, window);
    column->addLayout(fields);
    auto* checks = new QHBoxLayout;
    checks->addWidget(MakeCheck(window, u"ckbCopy"_s), 1);
    checks->addWidget(MakeButton(window, u"cmdBrowse"_s));
    column->addLayout(checks);
    column->addStretch(1);
    return column;
}

} // namespace

void Layout_frm_Import(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(24);
    panes->addLayout(SourceColumn(window), 1);
    panes->addLayout(MakeFilesColumn(window, QDialog::tr("Current &Listed Databases")), 1);
    rows->addLayout(panes, 1);

    AddAccount(*rows, window, QDialog::tr("Left out"));
    AddWorkFoot(*rows, window, {u"cmdStop"_s, u"cmdRehearse"_s, u"cmdImport"_s, u"cmdExit"_s}, u"cmdImport"_s);
    window.resize(900, 520);
}

} // namespace vasclip::windows
