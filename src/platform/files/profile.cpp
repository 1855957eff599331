#include "platform/files/profile.h"

#include "platform/files/file_lock.h"
#include "platform/files/ini_text.h"
#include "platform/files/native.h"
#include "platform/files/wildcard.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <QHash>

#include <memory>
#include <mutex>

using namespace Qt::StringLiterals;

namespace vasclip::files {

namespace {

constexpr int kLockWaitMs = 10'000;
constexpr qsizetype kMostKept = 64;

/// Files as they were read, good while the file bears the same stamps. One that was read in the clock tick of
/// its last change is not kept: a second change could bear the same stamps.
class KeptFiles
{
public:
    std::shared_ptr<const IniText> Read(const QString& path)
    {
        native::Info info;
        if (native::Inspect(path, info) != native::Failure::None)
            return nullptr;
        {
            const std::lock_guard lock(m_mutex);
            const auto kept = m_files.constFind(path);
            if (kept != m_files.constEnd() && Same(kept->info, info))
                return kept->text;
        }
        const qint64 startedNs = native::StampClockNs();
        QByteArray content;
        if (native::ReadAll(path, content) != native::Failure::None)
            return nullptr;
        const auto text = std::make_shared<const IniText>(content);
        const bool settled = startedNs > info.modifiedNs && startedNs > info.changedNs;
        const std::lock_guard lock(m_mutex);
        if (m_files.size() >= kMostKept)
            m_files.clear();
        if (settled && content.size() == info.size)
            m_files.insert(path, {info, text});
        else
            m_files.remove(path);
        return text;
    }

    void Forget(const QString& path)
    {
        const std::lock_guard lock(m_mutex);
        m_files.remove(path);
    }

private:
    struct Kept
    {
        native::Info info;
        std::shared_ptr<const IniText> text;
    };

    static bool Same(const native::Info& a, const native::Info& b)
    {
        return a.SameFile(b) && a.size == b.size && a.modifiedNs == b.modifiedNs &&
               a.changedNs == b.changedNs;
    }

    std::mutex m_mutex;
    QHash<QString, Kept> m_files;
};

KeptFiles& Kept()
{
    static KeptFiles files;
    return files;
}

/// A name that no drive holds is, to these calls, a file that is not there.
std::shared_ptr<const IniText> ReadFile(const Disk& disk, const QString& file)
{
    try {
        return Kept().Read(disk.ToNative(file));
    } catch (const RuntimeError&) {
        return nullptr;
    }
}

/// Beside the file, under one spelling for all who may spell it otherwise.
QString LockName(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    quint64 mixed = 14695981039346656037U; // FNV-1a: one answer on every machine that shares the directory
    for (const QChar c : FoldedName(path.mid(slash + 1)))
        mixed = (mixed ^ c.unicode()) * 1099511628211U;
    return path.left(slash + 1) + QString::fromUtf16(native::kOwnPrefix) + QString::number(mixed, 36) +
           u".lock"_s;
}

} // namespace

QString GetPrivateProfileString(const Disk& disk, const QString& section, const QString& key,
                                const QString& fallback, const QString& file)
{
    const auto text = ReadFile(disk, file);
    const std::optional<QString> value = text ? text->Value(section, key) : std::nullopt;
    return value ? *value : text::RTrim(fallback);
}

QStringList ProfileKeys(const Disk& disk, const QString& section, const QString& file)
{
    const auto text = ReadFile(disk, file);
    return text ? text->Keys(section) : QStringList();
}

QStringList ProfileSections(const Disk& disk, const QString& file)
{
    const auto text = ReadFile(disk, file);
    return text ? text->Sections() : QStringList();
}

bool WriteProfileKeys(const Disk& disk, const QString& file, const QList<ProfileKey>& keys)
{
    try {
        FileLock lock;
        if (!lock.Take(LockName(disk.ToNative(file)), kLockWaitMs))
            return false;
        QByteArray content;
        if (disk.Found(file))
            content = disk.ReadWhole(file);
        IniText text(content);
        for (const ProfileKey& key : keys) {
            if (!text.Write(key.section, key.key, key.value))
                return false;
        }
        if (text.IsChanged()) {
            disk.WriteWhole(file, text.Bytes());
            Kept().Forget(disk.ToNative(file));
        }
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool WritePrivateProfileString(const Disk& disk, const QString& section, const QString& key,
                               const QString& value, const QString& file)
{
    return WriteProfileKeys(disk, file, {{section, key, value}});
}

} // namespace vasclip::files
