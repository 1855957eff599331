#include "store/convert.h"

#include "platform/engine/genuine_file.h"
#include "store/schema.h"

#include <algorithm>

namespace vasclip::store {

using namespace Qt::Literals::StringLiterals;

std::optional<engine::Converted> ConvertDatabase(engine::Engine& engine, engine::Conversion conversion)
{
    conversion.complete = [](engine::TableDef& table) {
        for (engine::Field& field : table.fields) {
            const CompsColumn* const known = FindCompsColumn(field.name);
            if (known && field.type == engine::FieldType::Text && field.sortsAs == engine::SortsAs::Text)
                field.sortsAs = known->sorts;
        }
    };
    return engine::ConvertDatabase(engine, conversion);
}

std::optional<engine::Rescued> CopyReadable(engine::Engine& engine, const QString& source, const QString& target,
                                            const std::function<bool(qint64 records)>& step)
{
    if (!engine::IsGenuine(*engine.OpenDatabase(source, engine::OpenMode::ReadOnly)))
        return engine::CopyReadable(engine, source, target, step);
    engine::Conversion wanted{.source = source, .target = target};
    wanted.accept = [](const QStringList&) { return true; };
    if (step)
        wanted.step = [&step](const QString&, qint64 done, qint64) { return step(done); };
    const auto made = store::ConvertDatabase(engine, wanted);
    if (!made)
        return std::nullopt;
    engine::Rescued rescued;
    rescued.records = made->records;
    rescued.names = made->missing;
    rescued.incomplete = std::count_if(made->missing.begin(), made->missing.end(),
                                       [](const QString& line) { return line.contains(u", field "_s); });
    rescued.lost = made->missing.size() - rescued.incomplete;
    return rescued;
}

QString Listed(const QStringList& things, const QString& between)
{
    constexpr qsizetype kMost = 10;
    const QString said = things.mid(0, kMost).join(between);
    return things.size() <= kMost ? said : said + between + u"and %1 more"_s.arg(things.size() - kMost);
}

QString OnlyInOld(const engine::Converted& made, const QString& file)
{
    return made.notTaken.isEmpty() ? QString() : u"Only %1 has %2"_s.arg(file, Listed(made.notTaken));
}

QString KeptName(const files::Disk& disk, const QString& path)
{
    const qsizetype point = path.lastIndexOf(u'.') > path.lastIndexOf(u'\\') ? path.lastIndexOf(u'.') : path.size();
    for (int number = 1;; ++number) {
        const QString name = u"%1_ACCESS%2%3"_s.arg(path.left(point), number == 1 ? QString() : QString::number(number),
                                                    path.mid(point));
        if (!disk.Found(name, files::ReadOnly | files::Hidden | files::Directory))
            return name;
    }
}

} // namespace vasclip::store
