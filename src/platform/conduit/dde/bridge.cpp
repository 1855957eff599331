#include "platform/conduit/dde/bridge.h"

#include "platform/conduit/dde/flat_object.h"
#include "platform/conduit/dde/letters.h"

namespace vasclip::conduit::dde {

namespace {

std::string Head(std::int64_t id)
{
    return "{\"id\":" + std::to_string(id) + ',';
}

std::string Refusal(std::int64_t id, Why why, std::string_view words)
{
    const std::u16string text = Utf16(words).value_or(u"(words that are no UTF-8)");
    return Head(id) + "\"error\":{\"number\":" + std::to_string(static_cast<int>(why)) + ",\"text\":" + JsonText(text) +
           "}}\n";
}

std::string Garbage(const std::string& why)
{
    return Refusal(0, Why::Gone, "Garbage on the pipe: " + why);
}

} // namespace

std::string Bridge::TooLong()
{
    m_finished = true;
    return Garbage("a line longer than " + std::to_string(kLongestLine) + " bytes");
}

std::string Bridge::Answer(std::string_view line)
{
    const std::optional<FlatObject> object = FlatObject::Read(line);
    if (!m_greeted) {
        if (object)
            return Greet(*object);
        m_finished = true;
        return Garbage("a greeting is wanted");
    }
    if (!object)
        return Garbage("a line that is no flat JSON object");
    const std::optional<std::int64_t> id = object->Number("id");
    if (!id || *id < 1)
        return Garbage("no whole number \"id\" from 1");
    try {
        return Serve(*object, *id);
    } catch (const Failure& failure) {
        return Refusal(*id, failure.Reason(), failure.what());
    }
}

std::string Bridge::Greet(const FlatObject& object)
{
    const std::u16string* hello = object.Text("hello");
    const std::u16string* nonce = object.Text("nonce");
    const std::optional<std::int64_t> version = object.Number("version");
    if (!hello || *hello != u"vasclip-link" || !nonce || !version || *version != 1) {
        m_finished = true;
        return Garbage("another protocol, or another version of it than 1");
    }
    m_greeted = true;
    return "{\"hello\":\"vasclip-link\",\"version\":1,\"nonce\":" + JsonText(*nonce) +
           ",\"program\":\"vasclip-bridge\",\"pid\":" + std::to_string(m_processId) + "}\n";
}

std::string Bridge::Serve(const FlatObject& object, std::int64_t id)
{
    const std::u16string* verb = object.Text("do");
    const std::u16string* topic = object.Text("topic");
    const std::u16string* item = object.Text("item");
    const std::u16string* text = object.Text("text");
    const std::u16string* command = object.Text("command");
    if (verb && topic && item && *verb == u"request" && object.Count() == 4) {
        m_partner.Open(*topic);
        return Head(id) + "\"text\":" + JsonText(m_partner.Request(*item)) + "}\n";
    }
    if (verb && topic && item && text && *verb == u"poke" && object.Count() == 5) {
        m_partner.Open(*topic);
        m_partner.Poke(*item, *text);
    } else if (verb && topic && command && *verb == u"execute" && object.Count() == 4) {
        m_partner.Open(*topic);
        m_partner.Execute(*command);
    } else {
        return Garbage("\"do\" is none of request, poke, execute with their members");
    }
    return Head(id) + "\"ok\":true}\n";
}

} // namespace vasclip::conduit::dde
