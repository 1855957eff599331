#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vasclip::conduit::dde {

/// The letters that both sides agree on.
class CodePage
{
public:
    virtual ~CodePage() = default;
    /// "code page 1252"
    [[nodiscard]] virtual std::string Name() const = 0;
    /// nullopt if a character is not in it; nothing is put in its place.
    [[nodiscard]] virtual std::optional<std::string> Encode(std::u16string_view text) const = 0;
    /// nullopt if the bytes are no text of it.
    [[nodiscard]] virtual std::optional<std::u16string> Decode(std::string_view bytes) const = 0;
};

/// Of a service, a topic and an item: the system keeps no longer names. In characters, and in bytes of the code page.
inline constexpr std::size_t kLongestName = 255;
/// Of a value and a command, in bytes of the code page; the zero behind it makes 64 KB whole.
inline constexpr std::size_t kLongestText = 65535;

struct Topic
{
    std::u16string service, topic;
};

/// What the exchange can't hold is told here, by name and before anything is sent. Each throws Failure (Why::Refused),
/// whose words say what, where, and that nothing was sent.
/// @param whole  "service|topic"; a second bar is the topic's own, which the exchange has no room for
[[nodiscard]] Topic RequireTopic(const CodePage& page, std::u16string_view whole);
void RequireItem(const CodePage& page, std::u16string_view item);
/// @param what  how the words call it: "The value for \"UA5|14|2\""
/// @return the bytes, without a zero
[[nodiscard]] std::string RequireText(const CodePage& page, const std::string& what, std::u16string_view text);

/// A text between quotes, at most 60 characters of it.
[[nodiscard]] std::string Quoted(std::u16string_view text);

} // namespace vasclip::conduit::dde
