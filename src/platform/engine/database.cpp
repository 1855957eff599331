#include "platform/engine/database.h"

#include "platform/engine/errors.h"
#include "platform/engine/row_store.h"
#include "platform/engine/sql_typer.h"

#include <QElapsedTimer>

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Rows that are looked at before the clock is.
constexpr std::size_t kRowsAtOnce = 256;

QList<int> PlacesOf(const FieldList& fields, const QStringList& names, const QString& table)
{
    QList<int> places;
    for (const QString& name : names) {
        const auto found = std::find_if(fields.begin(), fields.end(), [&](const Field& field) {
            return field.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == fields.end())
            throw RuntimeError(error::kFieldUnknown,
                               u"There is no field '%1' to look in in '%2'"_s.arg(name, table));
        places.append(static_cast<int>(found - fields.begin()));
    }
    return places;
}

bool HoldsAll(const QVariantList& values, const QStringList& words)
{
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
        return std::any_of(values.begin(), values.end(), [&](const QVariant& value) {
            return value.toString().contains(word, Qt::CaseInsensitive);
        });
    });
}

} // namespace

TextIndexState Database::KeepTextIndex(const QString& table, const QStringList& fields, int)
{
    static_cast<void>(PlacesOf(Table(table).fields, fields, table));
    return {true, TextIndexTrouble::None};
}

TextHits Database::FindText(const TextSearch& search)
{
    const TableDef table = Table(search.table);
    const QList<int> places = PlacesOf(table.fields, search.fields, table.name);
    const auto rows = OpenRows(sql::WholeTable(table));
    std::vector<Bookmark> ids;
    rows->ReadKeys([&](std::span<const Bookmark> some) {
        std::copy_if(some.begin(), some.end(), std::back_inserter(ids),
                     [&](Bookmark id) { return search.afterId < id; });
        return true;
    });
    std::sort(ids.begin(), ids.end());
    QElapsedTimer timer;
    timer.start();
    TextHits hits;
    hits.lastId = search.afterId;
    for (std::size_t first = 0; first < ids.size(); first += kRowsAtOnce) {
        if (first > 0 && timer.elapsed() >= search.milliseconds)
            return hits;
        const std::span some = std::span(ids).subspan(first, std::min(kRowsAtOnce, ids.size() - first));
        const auto read = rows->Read(some, places, Longs::Sizes);
        for (std::size_t i = 0; i < some.size(); ++i) {
            if (read[i] && HoldsAll(read[i]->values, search.words))
                hits.ids.push_back(some[i]);
        }
        hits.lastId = some.back();
    }
    hits.done = true;
    return hits;
}

} // namespace vasclip::engine
