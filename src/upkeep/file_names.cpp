#include "upkeep/file_names.h"

#include "link/form_table.h"

#include <algorithm>

namespace vasclip::upkeep {
namespace {

using namespace Qt::StringLiterals;

constexpr auto kExtension = ".MDB"_L1;

// Beside the Databook, its templates and the mappings, which the link knows.
constexpr QLatin1StringView kInstalled[] = {
    "EMPTY"_L1,        "OFFICE"_L1,        "REPORT"_L1,        "NEWOFFICE"_L1,
    "COMMENTS"_L1,     "NEWCMTS"_L1,       "APPRAISAL"_L1,     "VASCLIP"_L1,
    "VASCTL"_L1,       "KELFORMS"_L1,      "VASCLIP-DEMO"_L1,  "VASCLIP-MAPDATA"_L1,
    "TEMPCOMP"_L1,     "TEMPCMTS"_L1,      "TEMPDAT"_L1,       // made anew again and again
    "REPORT_BRIEF"_L1, "REPORT_MEDIUM"_L1, "REPORT_DETAIL"_L1, "REPORT_NONDESC"_L1,
};

} // namespace

QString StampFileName(bool stampOn, const QString& baseName, const QDateTime& now)
{
    QString stem = baseName;
    if (stem.right(kExtension.size()).toUpper() == kExtension)
        stem.chop(kExtension.size());
    if (stampOn)
        stem += now.toString(u"_MM-dd-yy_hhmmss"_s);
    return stem.remove(u'.').remove(u'/') + kExtension;
}

QString AddMDBExtension(const QString& name)
{
    return name.contains(kExtension) ? name : name + kExtension;
}

QString DatabaseName(const QString& typed)
{
    const QString name = typed.trimmed();
    const bool ended = name.endsWith(kExtension, Qt::CaseInsensitive);
    const QString stem = ended ? name.chopped(kExtension.size()) : name;
    if (stem.isEmpty() || stem.endsWith(u'\\') || stem.endsWith(u'/'))
        return stem; // a directory, and no file in it
    return ended ? name : AddMDBExtension(name);
}

bool IsProtectedDatabase(const QString& stem)
{
    QString name = stem.trimmed().toUpper();
    if (name.endsWith(kExtension))
        name.chop(kExtension.size());
    return link::IsReservedName(name) || std::ranges::find(kInstalled, name) != std::end(kInstalled);
}

} // namespace vasclip::upkeep
