#pragma once

#include "platform/conduit/dde/limits.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vasclip::conduit::dde {

/// What a program does with what it is asked over the desktop's exchange, which has no words for a refusal.
class ServerHandler
{
public:
    virtual ~ServerHandler() = default;
    /// Is a conversation taken? Service and topic as they were asked for.
    [[nodiscard]] virtual bool Takes(const std::u16string& service, const std::u16string& topic) = 0;
    /// @param topic  "service|topic"
    /// @return nullopt refuses
    [[nodiscard]] virtual std::optional<std::u16string> Request(const std::u16string& topic, const std::u16string& item) = 0;
    [[nodiscard]] virtual bool Poke(const std::u16string& topic, const std::u16string& item, const std::u16string& text) = 0;
    [[nodiscard]] virtual bool Execute(const std::u16string& topic, const std::u16string& command) = 0;
};

/// What a server does wrong on purpose, so that the other side can be tried.
struct ServerHabits
{
    int delayMs = 0;             ///< every answer comes that much later
    int delays = 1 << 30;        ///< or only so many of them do
    int copies = 1;              ///< how often each answer is given; 0: never
    int copiesAfter = 0;         ///< but the first so many are given once
    int copyGapMs = 0;           ///< between an answer and its copy
    bool copiesLater = false;    ///< it goes on with other things in that gap
    int slowToTakeMs = 0;        ///< before it says that it takes a conversation
    bool acknowledgesData = false; ///< an acknowledgement too many behind every answer
    bool endless = false;        ///< no zero behind an answer
    bool askForAck = false;      ///< answers want to be acknowledged
    int busy = 0;                ///< so many exchanges are turned away as busy
    unsigned format = 1;         ///< of the answers; 1 is text
    int goneAfter = -1;          ///< after so many answers the conversation is ended in place of an answer
    int endsAfterMs = -1;        ///< so long after each answer the conversation is ended
    int vanishAfter = -1;        ///< likewise, and the windows go without a word
    unsigned code = 0;           ///< with each refusal
    bool flood = false;          ///< in place of an answer it sends other messages, and never stops
};

/// The answering end. It lives in the event loop of the thread that makes it.
class Server
{
public:
    virtual ~Server() = default;
    /// How many conversations are open.
    [[nodiscard]] virtual int Conversations() const = 0;
    std::function<void(int conversations)> onConversations; ///< one began or ended
};

/// @param handler  outlives the server
/// @throws Failure (Why::NoAnswer) if the system gives no window
[[nodiscard]] std::unique_ptr<Server> MakeServer(ServerHandler& handler, std::shared_ptr<const CodePage> page,
                                                 ServerHabits habits = {});

} // namespace vasclip::conduit::dde
