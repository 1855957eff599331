// What came of an archive, in words.

#include "upkeep/archive_records.h"

#include "platform/text/counted.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kMoved{u"record was moved into "_s, u"records were moved into "_s};
const text::Counted kLeft{u"record of these dates stays in the Databook."_s, u"records of these dates stay in the Databook."_s};
const text::Counted kPictures{u"picture is in the archive and could not be deleted here."_s,
                              u"pictures are in the archive and could not be deleted here."_s};

} // namespace

QString WordsOf(const Archived& done, const QString& file)
{
    if (done.empty)
        return u"The Source Database is empty."_s;
    const auto all = done.moved + done.overwritten;
    QString words = kMoved(all) + file;
    if (done.overwritten > 0)
        words += u", %1 of them in the place of a record there"_s.arg(done.overwritten);
    words += u'.';
    if (!done.left.isEmpty())
        words += u' ' + kLeft(done.left.size());
    if (!done.pictures.isEmpty())
        words += u' ' + kPictures(done.pictures.size());
    if (!done.missing.isEmpty())
        words += u" Pictures of theirs that were not there: %1."_s.arg(done.missing.size());
    if (done.failure)
        return u"It ended at %1: %2. "_s.arg(done.failedAt.isEmpty() ? u"a record that could not be read"_s : done.failedAt,
                                             done.failure->Description()) +
               words + u" The others were not looked at."_s;
    return done.stopped ? u"Stopped. "_s + words : words;
}

} // namespace vasclip::upkeep
