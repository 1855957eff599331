#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "forms/ports.h"
#include "photos/capture_controls.h"
#include "photos/capture_folder.h"
#include "photos/capture_pages.h"
#include "photos/slots.h"
#include "photos/thumb_loader.h"

#include <QHash>

#include <array>

namespace vasclip::photos {

/// What the capture browser stands on; all of it outlives the browser.
struct CaptureBase
{
    const files::Disk& disk;
    forms::Ports ports;
    common::Globals& globals; ///< written here: G_CaptureDir, captureDirBeforeTrash, the two view settings
    common::StatusDesk& status;
    SlotLoader& loader;
};

/// The browser of the capture directory: the file list or twelve thumbnails, paged, and the directory.
///
/// A thumbnail's file is recorded and named at once; its picture comes when a worker thread has it. Nothing
/// is listed or decoded before StartBrowsing.
class CaptureDesk : public QObject
{
    Q_OBJECT
public:
    /// @param workers  make the small pictures
    CaptureDesk(const CaptureBase& base, CaptureControls& controls, std::unique_ptr<ThumbSource> source,
                std::unique_ptr<work::Workers> workers);

    /// The drive of the Windows directory, "C:"; pictures go there when their own drive is gone.
    void SetSystemDrive(const QString& drive) { m_systemDrive = drive; }

    // The directory.
    void check4CaptureDir();
    void MakeCaptureDir();
    /// After any change of CAPTUREDIR: the period check, the path on lblTab, the list and the thumbnails.
    void DisplayCamera();
    /// Makes another directory the capture directory for this run.
    void ShowDirectory(const QString& directory);
    /// The first look into the directory, and news of it from then on.
    void StartBrowsing();

    // What is on show.
    void ViewFilCapture();
    void DisplayImageLabels();
    void ToggleFileNames(); ///< IMAGEFILENAMES
    void ToggleListBox();   ///< IMAGELISTBOX
    [[nodiscard]] bool ListMode() const;
    [[nodiscard]] bool NamesOn() const;

    // Pages.
    void errdisplayThumbs();
    void RefreshList(); ///< reads the names again; the selected file and the page stay
    void RefreshCapture(); ///< RefreshList and errdisplayThumbs
    void imaScroll_Click(int button);
    void ClearThumb();
    void Test2PopulateThumbs();
    /// The files of the page are to be shown anew at the next chance.
    void AskForRefresh() { m_refreshPending = true; }
    [[nodiscard]] bool RefreshPending() const { return m_refreshPending; }

    // One picture.
    void geathumb_MouseDown(int index);
    void geathumb_MouseMove(int index);
    /// Others have changed the page since a thumbnail was pressed or the keyboard came to it.
    /// @return what stands in its place now, for the user's eyes; "" while it shows the file that was pressed
    [[nodiscard]] QString MovedSincePress(int index) const;
    /// The file highlighted in the list becomes the one of the list and its preview.
    void filCapture_Click();
    /// The thumbnail of a file and its label go; the file has been consumed.
    void HideThumbOf(const QString& path);
    /// The thumbnail of a file shows it anew, or another file in its place.
    void ReloadThumb(const QString& path, const QString& shown);
    /// The file selected in the list, "" without one.
    [[nodiscard]] QString SelectedFile() const;
    [[nodiscard]] QString FileOfThumb(int index) const;
    /// Pixels of the file that a thumbnail shows; empty while they are not known.
    [[nodiscard]] QSize PixelsOfThumb(int index) const { return m_pixels[static_cast<std::size_t>(index)]; }

    [[nodiscard]] CaptureFolder& Folder() { return m_folder; }
    [[nodiscard]] ThumbLoader& Loader() { return m_loader; }
    [[nodiscard]] CaptureControls& Controls() { return m_controls; }

    /// Pixels of the longer side of a thumbnail and of the preview.
    static constexpr int kThumbPixels = 320;
    static constexpr int kPreviewPixels = 640;

Q_SIGNALS:
    void ViewChanged(); ///< list or thumbnails, names or none: the ticks of the menus follow

private:
    void CheckPeriod();
    void TurnPage(PageTurn turn);
    void FillPage(int first);
    /// A thumbnail as it stands.
    struct Standing
    {
        QImage picture;
        forms::NoPicture without = forms::NoPicture::Waiting;
        QSize pixels;
    };
    void ShowThumb(int index, const QString& path, const Standing& standing);
    void MarkLarge(int index);
    void ClearThumbAt(int index);
    void AskForPictures();
    void ShowPreview();
    void TellPlace();
    void News(const QStringList& before);
    void Opened();
    void Arrived(const QString& path, const Thumb& thumb);
    void Broken(const QString& path, const QString& why);
    void LookAtBroken();
    void FollowHighlight();
    void PreviewSelected();
    [[nodiscard]] QString PathOf(int row) const;

    CaptureBase m_base;
    CaptureControls& m_controls;
    CaptureFolder m_folder;
    std::unique_ptr<work::Workers> m_workers;
    ThumbLoader m_loader;
    QString m_systemDrive;
    PageTurn m_turn = PageTurn::None;
    bool m_browsing = false;
    bool m_refreshPending = false;
    int m_first = 0; ///< file of the first thumbnail
    int m_pressed = -1;    ///< thumbnail that was pressed last; -1 once the user has turned the page himself
    QString m_pressedFile; ///< what it showed then
    QString m_followed;    ///< on show in the preview since it was highlighted, its click not yet heard
    std::array<QSize, CaptureControls::kThumbs> m_pixels;
    QHash<QString, QPair<qint64, QDateTime>> m_broken; ///< on show: length and time when they failed
};

} // namespace vasclip::photos
