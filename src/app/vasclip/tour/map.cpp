// The steps of the tour on the map.

#include "app/vasclip/tour/steps.h"
#include "shell/map_parts.h"

#include <QAbstractButton>
#include <QTabWidget>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDrawn = 600; // milliseconds in which the parts of a map are there

bool Press(const Stage& stage, const QString& name)
{
    auto* button = stage.window.findChild<QAbstractButton*>(name);
    if (!button || !button->isEnabled())
        return stage.tour.Fail(u"There is no button %1 to press."_s.arg(name));
    button->click();
    Settle();
    return true;
}

/// Presses a button that opens a window, and takes its picture.
bool LookThrough(const Stage& stage, const QString& button, const QString& name)
{
    return stage.tour.During(
        button, [&] { Press(stage, button); }, [&](QWidget& dialog) { stage.tour.Shoot(dialog, name); });
}

} // namespace

bool Map(const Stage& stage)
{
    auto* tabs = stage.window.findChild<QTabWidget*>(u"tabSource"_s);
    if (!tabs)
        return stage.tour.Fail(u"There is no map tab."_s);
    tabs->setCurrentIndex(1);
    Settle(kDrawn);
    shell::MapParts& parts = stage.main.program.Map();
    if (!parts.Desk().state.inUse)
        return stage.tour.Fail(u"The home has no maps."_s);
    bool done = Press(stage, u"cmdSubjectAnd"_s);
    Settle(kDrawn);
    stage.tour.Shoot(stage.window, u"map"_s);
    const std::size_t placed = parts.Street().Points().size();
    done = placed >= 2 && Press(stage, u"cmdArrange"_s) && done;
    Settle(kDrawn);
    stage.tour.Shoot(stage.window, u"map-arranged"_s);
    stage.tour.Step(u"Placed %1 points on the map and arranged them."_s.arg(placed));
    done = LookThrough(stage, u"cmdLabelPosition"_s, u"map-find"_s) && done;
    done = LookThrough(stage, u"cmdmanual"_s, u"map-manual"_s) && done;
    stage.tour.Step(u"Looked at finding and placing by hand."_s);
    tabs->setCurrentIndex(0);
    Settle();
    return done;
}

} // namespace vasclip::app
