#pragma once

namespace vasclip::conduit {

/// The user has cancelled: told by whoever was at work, and in no box.
inline constexpr int kUserInterrupt = 18;

/// Keeps the program alive while the other side takes its time. Nothing here may begin an exchange.
class Patience
{
public:
    virtual ~Patience() = default;
    /// An exchange is to begin. @throws RuntimeError 18 to let it and those after it be
    virtual void BeforeExchange() = 0;
    /// Its answer has come, or never will.
    virtual void AfterExchange() = 0;
    /// The answer is still waited for; comes again and again, for the first time after kFirstWaitMs.
    virtual void Waiting() = 0;
};

/// An answer that comes sooner costs no turn of the queue.
inline constexpr int kFirstWaitMs = 60;
inline constexpr int kNextWaitMs = 30;

} // namespace vasclip::conduit
