#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <string>

namespace vasclip::street {

/// Writes numbers and texts as few bytes: seven bits a byte, the lowest first.
class ByteWriter
{
public:
    void Number(quint64 value)
    {
        for (; value >= 0x80; value >>= 7)
            m_bytes.push_back(static_cast<char>(value | 0x80));
        m_bytes.push_back(static_cast<char>(value));
    }
    /// A number that may be below zero.
    void Signed(qint64 value) { Number((static_cast<quint64>(value) << 1) ^ static_cast<quint64>(value >> 63)); }
    void Text(const QString& text)
    {
        const QByteArray bytes = text.toUtf8();
        Number(static_cast<quint64>(bytes.size()));
        Raw(bytes);
    }
    void Raw(const QByteArray& bytes) { m_bytes.append(bytes.constData(), static_cast<std::size_t>(bytes.size())); }
    [[nodiscard]] QByteArray Bytes() const { return {m_bytes.data(), static_cast<qsizetype>(m_bytes.size())}; }

private:
    std::string m_bytes; // grows by single bytes, for which a QByteArray takes several times as long
};

/// Reads them back from bytes that may be anything: once something is not there, all that follows is 0 and `Failed`.
class ByteReader
{
public:
    explicit ByteReader(QByteArrayView bytes)
        : m_bytes(bytes)
    {}

    quint64 Number()
    {
        quint64 value = 0;
        for (int shift = 0; shift < 64; shift += 7) {
            if (m_at >= m_bytes.size())
                break;
            const auto byte = static_cast<quint8>(m_bytes[m_at++]);
            value |= static_cast<quint64>(byte & 0x7f) << shift;
            if (byte < 0x80)
                return value;
        }
        Fail();
        return 0;
    }
    qint64 Signed()
    {
        const quint64 value = Number();
        return static_cast<qint64>(value >> 1) ^ -static_cast<qint64>(value & 1);
    }
    QString Text() { return Raw(Number()); }
    QString Raw(quint64 size) { return QString::fromUtf8(Bytes(size)); }
    QByteArrayView Bytes(quint64 size)
    {
        if (size > static_cast<quint64>(Left())) {
            Fail();
            return {};
        }
        const QByteArrayView bytes = m_bytes.sliced(m_at, static_cast<qsizetype>(size));
        m_at += static_cast<qsizetype>(size);
        return bytes;
    }
    /// How many follow of things of at least `least` bytes each; 0 and `Failed` where so many can't be there.
    std::size_t Count(qsizetype least)
    {
        const quint64 count = Number();
        if (count > static_cast<quint64>(Left() / least)) {
            Fail();
            return 0;
        }
        return static_cast<std::size_t>(count);
    }
    void Fail()
    {
        m_failed = true;
        m_at = m_bytes.size();
    }
    [[nodiscard]] bool Failed() const { return m_failed; }
    [[nodiscard]] qsizetype Left() const { return m_bytes.size() - m_at; }

private:
    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    bool m_failed = false;
};

} // namespace vasclip::street
