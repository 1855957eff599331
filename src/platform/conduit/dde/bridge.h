#pragma once

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/partner.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vasclip::conduit::dde {

class FlatObject;

/// The answering end of a link's pipe (docs/link-protocol.md), which carries each exchange on to a partner of the
/// desktop's own. It knows no pipe: lines in, lines out.
class Bridge
{
public:
    Bridge(Partner& partner, std::int64_t processId)
        : m_partner(partner)
        , m_processId(processId)
    {}

    /// @param line  without its line feed
    /// @return the answer with its line feed
    [[nodiscard]] std::string Answer(std::string_view line);
    /// After a greeting that is none: the pipe is to be closed.
    [[nodiscard]] bool Finished() const { return m_finished; }
    /// @return the refusal of a line that does not end within kLongestLine
    [[nodiscard]] std::string TooLong();

    static constexpr std::size_t kLongestLine = 16 * 1024 * 1024; ///< with its line feed

private:
    [[nodiscard]] std::string Greet(const FlatObject& object);
    [[nodiscard]] std::string Serve(const FlatObject& object, std::int64_t id);

    Partner& m_partner;
    std::int64_t m_processId;
    bool m_greeted = false;
    bool m_finished = false;
};

} // namespace vasclip::conduit::dde
