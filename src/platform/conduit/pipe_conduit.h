#pragma once

#include "platform/conduit/conduit.h"
#include "platform/conduit/patience.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace vasclip::conduit {

struct PipeOptions
{
    QString program;
    QStringList arguments;
    int timeLimitMs = 5000;
    Patience* patience = nullptr;  ///< outlives the conduit
    QStringList environment = {};  ///< "NAME=value", beside what this process has
    /// The bridge has a forms program of its own behind it, whose time limit it keeps itself and is told.
    bool carries = false;
    /// Looks whether the bridge can be started at all. @throws RuntimeError with what is wrong
    std::function<void()> before = {};
};

/// The link field over the standard input and output of a bridge process, which is started when the first
/// conversation opens and ends with the conduit. What it writes to its standard error is passed on, or, of a bridge that
/// carries, told when it ends.
/// A bridge that cannot be started is error 282, one that carries 298.
[[nodiscard]] std::unique_ptr<Conduit> MakePipeConduit(PipeOptions options);

} // namespace vasclip::conduit
