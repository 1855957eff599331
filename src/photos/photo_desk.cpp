#include "photos/photo_desk.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {

PhotoDesk::PhotoDesk(const forms::Ports& itsPorts, const files::Disk& itsDisk,
                     const common::Globals& itsGlobals, store::DataSource& itsDatabook, PhotoLists& itsLists,
                     SlotLoader& itsLoader, common::StatusDesk& itsStatus, PhotoQuestions& itsQuestions)
    : ports(itsPorts)
    , disk(itsDisk)
    , globals(itsGlobals)
    , databook(itsDatabook)
    , lists(itsLists)
    , loader(itsLoader)
    , status(itsStatus)
    , questions(itsQuestions)
    , geaRes(hidden, u"geaRes"_s)
    , geatemp(hidden, u"geatemp"_s)
{}

} // namespace vasclip::photos
