#pragma once

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/letters.h"
#include "platform/conduit/dde/partner.h"

#include "latin_page.h"

#include <map>
#include <string>
#include <vector>

namespace vasclip::test {

/// Plays a forms program behind the desktop's exchange: keeps what is poked, and goes wrong at certain items.
class MemoPartner final : public conduit::dde::Partner
{
public:
    void Open(const std::u16string& topic) override
    {
        const conduit::dde::Topic parts = conduit::dde::RequireTopic(m_page, topic);
        if (parts.topic == u"nobody")
            throw conduit::dde::Failure(conduit::dde::Why::NoAnswer, "No program takes a conversation about \"KEL|nobody\"");
        if (topic != m_topic || !m_open)
            opened.push_back(topic);
        m_topic = topic;
        m_open = true;
    }
    bool IsOpen(const std::u16string& topic) override { return m_open && topic == m_topic; }
    std::u16string Request(const std::u16string& item) override
    {
        Misbehave(item);
        if (item == u"COMMANDS")
            return commands;
        if (item == u"OPENED")
            return std::u16string(opened.size(), u'o');
        const auto found = kept.find(item);
        return found == kept.end() ? u"nothing" : found->second;
    }
    void Poke(const std::u16string& item, const std::u16string& text) override
    {
        Misbehave(item);
        static_cast<void>(
            conduit::dde::RequireText(m_page, "The value for " + conduit::dde::Quoted(item), text));
        kept[item] = text;
    }
    void Execute(const std::u16string& command) override { commands += command; }

    std::vector<std::u16string> opened;
    std::map<std::u16string, std::u16string> kept;
    std::u16string commands;

private:
    void Misbehave(const std::u16string& item)
    {
        using conduit::dde::Failure;
        using conduit::dde::Why;
        conduit::dde::RequireItem(m_page, item);
        if (item == u"REFUSE")
            throw Failure(Why::Refused, "The forms program refuses \"REFUSE\"");
        if (item != u"LATE" && item != u"GONE")
            return;
        m_open = false;
        throw item == u"LATE" ? Failure(Why::TimeOut, "The forms program did not answer in time")
                              : Failure(Why::Gone, "The forms program has gone");
    }

    LatinPage m_page;
    std::u16string m_topic;
    bool m_open = false;
};

} // namespace vasclip::test
