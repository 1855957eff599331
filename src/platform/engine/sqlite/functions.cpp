#include "platform/engine/sqlite/functions.h"

#include "platform/engine/collation.h"
#include "platform/engine/text_values.h"
#include "platform/engine/values.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <QString>

#include <cmath>
#include <sqlite3.h>

namespace vasclip::engine {

namespace {

std::string_view Bytes(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

QString TextOf(sqlite3_value* value)
{
    if (sqlite3_value_type(value) == SQLITE_INTEGER || sqlite3_value_type(value) == SQLITE_FLOAT)
        return text::Str(sqlite3_value_double(value)).trimmed();
    const std::string_view bytes = Bytes(value);
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

void Give(sqlite3_context* context, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text64(context, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
                          SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool AnyNull(int count, sqlite3_value** values)
{
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL)
            return true;
    }
    return false;
}

double NumberOf(sqlite3_value* value)
{
    const int type = sqlite3_value_type(value);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT ? sqlite3_value_double(value)
                                                          : engine::NumberOf(Bytes(value));
}

bool SerialOf(sqlite3_context* context, sqlite3_value* value, double& serial)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return false;
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        serial = sqlite3_value_double(value);
        return true;
    default:
        return engine::SerialOf(
            Bytes(value), *static_cast<const text::TimeSource*>(sqlite3_user_data(context)), serial);
    }
}

// A null argument leaves the result null, which is what SQLite answers when a function sets none.

void Num(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) != SQLITE_NULL)
        sqlite3_result_double(context, NumberOf(values[0]));
}

void Date(sqlite3_context* context, int, sqlite3_value** values)
{
    double serial = 0;
    if (SerialOf(context, values[0], serial))
        sqlite3_result_double(context, serial);
}

void IsDate(sqlite3_context* context, int, sqlite3_value** values)
{
    double serial = 0;
    sqlite3_result_int(context, SerialOf(context, values[0], serial) ? 1 : 0);
}

void Like(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        sqlite3_result_int(context, MatchesPattern(Bytes(values[0]), Bytes(values[1])) ? 1 : 0);
}

/// vas_pattern(text): the text, or an error if it is no pattern.
void Pattern(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) != SQLITE_NULL && HasOpenSet(Bytes(values[0])))
        sqlite3_result_error(context, kOpenSetMark, -1);
    else
        sqlite3_result_value(context, values[0]);
}

void ChangeCase(sqlite3_context* context, sqlite3_value* value, bool upper)
{
    if (sqlite3_value_type(value) == SQLITE_NULL)
        return;
    const QString text = TextOf(value);
    Give(context, upper ? text.toUpper() : text.toLower());
}

void Upper(sqlite3_context* context, int, sqlite3_value** values)
{
    ChangeCase(context, values[0], true);
}

void Lower(sqlite3_context* context, int, sqlite3_value** values)
{
    ChangeCase(context, values[0], false);
}

void Len(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        sqlite3_result_int64(context, TextOf(values[0]).size());
}

/// A count of characters, never below 0 and never beyond what a text can hold.
qsizetype Count(sqlite3_value* value)
{
    const double number = NumberOf(value);
    return number <= 0 ? 0 : number > 1e9 ? 1'000'000'000 : static_cast<qsizetype>(std::nearbyint(number));
}

void Left(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        Give(context, TextOf(values[0]).left(Count(values[1])));
}

void Right(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        Give(context, TextOf(values[0]).right(Count(values[1])));
}

void Mid(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (AnyNull(count, values))
        return;
    const qsizetype start = std::max<qsizetype>(Count(values[1]), 1) - 1;
    Give(context, TextOf(values[0]).mid(start, count > 2 ? Count(values[2]) : -1));
}

/// INSTR([start,] text, sought): 1-based place without regard to case, 0 for none.
void InStr(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (AnyNull(count, values))
        return;
    const qsizetype start = count > 2 ? std::max<qsizetype>(Count(values[0]), 1) - 1 : 0;
    const QString text = TextOf(values[count - 2]);
    const QString sought = TextOf(values[count - 1]);
    sqlite3_result_int64(context, text.indexOf(sought, start, Qt::CaseInsensitive) + 1);
}

void Str(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        Give(context, text::Str(NumberOf(values[0])));
}

/// Number as text without the leading blank.
void Text(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        Give(context, TextOf(values[0]));
}

void DateText(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        Give(context, DateToText(FromSerial(NumberOf(values[0]))));
}

/// vas_format(value, picture, is a date)
void FormatValue(sqlite3_context* context, int, sqlite3_value** values)
{
    if (AnyNull(2, values))
        return;
    const QString picture = TextOf(values[1]);
    if (sqlite3_value_int(values[2]) != 0) {
        double serial = 0;
        if (SerialOf(context, values[0], serial))
            Give(context, text::Format(FromSerial(serial), picture));
        else
            Give(context, TextOf(values[0]));
        return;
    }
    Give(context, text::Format(NumberOf(values[0]), picture));
}

void Int(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (!AnyNull(count, values))
        sqlite3_result_double(context, std::floor(NumberOf(values[0])));
}

/// vas_fit(text, size, field): the text, or an error if the field cannot hold it.
void Fit(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) != SQLITE_NULL) {
        const int size = sqlite3_value_int(values[1]);
        // A text has at most as many characters as bytes, so most need no conversion.
        if (sqlite3_value_type(values[0]) == SQLITE_TEXT && sqlite3_value_bytes(values[0]) > size &&
            TextOf(values[0]).size() > size) {
            const QByteArray message =
                QByteArray(kTooLongMark) + QByteArray::number(size) + ':' +
                QByteArray(reinterpret_cast<const char*>(sqlite3_value_text(values[2])));
            sqlite3_result_error(context, message.constData(), -1);
            return;
        }
    }
    sqlite3_result_value(context, values[0]);
}

/// vas_need(value, field): the value, or an error if it is Null.
void Need(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) {
        const QByteArray message =
            QByteArray(kNullMark) + QByteArray(reinterpret_cast<const char*>(sqlite3_value_text(values[1])));
        sqlite3_result_error(context, message.constData(), -1);
        return;
    }
    sqlite3_result_value(context, values[0]);
}

/// vas_textsum(text, ...): a number that differs for other texts (FNV-1a over their bytes and lengths).
void TextSum(sqlite3_context* context, int count, sqlite3_value** values)
{
    constexpr quint64 kStart = 14695981039346656037ULL;
    constexpr quint64 kPrime = 1099511628211ULL;
    quint64 sum = kStart;
    for (int i = 0; i < count; ++i) {
        const std::string_view bytes = Bytes(values[i]);
        for (const char byte : bytes)
            sum = (sum ^ static_cast<unsigned char>(byte)) * kPrime;
        sum = (sum ^ static_cast<quint64>(bytes.size())) * kPrime;
    }
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(sum));
}

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right)
{
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

constexpr struct
{
    const char* name;
    int arguments;
    Function function;
} kFunctions[] = {
    {"vas_num", 1, Num},
    {"vas_date", 1, Date},
    {"vas_isdate", 1, IsDate},
    {"vas_like", 2, Like},
    {"vas_pattern", 1, Pattern},
    {"vas_upper", 1, Upper},
    {"vas_lower", 1, Lower},
    {"vas_len", 1, Len},
    {"vas_left", 2, Left},
    {"vas_right", 2, Right},
    {"vas_mid", 2, Mid},
    {"vas_mid", 3, Mid},
    {"vas_instr", 2, InStr},
    {"vas_instr", 3, InStr},
    {"vas_str", 1, Str},
    {"vas_text", 1, Text},
    {"vas_datetext", 1, DateText},
    {"vas_format", 3, FormatValue},
    {"vas_int", 1, Int},
    {"vas_fit", 3, Fit},
    {"vas_need", 2, Need},
    {"vas_textsum", -1, TextSum},
};

} // namespace

void RegisterCollation(sqlite3* handle)
{
    sqlite3_create_collation_v2(handle, "VAS", SQLITE_UTF8, nullptr, &Collate, nullptr);
}

void RegisterFunctions(sqlite3* handle, const text::TimeSource& time)
{
    void* known = const_cast<text::TimeSource*>(&time); // as SQLite keeps it
    for (const auto& row : kFunctions) {
        sqlite3_create_function_v2(handle, row.name, row.arguments,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, known,
                                   row.function, nullptr, nullptr, nullptr);
    }
}

} // namespace vasclip::engine
