#include "windows/screen_layouts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

void Layout_frm_ChangeDB(QDialog& window, forms::Screen&)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);
    auto* directory = new QLabel(&window);
    directory->setObjectName(u"lblDirectory"_s);
    directory->setProperty("role", u"title"_s);
    rows->addWidget(directory);
    auto* list = new QListView(&window);
    list->setObjectName(u"lstdatabases"_s);
    list->setAccessibleName(QDialog::tr("Databases"));
    rows->addWidget(list, 1);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addStretch(1);
    auto* ok = new QPushButton(&window);
    ok->setObjectName(u"cmdOk"_s);
    ok->setDefault(true);
    foot->addWidget(ok);
    auto* cancel = new QPushButton(&window);
    cancel->setObjectName(u"cmdCancel"_s);
    cancel->setAutoDefault(false);
    foot->addWidget(cancel);
    rows->addLayout(foot);
    window.resize(420, 320);
    list->setFocus();
}

} // namespace vasclip::windows
