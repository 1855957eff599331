#include "link/save_picture.h"

#include "link/messages.h"
#include "link/reporter.h"
#include "link/slot_photos.h"
#include "photos/photo_records.h"
#include "photos/view_name.h"
#include "platform/text/text.h"

#include <QScopedValueRollback>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Is it the very file that the record keeps under that view? It was sent from there, then.
bool IsFiledSo(const BookSources& desk, const QString& key, const QString& path, const QString& view)
{
    const std::optional<store::Record> record = store::ReadRecord(desk.sources.datDatabook, key);
    return record && path == text::Folded(PathOfView(desk, photos::PhotoList(*record), view));
}

} // namespace

PictureOutcome SavePictureToDatabook(LinkDesk& desk, const QString& whose, forms::PictureBox& slot,
                                     const QString& given, qint16 comp)
{
    const QString view = photos::CleanView(given); // a report's caption can hold anything
    const QString key = text::Folded(whose);
    if (key.isEmpty()) {
        desk.status.lblmsg.Show(messages::kBlankAddress, forms::Colour::Blue);
        return PictureOutcome::NoAddress;
    }
    const QString path = text::Folded(desk.loader.Table().ErrGetPict(slot));
    if (path.isEmpty() || path.contains("EMPTY"_L1)) {
        desk.status.lblmsg.Show(messages::kNoPicture, forms::Colour::Blue);
        return PictureOutcome::NoPicture;
    }
    std::optional<QScopedValueRollback<std::function<void(const QString&)>>> city;
    if (desk.photoDesk && desk.photoDesk->setCity && comp != kNoComp)
        city.emplace(desk.photoDesk->setCity, [&desk, comp](const QString& record) { SetCityOf(desk, record, CityRule::Fill, comp); });
    PictureOutcome outcome = PictureOutcome::NotFiled;
    Reported(desk.ports.prompter, "SavePictureToDatabook", [&] {
        if (IsFiledSo(desk, key, path, view))
            outcome = PictureOutcome::IsThere;
        else if (desk.photoDesk && photos::SavePhotoToRecord(*desk.photoDesk, key, slot, view))
            outcome = PictureOutcome::Filed;
    });
    return outcome;
}

} // namespace vasclip::link
