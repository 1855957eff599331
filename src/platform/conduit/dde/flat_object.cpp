#include "platform/conduit/dde/flat_object.h"

#include "platform/conduit/dde/letters.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace vasclip::conduit::dde {

using nlohmann::json;

/// Takes the members as the reader comes by them; whatever is not flat stops it.
class FlatObject::Members : public json::json_sax_t
{
public:
    explicit Members(FlatObject& object)
        : m_object(object)
    {}

    bool start_object(std::size_t) override { return !std::exchange(m_begun, true); }
    bool key(string_t& name) override
    {
        m_name = name;
        return m_object.Find(name) == nullptr;
    }
    bool string(string_t& bytes) override
    {
        std::optional<std::u16string> text = Utf16(bytes);
        return text && Add({m_name, std::move(text), std::nullopt});
    }
    bool number_unsigned(number_unsigned_t number) override
    {
        return std::in_range<std::int64_t>(number) && Add({m_name, std::nullopt, static_cast<std::int64_t>(number)});
    }
    bool boolean(bool truth) override { return truth && Add({m_name, std::nullopt, std::nullopt}); }
    bool end_object() override { return true; }

    bool null() override { return false; }
    bool number_integer(number_integer_t) override { return false; }
    bool number_float(number_float_t, const string_t&) override { return false; }
    bool binary(binary_t&) override { return false; }
    bool start_array(std::size_t) override { return false; }
    bool end_array() override { return false; }
    bool parse_error(std::size_t, const std::string&, const json::exception&) override { return false; }

private:
    bool Add(Member member)
    {
        if (!m_begun)
            return false;
        m_object.m_members.push_back(std::move(member));
        return true;
    }

    FlatObject& m_object;
    std::string m_name;
    bool m_begun = false;
};

std::optional<FlatObject> FlatObject::Read(std::string_view line)
{
    FlatObject object;
    Members members(object);
    if (!json::sax_parse(line, &members))
        return std::nullopt;
    return object;
}

const FlatObject::Member* FlatObject::Find(std::string_view name) const
{
    for (const Member& member : m_members) {
        if (member.name == name)
            return &member;
    }
    return nullptr;
}

const std::u16string* FlatObject::Text(std::string_view name) const
{
    const Member* member = Find(name);
    return member && member->text ? &*member->text : nullptr;
}

std::optional<std::int64_t> FlatObject::Number(std::string_view name) const
{
    const Member* member = Find(name);
    return member ? member->number : std::nullopt;
}

std::string JsonText(std::u16string_view text)
{
    return json(Utf8(text)).dump();
}

} // namespace vasclip::conduit::dde
