#pragma once

#include "platform/text/runtime_error.h"

#include <QByteArray>
#include <QtEndian>

#include <cstring>

namespace vasclip::engine::jet {

/// Something in a genuine file that can not be as it is: a page that is not there, a length beyond its row.
class Damaged : public RuntimeError
{
public:
    explicit Damaged(const QString& what)
        : RuntimeError(error::kCorruptDatabase, what)
    {}
};

/// A run of bytes of a file that nobody vouches for: what lies outside of it is damage, not a crash.
class Bytes
{
public:
    Bytes() = default;
    Bytes(const char* data, qsizetype size)
        : m_data(data)
        , m_size(size)
    {}
    /// The array must outlive it.
    explicit Bytes(const QByteArray& array)
        : Bytes(array.constData(), array.size())
    {}

    [[nodiscard]] qsizetype Size() const { return m_size; }
    [[nodiscard]] const char* Data() const { return m_data; }
    [[nodiscard]] quint8 U8(qsizetype at) const { return Number<quint8>(at); }
    [[nodiscard]] quint16 U16(qsizetype at) const { return Number<quint16>(at); }
    [[nodiscard]] quint32 U32(qsizetype at) const { return Number<quint32>(at); }
    [[nodiscard]] quint64 U64(qsizetype at) const { return Number<quint64>(at); }
    [[nodiscard]] Bytes Part(qsizetype at, qsizetype size) const
    {
        Need(at, size);
        return {m_data + at, size};
    }
    [[nodiscard]] QByteArray Copy() const { return {m_data, m_size}; }

private:
    template <class T>
    [[nodiscard]] T Number(qsizetype at) const
    {
        Need(at, sizeof(T));
        return qFromLittleEndian<T>(m_data + at);
    }
    void Need(qsizetype at, qsizetype size) const
    {
        using namespace Qt::Literals::StringLiterals;
        if (at < 0 || size < 0 || at > m_size || size > m_size - at)
            throw Damaged(u"a length or an offset points outside of its page"_s);
    }

    const char* m_data = nullptr;
    qsizetype m_size = 0;
};

/// Where a row lies: its page and its number there.
struct RowPointer
{
    quint32 page = 0;
    quint8 row = 0;

    [[nodiscard]] static RowPointer Of(quint32 stored)
    {
        return {stored >> 8, static_cast<quint8>(stored & 0xFF)};
    }
    [[nodiscard]] quint32 Stored() const { return page << 8 | row; }
    friend bool operator==(const RowPointer&, const RowPointer&) = default;
};

} // namespace vasclip::engine::jet
