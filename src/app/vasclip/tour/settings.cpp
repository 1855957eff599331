// The steps of the tour that set the program up and tell about it.

#include "app/vasclip/tour/steps.h"

#include <QDialog>
#include <QLineEdit>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Chooses a menu entry, takes a picture of the dialog that it opens, and closes it.
bool Look(const Stage& stage, const QString& entry, const QString& name, const Tour::Visit& more = {})
{
    bool chosen = false;
    const bool shown = stage.tour.During(
        entry, [&] { chosen = stage.tour.Choose(stage.window, entry); },
        [&](QWidget& dialog) {
            stage.tour.Shoot(dialog, name);
            if (more)
                more(dialog);
        });
    stage.tour.Step(u"Looked at %1."_s.arg(entry));
    return chosen && shown;
}

} // namespace

bool GridLayouts(const Stage& stage)
{
    return Look(stage, u"Setup > Grid Layout"_s, u"grid-layout"_s);
}

bool Settings(const Stage& stage)
{
    return Look(stage, u"Setup > Configuration"_s, u"settings"_s, [&](QWidget& dialog) {
        auto* search = dialog.findChild<QLineEdit*>(u"txtFind"_s);
        if (!search)
            return;
        search->insert(u"photo"_s);
        stage.tour.Shoot(dialog, u"settings-search"_s);
    });
}

bool Cities(const Stage& stage)
{
    return Look(stage, u"Maintenance > City Editing"_s, u"cities"_s);
}

bool Databases(const Stage& stage)
{
    return Look(stage, u"Database > Change Current Database"_s, u"databases"_s);
}

bool Guide(const Stage& stage)
{
    if (!stage.tour.Choose(stage.window, u"Help > Program Help"_s))
        return false;
    auto* guide = stage.window.findChild<QDialog*>(u"guideWindow"_s);
    if (!guide || !guide->isVisible())
        return stage.tour.Fail(u"The guide did not come up."_s);
    Settle(300);
    stage.tour.Shoot(*guide, u"guide"_s);
    guide->close();
    stage.tour.Step(u"Looked at the guide."_s);
    return true;
}

bool AboutAndNews(const Stage& stage)
{
    const bool about = Look(stage, u"Help > About"_s, u"about"_s);
    return Look(stage, u"Help > What's New?"_s, u"whats-new"_s) && about;
}

} // namespace vasclip::app
