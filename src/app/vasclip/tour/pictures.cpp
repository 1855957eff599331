// The steps of the tour that handle the camera's pictures.

#include "app/vasclip/tour/steps.h"
#include "photos/capture_desk.h"
#include "photos/photo_desk.h"

#include <QDir>
#include <QElapsedTimer>

#include <utility>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPatienceMilliseconds = 30'000;

/// Waits until the pictures of the page stand.
bool PicturesStand(const Stage& stage)
{
    QElapsedTimer timer;
    timer.start();
    while (stage.main.capture.lblRefreshing.Visible() || !stage.main.Capture().Loader().Idle()) {
        if (timer.hasExpired(kPatienceMilliseconds))
            return false;
        Settle(20);
    }
    return true;
}

/// The card's pictures in a capture directory of the tour's own, which goes when the tour does.
class Errand
{
public:
    Errand(const Stage& stage, int pictures)
        : m_stage(stage)
        , m_before(stage.main.globals.G_CaptureDir)
    {
        const files::Disk& disk = stage.main.Base().disk;
        if (!disk.DirExists(kPlace))
            disk.MkDir(kPlace.chopped(1));
        for (const QString& name : disk.Dir(kCard + u"*.JPG"_s).mid(0, pictures))
            disk.FileCopy(kCard + name, kPlace + name);
        stage.main.Capture().ShowDirectory(kPlace);
    }
    ~Errand()
    {
        m_stage.main.Capture().ShowDirectory(m_before);
        QDir(m_stage.main.Base().disk.ToNative(kPlace)).removeRecursively();
    }
    Errand(const Errand&) = delete;
    Errand& operator=(const Errand&) = delete;

private:
    static inline const QString kCard = u"C:\\CARD\\DCIM\\100DEMO\\"_s;
    static inline const QString kPlace = u"C:\\TOURSNAP\\"_s;
    const Stage& m_stage;
    QString m_before;
};

} // namespace

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

bool FilePictureIntoReport(const Stage& stage)
{
    const Errand errand(stage, 12);
    auto& main = stage.main;
    if (!PicturesStand(stage))
        return stage.tour.Fail(u"The pictures of the camera did not come up."_s);
    // The first comp that has a record and no photo in the report yet, else the first empty photo slot.
    int slot = 0;
    for (int i = 1; i <= 9 && slot == 0; ++i)
        if (main.NativeFileOf(main.slots.imaComp(i)).isEmpty() &&
            main.Accepts(u"geathumb"_s, main.slots.imaComp(i)))
            slot = i;
    if (slot == 0)
        return stage.tour.Fail(u"The report has no empty photo slot."_s);
    main.report.TabData.SetTab(1);
    main.report.TabComp.SetTab((slot - 1) / 3);
    const int autoSave = std::exchange(main.globals.autoSave, 0); // the Databook stays as it is
    const drops::Outcome outcome = main.Drop(main.BeginDrag(main.capture.geathumb(0)), main.slots.imaComp(slot));
    main.globals.autoSave = autoSave;
    stage.tour.Step(u"Dropped a picture of the camera on the photo of comp %1: %2"_s.arg(slot).arg(outcome.message));
    stage.tour.Shoot(stage.window, u"picture-in-report"_s);
    return outcome.done && !main.NativeFileOf(main.slots.imaComp(slot)).isEmpty();
}

bool CameraFolder(const Stage& stage)
{
    const bool folder = stage.tour.During(
        u"The camera folder"_s, [&] { Q_EMIT stage.main.capture.imaFolder.Clicked(); },
        [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"camera-folder"_s); });
    const QString photos = stage.main.globals.G_PhotoDir;
    const QStringList stored = stage.main.Base().disk.Dir(photos + u"*.jpg"_s);
    if (stored.size() < 2)
        return stage.tour.Fail(u"There are no two stored photos to compare."_s);
    const bool question = stage.tour.During(
        u"The question about a photo"_s,
        [&] { stage.main.Photos().questions.Overwrite(photos + stored[0], photos + stored[1]); },
        [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"overwrite-photo"_s); });
    stage.tour.Step(u"Looked at the camera folder and at the question before a photo is replaced."_s);
    return folder && question;
}

} // namespace vasclip::app
