#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vasclip::conduit::dde {

/// One line of the link's pipe, read without Qt: a JSON object of texts, whole numbers and `true`, none within another.
class FlatObject
{
public:
    /// @param line  without its line feed
    /// @return nullopt for anything else; a member twice is garbage as well
    [[nodiscard]] static std::optional<FlatObject> Read(std::string_view line);

    [[nodiscard]] const std::u16string* Text(std::string_view name) const;
    [[nodiscard]] std::optional<std::int64_t> Number(std::string_view name) const;
    [[nodiscard]] std::size_t Count() const { return m_members.size(); }

private:
    class Members;
    struct Member
    {
        std::string name;
        std::optional<std::u16string> text;
        std::optional<std::int64_t> number;
    };
    [[nodiscard]] const Member* Find(std::string_view name) const;

    std::vector<Member> m_members;
};

/// A text as JSON has it, between quotes, in UTF-8.
[[nodiscard]] std::string JsonText(std::u16string_view text);

} // namespace vasclip::conduit::dde
