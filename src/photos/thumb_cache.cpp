#include "photos/thumb_cache.h"

#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"

namespace vasclip::photos {

void ThumbCache::SetLimit(qsizetype bytes)
{
    const std::lock_guard lock(m_mutex);
    m_limit = bytes;
    Trim();
}

void ThumbCache::Put(const QString& path, const Thumb& thumb)
{
    QImage small = thumb.image;
    if (std::max(small.width(), small.height()) > kPixels)
        small = small.scaled(kPixels, kPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    Kept fresh{path, picture::ToJpeg(small, 70), thumb.fullSize};
    if (fresh.jpeg.size() > kMostBytes)
        return;
    const std::lock_guard lock(m_mutex);
    if (const auto found = m_index.find(path); found != m_index.end()) {
        m_bytes -= (*found)->Cost();
        m_kept.erase(*found);
    }
    m_bytes += fresh.Cost();
    m_kept.push_front(std::move(fresh));
    m_index.insert(path, m_kept.begin());
    Trim();
}

std::optional<Thumb> ThumbCache::Get(const QString& path)
{
    Kept kept;
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_index.find(path);
        if (found == m_index.end())
            return std::nullopt;
        m_kept.splice(m_kept.begin(), m_kept, *found);
        kept = *m_kept.begin();
    }
    return Thumb{QImage::fromData(kept.jpeg, "JPG"), kept.fullSize};
}

bool ThumbCache::Has(const QString& path) const
{
    const std::lock_guard lock(m_mutex);
    return m_index.contains(path);
}

void ThumbCache::Remove(const QString& path)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_index.find(path);
    if (found == m_index.end())
        return;
    m_bytes -= (*found)->Cost();
    m_kept.erase(*found);
    m_index.erase(found);
}

void ThumbCache::Clear()
{
    const std::lock_guard lock(m_mutex);
    m_kept.clear();
    m_index.clear();
    m_bytes = 0;
}

qsizetype ThumbCache::Bytes() const
{
    const std::lock_guard lock(m_mutex);
    return m_bytes;
}

qsizetype ThumbCache::Count() const
{
    const std::lock_guard lock(m_mutex);
    return m_index.size();
}

/// The caller holds the lock.
void ThumbCache::Trim()
{
    while (m_bytes > m_limit && !m_kept.empty()) {
        m_bytes -= m_kept.back().Cost();
        m_index.remove(m_kept.back().path);
        m_kept.pop_back();
    }
}

} // namespace vasclip::photos
