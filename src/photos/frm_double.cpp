#include "photos/frm_double.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/trash.h"
#include "platform/picture/adjust.h"
#include "platform/picture/facts.h"
#include "platform/picture/picture.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <cmath>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

constexpr int kPreviewPixels = 1200;
const QString kNotKnown = u"N/A"_s;
const QString kMissingTitle = u"Unable to Retrieve Original"_s;
const QString kMissingOriginal = u"Unable to undo changes: original file is missing"_s;
const QString kSizePicture = u"##,###,###,###.##"_s;

double TwoPlaces(double value)
{
    return std::nearbyint(value * 100) / 100;
}

QString Unless(const QString& text)
{
    return text.contains(u"UNKNOWN"_s, Qt::CaseInsensitive) ? QString() : text;
}

} // namespace

QString FileSizeText(const files::Disk& disk, const QString& path)
{
    if (!disk.FileExists(path))
        return kNotKnown;
    const double kilobytes = TwoPlaces(static_cast<double>(disk.FileLen(path)) / 1024);
    const double megabytes = TwoPlaces(kilobytes / 1024);
    const QString text = text::Format(kilobytes, kSizePicture) + u" KB"_s;
    return megabytes < 1 ? text : text + u"   ( %1 MB )"_s.arg(text::Format(megabytes, kSizePicture));
}

frm_Double::frm_Double(const AdjustDesk& desk, const QString& path)
    : Screen(u"frm_Double"_s)
    , bmpDouble(controls, u"bmpDouble"_s)
    , bmpDouble2(controls, u"bmpDouble2"_s)
    , hsbquality(controls, u"hsbquality"_s, 1, 100)
    , hsbcapturebrightness(controls, u"hsbcapturebrightness"_s, -100, 100)
    , lblQuality(controls, u"lblQuality"_s)
    , lblBrightness(controls, u"lblBrightness"_s)
    , imacapturebrightness(controls, u"imacapturebrightness"_s)
    , lblQualityCaption(controls, u"lblQualityCaption"_s)
    , lblPending(controls, u"lblPending"_s)
    , lstHow2(controls, u"lstHow2"_s)
    , cmdCompress(controls, u"cmdCompress"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , cmdReset(controls, u"cmdReset"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , lblFilename(controls, u"lblFilename"_s, 0, 1)
    , lblSize(controls, u"lblSize"_s, 0, 1)
    , lblDate(controls, u"lblDate"_s, 0, 1)
    , lblFormat(controls, u"lblFormat"_s, 0, 1)
    , lblCompression(controls, u"lblCompression"_s, 0, 1)
    , lblResolution(controls, u"lblResolution"_s, 0, 1)
    , lblBitDepth(controls, u"lblBitDepth"_s, 0, 1)
    , lblmsg(controls, u"lblmsg"_s)
    , m_desk(desk)
    , m_source(text::Trim(path))
    , m_current(m_source)
{
    SetCaption(u"Compress and Adjust"_s);
    cmdCompress.SetCaption(u"&Compress Picture"_s);
    cmdCancel.SetCaption(u"Cancel Changes"_s);
    cmdCancel.SetToolTipText(
        u"Reverts picture back to original size and file type (compression will be lost)"_s);
    cmdReset.SetCaption(u"Reset Values"_s);
    cmdReset.SetToolTipText(
        u"Resets Quality and Brightness values to saved settings (from Configuration screen)"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    cmdExit.SetToolTipText(u"Exits this screen (pending compression changes will be implemented)"_s);
    lblQualityCaption.SetCaption(u"Quality"_s);
    lblQualityCaption.SetToolTipText(u"Click on this prompt to set the quality back to its default (70)"_s);
    imacapturebrightness.SetToolTipText(u"Shows the brightness in the left picture"_s);
    lblPending.SetCaption(u"Pending Changes"_s);
    lstHow2.SetItems({u"1. Move Quality and Brightness; the right picture shows what they do."_s,
                      u"2. Compress Picture writes the new picture; compare size and looks."_s,
                      u"3. Exit keeps it, Cancel Changes brings the original back."_s});
    hsbquality.SetValue(desk.globals.quality);
    hsbcapturebrightness.SetValue(desk.globals.brightness);
    m_openQuality = hsbquality.Value();
    m_openBrightness = hsbcapturebrightness.Value();
    connect(&hsbquality, &forms::ScrollBar::ValueChanged, this, &frm_Double::ShowPreview);
    connect(&hsbcapturebrightness, &forms::ScrollBar::ValueChanged, this, &frm_Double::ShowPreview);
    connect(&lblQualityCaption, &forms::Control::Clicked, this, &frm_Double::lblQualityCaption_Click);
    connect(&imacapturebrightness, &forms::Control::Clicked, this, &frm_Double::imacapturebrightness_Click);
    connect(&cmdCompress, &forms::Control::Clicked, this, &frm_Double::cmdCompress_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_Double::cmdCancel_Click);
    connect(&cmdReset, &forms::Control::Clicked, this, &frm_Double::cmdReset_Click);
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_Double::Unload);
}

QString frm_Double::Working(const QString& name) const
{
    return common::CkRSlash(m_desk.globals.G_UserDir) + name;
}

void frm_Double::Form_Load()
{
    const RoutineScope scope{"frm_Double"};
    for (const QString& name : {u"tempOrig.jpg"_s, u"tempOrig.bmp"_s, u"temptemp.jpg"_s})
        DeleteQuietly(Working(name));
    // The last dot of the name: one in a directory's name is no extension, and the file stays beside itself.
    const qsizetype dot = m_source.lastIndexOf(u'.');
    const bool extended = dot > m_source.lastIndexOf(u'\\');
    m_extension = extended ? m_source.mid(dot + 1).toUpper() : QString();
    m_target = (extended ? m_source.left(dot) : m_source) + u".jpg"_s;
    m_stands = PointAt(m_desk.disk, m_source);
    m_desk.loader.ErrLoadPict(bmpDouble, m_source);
    const bool loaded = !bmpDouble.Picture().isNull();
    if (loaded) {
        m_opened = picture::Load(m_desk.disk, m_source, kPreviewPixels);
        m_preview = m_opened;
        bmpDouble.SetPicture(m_opened);
    }
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &cmdCompress, &hsbquality, &hsbcapturebrightness, &imacapturebrightness, &cmdReset})
        control->SetEnabled(loaded);
    Describe(Left, m_source);
    lblQuality.SetCaption(text::Dec(hsbquality.Value()));
    lblBrightness.SetCaption(text::Dec(hsbcapturebrightness.Value()));
    hsbquality.SetFocus();
}

void frm_Double::Form_Unload()
{
    for (const QString& name : {u"tempOrig.jpg"_s, u"tempOrig.bmp"_s, u"temptemp.jpg"_s})
        DeleteQuietly(Working(name));
    if (m_original.size() > 0)
        DeleteQuietly(m_original);
}

bool frm_Double::ImageAttributesChanged() const
{
    return hsbquality.Value() != m_openQuality || hsbcapturebrightness.Value() != m_openBrightness;
}

/// What the values would make of the picture, at the size of the screen; no file changes.
void frm_Double::ShowPreview()
{
    lblQuality.SetCaption(text::Dec(hsbquality.Value()));
    lblBrightness.SetCaption(text::Dec(hsbcapturebrightness.Value()));
    if (m_preview.isNull())
        return;
    const QImage changed =
        picture::Adjusted(m_preview, {.brightness = hsbcapturebrightness.Value()});
    bmpDouble2.SetPicture(
        picture::FromBytes(picture::ToJpeg(changed, hsbquality.Value()), u"preview"_s));
    lblmsg.Show(u"The right picture is a preview. Compress Picture writes it."_s, forms::Colour::Blue);
}

void frm_Double::imacapturebrightness_Click()
{
    if (!m_opened.isNull())
        bmpDouble.SetPicture(picture::Adjusted(m_opened, {.brightness = hsbcapturebrightness.Value()}));
}

void frm_Double::cmdReset_Click()
{
    hsbquality.SetValue(m_desk.globals.quality);
    hsbcapturebrightness.SetValue(m_desk.globals.brightness);
}

/// The window's own copy: name and extension as given, no dialogs. The copy has been read back.
void frm_Double::CopyFile(const QString& source, const QString& target) const
{
    if (m_desk.disk.Found(target))
        m_desk.disk.SetAttr(target, files::Normal);
    m_desk.disk.FileCopyChecked(source, target);
}

void frm_Double::DeleteQuietly(const QString& path) const
{
    try {
        if (!m_desk.disk.Found(path))
            return;
        m_desk.disk.SetAttr(path, files::Normal);
        m_desk.disk.Kill(path);
    } catch (const RuntimeError&) {
        // Whether it goes makes no difference to what follows.
    }
}

void frm_Double::cmdCompress_Click()
{
    const RoutineScope scope{"cmdCompress_Click"};
    if (text::Trim(m_desk.loader.Table().ErrGetPict(bmpDouble)).isEmpty())
        return;
    if (const QString why = WhyAnother(m_desk.disk, m_stands); !why.isEmpty()) {
        lblmsg.Show(why, forms::Colour::Red);
        return;
    }
    const forms::Hourglass hourglass(m_desk.ports.window);
    if (!common::Guarded(m_desk.ports.prompter, [this] { Compress(); }))
        return;
    lblmsg.Show(u"Compressed. Exit keeps the new picture, Cancel Changes brings the original back."_s,
                forms::Colour::Blue);
}

void frm_Double::Compress()
{
    const files::Disk& disk = m_desk.disk;
    if (!m_compressed) {
        const QString original = Working(u"tempOrig."_s + m_extension);
        CopyFile(m_source, original);
        m_original = original;
    }
    const bool renames = text::Folded(m_target) != text::Folded(m_source);
    if (renames && !m_compressed) {
        // Another picture that bears the name already goes to the trash, not away.
        m_replaced = disk.FileExists(m_target) ? KeepInTrash(disk, m_target) : QString();
        m_refreshThumbs = true;
    }
    QImage image = m_desk.globals.redux
                       ? picture::LoadWithin(disk, m_current,
                                             {m_desk.globals.resolX, m_desk.globals.resolY})
                       : picture::Load(disk, m_current);
    const picture::Notes notes = picture::Describe(disk, m_current).notes;
    const bool changed = ImageAttributesChanged();
    const int brightness = changed ? hsbcapturebrightness.Value() : m_openBrightness;
    const int quality = changed ? hsbquality.Value() : m_openQuality;
    image = picture::Adjusted(image, {.brightness = brightness});
    const QString passing = Working(u"temptemp.jpg"_s);
    picture::SaveJpeg(disk, image, passing, quality, notes);
    CopyFile(passing, m_target);
    if (renames)
        DeleteQuietly(m_source); // its copy is whole, and so is what takes its place
    m_compressed = true;
    m_current = m_target;
    m_stands = PointAt(disk, m_target);
    m_desk.loader.Table().ErrSetPict(bmpDouble2, m_target);
    m_preview = picture::Load(disk, m_target, kPreviewPixels);
    bmpDouble2.SetPicture(m_preview);
    bmpDouble2.SetVisible(true);
    Describe(Right, m_target);
    if (!lblPending.Caption().contains(u'*'))
        lblPending.SetCaption(lblPending.Caption() + u'*');
}

void frm_Double::cmdCancel_Click()
{
    const RoutineScope scope{"cmdCancel_Click"};
    if (!m_compressed) {
        Unload();
        return;
    }
    if (!m_desk.disk.FileExists(m_original)) {
        m_desk.ports.prompter.Box(kMissingTitle, kMissingOriginal);
        return;
    }
    common::Guarded(m_desk.ports.prompter, [this] { Undo(); });
}

/// Puts into the trash what others have left under a name that is about to be taken. @return true if there was one
bool frm_Double::KeepAnother(const QString& path) const
{
    if (!m_desk.disk.FileExists(path) ||
        (text::Folded(path) == text::Folded(m_current) && WhyAnother(m_desk.disk, m_stands).isEmpty()))
        return false;
    KeepInTrash(m_desk.disk, path);
    return true;
}

void frm_Double::Undo()
{
    bool kept = KeepAnother(m_source);
    if (text::Folded(m_target) != text::Folded(m_source))
        kept = KeepAnother(m_target) || kept;
    CopyFile(m_original, m_source);
    if (text::Folded(m_target) != text::Folded(m_source)) {
        DeleteQuietly(m_target);
        if (!m_replaced.isEmpty())
            CopyFile(m_replaced, m_target);
    }
    if (lblPending.Caption().endsWith(u'*'))
        lblPending.SetCaption(lblPending.Caption().chopped(1));
    m_compressed = false;
    m_current = m_source;
    m_stands = PointAt(m_desk.disk, m_source);
    m_desk.loader.Table().ErrSetPict(bmpDouble2, QString());
    bmpDouble2.SetPicture({});
    for (const auto* labels : {&lblFilename, &lblSize, &lblDate, &lblFormat, &lblCompression, &lblResolution,
                               &lblBitDepth})
        (*labels)(Right).SetCaption({});
    m_preview = m_opened;
    bmpDouble.SetPicture(m_opened);
    Describe(Left, m_source);
    lblmsg.Show(kept ? u"The original picture is back; what had taken its place meanwhile is in the trash."_s
                     : u"The original picture is back."_s,
                forms::Colour::Blue);
}

void frm_Double::Describe(Side side, const QString& path)
{
    DisplayFilename(side, path);
    DisplayFileSize(side, path);
    DisplayFileDate(side, path);
    DisplayFileAttribs(side, path);
}

void frm_Double::DisplayFilename(Side side, const QString& path)
{
    lblFilename(side).SetCaption(path.mid(path.lastIndexOf(u'\\') + 1));
}

void frm_Double::DisplayFileSize(Side side, const QString& path)
{
    lblSize(side).SetCaption(FileSizeText(m_desk.disk, path));
}

void frm_Double::DisplayFileDate(Side side, const QString& path)
{
    lblDate(side).SetCaption(m_desk.disk.FileExists(path)
                                 ? text::Format(m_desk.disk.FileDateTime(path), u"m/d/yyyy h:nn:ss AM/PM"_s)
                                 : kNotKnown);
}

void frm_Double::DisplayFileAttribs(Side side, const QString& path)
{
    picture::Facts facts;
    try {
        facts = picture::Describe(m_desk.disk, path);
    } catch (const RuntimeError&) {
        // A file that is no picture has nothing to tell.
    }
    const bool known = !facts.size.isEmpty();
    lblResolution(side).SetCaption(
        known ? u"%1 x %2"_s.arg(facts.size.width()).arg(facts.size.height()) : QString());
    lblBitDepth(side).SetCaption(known ? u"%1 bit(s) per pixel"_s.arg(facts.bitsPerPixel) : QString());
    lblFormat(side).SetCaption(Unless(facts.format));
    lblCompression(side).SetCaption(Unless(facts.compression));
}

} // namespace vasclip::photos
