// The steps of the tour that handle the camera's pictures.

#include "app/vasclip/tour/steps.h"
#include "photos/capture_desk.h"
#include "photos/photo_desk.h"
#include "photos/photo_records.h"

#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

#include <QAbstractButton>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>

#include <utility>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

drops::Outcome DropOf(shell::frm_Main& main, const forms::Control& source, forms::Control& target)
{
    drops::Router& router = main.drags.Router();
    return router.End(router.Start(source), target);
}

constexpr int kPatienceMilliseconds = 30'000;

/// The card's pictures in a capture directory of the tour's own, which goes when the tour does.
class Errand
{
public:
    Errand(const Stage& stage, int pictures)
        : m_stage(stage)
        , m_before(stage.main.globals.G_CaptureDir)
    {
        const files::Disk& disk = stage.main.program.Disk();
        if (!disk.DirExists(kPlace))
            disk.MkDir(kPlace.chopped(1));
        for (const QString& name : disk.Dir(kCard + u"*.JPG"_s).mid(0, pictures))
            disk.FileCopy(kCard + name, kPlace + name);
        stage.main.Capture().ShowDirectory(kPlace);
    }
    ~Errand()
    {
        m_stage.main.Capture().ShowDirectory(m_before);
        QDir(m_stage.main.program.Disk().ToNative(kPlace)).removeRecursively();
    }
    Errand(const Errand&) = delete;
    Errand& operator=(const Errand&) = delete;

private:
    static inline const QString kCard = u"C:\\CARD\\DCIM\\100DEMO\\"_s;
    static inline const QString kPlace = u"C:\\TOURSNAP\\"_s;
    const Stage& m_stage;
    QString m_before;
};

/// Answers the question which view a picture shows.
/// @param name  of the picture of the question; "" for none
void ChooseView(const Stage& stage, QWidget& dialog, const QString& view, const QString& name)
{
    if (auto* box = dialog.findChild<QLineEdit*>(u"txtView"_s)) {
        box->selectAll();
        box->insert(view);
    }
    if (!name.isEmpty())
        stage.tour.Shoot(dialog, name);
    if (auto* ok = dialog.findChild<QAbstractButton*>(u"cmdOK"_s))
        ok->click();
}

} // namespace

bool PicturesStand(const Stage& stage, int count)
{
    QElapsedTimer timer;
    timer.start();
    const auto& capture = stage.main.capture;
    while (capture.lblRefreshing.Visible() || !stage.main.Capture().Loader().Idle() ||
           (count >= 0 && capture.filCapture.ListCount() != count)) {
        if (timer.hasExpired(kPatienceMilliseconds))
            return false;
        Settle(20);
    }
    return true;
}

bool BrowsePictures(const Stage& stage)
{
    const Errand errand(stage, 40);
    auto& capture = stage.main.capture;
    if (!PicturesStand(stage))
        return stage.tour.Fail(u"The pictures of the camera did not come up."_s);
    stage.tour.Shoot(stage.window, u"camera-pictures"_s);
    const int pictures = capture.filCapture.ListCount();
    Q_EMIT capture.imaScroll(2).Clicked();
    const bool turned = PicturesStand(stage) && capture.filCapture.TopIndex() == 12;
    stage.main.Capture().ToggleListBox();
    const bool list = PicturesStand(stage) && capture.filCapture.Visible();
    stage.tour.Shoot(stage.window, u"camera-list"_s);
    stage.main.Capture().ToggleListBox();
    stage.tour.Step(u"Looked through %1 pictures of the camera."_s.arg(pictures));
    return pictures == 40 && turned && list;
}

bool FilePictureWithRecord(const Stage& stage)
{
    auto& main = stage.main;
    const QString key = text::Folded(main.report.txtSubject.Text());
    main.ShowRecord(key);
    if (text::Folded(main.records.grddatabook.CurrentText(fields::CENTRALKEY)) != key)
        return stage.tour.Fail(u"%1, which was transferred, is not in the Databook."_s.arg(key));
    const Errand errand(stage, 12);
    if (!PicturesStand(stage))
        return stage.tour.Fail(u"The pictures of the camera did not come up."_s);
    drops::Outcome outcome;
    const bool asked = stage.tour.During(
        u"The question for a picture's view"_s,
        [&] { outcome = DropOf(main, main.capture.geathumb(0), main.records.grddatabook); },
        [&](QWidget& dialog) { ChooseView(stage, dialog, u"DRIVEWAY"_s, u"view-of-picture"_s); });
    const bool tidy = PicturesStand(stage, 11);
    stage.tour.Step(u"Dropped a picture of the camera on a record: %1"_s.arg(outcome.message));
    stage.tour.Shoot(stage.window, u"filed"_s);
    return asked && outcome.done && tidy && main.photoLists.lstViews.ListCount() == 4;
}

bool FileGeneralView(const Stage& stage)
{
    const Errand errand(stage, 12);
    auto& main = stage.main;
    if (!PicturesStand(stage))
        return stage.tour.Fail(u"The pictures of the camera did not come up."_s);
    int slot = 1;
    while (slot <= photos::kGeneralPhotos && !main.drags.Router().FileOf(main.slots.imaGeneral(slot)).isEmpty())
        ++slot;
    if (slot > photos::kGeneralPhotos)
        return stage.tour.Fail(u"The report has no empty general slot."_s);
    stage.Show({link::Group::General, slot});
    const int page = main.report.TabGeneral.Tab();
    drops::Outcome outcome;
    const bool asked = stage.tour.During(
        u"The question for a picture's view"_s,
        [&] { outcome = DropOf(main, main.capture.geathumb(3), main.slots.imaGeneral(slot)); },
        [&](QWidget& dialog) { ChooseView(stage, dialog, u"ENTRANCE"_s, {}); });
    const bool tidy = PicturesStand(stage, 11);
    stage.tour.Step(
        u"Dropped a picture of the camera on the general photo %1: %2"_s.arg(slot).arg(outcome.message));
    stage.tour.Shoot(stage.window, u"general-filed"_s);
    stage.tour.ShootFormsProgram(u"report-general"_s, u"GENPH%1"_s.arg(page + 1, 2, 10, QLatin1Char('0')));
    stage.Show({link::Group::Sales, 1});
    return asked && outcome.done && tidy && main.report.cboGeneral(slot).Text() == u"ENTRANCE"_s;
}

bool FilePictureIntoReport(const Stage& stage)
{
    const Errand errand(stage, 12);
    auto& main = stage.main;
    if (!PicturesStand(stage))
        return stage.tour.Fail(u"The pictures of the camera did not come up."_s);
    // The first comp that has a record and no photo in the report yet, else the first empty photo slot.
    int slot = 0;
    for (int i = 1; i <= photos::kComps && slot == 0; ++i)
        if (main.drags.Router().FileOf(main.slots.imaComp(i)).isEmpty() &&
            main.drags.Router().Accepts(u"geathumb"_s, main.slots.imaComp(i)))
            slot = i;
    if (slot == 0)
        return stage.tour.Fail(u"The report has no empty photo slot."_s);
    stage.Show({link::Group::Sales, slot});
    const int autoSave = std::exchange(main.globals.autoSave, 0); // the Databook stays as it is
    const drops::Outcome outcome = DropOf(main, main.capture.geathumb(0), main.slots.imaComp(slot));
    main.globals.autoSave = autoSave;
    stage.tour.Step(u"Dropped a picture of the camera on the photo of comp %1: %2"_s.arg(slot).arg(outcome.message));
    const bool tidy = PicturesStand(stage, 11);
    stage.tour.Shoot(stage.window, u"picture-in-report"_s);
    return outcome.done && tidy && !main.drags.Router().FileOf(main.slots.imaComp(slot)).isEmpty();
}

bool CameraFolder(const Stage& stage)
{
    const bool folder = stage.tour.During(
        u"The camera folder"_s, [&] { Q_EMIT stage.main.capture.imaFolder.Clicked(); },
        [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"camera-folder"_s); });
    auto& main = stage.main;
    const auto record = store::ReadRows(main.sources.datDatabook, u"SELECT CENTRALKEY FROM ["_s + main.globals.G_Table +
                                                                      u"] WHERE FRONT = '1' ORDER BY CENTRALKEY"_s)
                            .Next();
    const QString fresh = main.program.Disk().Dir(main.globals.G_CaptureDir + u"*.jpg"_s).value(0);
    if (!record || fresh.isEmpty())
        return stage.tour.Fail(u"There is no record with a photo, or no picture of the camera."_s);
    const QString key = record->Value(fields::CENTRALKEY).toString();
    main.ShowRecord(key);
    photos::ReadPhotoLists(main.sources.datDatabook, main.photoLists.lstViews, main.photoLists.lstimages);
    const QString stored = main.globals.G_PhotoDir + main.photoLists.lstimages.List(0) + u".jpg"_s;
    const bool question = stage.tour.During(
        u"The question about a photo"_s,
        [&] { main.Photos().questions.Overwrite(stored, main.globals.G_CaptureDir + fresh, key); },
        [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"overwrite-photo"_s); });
    stage.tour.Step(u"Looked at the camera folder and at the question before a photo is replaced."_s);
    return folder && question;
}

} // namespace vasclip::app
