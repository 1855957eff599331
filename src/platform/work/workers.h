#pragma once

#include <functional>
#include <memory>

namespace vasclip::work {

/// The wish that a piece of work ends, shared by who has it done and who does it. Copies are the same wish.
class CancelToken
{
public:
    CancelToken();

    /// Jobs that run are asked to end, those that wait are not begun, and nothing more is told of either.
    void Cancel() const;
    [[nodiscard]] bool Cancelled() const;
    /// Returns when no job of this token runs. After Cancel none will.
    void Wait() const;

private:
    friend class Running;
    struct State;
    std::shared_ptr<State> m_state;
};

/// What workers hold while they run a job; false for one that is not wanted any more.
class Running
{
public:
    explicit Running(const CancelToken& token);
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    [[nodiscard]] explicit operator bool() const { return m_state != nullptr; }

private:
    std::shared_ptr<CancelToken::State> m_state;
};

/// A look at the token now and then is all the manners that a job needs. It throws nothing.
using Job = std::function<void(const CancelToken&)>;
using Done = std::function<void()>;

/// Has work done beside the thread that asks, which is always the same one.
class Workers
{
public:
    virtual ~Workers() = default;
    Workers() = default;
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    /// Runs `job` as soon as a worker is free, in the order of asking, and then `done` in the thread that asked.
    virtual void Run(Job job, Done done, const CancelToken& token) = 0;
    /// What a job tells while it runs: `news` in the thread that asked, in the order of telling and before `done`.
    virtual void Tell(Done news, const CancelToken& token) = 0;
    [[nodiscard]] virtual int AtOnce() const = 0; ///< jobs that run at the same time
};

} // namespace vasclip::work
