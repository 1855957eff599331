// The steps of the tour that set the program up and tell about it.

#include "app/vasclip/tour/steps.h"

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

bool GridLayouts(const Stage& stage)
{
    return LookAt(stage, u"Setup > Grid Layout"_s, u"grid-layout"_s);
}

bool Settings(const Stage& stage)
{
    return LookAt(stage, u"Setup > Configuration"_s, u"settings"_s, [&](QWidget& dialog) {
        if (auto* pages = dialog.findChild<QListWidget*>(u"SSConfig"_s)) {
            for (int page = 0; page < pages->count(); ++page) {
                pages->setCurrentRow(page);
                Settle(30);
                stage.tour.Check(dialog);
            }
            pages->setCurrentRow(0);
        }
        auto* search = dialog.findChild<QLineEdit*>(u"txtFind"_s);
        if (!search)
            return;
        search->insert(u"photo"_s);
        Settle(300); // its clear button fades in
        stage.tour.Shoot(dialog, u"settings-search"_s);
    });
}

bool Cities(const Stage& stage)
{
    return LookAt(stage, u"Maintenance > City Editing"_s, u"cities"_s);
}

bool Databases(const Stage& stage)
{
    return LookAt(stage, u"Database > Change Current Database"_s, u"databases"_s);
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
    const bool about = LookAt(stage, u"Help > About"_s, u"about"_s);
    return LookAt(stage, u"Help > What's New?"_s, u"whats-new"_s) && about;
}

} // namespace vasclip::app
