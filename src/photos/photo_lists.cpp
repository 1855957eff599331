#include "photos/photo_lists.h"

#include "store/store.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {

PhotoLists::PhotoLists(forms::ControlSet& set)
    : lstViews(set, u"lstViews"_s)
    , lstimages(set, u"lstimages"_s)
    , txtView(set, u"txtView"_s)
    , txtimage(set, u"txtimage"_s)
    , lblLabelTag(set, u"lblLabelTag"_s)
    , lblPhotomsg(set, u"lblPhotomsg"_s)
{}

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

void ReadPhotoLists(const store::DataSource& source, forms::ListBox& views, forms::ListBox& stems)
{
    views.Clear();
    stems.Clear();
    for (const auto& [view, stem] : ParsePhotos(store::GetFieldData(source, u"PHOTOS"_s))) {
        views.AddItem(view);
        stems.AddItem(stem);
    }
}

} // namespace vasclip::photos
