#pragma once

#include "platform/conduit/dde/server.h"

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace vasclip::conduit::dde {

/// What the conversations of one server share.
class SpeakerHost
{
public:
    SpeakerHost(ServerHandler& serverHandler, std::shared_ptr<const CodePage> codePage, const ServerHabits& serverHabits)
        : handler(serverHandler)
        , page(std::move(codePage))
        , habits(serverHabits)
    {}
    SpeakerHost(const SpeakerHost&) = delete;
    SpeakerHost& operator=(const SpeakerHost&) = delete;

    /// How often the answer under way is given.
    [[nodiscard]] int Copies() const { return answered > habits.copiesAfter ? habits.copies : 1; }
    /// Ends that conversation, whose speaker is gone then.
    virtual void Drop(HWND speaker) = 0;

    ServerHandler& handler;
    std::shared_ptr<const CodePage> page;
    ServerHabits habits;
    int answered = 0;

protected:
    ~SpeakerHost() = default;
};

/// One conversation of a client.
class Speaker
{
public:
    /// @throws Failure (Why::NoAnswer) if the system gives no window
    Speaker(SpeakerHost& server, HWND client, std::u16string topic);
    ~Speaker();
    Speaker(const Speaker&) = delete;
    Speaker& operator=(const Speaker&) = delete;
    [[nodiscard]] HWND Window() const { return m_window; }
    /// Its client has gone without a word.
    [[nodiscard]] bool Deserted() const { return !IsWindow(m_client); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM along);
    bool Take(UINT message, HWND sender, LPARAM along);
    void TakeRequest(WORD format, ATOM item);
    void TakePoke(HGLOBAL memory, ATOM item);
    void TakeCommand(HGLOBAL memory);
    void Data(ATOM item, const std::string& bytes);
    void DataOnce(ATOM item, const std::string& bytes);
    void Ack(bool accepted, UINT_PTR about, bool busy = false);
    void Say(std::function<void()> answer);
    void Repeat(int copy, std::function<void()> copied);
    void Later(int ms, std::function<void()> step);
    void Post(UINT message, LPARAM along);
    bool Misbehaves();

    SpeakerHost& m_server;
    HWND m_window;
    HWND m_client;
    std::u16string m_topic;
    std::deque<std::function<void()>> m_late;
    UINT_PTR m_timers = 0;
};

} // namespace vasclip::conduit::dde
