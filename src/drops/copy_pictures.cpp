#include "drops/actions.h"

#include "common/paths.h"
#include "drops/slot.h"
#include "link/transfer.h"
#include "photos/content.h"
#include "photos/photo_copies.h"
#include "photos/trash.h"
#include "photos/trash_icon.h"
#include "platform/picture/picture.h"
#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

bool IsPlainStem(const QString& stem)
{
    return !stem.isEmpty() && std::none_of(stem.cbegin(), stem.cend(),
                                           [](QChar letter) { return u"*?\\/:"_s.contains(letter); });
}

/// Back among the pictures that wait to be filed, where it may be overwritten and deleted like them. Another picture
/// that bore its name is kept in the trash.
void CopyOver(const files::Disk& disk, const QString& source, const QString& target)
{
    if (disk.Found(target)) {
        if (!photos::SameContent(disk, source, target))
            photos::KeepInTrash(disk, target);
        disk.SetAttr(target, files::Normal);
    }
    disk.FileCopy(source, target);
    disk.SetAttr(target, files::Normal);
}

Outcome Copied(DropDesk& desk, int count)
{
    desk.capture.RefreshCapture();
    const QString place = desk.link.globals.G_CaptureDir;
    if (count == 0)
        return {false, u"Nothing was copied to %1."_s.arg(place), forms::Colour::Blue, {}};
    return {true,
            count == 1 ? u"1 picture is in %1 now."_s.arg(place)
                       : u"%1 pictures are in %2 now."_s.arg(count).arg(place),
            forms::Colour::Green,
            {}};
}

/// A name that the directory doesn't have yet: "A.jpg", "A (2).jpg", ...
QString FreeName(const files::Disk& disk, const QString& directory, const QString& stem,
                 const QString& extension)
{
    QString path = directory + stem + u'.' + extension;
    for (int number = 2; disk.Found(path); ++number)
        path = directory + u"%1 (%2)."_s.arg(stem, text::Dec(number)) + extension;
    return path;
}

/// @return whether the copy bears another name, since no report can name the file's own
bool CopyOneIn(const link::LinkDesk& desk, const QString& file)
{
    const QString directory = common::CkRSlash(desk.globals.G_CaptureDir);
    const QString name = file.mid(file.lastIndexOf(u'\\') + 1);
    // A file's own directory is the one into which it is dropped: it is there.
    if (text::Folded(directory + name) == text::Folded(file))
        return false;
    const QString extension = name.mid(name.lastIndexOf(u'.') + 1).toUpper();
    // A dot in a name reads as its end.
    const QString plain = name.left(name.lastIndexOf(u'.')).replace(u'.', u'_');
    const QString stem = photos::NameForReport(plain);
    if (extension == "JPG"_L1 || extension == "JPEG"_L1 || extension == "BMP"_L1) {
        const QString kept = extension == "BMP"_L1 ? u"bmp"_s : u"jpg"_s;
        desk.disk.FileCopy(file, FreeName(desk.disk, directory, stem, kept));
        return stem != plain;
    }
    constexpr int kQuality = 95;
    picture::SaveJpeg(desk.disk, picture::Load(desk.disk, file),
                      FreeName(desk.disk, directory, stem, u"jpg"_s), kQuality);
    return stem != plain;
}

} // namespace

Outcome CopyBack(DropDesk& drops, const Drag& drag, const DropRule& rule)
{
    link::LinkDesk& desk = drops.link;
    const QString directory = common::CkRSlash(desk.globals.G_CaptureDir);
    int count = 0;
    if (rule.group) {
        const forms::PictureBox& slot = SlotOf(desk, {*rule.group, drag.index}).photo;
        const QString file = text::Trim(desk.loader.Table().ErrGetPict(slot));
        const QString target = directory + file.mid(file.lastIndexOf(u'\\') + 1);
        const bool elsewhere = text::Folded(target) != text::Folded(file);
        if (elsewhere && desk.disk.FileExists(file) && desk.disk.DirExists(directory)) {
            CopyOver(desk.disk, file, target);
            ++count;
        } else if (!file.isEmpty() && photos::CopyFile(desk.ports, desk.disk, file, directory)) {
            ++count;
        }
        return Copied(drops, count);
    }
    const std::optional<Taken> record = TakeRecord(desk, drag.key);
    if (!record)
        return {false, u"%1 is no longer in the Databook."_s.arg(drag.key), forms::Colour::Red, {}};
    for (const photos::PhotoPair& photo : record->photos.Pairs()) {
        const QString stem = text::Trim(photo.second);
        if (!IsPlainStem(stem))
            continue;
        const QString source = common::CkRSlash(desk.globals.G_PhotoDir) + stem + u".jpg"_s;
        if (!desk.disk.FileExists(source)) {
            desk.ports.prompter.Box(u"Picture not found in database"_s,
                                    u"The source picture ( %1 ) is not currently found \r\nin %2"_s.arg(
                                        stem + u".jpg"_s, desk.globals.G_PhotoDir));
            continue;
        }
        CopyOver(desk.disk, source, directory + stem + u".jpg"_s);
        ++count;
    }
    return Copied(drops, count);
}

Outcome CopyIn(DropDesk& drops, const QStringList& files)
{
    int count = 0;
    bool renamed = false;
    QStringList refused;
    for (const QString& file : files) {
        try {
            renamed = CopyOneIn(drops.link, file) || renamed;
            ++count;
        } catch (const RuntimeError& failure) {
            refused.append(failure.Description());
        }
    }
    Outcome outcome = Copied(drops, count);
    if (renamed)
        outcome.message += u" A \"]\" in a name has become a \")\": no report can name such a file."_s;
    if (!refused.isEmpty()) {
        outcome.message += u' ' + refused.first();
        outcome.colour = forms::Colour::Red;
    }
    return outcome;
}

Outcome SaveSlot(DropDesk& desk, const Drag& drag, const DropRule& rule)
{
    using link::What;
    const What what = rule.action == DropAction::SaveData    ? What::Data
                      : rule.action == DropAction::SavePhoto ? What::Pic
                                                             : What::Both;
    const SlotRef slot{*rule.group, drag.index};
    const QString key = text::Folded(SlotOf(desk.link, slot).text.Text());
    link::TransferSlot(desk.link, slot, what);
    return {true, {}, forms::Colour::Normal, key};
}

Outcome AdviseGeneral(DropDesk& desk)
{
    desk.link.ports.prompter.Box(
        u"How To: Saving General Views"_s,
        u"To save (or resave) a General Photo to Subject Address,\r\ndouble click on the icon to the right of "
        u"the picture.\r\n\r\nNote: Make sure you type or pick (from drop down menu)\r\nthe exact name of the "
        u"General View"_s);
    return {true, {}, forms::Colour::Normal, {}};
}

Outcome ToTrash(DropDesk& drops, const Drag& drag)
{
    const link::LinkDesk& desk = drops.link;
    const photos::TrashDesk trash{desk.ports, desk.disk, desk.globals};
    const auto saved = drops.photos.PictureSaved ? photos::PictureIs::Saved : photos::PictureIs::Unsaved;
    const QString name = common::WholeFileName(drag.picture.path);
    QString said;
    switch (photos::geatrashcan_DragDrop(trash, saved, drag.source, drag.picture)) {
    case photos::TrashDrop::Nothing:
        return {};
    case photos::TrashDrop::Another:
        return {false, photos::WhyAnother(desk.disk, drag.picture), forms::Colour::Red, {}};
    case photos::TrashDrop::Moved:
        said = u"%1 is in the trash now."_s;
        break;
    case photos::TrashDrop::Deleted:
        said = u"%1 is deleted for good."_s;
        break;
    case photos::TrashDrop::Copied:
        said = desk.globals.autoDelete == 1
                   ? u"A copy of %1 is in the trash now. %1 itself stays: no picture was stored just before."_s
                   : u"A copy of %1 is in the trash now. %1 itself stays: the settings keep it."_s;
        break;
    case photos::TrashDrop::Stayed:
        said = desk.globals.trashcan == 0 ? u"%1 stays where it is: the settings turn the trashcan off."_s
                                          : u"%1 stays where it is: it could not be copied to the trash."_s;
        break;
    }
    drops.capture.HideThumbOf(drag.picture.path);
    return {true, said.arg(name), forms::Colour::Blue, {}};
}

} // namespace vasclip::drops
