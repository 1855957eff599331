#pragma once

#include <string>

namespace vasclip::conduit::dde {

/// The client's end of the desktop's data exchange, as a conduit and a bridge need it. Every step keeps a time
/// limit of its own and throws Failure; after Why::TimeOut and Why::Gone the conversation is over, and the next Open
/// looks for the other side anew.
class Partner
{
public:
    virtual ~Partner() = default;

    /// @param topic  "service|topic". The conversation that is open already, if it is about the same and still lives.
    virtual void Open(const std::u16string& topic) = 0;
    /// True if the conversation about the topic is open and the other side has not ended it.
    [[nodiscard]] virtual bool IsOpen(const std::u16string& topic) = 0;

    [[nodiscard]] virtual std::u16string Request(const std::u16string& item) = 0;
    virtual void Poke(const std::u16string& item, const std::u16string& text) = 0;
    virtual void Execute(const std::u16string& command) = 0;
};

} // namespace vasclip::conduit::dde
