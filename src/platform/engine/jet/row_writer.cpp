#include "platform/engine/jet/row_writer.h"

#include "platform/engine/errors.h"
#include "platform/engine/jet/column_value.h"
#include "platform/engine/jet/jet_text.h"
#include "platform/engine/values.h"

#include <cmath>
#include <limits>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kLongestRow = 4060;
constexpr double kCurrencyUnit = 10'000;

template <class T>
QByteArray Number(T value)
{
    QByteArray bytes(sizeof(T), Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

template <class Bits, class T>
QByteArray Real(T value)
{
    Bits bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return Number(bits);
}

QByteArray Currency(const NewColumn& column, double value)
{
    constexpr double kBeyond = 0x1p63;
    const double units = std::nearbyint(value * kCurrencyUnit);
    if (units == kBeyond) // the largest amount is no double; this is the nearest one
        return Number(std::numeric_limits<qint64>::max());
    if (!(units >= -kBeyond && units < kBeyond))
        throw RuntimeError(error::kOverflow, u"The number %1 is too large for the field '%2'"_s.arg(
                                                 QString::number(value), column.name));
    return Number(static_cast<qint64>(units));
}

void AddU16(QByteArray& bytes, qsizetype value)
{
    bytes += Number(static_cast<quint16>(value));
}

} // namespace

QByteArray StoredValue(const NewColumn& column, const QVariant& value)
{
    switch (column.type) {
    case ColumnType::Boolean:
        return value.toBool() ? QByteArray("") : QByteArray();
    case ColumnType::Byte:
        return Number(static_cast<quint8>(value.toLongLong()));
    case ColumnType::Integer:
        return Number(static_cast<qint16>(value.toLongLong()));
    case ColumnType::Long:
        return Number(static_cast<qint32>(value.toLongLong()));
    case ColumnType::Currency:
        return Currency(column, value.toDouble());
    case ColumnType::Single:
        return Real<quint32>(static_cast<float>(value.toDouble()));
    case ColumnType::Double:
        return Real<quint64>(value.toDouble());
    case ColumnType::Date:
        return Real<quint64>(SerialOf(value.toDateTime()));
    case ColumnType::Text: {
        const QString text = value.toString();
        if (2 * text.size() > column.length)
            ThrowTooLong(column.name, column.length / 2);
        return NotNull(StoredText(text, column.compress));
    }
    default: {
        const QByteArray bytes = value.toByteArray();
        if (column.length > 0 && bytes.size() > column.length)
            throw RuntimeError(error::kFieldTooLong,
                               u"%1 bytes do not fit into the field '%2', which holds at most %3"_s.arg(
                                   QString::number(bytes.size()), column.name, QString::number(column.length)));
        return NotNull(bytes);
    }
    }
}

QByteArray StoredRow(const NewTable& table, const QList<QByteArray>& values)
{
    QByteArray row;
    AddU16(row, table.columns.size());
    QByteArray mask((table.columns.size() + 7) / 8, '\0');
    for (qsizetype i = 0; i < values.size(); ++i) {
        const NewColumn& column = table.columns[i];
        if (!values[i].isNull())
            mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << i % 8);
        if (column.Fixed() && column.type != ColumnType::Boolean)
            row += values[i].isNull() ? QByteArray(column.length, '\0') : values[i];
    }
    const int variable = table.VariableColumns();
    if (variable > 0) {
        QList<qsizetype> starts;
        for (qsizetype i = 0; i < values.size(); ++i) {
            if (table.columns[i].Fixed())
                continue;
            starts.append(row.size());
            row += values[i];
        }
        AddU16(row, row.size());
        for (qsizetype i = starts.size() - 1; i >= 0; --i)
            AddU16(row, starts[i]);
        AddU16(row, variable);
    }
    row += mask;
    if (row.size() > kLongestRow)
        throw RuntimeError(error::kRecordTooLarge,
                           u"A record of '%1' is too large for an Access database: it has %2 bytes besides its memos "
                           "and pictures, and %3 fit"_s.arg(table.name, QString::number(row.size()),
                                                            QString::number(kLongestRow)));
    return row;
}

} // namespace vasclip::engine::jet
