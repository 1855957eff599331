#include "platform/files/profile.h"

#include "platform/files/file_lock.h"
#include "platform/files/ini_text.h"
#include "platform/files/kept_inis.h"
#include "platform/files/native.h"
#include "platform/files/wildcard.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace vasclip::files {

namespace {

constexpr int kLockWaitMs = 10'000;

/// A name that no drive holds is, to these calls, a file that is not there.
std::shared_ptr<const IniText> ReadFile(const Disk& disk, const QString& file)
{
    try {
        return disk.Ini(file);
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
