#include "platform/engine/jet/index_key.h"

#include "platform/engine/jet/row_writer.h"

#include <algorithm>

namespace vasclip::engine::jet {

namespace {

constexpr char kValue = '\x7F';
constexpr int kGroup = 8; ///< bytes of a binary key between two lengths

QByteArray Backwards(QByteArray bytes)
{
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

void Invert(QByteArray& bytes)
{
    for (char& byte : bytes)
        byte = static_cast<char>(~byte);
}

QByteArray GroupsOf(const QByteArray& bytes)
{
    QByteArray key;
    qsizetype at = 0;
    do {
        const QByteArray group = bytes.mid(at, kGroup);
        at += kGroup;
        key += group.leftJustified(kGroup, '\0');
        key += static_cast<char>(at < bytes.size() ? kGroup + 1 : group.size());
    } while (at < bytes.size());
    return key;
}

} // namespace

std::optional<QByteArray> IndexKey(ColumnType type, const QVariant& value)
{
    if (type == ColumnType::Boolean)
        return QByteArray(1, kValue) + (value.toBool() ? '\x00' : '\xFF');
    if (!value.isValid())
        return QByteArray(1, '\0');
    QByteArray key(1, kValue);
    switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo: {
        const auto text = TextKey(value.toString());
        return text ? std::optional(key + *text) : std::nullopt;
    }
    case ColumnType::Binary:
        return key + GroupsOf(value.toByteArray());
    default:
        break;
    }
    NewColumn column;
    column.type = type;
    QByteArray bytes = Backwards(StoredValue(column, value));
    const bool real = type == ColumnType::Single || type == ColumnType::Double || type == ColumnType::Date;
    if (real && (bytes[0] & 0x80) != 0)
        Invert(bytes);
    else if (type != ColumnType::Byte)
        bytes[0] = static_cast<char>(bytes[0] ^ 0x80);
    return key + bytes;
}

QByteArray Descending(const QByteArray& key, ColumnType type)
{
    if (key == QByteArray(1, '\0'))
        return QByteArray(1, '\xFF');
    QByteArray turned = key;
    const bool text = type == ColumnType::Text || type == ColumnType::Memo;
    if (text)
        turned += '\0';
    Invert(turned);
    turned[0] = '\x80';
    return text ? turned + '\0' : turned;
}

} // namespace vasclip::engine::jet
