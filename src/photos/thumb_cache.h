#pragma once

#include "photos/thumb_source.h"

#include <QByteArray>
#include <QHash>

#include <list>
#include <mutex>

namespace vasclip::photos {

/// Small pictures of files that were on show, or soon will be, kept compressed within a limit of bytes: what
/// was not asked for longest goes first. May be used from several threads.
class ThumbCache
{
public:
    /// Longer side of a kept picture, and its largest length in bytes; one that compresses worse isn't kept.
    static constexpr int kPixels = 160;
    static constexpr qsizetype kMostBytes = 10 * 1024;

    void SetLimit(qsizetype bytes);
    void Put(const QString& path, const Thumb& thumb);
    [[nodiscard]] std::optional<Thumb> Get(const QString& path);
    [[nodiscard]] bool Has(const QString& path) const;
    void Remove(const QString& path);
    void Clear();
    [[nodiscard]] qsizetype Bytes() const;
    [[nodiscard]] qsizetype Count() const;

private:
    struct Kept
    {
        QString path;
        QByteArray jpeg;
        QSize fullSize;
        [[nodiscard]] qsizetype Cost() const { return jpeg.size() + 2 * path.size() + kOverhead; }
    };
    static constexpr qsizetype kOverhead = 160; ///< of the list and the index
    void Trim();

    mutable std::mutex m_mutex;
    std::list<Kept> m_kept; ///< the youngest first
    QHash<QString, std::list<Kept>::iterator> m_index;
    qsizetype m_bytes = 0;
    qsizetype m_limit = 0;
};

} // namespace vasclip::photos
