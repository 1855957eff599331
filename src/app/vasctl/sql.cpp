#include "app/vasctl/session.h"

#include "platform/text/text.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

int RunSql(Session& session, const Output& out, const QStringList& arguments)
{
    if (arguments.size() != 1) {
        out.Error(u"Usage: vasctl sql \"SELECT ...\""_s);
        return kUsage;
    }
    if (!text::Folded(arguments[0]).startsWith(u"SELECT"_s)) {
        out.Error(u"Only SELECT statements run here; records are changed with 'vasctl records'."_s);
        return kUsage;
    }
    auto& program = session.Home();
    // A connection of its own that cannot write, whatever the statement says (SELECT INTO among them).
    const auto database = session.Engine().OpenDatabase(program.globals.G_DataDir + program.globals.G_DataFile,
                                                        engine::OpenMode::ReadOnly);
    const std::optional<store::Rows> rows = OpenTyped(*database, arguments[0], out);
    if (!rows)
        return kUsage;
    QStringList headings;
    QList<Kind> kinds;
    for (qsizetype i = 0; i < rows->Fields().size(); ++i) {
        headings.append(rows->Fields()[i].name);
        const engine::FieldType type = rows->Fields()[i].type;
        const bool counted = type >= engine::FieldType::Byte && type <= engine::FieldType::Double;
        kinds.append(counted ? Kind::Number : KindOf(headings.last()));
    }
    QList<QStringList> table;
    for (qint64 row = 0; row < rows->Count(); ++row) {
        QStringList line;
        const std::optional<store::Record> record = rows->At(row);
        for (int i = 0; record && i < headings.size(); ++i) {
            const bool binary = rows->Fields()[i].type == engine::FieldType::LongBinary;
            const QVariant value = binary ? rows->LongAt(row, i) : record->Values()[i];
            line.append(binary && value.isValid() ? u"(%1 bytes)"_s.arg(value.toByteArray().size())
                                                  : text::RTrim(value.toString()));
        }
        table.append(line);
    }
    out.Table(headings, table, kinds);
    return kDone;
}

} // namespace vasclip::vasctl
