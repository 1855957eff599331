#include "upkeep/named_pictures.h"

#include "photos/photo_list.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList StemsIn(const QString& photos)
{
    QStringList stems;
    for (const auto& [view, listed] : photos::ParsePhotos(photos))
        if (const QString stem = text::Folded(listed); !stem.isEmpty())
            stems.append(stem);
    return stems;
}

} // namespace

NamedPictures::NamedPictures(const store::DataSource& source)
{
    if (source.FieldIndex(fields::PHOTOS) < 0)
        return;
    store::Rows rows = store::ReadRows(
        source, u"SELECT [%1] FROM [%2]"_s.arg(QString(fields::PHOTOS), source.RecordSource()));
    for (qint64 at = 0; at < rows.Count(); ++at)
        if (const auto row = rows.At(at))
            for (const QString& stem : StemsIn(row->Text(fields::PHOTOS)))
                ++m_named[stem];
}

bool NamedPictures::Has(const QString& stem) const
{
    return m_named.contains(text::Folded(stem));
}

void NamedPictures::Leave(const QString& photos)
{
    for (const QString& stem : StemsIn(photos))
        if (--m_named[stem] <= 0)
            m_named.remove(stem);
}

} // namespace vasclip::upkeep
