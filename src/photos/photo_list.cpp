#include "photos/photo_list.h"

#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {

namespace {

auto Find(const QList<PhotoPair>& pairs, const QString& view)
{
    const QString wanted = text::Folded(view);
    return std::find_if(pairs.cbegin(), pairs.cend(),
                        [&](const PhotoPair& pair) { return text::Folded(pair.first) == wanted; });
}

} // namespace

QList<PhotoPair> ParsePhotos(const QString& photos)
{
    constexpr auto kLineEnd = "\r\n"_L1;
    QList<PhotoPair> pairs;
    qsizetype at = 0;
    for (qsizetype end = photos.indexOf(kLineEnd); end > at; end = photos.indexOf(kLineEnd, at)) {
        const QString line = photos.mid(at, end - at);
        const qsizetype bar = line.indexOf(u'|');
        pairs.append(bar < 0 ? PhotoPair(line, {}) : PhotoPair(line.left(bar), line.mid(bar + 1)));
        at = end + kLineEnd.size();
    }
    return pairs;
}

PhotoList::PhotoList(QList<PhotoPair> pairs)
    : m_pairs(std::move(pairs))
{}

PhotoList::PhotoList(const store::Record& record)
    : m_pairs(ParsePhotos(record.Text(fields::PHOTOS)))
{}

bool PhotoList::Has(const QString& view) const
{
    return Find(m_pairs, view) != m_pairs.cend();
}

QString PhotoList::NameOf(const QString& view) const
{
    const auto found = Find(m_pairs, view);
    return found == m_pairs.cend() ? QString() : found->first;
}

void PhotoList::Put(const QString& view, const QString& stem)
{
    const auto found = Find(m_pairs, view);
    if (found == m_pairs.cend())
        m_pairs.append({view, stem});
    else
        m_pairs[found - m_pairs.cbegin()].second = stem;
}

QString PhotoList::Text() const
{
    QString photos;
    for (const auto& [view, stem] : m_pairs)
        photos += view + u'|' + stem + u"\r\n"_s;
    return photos.isEmpty() ? u" "_s : photos;
}

QString PhotoList::StemOf(const QString& view) const
{
    const auto found = Find(m_pairs, view);
    return found == m_pairs.cend() ? QString() : text::Trim(found->second);
}

} // namespace vasclip::photos
