#include "store/convert.h"
#include "upkeep/export_table.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

QString WordsOf(const ExportResult& result)
{
    if (result.stopped)
        return u"Canceled: %1 is as it was."_s.arg(result.file);
    if (!result.written)
        return u"Nothing was exported: %1 is as it was."_s.arg(result.file);
    QString words = u"%1 to table %2 of %3."_s.arg(result.records == 1 ? u"1 record was exported"_s
                                                                       : u"%1 records were exported"_s.arg(result.records),
                                                   result.table, result.file);
    if (!result.lost.isEmpty())
        words += u" The file has no more: "_s + store::Listed(result.lost) + u'.';
    for (const QString& note : result.notes)
        words += u' ' + note + u'.';
    if (result.pictures + result.without + result.notIn.size() == 0)
        return words;
    words += result.pictures == 1 ? u" 1 picture is inside."_s : u" %1 pictures are inside."_s.arg(result.pictures);
    if (result.without > 0)
        words += u" %1 without a front view."_s.arg(result.without == 1 ? u"1 record is"_s
                                                                        : u"%1 records are"_s.arg(result.without));
    if (!result.notIn.isEmpty())
        words += result.notIn.size() == 1 ? u" 1 picture could not be read."_s
                                          : u" %1 pictures could not be read."_s.arg(result.notIn.size());
    return words;
}

} // namespace vasclip::upkeep
