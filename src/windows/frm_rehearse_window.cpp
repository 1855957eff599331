#include "windows/layout_parts.h"
#include "windows/record_grid.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

RecordGrid* MakeGrid(QDialog& window, const QString& name, const QString& accessibleName)
{
    auto* grid = new RecordGrid(&window);
    grid->setObjectName(name);
    grid->setAccessibleName(accessibleName);
    grid->FixColumns();
    grid->setMinimumHeight(120);
    return grid;
}

} // namespace

void Layout_frm_Rehearse(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeLabel(window, u"lblSource"_s, "title"), 1);
    head->addWidget(MakeLabel(window, u"lblSummary"_s, "quiet"));
    rows->addLayout(head);
    rows->addWidget(MakeGrid(window, u"grdrows"_s, QDialog::tr("Rows of the file")), 3);

    auto* choices = new QHBoxLayout;
    choices->setSpacing(16);
    for (int i = 0; i < 4; ++i) {
        auto* option = new QRadioButton(&window);
        option->setObjectName(u"optChoice_%1"_s.arg(i));
        choices->addWidget(option);
    }
    auto* kind = new QCheckBox(&window);
    kind->setObjectName(u"ckbKind"_s);
    choices->addSpacing(16);
    choices->addWidget(kind);
    choices->addStretch(1);
    rows->addLayout(choices);

    rows->addWidget(MakeWords(window, QDialog::tr("Field by field"), "title"));
    rows->addWidget(MakeGrid(window, u"grdfields"_s, QDialog::tr("Field by field")), 2);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    auto* gauge = MakeGauge(window, u"gauWork"_s);
    gauge->setMinimumWidth(280);
    foot->addWidget(gauge);
    foot->addWidget(MakeButton(window, u"cmdRefused"_s));
    foot->addWidget(MakeButton(window, u"cmdStop"_s));
    auto* act = MakeButton(window, u"cmdImport"_s);
    act->setProperty("primary", true);
    foot->addWidget(act);
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(940, 600);
}

} // namespace vasclip::windows
