#include "house/store_rules.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vasclip::house {

namespace {

const QString kFieldNames = u"src/store/fields.h"_s;

/// The same letters, meant as something else: what a person reads, a key of a profile file.
bool IsAnotherWord(const QString& path, const QString& word)
{
    static const QHash<QString, QStringList> kOthers{
        {u"src/app/vasctl/main.cpp"_s, {u"ST"_s, u"ZIP"_s}}, {u"src/databook/city_list.cpp"_s, {u"CITY"_s}},
        {u"src/databook/frm_search_sql.cpp"_s, {u"ZIP"_s}},  {u"src/map/frm_street_find.cpp"_s, {u"ZIP"_s}},
        {u"src/store/schema.cpp"_s, {u"GLA"_s, u"ZIP"_s}}, // the headings
    };
    return kOthers.value(path).contains(word);
}

QSet<QString> FieldNames(const Sources& sources)
{
    static const QRegularExpression name(uR"(VASCLIP_FIELD\(([A-Z0-9_]+)\);)"_s);
    QSet<QString> names;
    for (auto found = name.globalMatch(sources.value(kFieldNames)); found.hasNext();)
        names.insert(found.next().captured(1));
    return names;
}

/// What a record set, the way to one and its kinds are called.
bool NamesARecordSet(const QString& path, const QString& code)
{
    static const QRegularExpression named(uR"(Recordset|\bDynaset\b|\bRowStore\b|\bRowWalk\b|\bOpenRows\b)"_s);
    return !path.startsWith(u"src/store/"_s) && code.contains(named);
}

} // namespace

QStringList StoreViolations(const Sources& sources)
{
    static const QRegularExpression comment(uR"(//[^\n]*)"_s);
    static const QRegularExpression literal(uR"re("([A-Z0-9_]+)")re"_s);
    const QSet<QString> names = FieldNames(sources);
    QStringList violations;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        const QString path = source.key();
        if (path == kFieldNames || !path.startsWith(u"src/"_s) || path.startsWith(u"src/platform/"_s))
            continue;
        const QString code = QString(source.value()).remove(comment);
        if (NamesARecordSet(path, code))
            violations.append(u"%1 names a record set of the engine: records are read through store"_s.arg(path));
        for (auto found = literal.globalMatch(code); found.hasNext();) {
            const QString word = found.next().captured(1);
            if (names.contains(word) && !IsAnotherWord(path, word))
                violations.append(u"%1 spells the column %2 itself: it is fields::%2"_s.arg(path, word));
        }
    }
    return violations;
}

} // namespace vasclip::house
