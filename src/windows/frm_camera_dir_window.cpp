#include "windows/screen_layouts.h"

#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QLabel* Words(QDialog& window, const QString& text, QWidget* buddy)
{
    auto* words = new QLabel(text, &window);
    words->setProperty("role", u"quiet"_s);
    words->setBuddy(buddy);
    return words;
}

QPushButton* Button(QDialog& window, const QString& name)
{
    auto* button = new QPushButton(&window);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QListView* List(QDialog& window, const QString& name, const QString& accessibleName)
{
    auto* list = new QListView(&window);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    list->setMinimumSize(240, 220);
    return list;
}

} // namespace

void Layout_frm_CameraDir(QDialog& window, forms::Screen&)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);
    auto* path = new QLabel(&window);
    path->setObjectName(u"lbldirectory"_s);
    path->setProperty("role", u"title"_s);
    path->setTextFormat(Qt::PlainText);
    rows->addWidget(path);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(16);
    auto* folders = new QVBoxLayout;
    folders->setSpacing(6);
    auto* drives = new QComboBox(&window);
    drives->setObjectName(u"DrvCapture"_s);
    auto* directories = List(window, u"dirCapture"_s, QDialog::tr("Folders"));
    folders->addWidget(Words(window, QDialog::tr("Dri&ve and folder"), drives));
    folders->addWidget(drives);
    folders->addWidget(directories, 1);
    folders->addWidget(Button(window, u"cmdSetDefault"_s));
    folders->addWidget(Button(window, u"cmdRevDefault"_s));
    columns->addLayout(folders, 1);

    auto* kept = new QVBoxLayout;
    kept->setSpacing(6);
    auto* favorites = List(window, u"lstFavorites"_s, QDialog::tr("Favorites"));
    kept->addWidget(Words(window, QDialog::tr("&Favorites"), favorites));
    kept->addWidget(favorites, 1);
    kept->addWidget(Button(window, u"cmdFavorites"_s));
    kept->addWidget(Button(window, u"cmdDelFavorite"_s));
    columns->addLayout(kept, 1);
    rows->addLayout(columns, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addStretch(1);
    QPushButton* ok = Button(window, u"cmdOK"_s);
    ok->setProperty("primary", true);
    foot->addWidget(ok);
    foot->addWidget(Button(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.setMinimumWidth(620);
    directories->setFocus();
}

} // namespace vasclip::windows
