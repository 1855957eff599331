#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QThread>

#include <windows.h>

namespace vasclip::tests {

/// A letter or a share of Wine, which are links in its directory: WineLink("w:", directory), WineLink("unc/office/files",
/// directory). It is gone with the object.
class WineLink
{
public:
    WineLink(const QString& name, const QString& directory)
    {
        const QString letters = UnixName(QStringLiteral("C:\\"));
        const QString target = UnixName(QDir::toNativeSeparators(directory));
        if (letters.isEmpty() || target.isEmpty())
            return;
        m_path = letters.left(letters.lastIndexOf(QStringLiteral("/dosdevices/"))) + QStringLiteral("/dosdevices/") + name;
        Run(QStringLiteral("mkdir"), {QStringLiteral("-p"), m_path.left(m_path.lastIndexOf(QChar(u'/')))});
        Run(QStringLiteral("ln"), {QStringLiteral("-sfn"), target, m_path});
    }
    ~WineLink() { Remove(); }
    WineLink(const WineLink&) = delete;
    WineLink& operator=(const WineLink&) = delete;

    /// @param place  what the link leads to, by its Windows name
    [[nodiscard]] static bool Comes(const QString& place) { return Waits(place, true); }
    [[nodiscard]] static bool Goes(const QString& place) { return Waits(place, false); }
    void Remove()
    {
        if (!m_path.isEmpty())
            Run(QStringLiteral("rm"), {QStringLiteral("-f"), m_path});
        m_path.clear();
    }

private:
    static bool Waits(const QString& place, bool there)
    {
        constexpr int kLongMs = 5'000;
        QElapsedTimer waiting;
        waiting.start();
        while (QFileInfo::exists(place) != there && waiting.elapsed() < kLongMs)
            QThread::msleep(20);
        return QFileInfo::exists(place) == there;
    }
    /// "" where there is no Wine.
    static QString UnixName(const QString& path)
    {
        using Call = char*(CDECL*)(const wchar_t*);
        const auto call = reinterpret_cast<Call>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
        char* name = call ? call(reinterpret_cast<const wchar_t*>(path.utf16())) : nullptr;
        const QString result = QString::fromUtf8(name);
        if (name)
            HeapFree(GetProcessHeap(), 0, name);
        return result;
    }
    static void Run(const QString& program, const QStringList& words)
    {
        QProcess::execute(QStringLiteral("Z:/usr/bin/") + program, words);
    }

    QString m_path;
};

} // namespace vasclip::tests
