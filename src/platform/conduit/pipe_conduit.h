#pragma once

#include "platform/conduit/conduit.h"

#include <QStringList>

#include <memory>

namespace vasclip::conduit {

struct PipeOptions
{
    QString program;
    QStringList arguments;
    int timeLimitMs = 5000;
};

/// The link field over the standard input and output of a bridge process, which is started when the first
/// conversation opens and ends with the conduit. What it writes to its standard error is passed on.
/// A bridge that cannot be started is error 282.
[[nodiscard]] std::unique_ptr<Conduit> MakePipeConduit(PipeOptions options);

} // namespace vasclip::conduit
