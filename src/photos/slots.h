#pragma once

#include "forms/controls.h"
#include "forms/ports.h"
#include "photos/pointed_file.h"
#include "platform/files/disk.h"

#include <QHash>
#include <QImage>

#include <functional>

namespace vasclip::photos {

/// The picture slots that mirror the report's pages, with the data boxes and icons beside them.
struct SlotControls
{
    explicit SlotControls(forms::ControlSet& set);

    forms::ControlArray<forms::PictureBox> imaSubject, imaComp, imaAltComp, imaGeneral, imaListing, imaRental;
    forms::ControlArray<forms::PictureBox> geaComp, geaAltComp, geaListing, geaRental;
    forms::ControlArray<forms::PictureBox> imaSubjectIcon, imaCompIcon, imaAltCompIcon, imaListingIcon,
        imaRentalIcon, imaGeneralIcon;
    forms::ControlArray<forms::PictureBox> imaSubjectAnchor, imaCompAnchor, imaAltCompAnchor,
        imaListingAnchor, imaRentalAnchor;
    forms::PictureBox geamaintain;
};

/// Which file each picture control shows: a path by upper-cased control name and index.
///
/// A name that is not in the table has no path: it yields "" and stores nothing. An index outside the name's
/// bound throws RuntimeError 9.
class SlotTable
{
public:
    [[nodiscard]] QString ErrGetPict(const forms::Control& control) const;
    void ErrSetPict(const forms::Control& control, const QString& path);
    /// Blanks the path. The two boxes of frm_Double are cleared under other names than they are loaded under.
    void Blank(const forms::Control& control);

private:
    QHash<QString, QString> m_paths;
};

/// Pictures as the rules load them into controls.
class SlotLoader
{
public:
    SlotLoader(const files::Disk& disk, const forms::Ports& ports, SlotTable& table);

    /// Loads a file into the control and records its path. A file that is not there hides the control and
    /// records an empty path. A corrupt file shows its dialog and leaves path and control as they were.
    void ErrLoadPict(forms::PictureBox& control, const QString& path);
    void ErrClearPict(forms::PictureBox& control);
    void geaClearImage(forms::PictureBox& control);
    /// ErrLoadPict and make visible, or for a blank path clear and hide.
    void ErrLoadThumb(forms::PictureBox& control, const QString& path);
    [[nodiscard]] SlotTable& Table() const { return m_table; }

    /// What is done to the file that a report photo slot shows (it may get the read-only attribute).
    void SetWriteProtect(std::function<void(const QString& path)> apply)
    {
        m_writeProtect = std::move(apply);
    }
    /// The labels below the thumbnails, which name the file; not owned.
    void SetThumbTags(const forms::ControlArray<forms::Label>* tags) { m_thumbTags = tags; }

    /// Pixels of the longer side that a slot keeps in memory.
    static constexpr int kSlotPixels = 480;

private:
    enum class Outcome { Loaded, Skipped, Ended };
    Outcome LoadFile(forms::PictureBox& control, const QString& path);
    QImage PictureOf(const QString& path);
    template <class Statement>
    Outcome Step(forms::PictureBox& control, const QString& path, Statement&& step);
    void TagThumb(const forms::PictureBox& control, const QString& text, bool visible);

    const files::Disk& m_disk;
    forms::Ports m_ports;
    SlotTable& m_table;
    PointedFile m_mark; ///< the last one that was read
    QImage m_markPicture;
    std::function<void(const QString& path)> m_writeProtect;
    const forms::ControlArray<forms::Label>* m_thumbTags = nullptr;
};

/// Empties every picture slot and data box of the report and the photo box of the Databook.
void SetGearImages(SlotControls& slots, SlotLoader& loader);

/// Sets a label's caption.
void ErrLoadLblTag(forms::Label& label, const QString& text);

} // namespace vasclip::photos
