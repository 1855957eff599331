#pragma once

#include "support/processes.h"

namespace vasclip::tests {

using namespace Qt::StringLiterals;

inline bool RunTool(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished(kPatienceMs) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

/// A small disk mounted over a directory, with what the directory held.
class SmallDisk
{
public:
    explicit SmallDisk(const QString& directory, int kilobytes = 1024)
        : m_directory(directory)
    {
        const QString aside = m_aside.path();
        m_mounted =
            RunTool(u"cp"_s, {u"-a"_s, directory + u"/."_s, aside}) &&
            RunTool(u"mount"_s, {u"-t"_s, u"tmpfs"_s, u"-o"_s, u"size=%1k"_s.arg(kilobytes), u"tmpfs"_s, directory}) &&
            RunTool(u"cp"_s, {u"-a"_s, aside + u"/."_s, directory});
    }
    ~SmallDisk()
    {
        if (m_mounted)
            RunTool(u"umount"_s, {m_directory});
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool Mounted() const { return m_mounted; }
    void Fill() const
    {
        QFile file(Filling());
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return;
        for (const qsizetype size : {4096, 512, 1}) {
            const QByteArray block(size, 'x');
            while (file.write(block) == block.size()) {
            }
        }
    }
    [[nodiscard]] bool MakeReadOnly() const
    {
        return RunTool(u"mount"_s, {u"-o"_s, u"remount,ro"_s, m_directory});
    }
    void MakeRoom() const { QFile::remove(Filling()); }

private:
    [[nodiscard]] QString Filling() const { return m_directory + u"/filling"_s; }

    QString m_directory;
    QTemporaryDir m_aside;
    bool m_mounted = false;
};

} // namespace vasclip::tests
