#include "forms/screen.h"
#include "windows/layout_parts.h"
#include "windows/picture_view.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QToolButton>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A button and the picture that means the same.
void AddPair(QBoxLayout& row, QDialog& window, const QString& picture, const QString& icon,
             QPushButton* button)
{
    auto* pair = new QHBoxLayout;
    pair->setSpacing(2);
    pair->addWidget(MakeIconButton(window, picture, icon));
    pair->addWidget(button);
    row.addLayout(pair);
}

} // namespace

void Layout_frm_GenView(QDialog& window, forms::Screen& screen)
{
    auto* rows = MakeRows(window);
    auto* whose = MakeLabel(window, u"lblWhose"_s);
    whose->setProperty("role", u"title"_s);
    whose->setWordWrap(true);
    rows->addWidget(whose);
    auto* words = MakeLabel(window, u"lblViews"_s);
    words->setWordWrap(true);
    rows->addWidget(words);

    auto* name = new QLineEdit(&window);
    name->setObjectName(u"txtView"_s);
    auto* list = MakeList(window, u"lstViews"_s, QDialog::tr("General views"));
    auto* left = new QVBoxLayout;
    left->setSpacing(8);
    left->addWidget(MakeWords(window, QDialog::tr("&View"), "quiet", name));
    left->addWidget(name);
    left->addWidget(MakeWords(window, QDialog::tr("&General views"), "quiet", list));
    left->addWidget(list, 1);
    auto* keep = new QHBoxLayout;
    keep->setSpacing(8);
    AddPair(*keep, window, u"imaAdd"_s, u"add"_s, MakeButton(window, u"cmdAddView"_s));
    AddPair(*keep, window, u"imaDelView"_s, u"delete"_s, MakeButton(window, u"cmdDelView"_s));
    keep->addStretch(1);
    left->addLayout(keep);

    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(left, 1);
    auto* preview = MakePicture(window, u"geaPreview"_s, {});
    preview->setMinimumSize(320, 240);
    const forms::Control* shown = screen.controls.Find(u"geaPreview"_s);
    panes->addWidget(preview, 1);
    preview->setVisible(shown == nullptr || shown->Visible());
    rows->addLayout(panes, 1);

    auto* foot = MakeFoot(window);
    auto* ok = MakeButton(window, u"cmdOK"_s);
    ok->setDefault(true); // Return in the box takes what it names
    AddPair(*foot, window, u"imaOK"_s, u"check"_s, ok);
    AddPair(*foot, window, u"imaCancel"_s, u"close"_s, MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.resize(preview->isHidden() ? 520 : 820, 440);
    window.setTabOrder(name, list);
    name->setFocus();
}

} // namespace vasclip::windows
