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
#include <QRadioButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QLineEdit* MakeBox(QDialog& window, const QString& name)
{
    auto* box = new QLineEdit(&window);
    box->setObjectName(name);
    return box;
}

/// Where and how to search.
QLayout* WishColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    column->addLayout(MakeFolders(window, u"drive"_s, u"dir"_s), 3);
    auto* types = MakeBox(window, u"txtPictureType"_s);
    auto* files = MakeList(window, u"files"_s, QDialog::tr("Photos in the directory"));
    auto* row = new QHBoxLayout;
    row->addWidget(MakeWords(window, QDialog::tr("File t&ypes"), "quiet", types));
    row->addWidget(types, 1);
    column->addLayout(row);
    column->addWidget(files, 2);
    return column;
}

QLayout* FoundColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    for (int i = 0; i < 4; ++i) {
        auto* option = MakeOption(window, u"optSearch_%1"_s.arg(i));
        option->setAutoExclusive(false); // the rules keep one of them on
        column->addWidget(option);
    }
    auto* after = MakeBox(window, u"txtAfter"_s);
    after->setMaximumWidth(220);
    auto* caption = MakeLabel(window, u"lblAfter"_s, "quiet");
    caption->setBuddy(after);
    auto* time = new QHBoxLayout;
    time->setContentsMargins(24, 0, 0, 0);
    time->setSpacing(8);
    time->addWidget(caption);
    time->addWidget(after);
    time->addStretch(1);
    column->insertLayout(2, time);

    auto* found = MakeList(window, u"lstdirectory2"_s, QDialog::tr("Directories found"));
    found->setUniformItemSizes(true);
    found->setMinimumWidth(420);
    auto* hidden = MakeList(window, u"lstfoundfiles"_s, {});
    hidden->hide();
    auto* recent = MakeLabel(window, u"lblRecent"_s, "quiet");
    recent->setBuddy(found);
    column->addWidget(recent);
    column->addWidget(found, 1);
    auto* select = MakeLabel(window, u"lblSelect"_s);
    select->setWordWrap(true);
    column->addWidget(select);
    column->addWidget(MakeLabel(window, u"lbldirectory"_s, "title"));
    return column;
}

} // namespace

void Layout_frm_SearchPics(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(WishColumn(window), 1);
    panes->addLayout(FoundColumn(window), 2);
    rows->addLayout(panes, 1);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    foot->addWidget(message, 1);
    auto* find = MakeButton(window, u"cmdSearch"_s);
    find->setDefault(true);
    foot->addWidget(find);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.resize(1040, 600);
}

} // namespace vasclip::windows
