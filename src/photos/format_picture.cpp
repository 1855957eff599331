#include "photos/format_picture.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "common/text_filters.h"
#include "photos/photo_files.h"
#include "photos/photo_messages.h"
#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <new>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kStemLength = 8;
constexpr int kMostPasses = 100; ///< of a settling loop
constexpr double kSettlingSeconds = 0.01;
constexpr int kMostRetries = 10;
constexpr auto kJpeg = "JPG"_L1;
constexpr auto kUnshown = "GEATEMP"_L1;

/// One run of FormatPictureNow: its steps in order, under its own error handler.
class Filing
{
public:
    Filing(PhotoDesk& desk, const QString& source, forms::PictureBox& control)
        : m_desk(desk)
        , m_source(source)
        , m_control(control)
        , m_delay(desk.globals.picDelay)
        , m_working(WorkingFile(desk.globals))
    {}

    bool Run(Stem use, const QString& given);

private:
    enum class Action { Reduce, Encode, Copy };

    static QString WorkingFile(const common::Globals& globals);
    [[nodiscard]] Action Choose(const QString& extension) const;
    void NameTarget(Stem use, const QString& given, const QString& extension);
    bool WriteWorkingFile(Action action);
    bool Settle(const QString& file);
    bool CopyToStore();
    bool Show();
    bool MayRetry(const RuntimeError& failure);
    /// Repeats a step as long as the handler says so. @return false to leave
    template <class Step>
    bool Try(Step&& step);

    PhotoDesk& m_desk;
    const QString m_source;
    forms::PictureBox& m_control;
    const double m_delay;
    QString m_working;
    QString m_stem, m_extension, m_target;
    QByteArray m_encoded; ///< what the working file holds
    QString m_trace;
    int m_errors = 0;
};

QString Filing::WorkingFile(const common::Globals& globals)
{
    const auto name = "respic.jpg"_L1;
    const QString directory = common::CkRSlash(globals.G_UserDir);
    if (directory.isEmpty() || directory == "\\"_L1)
        return common::CkRSlash(globals.G_ProgramDir) + name;
    return directory + name;
}

Filing::Action Filing::Choose(const QString& extension) const
{
    if (m_desk.globals.redux || extension != kJpeg)
        return Action::Reduce;
    return m_desk.globals.quality == 100 ? Action::Copy : Action::Encode;
}

void Filing::NameTarget(Stem use, const QString& given, const QString& extension)
{
    m_stem = text::Trim(use == Stem::Given ? given : findunique(m_desk));
    m_extension = extension == kJpeg ? extension : u"jpg"_s;
    m_target = common::CkRSlash(m_desk.globals.G_PhotoDir) + m_stem + u'.' + m_extension;
}

/// Counts the errors of the whole call; from the eleventh on the user decides.
bool Filing::MayRetry(const RuntimeError& failure)
{
    switch (failure.Number()) {
    case error::kFileNotFound:
    case error::kOtherDrive:
    case error::kPathFileAccess:
    case error::kPathNotFound:
        break;
    default:
        m_desk.notSaved = failure.Description();
        return false;
    }
    if (++m_errors <= kMostRetries) {
        m_desk.ports.clock.Wait(m_delay);
        return true;
    }
    m_desk.status.lblmsg.Show(m_trace, forms::Colour::Red);
    if (m_desk.ports.prompter.YesNo(kIncompleteTitle, kIncompleteText + m_trace))
        return true;
    m_desk.notSaved = failure.Description();
    m_desk.ports.window.SetHourglass(false);
    return false;
}

template <class Step>
bool Filing::Try(Step&& step)
{
    for (;;) {
        try {
            step();
            return true;
        } catch (const RuntimeError& failure) {
            if (!MayRetry(failure))
                return false;
        } catch (const std::bad_alloc&) {
            m_desk.notSaved = u"There is not enough memory for '%1'"_s.arg(m_source);
            return false;
        }
    }
}

bool Filing::Run(Stem use, const QString& given)
{
    const QString extension = common::FileExtension(m_source);
    QString prompt;
    if (!Try([&] { (void)DelPict(m_desk.ports, m_desk.disk, m_working, Quiet::Yes, prompt); }))
        return false;
    m_desk.ports.clock.Wait(m_delay);
    if (!Try([&] { NameTarget(use, given, extension); }))
        return false;
    m_desk.loader.geaClearImage(m_desk.geaRes);
    const Action action = Choose(extension);
    if (!WriteWorkingFile(action))
        return false;
    if (action == Action::Copy)
        m_working = m_source;
    else if (!Settle(m_working))
        return false;
    m_desk.ports.clock.Wait(m_delay);
    if (!m_desk.disk.FileExists(m_working)) {
        m_desk.ports.prompter.Box({}, kSourceGone + m_working);
        return false;
    }
    return CopyToStore() && Show();
}

bool Filing::WriteWorkingFile(Action action)
{
    const int quality = m_desk.globals.quality;
    m_trace = (action == Action::Reduce ? u"WITH COMPRESSION, Q="_s : u"NO COMPRESSION, Q="_s) +
              text::Dec(quality);
    if (action == Action::Copy)
        return true;
    m_trace += u", geaRes.LoadImage = "_s + m_source;
    QImage image;
    picture::Notes notes;
    if (!Try([&] {
            image = action == Action::Encode
                        ? picture::Load(m_desk.disk, m_source)
                        : picture::LoadWithin(m_desk.disk, m_source,
                                              {m_desk.globals.resolX, m_desk.globals.resolY});
            notes = picture::Describe(m_desk.disk, m_source).notes;
        }))
        return false;
    if (action == Action::Reduce)
        m_desk.ports.pump.DoEvents();
    else
        m_desk.ports.clock.Wait(m_delay);
    m_trace += u", geaRes.SaveImage = "_s + m_working;
    return Try([&] {
        m_encoded = picture::ToJpeg(image, quality, notes);
        m_desk.disk.WriteWhole(m_working, m_encoded);
    });
}

/// Waits until the file has stopped growing.
bool Filing::Settle(const QString& file)
{
    qint64 before = 0;
    qint64 after = 0;
    int passes = 0;
    do {
        if (!Try([&] { before = m_desk.disk.FileLen(file); }))
            return false;
        m_desk.ports.clock.Wait(m_delay + kSettlingSeconds);
        if (!Try([&] { after = m_desk.disk.FileLen(file); }))
            return false;
    } while (before != after && ++passes <= kMostPasses);
    return true;
}

bool Filing::CopyToStore()
{
    m_trace += u", FileCopy "_s + m_working + u',' + m_target;
    bool denied = false;
    const bool copied = Try([&] {
        try {
            m_desk.disk.FileCopy(m_working, m_target);
        } catch (const RuntimeError& failure) {
            // The disk tells at once what would show below: the directory takes no file.
            if (failure.Number() != error::kPermissionDenied)
                throw;
            denied = true;
        }
    });
    if (!copied)
        return false;
    m_desk.ports.clock.Wait(m_delay + kSettlingSeconds);
    m_desk.ports.pump.DoEvents();
    if (denied || !m_desk.disk.FileExists(m_target)) {
        m_desk.ports.prompter.Box(kUnableTitle,
                                  kUnableText.arg(m_stem, m_extension, m_desk.globals.G_PhotoDir));
        return false;
    }
    if (!Settle(m_target))
        return false;
    m_desk.ports.clock.Wait(m_delay);
    // Another program of this home may have put its picture into the working file meanwhile.
    return m_encoded.isEmpty() || Try([&] {
               if (m_desk.disk.ReadWhole(m_target) != m_encoded)
                   m_desk.disk.WriteWhole(m_target, m_encoded);
           });
}

bool Filing::Show()
{
    if (text::Folded(m_control.Name()) == kUnshown)
        return true;
    m_trace = u"LoadPicture(TargetPic)"_s + m_target;
    return Try([&] {
        m_control.SetPicture(picture::Load(m_desk.disk, m_target, SlotLoader::kSlotPixels));
        m_desk.loader.Table().ErrSetPict(m_control, m_target);
    });
}

/// A number of 0 to below 1 as the language prints one of single precision: ".7055475", "5.33424E-02", "0".
QString SinglePrecisionText(double value)
{
    constexpr int kDigits = 7;
    constexpr double kSmallestPlain = 0.1;
    const double single = double(float(value));
    if (single >= kSmallestPlain || single == 0)
        return QString::number(single, 'g', kDigits).remove(QLatin1String("0."));
    QString text = QString::number(single, 'E', kDigits - 1);
    const qsizetype exponent = text.indexOf(u'E');
    qsizetype end = exponent;
    while (text[end - 1] == u'0')
        --end;
    return text.remove(end, exponent - end);
}

} // namespace

QString StemOf(double random)
{
    QString digits;
    for (const QChar letter : SinglePrecisionText(random))
        if (common::IsNumericChar(QString(letter)))
            digits.append(letter);
    return digits.rightJustified(kStemLength, u'0').right(kStemLength).left(kStemLength);
}

QString findunique(const forms::Ports& ports, const files::Disk& disk, const QString& photoDir)
{
    const QString directory = common::CkRSlash(photoDir);
    for (;;) {
        const QString stem = StemOf(ports.random.Rnd());
        if (!disk.Found(directory + stem + u".jpg"_s, files::Directory))
            return stem;
    }
}

QString findunique(const PhotoDesk& desk)
{
    return findunique(desk.ports, desk.disk, desk.globals.G_PhotoDir);
}

bool FormatPictureNow(PhotoDesk& desk, const QString& source, forms::PictureBox& control, Stem use,
                      const QString& given)
{
    const common::RoutineScope scope{"FormatPictureNow"};
    desk.PictureSaved = false;
    desk.notSaved.clear();
    if (common::FileNameOnly(source).isEmpty() || !desk.disk.FileExists(source))
        return false;
    desk.PictureSaved = Filing(desk, source, control).Run(use, given);
    return desk.PictureSaved;
}

void SaveTheImage(PhotoDesk& desk, const QString& path, const forms::PictureBox& control)
{
    const common::RoutineScope scope{"SaveTheImage"};
    constexpr int kUsualQuality = 90;
    const bool named = text::Trim(path).right(kJpeg.size()).toUpper() == kJpeg;
    picture::SaveJpeg(desk.disk, control.Picture(), path, named ? desk.globals.quality : kUsualQuality);
    desk.ports.clock.Wait(1);
}

} // namespace vasclip::photos
