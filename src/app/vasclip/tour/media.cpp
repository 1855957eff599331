// The steps of the tour about the capture directory: copying, finding, adjusting, the trash.

#include "app/vasclip/tour/steps.h"

#include "link/link_desk.h"
#include "photos/content.h"
#include "photos/frm_double.h"
#include "photos/trash.h"

#include <QAbstractButton>
#include <QFile>
#include <QListView>
#include <QSlider>

#include <utility>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

bool Press(QWidget& dialog, const QString& button)
{
    auto* found = dialog.findChild<QAbstractButton*>(button);
    if (found != nullptr)
        found->click();
    return found != nullptr;
}

/// A copy of the first capture picture to play with, always of one time; "" if there is none.
QString PlayPicture(const Stage& stage, const QString& directory, const QString& as = u"TOUR.JPG"_s)
{
    const files::Disk& disk = stage.main.program.Disk();
    const QString capture = stage.main.globals.G_CaptureDir;
    const QStringList names = photos::PictureNames(disk, capture, photos::kCapturePatterns);
    if (names.isEmpty())
        return {};
    if (!disk.DirExists(directory))
        disk.MkDir(directory.chopped(1));
    disk.FileCopy(capture + names.first(), directory + as);
    QFile file(disk.ToNative(directory + as));
    if (file.open(QIODevice::ReadWrite))
        file.setFileTime(stage.main.program.Ports().clock.Now(), QFileDevice::FileModificationTime);
    return directory + as;
}

} // namespace

bool CopyAndFind(const Stage& stage)
{
    int onCard = 0, found = 0;
    const auto look = [&](const QString& entry, const Tour::Visit& visit) {
        bool chosen = false;
        const bool shown =
            stage.tour.During(entry, [&] { chosen = stage.tour.Choose(stage.window, entry); }, visit);
        return chosen && shown;
    };
    const QString last = std::exchange(stage.main.globals.lastCopy, u"C:\\CARD\\DCIM\\100DEMO\\"_s);
    const bool copy = look(u"File > Copy Photos - From Reader"_s, [&](QWidget& dialog) {
        auto* list = dialog.findChild<QListView*>(u"filListBox"_s);
        if (!list)
            return;
        onCard = list->model()->rowCount();
        for (int row = 0; row < 6; ++row)
            list->selectionModel()->setCurrentIndex(list->model()->index(row, 0), QItemSelectionModel::Select);
        stage.tour.Shoot(dialog, u"copy-photos"_s);
    });
    stage.main.globals.lastCopy = last;
    const bool find = look(u"File > Find Photos"_s, [&](QWidget& dialog) {
        Press(dialog, u"optSearch_3"_s); // the whole drive
        Press(dialog, u"cmdSearch"_s);
        if (auto* list = dialog.findChild<QListView*>(u"lstdirectory2"_s))
            found = list->model()->rowCount();
        stage.tour.Shoot(dialog, u"find-photos"_s);
    });
    stage.tour.Step(
        u"Looked at copying from a card of %1 photos, and found photos in %2 directories."_s.arg(onCard).arg(found));
    return copy && find && onCard == 200 && found >= 4;
}

bool AdjustPhoto(const Stage& stage)
{
    shell::Program& program = stage.main.program;
    const QString directory = stage.main.globals.G_UserDir;
    const QString picture = PlayPicture(stage, directory);
    if (picture.isEmpty())
        return stage.tour.Fail(u"The capture directory has no picture to adjust."_s);
    const QByteArray before = program.Disk().ReadWhole(picture);
    bool compressed = false, back = false;
    photos::frm_Double screen({program.Ports(), program.Disk(), stage.main.globals, stage.main.Link().loader}, picture);
    const bool shown = stage.tour.During(
        u"the adjust window"_s, [&] { program.Ports().screens.ShowModal(screen); },
        [&](QWidget& dialog) {
            if (auto* bar = dialog.findChild<QSlider*>(u"hsbcapturebrightness"_s))
                bar->setValue(25);
            if (auto* bar = dialog.findChild<QSlider*>(u"hsbquality"_s))
                bar->setValue(60);
            compressed = Press(dialog, u"cmdCompress"_s) && program.Disk().ReadWhole(picture) != before;
            stage.tour.Shoot(dialog, u"adjust"_s);
            back = Press(dialog, u"cmdCancel"_s) && program.Disk().ReadWhole(picture) == before;
            Press(dialog, u"cmdExit"_s);
        });
    program.Disk().Kill(picture);
    stage.tour.Step(u"Compressed a photo, and took that back."_s);
    return shown && compressed && back;
}

bool TrashAndRestore(const Stage& stage)
{
    shell::Program& program = stage.main.program;
    const QString capture = stage.main.globals.G_CaptureDir;
    const QString trash = photos::TrashDirectory(capture);
    const QString picture = PlayPicture(stage, trash);
    const QString others[] = {PlayPicture(stage, trash, u"TOUR2.JPG"_s), PlayPicture(stage, trash, u"TOUR3.JPG"_s)};
    if (picture.isEmpty())
        return stage.tour.Fail(u"The capture directory has no picture for the trash."_s);
    bool chosen = false;
    const bool shown = stage.tour.During(
        u"Maintenance > Trashcan Maintenance"_s,
        [&] { chosen = stage.tour.Choose(stage.window, u"Maintenance > Trashcan Maintenance"_s); },
        [&](QWidget& dialog) {
            auto* list = dialog.findChild<QListView*>(u"lstfiles"_s);
            if (!list)
                return;
            for (int row = 0; row < list->model()->rowCount(); ++row) {
                const QModelIndex line = list->model()->index(row, 0);
                if (line.data().toString().startsWith(u"TOUR.JPG|"_s))
                    list->setCurrentIndex(line);
            }
            stage.tour.Shoot(dialog, u"trashcan"_s);
            Press(dialog, u"cmdRestore"_s);
            Press(dialog, u"cmdExit"_s);
        });
    const bool back = program.Disk().FileExists(capture + u"TOUR.JPG"_s) && !program.Disk().Found(picture);
    for (const QString& left : {capture + u"TOUR.JPG"_s, picture, others[0], others[1]}) {
        if (program.Disk().Found(left))
            program.Disk().Kill(left);
    }
    stage.tour.Step(u"Restored a photo from the trashcan."_s);
    return shown && chosen && back;
}

} // namespace vasclip::app
