#include "store/convert.h"

#include "store/schema.h"

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
