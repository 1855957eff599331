#pragma once

#include <stdexcept>
#include <string>

namespace vasclip::conduit::dde {

/// Why an exchange did not come about. The values are those of the link's errors, and travel over a bridge's pipe.
enum class Why : int {
    NoAnswer = 282, ///< nobody took the conversation
    Refused = 285,  ///< the other side would not, or the exchange can't hold it; the conversation goes on
    TimeOut = 286,  ///< the conversation is over
    Gone = 289,     ///< likewise; also an answer that is none
};

/// Words for people, in UTF-8.
class Failure : public std::runtime_error
{
public:
    Failure(Why why, const std::string& words)
        : std::runtime_error(words)
        , m_why(why)
    {}
    [[nodiscard]] Why Reason() const { return m_why; }

private:
    Why m_why;
};

} // namespace vasclip::conduit::dde
