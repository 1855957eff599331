#include "app/vasctl/where_option.h"

#include "platform/engine/sql_parser.h"
#include "store/fields.h"
#include "upkeep/export_statement.h"

#include <QRegularExpression>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kNone = u"--where wants a condition, as in --where \"CITY = 'Marlow'\". Leave it out for all records."_s;
const QString kSort = u"'%1' only sorts, which leaves no record out: it is no condition for --where. Put one before it, or "
                      u"leave --where out for all records."_s;
const QString kValue = u"'%1' is no condition for --where: compare it with something, as in \"CITY = 'Marlow'\"."_s;
const QString kWrong = u"'%1' is no condition for --where. %2 (error %3)."_s;

/// Is it a value, which no record can answer with yes or no?
bool IsValue(const engine::sql::Expression& condition, const store::DataSource& databook)
{
    using Kind = engine::sql::Expression::Kind;
    switch (condition.kind) {
    case Kind::Null:
    case Kind::Text:
    case Kind::Number:
    case Kind::Date:
    case Kind::Negate:
        return true;
    case Kind::Column: {
        const int field = databook.FieldIndex(condition.text);
        return field >= 0 && databook.Fields().at(field).type != engine::FieldType::Boolean;
    }
    case Kind::Binary:
        return QStringList{u"+"_s, u"-"_s, u"*"_s, u"/"_s, u"&"_s}.contains(condition.text);
    default:
        return false;
    }
}

} // namespace

std::optional<QString> WhereOf(Session& session, const Output& out, const QCommandLineParser& options)
{
    if (!options.isSet(u"where"_s))
        return QString();
    const QString text = options.value(u"where"_s).trimmed();
    if (!upkeep::Narrows(text)) {
        out.Error(text.isEmpty() ? kNone : kSort.arg(text));
        return std::nullopt;
    }
    shell::Program& program = session.WithDatabook();
    store::DataSource& databook = program.sources.datDatabook;
    bool alone = true;
    try {
        // By itself: inside a statement a bracket more or a semicolon could change what else stands there.
        const engine::sql::Statement read = engine::sql::ParseCondition(text, session.Engine().Time());
        if (IsValue(*read.where, databook)) {
            out.Error(kValue.arg(text));
            return std::nullopt;
        }
        alone = false;
        const store::Rows names(databook.Database(), u"SELECT "_s + fields::CENTRALKEY + u" FROM ["_s +
                                                         program.globals.G_Table + u"] WHERE "_s + text);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kSyntax && failure.Number() != error::kParameterUnknown)
            throw;
        static const QRegularExpression place(u" at position \\d+| \\(position \\d+\\)"_s);
        QString why = failure.Description();
        if (!alone)
            why.remove(place); // in a statement that nobody typed
        out.Error(kWrong.arg(text, why, QString::number(failure.Number())));
        return std::nullopt;
    }
    return text;
}

} // namespace vasclip::vasctl
