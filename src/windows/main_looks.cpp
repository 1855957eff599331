#include "windows/main_looks.h"

#include "ui_frm_main.h"
#include "windows/icons.h"

#include <QToolButton>

#include <tuple>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

void Decorate(Ui::frm_Main& ui)
{
    ui.tabSource->setTabIcon(0, ThemedIcon(u"report"_s));
    ui.tabSource->setTabIcon(1, ThemedIcon(u"map"_s));
    ui.atlasEmpty->SetWords(
        u"map"_s, QObject::tr("No street map"),
        QObject::tr("There are no street files here yet. The guide tells under \"Load street data\" how to load those of a county or a state."));
    ui.geamaintain->SetEmptyIcon(u"photo"_s);
    ui.geamaintain->SetEmptyText(QObject::tr("No photo"));
    ui.lblDatabookADDR->setProperty("role", u"title"_s);
    ui.lblAddingaComp->setProperty("role", u"title"_s);
    ui.lblPhotomsg->setProperty("role", u"quiet"_s);
    ui.recordCount->setProperty("role", u"quiet"_s);
    ui.cmdLink->setAccessibleDescription(QObject::tr("What helps with the link to the forms program"));
    ui.viewsCaption->setProperty("role", u"quiet"_s);
    const std::tuple<QToolButton*, const char*, bool> tools[] = {
        {ui.cmdCopy, "copy", true},          {ui.cmdRename, "rename", true},
        {ui.cmdEdit, "edit", true},          {ui.cmdDelete, "delete", true},
        {ui.cmdAddManual, "manual", false},  {ui.cmdSearch, "search", true},
        {ui.cmdDetails, "details", false},   {ui.cmdRefresh, "refresh", false},
        {ui.cmdPrint, "print", false},       {ui.CmdRenamePhotoView, "rename", false},
        {ui.CmdDeletePhoto, "delete", false}};
    for (const auto& [button, icon, words] : tools) {
        button->setIcon(ThemedIcon(QLatin1StringView(icon)));
        button->setToolButtonStyle(words ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
        button->setFocusPolicy(Qt::StrongFocus);
    }
    ui.mainSplitter->setStretchFactor(0, 1);
    ui.mainSplitter->setStretchFactor(1, 1);
    ui.topSplitter->setStretchFactor(0, 5);
    ui.topSplitter->setStretchFactor(1, 2);
    // On a large screen the rest of the row stays free.
    ui.txtcentralkey->setMinimumWidth(170); // a usual address whole
    ui.cboapprslType->setMinimumWidth(140);
    ui.txtcentralkey->setMaximumWidth(560);
    ui.cboapprslType->setMaximumWidth(320);
    ui.txtQuickFind->setMaximumWidth(480);
    ui.reportPane->setMinimumSize(520, 240);
    ui.recordPane->setMinimumSize(280, 200);
    ui.recordsPane->setMinimumSize(420, 160);
    ui.browserPane->setMinimumHeight(160);
    ui.bottomSplitter->setStretchFactor(0, 5);
    ui.bottomSplitter->setStretchFactor(1, 2);
}

void NamesForReaders(Ui::frm_Main& ui)
{
    ui.grddatabook->setAccessibleName(QObject::tr("Databook records"));
    ui.txtcentralkey->setAccessibleName(QObject::tr("Address of a comp"));
    ui.txtQuickFind->setAccessibleName(QObject::tr("Quick find in the Databook"));
    ui.txtQuickFind->setToolTip(QObject::tr(
        "Narrows the grid by words of the key, address, city, neighborhood and notes; Esc shows all"));
    ui.cboapprslType->setAccessibleName(QObject::tr("Type of the comp"));
    ui.geamaintain->setAccessibleName(QObject::tr("Photo of the current record"));
    ui.lstViews->setAccessibleName(QObject::tr("Views of the current record"));
    ui.txtView->setAccessibleName(QObject::tr("Name of the view"));
    ui.TabData->tabBar()->setAccessibleName(QObject::tr("Groups of the report"));
}

} // namespace vasclip::windows
