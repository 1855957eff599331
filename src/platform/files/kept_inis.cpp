#include "platform/files/kept_inis.h"

namespace vasclip::files {

namespace {

constexpr qsizetype kMostKept = 64;

bool Same(const native::Info& a, const native::Info& b)
{
    return a.SameFile(b) && a.size == b.size && a.modifiedNs == b.modifiedNs && a.changedNs == b.changedNs;
}

} // namespace

std::shared_ptr<const IniText> KeptInis::Read(const QString& path)
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

void KeptInis::Forget(const QString& path)
{
    const std::lock_guard lock(m_mutex);
    m_files.remove(path);
}

} // namespace vasclip::files
