#include "platform/engine/jet/column_value.h"

#include "platform/engine/jet/jet_text.h"
#include "platform/engine/jet/long_value.h"
#include "platform/text/dates.h"

#include <QRegularExpression>
#include <QUuid>

#include <array>
#include <cmath>
#include <limits>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kDayMilliseconds = 86'400'000;
constexpr double kCurrencyUnit = 10'000;
constexpr int kGuidText = 38;

double FloatOf(quint32 bits)
{
    float value = 0;
    std::memcpy(&value, &bits, sizeof(value));
    return static_cast<double>(value);
}

double DoubleOf(quint64 bits)
{
    double value = 0;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

QString GuidText(const Bytes& bytes)
{
    const Bytes last = bytes.Part(8, 8);
    const QUuid id(bytes.U32(0), bytes.U16(4), bytes.U16(6), last.U8(0), last.U8(1), last.U8(2), last.U8(3),
                   last.U8(4), last.U8(5), last.U8(6), last.U8(7));
    return id.toString().toUpper();
}

/// Sign, then 128 bits in four groups, the most significant first.
QString DecimalText(const Bytes& bytes, int scale)
{
    std::array<quint32, 4> groups{};
    for (std::size_t i = 0; i < groups.size(); ++i)
        groups[i] = bytes.U32(1 + 4 * static_cast<qsizetype>(i));
    QString digits;
    while (groups != std::array<quint32, 4>{}) {
        quint64 rest = 0;
        for (quint32& group : groups) {
            rest = rest << 32 | group;
            group = static_cast<quint32>(rest / 10);
            rest %= 10;
        }
        digits.prepend(QChar(u'0' + static_cast<char16_t>(rest)));
    }
    digits = digits.rightJustified(scale + 1, u'0');
    if (scale > 0)
        digits.insert(digits.size() - scale, u'.');
    const bool negative = (bytes.U8(0) & 0x80) != 0;
    return negative && digits.contains(QRegularExpression(u"[1-9]"_s)) ? u'-' + digits : digits;
}

QString TextOf(const PageFile& file, const Bytes& bytes)
{
    QString text = file.Shape().jet4 ? UnicodeText(bytes) : CodePageText(bytes, file.Head().codePage);
    return text.isNull() ? QString(u""_s) : text;
}

} // namespace

std::optional<Field> FieldOf(const Column& column, const Format& format)
{
    Field field;
    field.name = column.name;
    field.size = column.length;
    switch (column.type) {
    case ColumnType::Boolean:
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Single:
    case ColumnType::Double:
    case ColumnType::Date:
    case ColumnType::Binary:
        field.type = static_cast<FieldType>(column.type);
        return field;
    case ColumnType::Text:
        field.size = format.jet4 ? column.length / 2 : column.length;
        return field;
    case ColumnType::LongBinary:
    case ColumnType::Memo:
        field.type = static_cast<FieldType>(column.type);
        field.size = 0;
        return field;
    case ColumnType::Guid:
        field.size = kGuidText;
        return field;
    case ColumnType::Decimal:
        field.size = column.precision + 3; // sign, point and the nought before it
        field.sortsAs = SortsAs::Number;
        return field;
    }
    return std::nullopt;
}

QDateTime DateOf(double serial)
{
    if (!(std::abs(serial) < 4e6))
        throw Damaged(u"a date is none"_s);
    double whole = 0;
    const double part = std::abs(std::modf(serial, &whole));
    const auto milliseconds = static_cast<qint64>(std::nearbyint(part * static_cast<double>(kDayMilliseconds)));
    return {text::SerialEpoch().addDays(static_cast<qint64>(whole) + milliseconds / kDayMilliseconds),
            QTime::fromMSecsSinceStartOfDay(static_cast<int>(milliseconds % kDayMilliseconds)), Qt::UTC};
}

double SerialOf(const QDateTime& value)
{
    const auto day = static_cast<double>(text::DateSerial(value.date()));
    const double part = static_cast<double>(value.time().msecsSinceStartOfDay()) / static_cast<double>(kDayMilliseconds);
    return day < 0 ? day - part : day + part;
}

QVariant ValueOf(PageFile& file, const Column& column, const Bytes& bytes)
{
    switch (column.type) {
    case ColumnType::Boolean:
        return true;
    case ColumnType::Byte:
        return qlonglong(bytes.U8(0));
    case ColumnType::Integer:
        return qlonglong(static_cast<qint16>(bytes.U16(0)));
    case ColumnType::Long:
        return qlonglong(static_cast<qint32>(bytes.U32(0)));
    case ColumnType::Currency:
        return static_cast<double>(static_cast<qint64>(bytes.U64(0))) / kCurrencyUnit;
    case ColumnType::Single:
        return FloatOf(bytes.U32(0));
    case ColumnType::Double:
        return DoubleOf(bytes.U64(0));
    case ColumnType::Date:
        return DateOf(DoubleOf(bytes.U64(0)));
    case ColumnType::Binary:
        return bytes.Copy();
    case ColumnType::Text:
        return TextOf(file, bytes);
    case ColumnType::LongBinary:
        return ReadLongValue(file, bytes);
    case ColumnType::Memo: {
        const QByteArray value = ReadLongValue(file, bytes);
        return TextOf(file, Bytes(value));
    }
    case ColumnType::Guid:
        return GuidText(bytes);
    case ColumnType::Decimal:
        return DecimalText(bytes, column.scale);
    }
    throw Damaged(u"a value is of an unknown kind"_s);
}

} // namespace vasclip::engine::jet
