#include "windows/layout_parts.h"
#include "windows/picture_view.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

void Layout_frm_CopyPics(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* photos = new QVBoxLayout;
    photos->setSpacing(8);
    auto* list = MakeList(window, u"filListBox"_s, QDialog::tr("Photos to copy"));
    list->setMinimumWidth(260);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeWords(window, QDialog::tr("&Photos"), "title", list), 1);
    head->addWidget(MakeLabel(window, u"lblCount"_s, "quiet"));
    photos->addLayout(head);
    photos->addWidget(list, 1);
    photos->addLayout(MakeButtonRow(window, {u"cmdSelectAll"_s, u"cmdClear"_s}));

    auto* right = new QVBoxLayout;
    right->setSpacing(8);
    right->addWidget(MakeCheck(window, u"ckbPicPreview"_s));
    right->addWidget(MakePicture(window, u"geaPreview"_s, QDialog::tr("Select a photo to see it")), 1);

    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(MakeFolders(window, u"NewDrive"_s, u"newPath"_s), 2);
    panes->addLayout(photos, 3);
    panes->addLayout(right, 4);
    rows->addLayout(panes, 1);

    auto* foot = MakeFoot(window);
    auto* gauge = MakeGauge(window, u"gauCopy"_s);
    gauge->setMinimumWidth(280);
    foot->addWidget(gauge);
    auto* copy = MakeButton(window, u"cmdCopy"_s);
    copy->setProperty("primary", true);
    foot->addWidget(copy);
    foot->addWidget(MakeButton(window, u"Command2"_s));
    rows->addLayout(foot);
    window.resize(1000, 560);
}

} // namespace vasclip::windows
