#include "upkeep/rehearsed_fields.h"

#include "photos/photo_list.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

QString Shown(const store::Record& record, const QString& field)
{
    return record.Has(field) ? text::Trim(record.Value(field).toString()) : QString();
}

bool IsKey(const QString& field)
{
    return field.compare(fields::CENTRALKEY, Qt::CaseInsensitive) == 0;
}

namespace {

bool IsPhotos(const QString& field)
{
    return field.compare(fields::PHOTOS, Qt::CaseInsensitive) == 0;
}

/// A list of photos; its last line may lack its end.
photos::PhotoList PhotosIn(const store::Record& record, const QString& field)
{
    return photos::PhotoList(photos::ParsePhotos(Shown(record, field) + u"\r\n"_s));
}

/// My photos with theirs in their views. An export knows the front view alone: the others stay mine.
photos::PhotoList Merged(const store::Record& mine, const store::Record& theirs, const QString& field)
{
    photos::PhotoList merged = PhotosIn(mine, field);
    const photos::PhotoList come = PhotosIn(theirs, field);
    for (const auto& [view, stem] : come.Pairs())
        if (!stem.trimmed().isEmpty() && merged.StemOf(view).compare(stem.trimmed(), Qt::CaseInsensitive) != 0)
            merged.Put(view, stem);
    return merged;
}

} // namespace

QVariant Taken(const store::Record& mine, const store::Record& theirs, const QString& field)
{
    return IsPhotos(field) ? QVariant(Merged(mine, theirs, field).Text()) : theirs.Value(field);
}

bool Differs(const store::Record& mine, const store::Record& theirs, const QString& field)
{
    if (Shown(mine, field) == Shown(theirs, field))
        return false;
    return !IsPhotos(field) || Merged(mine, theirs, field).Pairs() != PhotosIn(mine, field).Pairs();
}

} // namespace vasclip::upkeep
