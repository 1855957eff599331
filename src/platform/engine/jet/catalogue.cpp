#include "platform/engine/jet/catalogue.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

// Kinds of objects.
constexpr qlonglong kTable = 1;
constexpr qlonglong kLinkedByDriver = 4;
constexpr qlonglong kQuery = 5;
constexpr qlonglong kLinkedFile = 6;
constexpr qlonglong kRelation = 8;
struct Design
{
    qlonglong kind;
    QLatin1StringView word;
};
constexpr Design kDesigns[] = {
    {-32768, "form"_L1}, {-32766, "macro"_L1}, {-32764, "report"_L1}, {-32761, "module"_L1}, {-32756, "page"_L1}};

constexpr quint32 kSystemObject = 0x80000000;
constexpr quint32 kSystemTable = 0x2;

int FieldOf(const Table& table, const QString& name)
{
    const FieldList& fields = table.Def().fields;
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const Field& field) {
        return field.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == fields.end())
        throw Damaged(u"the list of its tables has no column %1"_s.arg(name));
    return static_cast<int>(found - fields.begin());
}

} // namespace

Catalogue ReadCatalogue(const std::shared_ptr<PageFile>& file, const std::shared_ptr<Findings>& findings)
{
    Table objects(file, findings, u"MSysObjects"_s, kObjectsPage);
    const int id = FieldOf(objects, u"Id"_s);
    const int name = FieldOf(objects, u"Name"_s);
    const int type = FieldOf(objects, u"Type"_s);
    const int flags = FieldOf(objects, u"Flags"_s);
    const int database = FieldOf(objects, u"Database"_s);
    Catalogue catalogue;
    objects.ForEach([&](const FoundRow& row) {
        const qlonglong kind = objects.Value(row, type).toLongLong();
        const QString called = objects.Value(row, name).toString();
        if (called.startsWith(u"MSys"_s, Qt::CaseInsensitive) || called.startsWith(u'~') || called.isEmpty())
            return true;
        const auto marks = static_cast<quint32>(objects.Value(row, flags).toLongLong());
        if (kind == kTable && (marks & (kSystemObject | kSystemTable)) == 0)
            catalogue.tables.append(
                {called, static_cast<quint32>(objects.Value(row, id).toLongLong()) & 0xFFFFFF, {}});
        else if (kind == kQuery)
            catalogue.queries.append(called);
        else if (kind == kLinkedFile || kind == kLinkedByDriver)
            catalogue.linked.append({called, 0, objects.Value(row, database).toString()});
        else if (kind == kRelation)
            catalogue.relations.append(called);
        else if (const auto* design = std::ranges::find(kDesigns, kind, &Design::kind); design != std::end(kDesigns))
            catalogue.designs.append(QString(design->word) + u' ' + called);
        return true;
    });
    return catalogue;
}

} // namespace vasclip::engine::jet
