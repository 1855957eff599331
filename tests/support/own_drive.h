#pragma once

#include <QDir>
#include <QString>

namespace vasclip::tests {

/// Gives a home a drive C of its own before anybody opens it: on a machine that has one, a test must never reach that.
inline QString WithOwnDrive(const QString& home)
{
    QDir().mkpath(home + QStringLiteral("/drive_c"));
    return home;
}

} // namespace vasclip::tests
