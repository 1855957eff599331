// The photos of a record on a page.

#include "photos/photo_list.h"
#include "store/fields.h"
#include "upkeep/report_blocks.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using paper::kPoint;

namespace {

constexpr int kBetween = 9 * kPoint; ///< two photos

QList<photos::PhotoPair> PhotosOf(const PhotosPart& part, const store::Record& record)
{
    if (!record.Has(fields::PHOTOS))
        return {};
    const photos::PhotoList list(record);
    QList<photos::PhotoPair> pairs;
    for (const photos::PhotoPair& pair : list.Pairs())
        if (!pair.second.trimmed().isEmpty() &&
            (part.all || pair.first.trimmed().compare(u"FRONT VIEW"_s, Qt::CaseInsensitive) == 0))
            pairs.append({pair.first.simplified(), pair.second.trimmed()});
    return pairs;
}

/// "Front View" for "FRONT VIEW": a caption is no headline.
QString CaptionOf(const QString& view)
{
    if (view != view.toUpper())
        return view;
    QString caption = view.toLower();
    bool first = true;
    for (QChar& letter : caption) {
        if (first && letter.isLetter())
            letter = letter.toUpper();
        first = letter.isSpace();
    }
    return caption;
}

} // namespace

const PhotosPart* BlockMaker::Beside() const
{
    const auto part = std::find_if(m_layout.parts.begin(), m_layout.parts.end(), [](const RecordPart& one) {
        return one.kind == RecordPart::Kind::Photos && one.photos.beside;
    });
    return part == m_layout.parts.end() ? nullptr : &part->photos;
}

int BlockMaker::BesideWidth(const PhotosPart& part) const
{
    return std::min(part.high * 4 / 3, m_measures.width * 2 / 5);
}

bool BlockMaker::HasPhotos(const PhotosPart& part, const store::Record& record)
{
    return !PhotosOf(part, record).isEmpty();
}

/// At the right of the record, from this strip on.
void BlockMaker::PutBeside(Block& first, const PhotosPart& part, const store::Record& record, int room)
{
    const int caption = part.captions ? m_setter.LineHeight(m_small) + 2 * kPoint : 0;
    const int high = std::min(part.high, m_measures.height / 3);
    int y = kPoint;
    for (const photos::PhotoPair& pair : PhotosOf(part, record)) {
        if (y + high + caption > m_measures.height / 2)
            break; // what is beside a record stands on its first page
        const QRect box(m_measures.width - room, y, room, high);
        first.content.pictures.append({.box = box, .name = pair.second});
        if (part.captions)
            Put(first, CaptionOf(pair.first), m_small, ink::kQuiet, box.left(), box.bottom() + kPoint, room,
                Side::Centre);
        y += high + caption + kPoint;
    }
    first.besides = y > kPoint ? y : 0;
}

void BlockMaker::AddPhotos(std::vector<Block>& blocks, const PhotosPart& part, const store::Record& record)
{
    const QList<photos::PhotoPair> pairs = PhotosOf(part, record);
    const int caption = part.captions ? m_setter.LineHeight(m_small) + 2 * kPoint : 0;
    const int high = std::min(part.high, m_measures.height - caption - 30 * kPoint);
    const int width = (m_measures.width - kBetween * (part.across - 1)) / part.across;
    for (qsizetype from = 0; from < pairs.size(); from += part.across) {
        Block row;
        for (int i = 0; i < part.across && from + i < pairs.size(); ++i) {
            const QRect box(i * (width + kBetween), 6 * kPoint, width, high);
            row.content.pictures.append({.box = box, .name = pairs[from + i].second});
            if (part.captions)
                Put(row, CaptionOf(pairs[from + i].first), m_small, ink::kQuiet, box.left(),
                    box.bottom() + 2 * kPoint, width, Side::Centre);
        }
        row.below = true;
        row.height = 6 * kPoint + high + caption;
        blocks.push_back(std::move(row));
    }
}

} // namespace vasclip::upkeep
