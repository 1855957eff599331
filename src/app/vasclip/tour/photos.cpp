// The steps of the tour that work with photos.

#include "app/vasclip/tour/steps.h"

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

bool GeneralViews(const Stage& stage)
{
    return LookAt(stage, u"Setup > General Views"_s, u"general-views"_s);
}

} // namespace vasclip::app
