// What came of an archive, in words.

#include "upkeep/archive_records.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

QString WordsOf(const Archived& done, const QString& file)
{
    if (done.empty)
        return u"The Source Database is empty."_s;
    const auto all = done.moved + done.overwritten;
    QString words = (all == 1 ? u"1 record was moved into %1"_s.arg(file)
                              : u"%1 records were moved into %2"_s.arg(all).arg(file)) +
                    u", %1 of them in the place of a record there."_s.arg(done.overwritten);
    if (!done.left.isEmpty())
        words += u" %1 records of these dates stay in the Databook."_s.arg(done.left.size());
    if (!done.pictures.isEmpty())
        words += u" %1 pictures are in the archive and could not be deleted here."_s.arg(done.pictures.size());
    if (!done.missing.isEmpty())
        words += u" Pictures of theirs that were not there: %1."_s.arg(done.missing.size());
    if (done.failure)
        return u"It ended at %1: %2. "_s.arg(done.failedAt.isEmpty() ? u"a record that could not be read"_s : done.failedAt,
                                             done.failure->Description()) +
               words + u" The others were not looked at."_s;
    return done.stopped ? u"Stopped. "_s + words : words;
}

} // namespace vasclip::upkeep
