#pragma once

#include "support/processes.h"

namespace vasclip::tests {

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
    explicit SmallDisk(const QString& directory)
        : m_directory(directory)
    {
        const QString aside = m_aside.path();
        m_mounted =
            RunTool(QStringLiteral("cp"), {QStringLiteral("-a"), directory + QStringLiteral("/."), aside}) &&
            RunTool(QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"), QStringLiteral("size=1m"), QStringLiteral("tmpfs"), directory}) &&
            RunTool(QStringLiteral("cp"), {QStringLiteral("-a"), aside + QStringLiteral("/."), directory});
    }
    ~SmallDisk()
    {
        if (m_mounted)
            RunTool(QStringLiteral("umount"), {m_directory});
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
        return RunTool(QStringLiteral("mount"),
                       {QStringLiteral("-o"), QStringLiteral("remount,ro"), m_directory});
    }
    void MakeRoom() const { QFile::remove(Filling()); }

private:
    [[nodiscard]] QString Filling() const { return m_directory + QStringLiteral("/filling"); }

    QString m_directory;
    QTemporaryDir m_aside;
    bool m_mounted = false;
};

} // namespace vasclip::tests
