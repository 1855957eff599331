#include "platform/files/kept_inis.h"

#include "platform/files/wildcard.h"

namespace vasclip::files {

namespace {

constexpr qsizetype kMostKept = 64;

/// One for all the spellings that lead to a file.
QString KeyOf(const QString& path)
{
    return native::kTellsSpellings ? path : FoldedName(path);
}

bool Same(const native::Info& a, const native::Info& b)
{
    return a.device == b.device && a.inode == b.inode && a.size == b.size && a.modifiedNs == b.modifiedNs && a.changedNs == b.changedNs;
}

} // namespace

std::shared_ptr<const IniText> KeptInis::Read(const QString& path, const native::Info& info)
{
    const QString key = KeyOf(path);
    {
        const std::lock_guard lock(m_mutex);
        const auto kept = m_files.constFind(key);
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
        m_files.insert(key, {info, text});
    else
        m_files.remove(key);
    return text;
}

void KeptInis::Forget(const QString& path)
{
    const std::lock_guard lock(m_mutex);
    m_files.remove(KeyOf(path));
}

} // namespace vasclip::files
