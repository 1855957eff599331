#pragma once

#include <QByteArray>
#include <QString>

namespace vasclip::conduit {

inline constexpr int kProtocolVersion = 1;
/// The longest line either side takes, its line feed included.
inline constexpr qsizetype kMaxLine = 16 * 1024 * 1024;

/// The first line of both sides. The answering side repeats the nonce, so that a line left over from another
/// conversation cannot pass for it.
struct Hello
{
    QString nonce;
    QString program;
    qint64 pid = 0;
};

enum class Verb { Request, Poke, Execute };

/// What the client asks. Ids count from 1 in each conversation.
struct LinkMessage
{
    qint64 id = 0;
    Verb verb = Verb::Request;
    QString topic;
    QString item; ///< empty for a macro
    QString text; ///< the value of a poke, the command of a macro
};

/// What comes back: a text for a request, a bare "ok" for the others, or a refusal.
struct LinkAnswer
{
    enum class Kind { Text, Ok, Error };
    qint64 id = 0; ///< 0 in a refusal of a line whose id could not be read
    Kind kind = Kind::Ok;
    QString text;
    int number = 0;
};

/// One JSON object with its final line feed.
[[nodiscard]] QByteArray Encode(const Hello& hello);
[[nodiscard]] QByteArray Encode(const LinkMessage& message);
[[nodiscard]] QByteArray Encode(const LinkAnswer& answer);

/// The reverse, strictly: UTF-8, one object, the members of docs/link-protocol.md and no others.
/// @param line  without its line feed
/// @throws RuntimeError 289, which quotes the beginning of what came
[[nodiscard]] Hello DecodeHello(const QByteArray& line);
[[nodiscard]] LinkMessage DecodeMessage(const QByteArray& line);
[[nodiscard]] LinkAnswer DecodeAnswer(const QByteArray& line);

/// Cuts a byte stream into lines.
class LineCutter
{
public:
    void Append(const QByteArray& bytes) { m_buffer += bytes; }
    /// Moves the next whole line (without its line feed) into `line`.
    /// @throws RuntimeError 289 when more than kMaxLine bytes came without a line feed
    [[nodiscard]] bool Next(QByteArray& line);
    [[nodiscard]] bool Empty() const { return m_start == m_buffer.size(); }
    /// The unfinished line so far.
    [[nodiscard]] QByteArray Rest() const { return m_buffer.mid(m_start); }

private:
    QByteArray m_buffer;
    qsizetype m_start = 0;
    qsizetype m_scanned = 0;
};

} // namespace vasclip::conduit
