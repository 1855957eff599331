#include "map/map_start.h"

#include "common/paths.h"
#include "map/messages.h"
#include "map/radius.h"
#include "map/view.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

bool TestMapFiles(MapDesk& desk, const QStringList& problems)
{
    const QString directory = common::CkRSlash(desk.globals.cellData);
    const bool there = desk.disk.FileExists(directory + u"F1"_s);
    desk.state.inUse = there && problems.isEmpty();
    if (desk.state.inUse)
        return true;
    QString words = messages::kMapFiles.arg(directory);
    if (there)
        words += u"\n\n"_s + problems.join(u'\n');
    desk.ports.prompter.Info(messages::kMapFilesTitle, words);
    return false;
}

void ShowMapProblems(MapDesk& desk, const QStringList& problems)
{
    const bool told = desk.state.inUse && !problems.isEmpty();
    desk.tab.lblMapNote.Show(told ? messages::kMapProblems.arg(problems.join(u"; "_s)) : QString(),
                             forms::Colour::Red);
}

void ConfigureMap(MapDesk& desk)
{
    struct Setting
    {
        qint32 feature, attribute;
        double value;
    };
    constexpr double kWhite = 0xFFFFFF, kHighlight = 0xFF0000;
    constexpr Setting kSettings[] = {{11, 10, 0},      {18, 12, 8},         {18, 13, 8},
                                     {21, 13, kWhite}, {21, 1, kHighlight}, {21, 2, 1},
                                     {21, 3, 1}};
    for (const Setting& setting : kSettings)
        ApplyAttribute(desk, setting.feature, setting.attribute, setting.value);
    desk.map.SetStreetClick(desk.tab.ckbLabelStreets.Value());
    ApplyMapDetail(desk);
}

void ReadMapSettings(MapDesk& desk)
{
    desk.tab.ckbRadius.SetValue(desk.globals.radius == 1);
    desk.tab.ckbFreeze.SetValue(desk.globals.freeze == 1);
    desk.tab.ckbLabelStreets.SetValue(desk.globals.labelStreets);
    desk.tab.ckbArrange.SetValue(desk.globals.arrangeArrows == 1);
}

void KeepMapSettings(MapDesk& desk)
{
    desk.globals.radius = desk.tab.ckbRadius.Value() ? 1 : 0;
    desk.globals.freeze = desk.tab.ckbFreeze.Value() ? 1 : 0;
    desk.globals.labelStreets = desk.tab.ckbLabelStreets.Value();
    desk.globals.arrangeArrows = desk.tab.ckbArrange.Value() ? 1 : 0;
}

void AttachMap(MapDesk& desk)
{
    desk.map.OnPointFound([&desk](const QString& text, qint32 id) { PointFound(desk, text, id); });
}

} // namespace vasclip::map
