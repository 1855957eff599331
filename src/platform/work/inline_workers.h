#pragma once

#include "platform/work/workers.h"

namespace vasclip::work {

/// Does everything at once where it is asked: for tests, and for programs that have nothing to do meanwhile.
class InlineWorkers final : public Workers
{
public:
    void Run(Job job, Done done, const CancelToken& token) override
    {
        {
            const Running running(token);
            if (!running)
                return;
            job(token);
        }
        if (done)
            Tell(std::move(done), token);
    }
    void Tell(Done news, const CancelToken& token) override
    {
        if (!token.Cancelled())
            news();
    }
    [[nodiscard]] int AtOnce() const override { return 1; }
};

} // namespace vasclip::work
