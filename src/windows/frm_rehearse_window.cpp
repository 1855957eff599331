#include "windows/layout_parts.h"
#include "windows/record_grid.h"
#include "windows/screen_layouts.h"
#include "windows/work_parts.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

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
    for (int i = 0; i < 4; ++i)
        choices->addWidget(MakeOption(window, u"optChoice_%1"_s.arg(i)));
    choices->addSpacing(16);
    choices->addWidget(MakeCheck(window, u"ckbKind"_s));
    choices->addStretch(1);
    rows->addLayout(choices);

    rows->addWidget(MakeWords(window, QDialog::tr("Field by field"), "title"));
    rows->addWidget(MakeGrid(window, u"grdfields"_s, QDialog::tr("Field by field")), 2);

    AddWorkFoot(*rows, window, {u"cmdRefused"_s, u"cmdStop"_s, u"cmdImport"_s, u"cmdExit"_s}, u"cmdImport"_s);
    window.resize(940, 600);
}

} // namespace vasclip::windows
