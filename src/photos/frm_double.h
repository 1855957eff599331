#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "forms/screen.h"
#include "forms/scroll_bar.h"
#include "photos/pointed_file.h"
#include "photos/slots.h"

namespace vasclip::photos {

/// What the adjust window works with.
struct AdjustDesk
{
    forms::Ports ports;
    const files::Disk& disk;
    const common::Globals& globals;
    SlotLoader& loader;
};

/// Compares a picture with a new compression of it, and keeps or undoes that.
///
/// Nothing is written before "&Compress Picture"; the picture from before the first press can come back until
/// the window closes.
class frm_Double : public forms::Screen
{
public:
    frm_Double(const AdjustDesk& desk, const QString& path);

    forms::PictureBox bmpDouble;  ///< the file as it stands
    forms::PictureBox bmpDouble2; ///< the result, or a preview of it
    forms::ScrollBar hsbquality, hsbcapturebrightness;
    forms::Label lblQuality, lblBrightness;
    forms::PictureBox imacapturebrightness;
    forms::Label lblQualityCaption, lblPending;
    forms::ListBox lstHow2;
    forms::Button cmdCompress, cmdCancel, cmdReset, cmdExit;
    /// Of the left and the right picture.
    forms::ControlArray<forms::Label> lblFilename, lblSize, lblDate, lblFormat, lblCompression,
        lblResolution, lblBitDepth;
    forms::Label lblmsg;

    /// True when the window changed which files there are: the page of thumbnails is to be read again.
    [[nodiscard]] bool RefreshThumbs() const { return m_refreshThumbs; }
    /// The file that the calling control shows from now on.
    [[nodiscard]] const QString& Result() const { return m_current; }

    [[nodiscard]] bool ImageAttributesChanged() const;
    void cmdCompress_Click();
    void cmdCancel_Click();
    void cmdReset_Click();
    void lblQualityCaption_Click() { hsbquality.SetValue(70); }
    void imacapturebrightness_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    enum Side { Left = 0, Right = 1 };
    void Describe(Side side, const QString& path);
    void DisplayFilename(Side side, const QString& path);
    void DisplayFileSize(Side side, const QString& path);
    void DisplayFileDate(Side side, const QString& path);
    void DisplayFileAttribs(Side side, const QString& path);
    void CopyFile(const QString& source, const QString& target) const;
    void DeleteQuietly(const QString& path) const;
    [[nodiscard]] bool KeepAnother(const QString& path) const;
    void Compress();
    void Undo();
    void ShowPreview();
    [[nodiscard]] QString Working(const QString& name) const;

    AdjustDesk m_desk;
    QString m_source;    ///< the picture that the window was opened for
    QString m_target;    ///< the same name with ".jpg"
    QString m_extension; ///< of the source, upper case
    QString m_original;  ///< the copy from before the first compression
    QString m_replaced;  ///< kept copy of another picture that bore the target's name
    QString m_current;   ///< the file as it stands
    PointedFile m_stands; ///< that file as it was opened or left here; another one is not touched
    QImage m_opened;     ///< the left picture at the size of the screen
    QImage m_preview;    ///< the file as it stands, likewise: what the next press works on
    int m_openQuality = 0;
    int m_openBrightness = 0;
    bool m_compressed = false;
    bool m_refreshThumbs = false;
};

/// The length of a file as the window shows it: "87.43 KB", "1,536. KB   ( 1.5 MB )"; "N/A" for none.
[[nodiscard]] QString FileSizeText(const files::Disk& disk, const QString& path);

} // namespace vasclip::photos
