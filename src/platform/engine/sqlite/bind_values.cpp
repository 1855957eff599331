#include "platform/engine/sqlite/bind_values.h"

#include "platform/engine/values.h"

#include <QDateTime>

#include <array>

#include <sqlite3.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A short text of plain letters, as most are, in UTF-8 without a heap's piece for it.
class ShortText
{
public:
    /// @return false for one that is longer, or has other letters
    [[nodiscard]] bool Take(QStringView text)
    {
        if (text.size() > static_cast<qsizetype>(m_letters.size()))
            return false;
        m_size = static_cast<int>(text.size());
        char16_t all = 0;
        for (int i = 0; i < m_size; ++i) {
            const char16_t letter = text[i].unicode();
            all |= letter;
            m_letters[static_cast<std::size_t>(i)] = static_cast<char>(letter);
        }
        return all < 0x80;
    }
    [[nodiscard]] const char* Data() const { return m_letters.data(); }
    [[nodiscard]] int Size() const { return m_size; }

private:
    std::array<char, 64> m_letters{};
    int m_size = 0;
};

} // namespace

int BindValue(sqlite3_stmt* statement, int index, const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return sqlite3_bind_null(statement, index);
    case QMetaType::QString: {
        const QString& text = *static_cast<const QString*>(value.constData());
        if (ShortText plain; plain.Take(text))
            return sqlite3_bind_text(statement, index, plain.Data(), plain.Size(), SQLITE_TRANSIENT);
        const QByteArray utf8 = text.toUtf8();
        return sqlite3_bind_text64(statement, index, utf8.constData(),
                                   static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return sqlite3_bind_blob64(statement, index, bytes.isEmpty() ? "" : bytes.constData(),
                                   static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
    }
    case QMetaType::Bool:
        return sqlite3_bind_int(statement, index, value.toBool() ? 1 : 0);
    case QMetaType::Double:
    case QMetaType::Float:
        return sqlite3_bind_double(statement, index, value.toDouble());
    case QMetaType::QDateTime:
        return sqlite3_bind_double(statement, index, ToSerial(value.toDateTime()));
    default:
        return sqlite3_bind_int64(statement, index, value.toLongLong());
    }
}

QVariant ReadValue(sqlite3_stmt* statement, int column, FieldType type)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return {};
    switch (type) {
    case FieldType::Text:
    case FieldType::Memo: {
        const auto* utf8 = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        QString text = QString::fromUtf8(utf8, sqlite3_column_bytes(statement, column));
        return text.isNull() ? QVariant(QString(u""_s)) : QVariant(std::move(text));
    }
    case FieldType::Boolean:
        return sqlite3_column_int64(statement, column) != 0;
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
        return QVariant::fromValue(static_cast<qlonglong>(sqlite3_column_int64(statement, column)));
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
        return sqlite3_column_double(statement, column);
    case FieldType::Date:
        return FromSerial(sqlite3_column_double(statement, column));
    case FieldType::Binary:
    case FieldType::LongBinary: {
        const void* blob = sqlite3_column_blob(statement, column);
        const int size = sqlite3_column_bytes(statement, column);
        return size == 0 ? QByteArray("") : QByteArray(static_cast<const char*>(blob), size);
    }
    }
    return {};
}

} // namespace vasclip::engine
