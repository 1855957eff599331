#include "platform/conduit/protocol.h"

#include "platform/conduit/flat_line.h"
#include "platform/text/runtime_error.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <initializer_list>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

namespace {

/// The beginning of a line, fit to be shown in a sentence.
QString Quoted(const QByteArray& line)
{
    constexpr qsizetype kShown = 80;
    QString shown = QString::fromUtf8(line.left(kShown));
    for (QChar& c : shown) {
        if (!c.isPrint())
            c = u'?';
    }
    return line.size() > kShown ? u"\"%1...\" (%2 bytes)"_s.arg(shown, QString::number(line.size()))
                                : u"\"%1\""_s.arg(shown);
}

[[noreturn]] void Garbage(const QByteArray& line, const QString& why)
{
    throw RuntimeError(error::kLinkPeerGone, u"Garbage on the link (%1): %2"_s.arg(why, Quoted(line)));
}

class Members
{
public:
    explicit Members(const QByteArray& line)
        : m_line(line)
    {
        QJsonParseError problem{};
        const QJsonDocument document = QJsonDocument::fromJson(line, &problem);
        if (problem.error != QJsonParseError::NoError)
            Garbage(line, u"%1 at byte %2"_s.arg(problem.errorString()).arg(problem.offset));
        if (!document.isObject())
            Garbage(line, u"not a JSON object"_s);
        m_object = document.object();
    }

    [[nodiscard]] bool Has(QLatin1StringView name) const { return m_object.contains(name); }

    [[nodiscard]] QString Text(QLatin1StringView name) const
    {
        const QJsonValue value = m_object.value(name);
        if (!value.isString())
            Garbage(m_line, u"no text \"%1\""_s.arg(name));
        return value.toString();
    }

    [[nodiscard]] qint64 Number(QLatin1StringView name, qint64 least, qint64 most) const
    {
        const QJsonValue value = m_object.value(name);
        const double number = value.toDouble(-1);
        if (!value.isDouble() || number < static_cast<double>(least) || number > static_cast<double>(most) ||
            number != static_cast<double>(static_cast<qint64>(number)))
            Garbage(m_line, u"no whole number \"%1\" from %2 to %3"_s.arg(name).arg(least).arg(most));
        return static_cast<qint64>(number);
    }

    [[nodiscard]] QJsonObject Object(QLatin1StringView name) const
    {
        const QJsonValue value = m_object.value(name);
        if (!value.isObject())
            Garbage(m_line, u"no object \"%1\""_s.arg(name));
        return value.toObject();
    }

    void Only(std::initializer_list<QLatin1StringView> names) const { Only(m_object, names); }

    void Only(const QJsonObject& object, std::initializer_list<QLatin1StringView> names) const
    {
        for (auto it = object.begin(); it != object.end(); ++it) {
            bool known = false;
            for (const QLatin1StringView name : names)
                known = known || it.key() == name;
            if (!known)
                Garbage(m_line, u"unknown member \"%1\""_s.arg(it.key().left(40)));
        }
    }

private:
    const QByteArray& m_line;
    QJsonObject m_object;
};

constexpr qint64 kMaxId = Q_INT64_C(9007199254740991);

QByteArray Line(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

using Member = FlatReader::Member;

/// A poke or request as Encode writes it, read without a document; nullopt leaves the line to the strict
/// reader.
std::optional<LinkMessage> PlainMessage(const QByteArray& line)
{
    const std::optional<FlatReader> flat = FlatReader::Read(line);
    if (!flat)
        return std::nullopt;
    const Member* const id = flat->Find("id", Member::Kind::Number);
    const Member* const verb = flat->Find("do", Member::Kind::Text);
    const Member* const topic = flat->Find("topic", Member::Kind::Text);
    const Member* const item = flat->Find("item", Member::Kind::Text);
    if (!id || id->number < 1 || !verb || !topic || !item)
        return std::nullopt;
    LinkMessage message{
        id->number, Verb::Request, QString::fromUtf8(topic->text), QString::fromUtf8(item->text), {}};
    if (verb->text == "request")
        return flat->Count() == 4 ? std::optional(message) : std::nullopt;
    const Member* const text = flat->Find("text", Member::Kind::Text);
    if (verb->text != "poke" || !text || flat->Count() != 5)
        return std::nullopt;
    message.verb = Verb::Poke;
    message.text = QString::fromUtf8(text->text);
    return message;
}

/// A text or a bare "ok", likewise.
std::optional<LinkAnswer> PlainAnswer(const QByteArray& line)
{
    const std::optional<FlatReader> flat = FlatReader::Read(line);
    if (!flat || flat->Count() != 2)
        return std::nullopt;
    const Member* const id = flat->Find("id", Member::Kind::Number);
    if (!id)
        return std::nullopt;
    if (flat->Find("ok", Member::Kind::True))
        return LinkAnswer{id->number, LinkAnswer::Kind::Ok, {}, 0};
    const Member* const text = flat->Find("text", Member::Kind::Text);
    if (!text)
        return std::nullopt;
    return LinkAnswer{id->number, LinkAnswer::Kind::Text, QString::fromUtf8(text->text), 0};
}

} // namespace

QByteArray Encode(const Hello& hello)
{
    return Line({{u"hello"_s, u"vasclip-link"_s},
                 {u"version"_s, kProtocolVersion},
                 {u"nonce"_s, hello.nonce},
                 {u"program"_s, hello.program},
                 {u"pid"_s, hello.pid}});
}

QByteArray Encode(const LinkMessage& message)
{
    FlatWriter line;
    switch (message.verb) {
    case Verb::Request:
        line.Text("do", u"request"_s).Number("id", message.id).Text("item", message.item);
        break;
    case Verb::Poke:
        line.Text("do", u"poke"_s)
            .Number("id", message.id)
            .Text("item", message.item)
            .Text("text", message.text);
        break;
    case Verb::Execute:
        line.Text("command", message.text).Text("do", u"execute"_s).Number("id", message.id);
        break;
    }
    return line.Text("topic", message.topic).Line();
}

QByteArray Encode(const LinkAnswer& answer)
{
    switch (answer.kind) {
    case LinkAnswer::Kind::Text:
        return FlatWriter().Number("id", answer.id).Text("text", answer.text).Line();
    case LinkAnswer::Kind::Error:
        return Line({{u"id"_s, answer.id},
                     {u"error"_s, QJsonObject{{u"number"_s, answer.number}, {u"text"_s, answer.text}}}});
    case LinkAnswer::Kind::Ok:
        break;
    }
    return FlatWriter().Number("id", answer.id).True("ok").Line();
}

Hello DecodeHello(const QByteArray& line)
{
    const Members members(line);
    members.Only({"hello"_L1, "version"_L1, "nonce"_L1, "program"_L1, "pid"_L1});
    if (members.Text("hello"_L1) != "vasclip-link"_L1)
        Garbage(line, u"another protocol"_s);
    const qint64 version = members.Number("version"_L1, 0, 1000000);
    if (version != kProtocolVersion)
        Garbage(line,
                u"version %1 of the protocol, this program speaks %2"_s.arg(version).arg(kProtocolVersion));
    return {members.Text("nonce"_L1), members.Text("program"_L1), members.Number("pid"_L1, 0, kMaxId)};
}

LinkMessage DecodeMessage(const QByteArray& line)
{
    if (std::optional<LinkMessage> plain = PlainMessage(line))
        return *std::move(plain);
    const Members members(line);
    LinkMessage message;
    message.id = members.Number("id"_L1, 1, kMaxId);
    message.topic = members.Text("topic"_L1);
    const QString verb = members.Text("do"_L1);
    if (verb == "request"_L1) {
        members.Only({"id"_L1, "do"_L1, "topic"_L1, "item"_L1});
        message.verb = Verb::Request;
        message.item = members.Text("item"_L1);
    } else if (verb == "poke"_L1) {
        members.Only({"id"_L1, "do"_L1, "topic"_L1, "item"_L1, "text"_L1});
        message.verb = Verb::Poke;
        message.item = members.Text("item"_L1);
        message.text = members.Text("text"_L1);
    } else if (verb == "execute"_L1) {
        members.Only({"id"_L1, "do"_L1, "topic"_L1, "command"_L1});
        message.verb = Verb::Execute;
        message.text = members.Text("command"_L1);
    } else {
        Garbage(line, u"\"do\" is none of request, poke, execute"_s);
    }
    return message;
}

LinkAnswer DecodeAnswer(const QByteArray& line)
{
    if (std::optional<LinkAnswer> plain = PlainAnswer(line))
        return *std::move(plain);
    const Members members(line);
    LinkAnswer answer;
    answer.id = members.Number("id"_L1, 0, kMaxId);
    if (members.Has("text"_L1)) {
        members.Only({"id"_L1, "text"_L1});
        answer.kind = LinkAnswer::Kind::Text;
        answer.text = members.Text("text"_L1);
    } else if (members.Has("error"_L1)) {
        members.Only({"id"_L1, "error"_L1});
        const QJsonObject refusal = members.Object("error"_L1);
        members.Only(refusal, {"number"_L1, "text"_L1});
        if (!refusal.value("number"_L1).isDouble() || !refusal.value("text"_L1).isString())
            Garbage(line, u"a refusal without number and text"_s);
        answer.kind = LinkAnswer::Kind::Error;
        answer.number = refusal.value("number"_L1).toInt();
        answer.text = refusal.value("text"_L1).toString();
    } else {
        members.Only({"id"_L1, "ok"_L1});
        if (!members.Has("ok"_L1))
            Garbage(line, u"neither text nor ok nor error"_s);
        answer.kind = LinkAnswer::Kind::Ok;
    }
    return answer;
}

bool LineCutter::Next(QByteArray& line)
{
    const qsizetype end = m_buffer.indexOf('\n', qMax(m_scanned, m_start));
    if (end < 0) {
        m_buffer.remove(0, m_start);
        m_start = 0;
        m_scanned = m_buffer.size();
        if (m_buffer.size() >= kMaxLine)
            Garbage(m_buffer, u"a line longer than %1 bytes"_s.arg(kMaxLine));
        return false;
    }
    if (end - m_start >= kMaxLine)
        Garbage(m_buffer.mid(m_start, 200), u"a line longer than %1 bytes"_s.arg(kMaxLine));
    line = m_buffer.mid(m_start, end - m_start);
    m_start = end + 1;
    m_scanned = m_start;
    if (m_start == m_buffer.size()) {
        m_buffer.clear();
        m_start = m_scanned = 0;
    }
    return true;
}

} // namespace vasclip::conduit
