#pragma once

#include "platform/files/disk.h"
#include "support/own_drive.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace vasclip::tests {

using namespace Qt::StringLiterals;

/// A home in a directory of its own, gone when the test is.
class TempHome
{
public:
    TempHome()
        : disk(WithOwnDrive(m_directory.path() + u"/home"_s))
    {}

    /// Native path in the home: Native("drive_c/VASSNAP").
    [[nodiscard]] QString Native(const QString& below) const { return disk.Home() + u'/' + below; }

    /// Makes a directory of drive paths with all that stand above it.
    void MakeDirs(const QString& path) const
    {
        for (qsizetype at = path.indexOf(u'\\', 3); at >= 0; at = path.indexOf(u'\\', at + 1)) {
            if (!disk.DirExists(path.left(at)))
                disk.MkDir(path.left(at));
        }
        if (!disk.DirExists(path))
            disk.MkDir(path);
    }

    /// Writes a file, with the directories above it.
    void Put(const QString& path, const QByteArray& content = QByteArrayLiteral("x")) const
    {
        MakeDirs(path.left(path.lastIndexOf(u'\\')));
        disk.WriteWhole(path, content);
    }

private:
    QTemporaryDir m_directory;

public:
    files::Disk disk;
};

} // namespace vasclip::tests
