#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <optional>

namespace vasclip::conduit {

/// Writes the flat JSON objects of the link without building a document: a send of a comp is some sixty of
/// them.
class FlatWriter
{
public:
    FlatWriter() { m_line.reserve(160); }
    FlatWriter& Text(const char* name, const QString& text);
    FlatWriter& Number(const char* name, qint64 number);
    FlatWriter& True(const char* name);
    [[nodiscard]] QByteArray Line(); ///< with its line feed; the writer is used up

private:
    void Name(const char* name);
    QByteArray m_line{"{"};
};

/// Reads the plain ones: one object of at most six members, each a text without escapes, a whole number or
/// `true`, with no blanks. The views look into the line.
struct FlatReader
{
    struct Member
    {
        enum class Kind { Text, Number, True };
        QByteArrayView name, text;
        Kind kind = Kind::True;
        qint64 number = 0;
    };

    /// @return nullopt for every other line, be it longer, unusual or garbage
    [[nodiscard]] static std::optional<FlatReader> Read(const QByteArray& line);

    [[nodiscard]] int Count() const { return m_count; }
    [[nodiscard]] const Member* Find(QByteArrayView name, Member::Kind kind) const;

private:
    static constexpr int kMost = 6;
    std::array<Member, kMost> m_members;
    int m_count = 0;
};

} // namespace vasclip::conduit
