#pragma once

#include <QString>

namespace vasclip::conduit {

/// An exchange was asked for while `LinkMode` is 0.
inline constexpr int kNoConversation = 293;
/// A mode other than 0 and 2.
inline constexpr int kBadLinkMode = 380;

/// The link field: one conversation with the forms program.
///
/// `LinkTopic` is "service|topic" and may only be assigned while `LinkMode` is 0. Setting mode 2 opens the
/// conversation, 0 closes it. Every exchange is synchronous with a time limit; none hangs the window.
///
/// @throws RuntimeError from every operation: 282 nobody answers, 286 time limit passed, 285 refused by the
/// other side (its words are in the description), 289 the other side has gone or answered with garbage, 298
/// what the way to it needs is not there, 287
/// topic assigned while open, 293 an exchange while closed, 380 a mode other than 0 and 2. After 286 and 289
/// the conversation is closed (`LinkMode` 0).
class Conduit
{
public:
    virtual ~Conduit() = default;

    [[nodiscard]] virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;
    [[nodiscard]] virtual QString LinkTopic() const = 0;
    virtual void SetLinkTopic(const QString& topic) = 0;
    [[nodiscard]] virtual QString LinkItem() const = 0;
    virtual void SetLinkItem(const QString& item) = 0;
    [[nodiscard]] virtual qint16 LinkMode() const = 0;
    virtual void SetLinkMode(qint16 mode) = 0;

    virtual void LinkRequest() = 0;                       ///< the answer replaces Text
    virtual void LinkPoke() = 0;                          ///< sends Text to LinkItem
    virtual void LinkExecute(const QString& command) = 0; ///< sends a macro
};

} // namespace vasclip::conduit
