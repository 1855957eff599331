#include "photos/card_copy.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/content.h"
#include "photos/media_messages.h"
#include "photos/photo_copies.h"
#include "photos/trash.h"
#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::CkRSlash;
using common::RoutineScope;

namespace {

constexpr qint64 kMegabyte = 1024 * 1024;
constexpr int kNamedInQuestion = 5;

struct CardPicture
{
    QString name;
    QString target = {}; ///< its name in CAPTUREDIR
    qint64 bytes = 0;
    WhereKnown where = {};
    bool sameHere = false; ///< CAPTUREDIR has it under this name
    bool replaces = false; ///< CAPTUREDIR has another one under this name
};

struct MediumGone
{};

QString KnownLine(const CardPicture& picture)
{
    const WhereKnown& where = picture.where;
    return where.known == Known::Filed  ? kKnownFiled.arg(picture.name, where.record)
           : where.known == Known::Here ? kKnownHere.arg(picture.name, where.path)
                                        : kKnownTrash.arg(picture.name, where.path);
}

class Copying
{
public:
    Copying(const CopyDesk& desk, const QString& sourceDir, const CopyStep& step)
        : m_desk(desk)
        , m_source(CkRSlash(sourceDir))
        , m_capture(CkRSlash(desk.globals.G_CaptureDir))
        , m_step(step)
    {}
    CopyOutcome Run(const QStringList& names);

private:
    bool Look(const QStringList& names);
    [[nodiscard]] QString TargetName(const QString& name, const QStringList& names) const;
    bool AskAboutKnown();
    bool HasRoom();
    void CopyAll();
    bool CopyOne(const CardPicture& picture);
    template <class Step>
    bool Try(Step&& step);
    bool Tell(const QString& doing, qint64 done)
    {
        m_desk.ports.pump.DoEvents();
        m_outcome.stopped = m_outcome.stopped || (m_step && !m_step(doing, done, m_total));
        return !m_outcome.stopped;
    }

    const CopyDesk& m_desk;
    QString m_source, m_capture;
    const CopyStep& m_step;
    QList<CardPicture> m_pictures;
    qint64 m_done = 0;
    qint64 m_total = 0;
    CopyOutcome m_outcome;
};

/// Runs a step until it is done. A medium that has gone is asked about; other errors go to the common block.
/// @return false when the copy has to end
template <class Step>
bool Copying::Try(Step&& step)
{
    for (;;) {
        try {
            return common::Guarded(m_desk.ports.prompter, [&] {
                try {
                    step();
                } catch (const RuntimeError& failure) {
                    // Abort, Retry, Ignore is for a disk that stands; a card that went has a question of its own.
                    if (m_desk.disk.DirExists(m_source) && failure.Number() != error::kFileNotFound)
                        throw;
                    throw MediumGone{};
                }
            });
        } catch (const MediumGone&) {
            if (m_desk.ports.prompter.MsgBox(forms::Buttons::RetryCancel, forms::Icon::Exclamation, {},
                                             kMediaNotReady) != forms::Answer::Retry)
                return false;
        }
    }
}

/// Its own name, unless no report could name the file then: it gets one that is free, or has this picture already.
QString Copying::TargetName(const QString& name, const QStringList& names) const
{
    const QString plain = NameForReport(name);
    if (plain == name)
        return name;
    const auto taken = [&](const QString& tried) {
        return names.contains(tried, Qt::CaseInsensitive) ||
               std::any_of(m_pictures.cbegin(), m_pictures.cend(), [&](const CardPicture& picture) {
                   return picture.target.compare(tried, Qt::CaseInsensitive) == 0;
               });
    };
    const qsizetype dot = plain.lastIndexOf(u'.');
    QString tried = plain;
    for (int number = 2; taken(tried) || (m_desk.disk.Found(m_capture + tried) &&
                                          !SameContent(m_desk.disk, m_source + name, m_capture + tried));
         ++number)
        tried = u"%1 (%2)"_s.arg(plain.left(dot), text::Dec(number)) + plain.mid(dot);
    return tried;
}

bool Copying::Look(const QStringList& names)
{
    KnownPictures known(m_desk.disk, m_desk.globals, m_desk.recordOf);
    for (const QString& name : names) {
        if (!Tell(kLookingAt.arg(name), 0))
            return false;
        CardPicture picture{.name = name};
        const bool seen = Try([&] {
            picture.target = TargetName(name, names);
            const QString target = m_capture + picture.target;
            picture.bytes = m_desk.disk.FileLen(m_source + name);
            if (m_desk.disk.Found(target)) {
                picture.sameHere = SameContent(m_desk.disk, m_source + name, target);
                picture.replaces = !picture.sameHere;
            }
            if (!picture.sameHere)
                picture.where = known.Look(m_source + name, [&] { return Tell(kLookingAt.arg(name), 0); });
        });
        if (!seen)
            m_outcome.stopped = true;
        if (m_outcome.stopped)
            return false;
        if (picture.sameHere) {
            ++m_outcome.thereAlready;
            m_outcome.left.append(kThereLine.arg(name));
        } else
            m_pictures.append(picture);
    }
    return true;
}

/// @return false if the user gave up
bool Copying::AskAboutKnown()
{
    QStringList lines;
    int count = 0;
    for (const CardPicture& picture : std::as_const(m_pictures)) {
        if (picture.where.known != Known::New && ++count <= kNamedInQuestion)
            lines.append(KnownLine(picture));
    }
    if (count == 0)
        return true;
    if (count > kNamedInQuestion)
        lines.append(kAndMore.arg(count - kNamedInQuestion));
    const forms::Answer answer = m_desk.ports.prompter.MsgBox(
        forms::Buttons::YesNoCancel, forms::Icon::Question, {},
        kCopyAgain.arg(count).arg(m_pictures.size() + m_outcome.thereAlready).arg(lines.join(u"\r\n"_s)));
    if (answer == forms::Answer::No) {
        m_outcome.leftOut = count;
        for (const CardPicture& picture : std::as_const(m_pictures))
            if (picture.where.known != Known::New)
                m_outcome.left.append(KnownLine(picture));
        m_pictures.removeIf([](const CardPicture& picture) { return picture.where.known != Known::New; });
    }
    m_outcome.stopped = answer == forms::Answer::Cancel;
    return !m_outcome.stopped;
}

/// What is replaced takes its room a second time, in the trash.
bool Copying::HasRoom()
{
    qint64 need = 0;
    for (const CardPicture& picture : std::as_const(m_pictures)) {
        m_total += picture.bytes;
        need += picture.bytes + (picture.replaces ? m_desk.disk.FileLen(m_capture + picture.target) : 0);
    }
    const qint64 free =
        m_desk.freeBytes ? m_desk.freeBytes(m_capture) : m_desk.disk.FreeBytes(m_capture);
    if (need <= free)
        return true;
    m_desk.ports.prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, kNoRoomTitle,
                                 kNoRoom.arg(m_capture, text::Dec((need + kMegabyte - 1) / kMegabyte),
                                             text::Dec(free / kMegabyte)));
    return false;
}

/// @return false when the user stops it
bool Copying::CopyOne(const CardPicture& picture)
{
    const QString source = m_source + picture.name;
    const QString target = m_capture + picture.target;
    if (m_desk.disk.Found(target)) {
        const QString kept = KeepInTrash(m_desk.disk, target);
        if (!m_outcome.kept.contains(kept))
            m_outcome.kept.append(kept);
        m_desk.disk.SetAttr(target, files::Normal);
    }
    const bool whole = m_desk.disk.FileCopyChecked(source, target, [&](qint64 bytes) {
        return Tell(kCopyingFile.arg(picture.name), m_done + bytes);
    });
    if (!whole)
        return false;
    m_desk.disk.SetAttr(target, files::Normal); // what lies on a disc is read-only
    ++m_outcome.copied;
    if (picture.target != picture.name)
        m_outcome.renamed.append(picture.target);
    m_done += picture.bytes;
    return true;
}

void Copying::CopyAll()
{
    for (const CardPicture& picture : std::as_const(m_pictures)) {
        if (!Tell(kCopyingFile.arg(picture.name), m_done))
            return;
        bool going = true;
        const int before = m_outcome.copied;
        try {
            if (!Try([&] { going = CopyOne(picture); }))
                m_outcome.stopped = true;
        } catch (const RuntimeError& failure) {
            // It is told here, so that what was copied before it is told too.
            common::ReportError(m_desk.ports.prompter, failure);
            m_outcome.failed.append(picture.name);
            m_outcome.stopped = true;
        }
        if (!going || m_outcome.stopped)
            return;
        if (m_outcome.copied == before)
            m_outcome.failed.append(picture.name);
    }
}

CopyOutcome Copying::Run(const QStringList& names)
{
    common::MakeDirectory(m_desk.disk, m_desk.ports.prompter, m_capture);
    if (!Look(names) || !AskAboutKnown() || !HasRoom())
        return m_outcome;
    m_outcome.begun = true;
    CopyAll();
    return m_outcome;
}

} // namespace

QString CopyOutcome::Text(const QString& captureDir) const
{
    QString text = (stopped ? kStopped : QString()) + kCopied.arg(captureDir, text::Dec(copied));
    if (thereAlready > 0)
        text += kThereAlready.arg(thereAlready);
    if (!renamed.isEmpty())
        text += kRenamed.arg(renamed.join(u", "_s));
    if (leftOut > 0)
        text += kLeftOut.arg(leftOut);
    if (!failed.isEmpty())
        text += kNotCopied.arg(failed.join(u", "_s));
    if (!kept.isEmpty())
        text += kReplacedKept.arg(kept.size());
    return text;
}

CopyOutcome CopyFromMedia(const CopyDesk& desk, const QString& sourceDir, const QStringList& names,
                          const CopyStep& step)
{
    const RoutineScope scope{"CopyFromMedia"};
    return Copying(desk, sourceDir, step).Run(names);
}

bool IsCaptureDirectory(const common::Globals& globals, const QString& directory)
{
    return text::Folded(CkRSlash(directory)) == text::Folded(CkRSlash(globals.G_CaptureDir));
}

QString StartDirectory(const common::Globals& globals, const files::Disk& disk, const QString& word)
{
    if (!text::Trim(globals.lastCopy).isEmpty() && disk.DirExists(CkRSlash(globals.lastCopy)))
        return CkRSlash(globals.lastCopy);
    const QString device = text::Folded(word);
    if (device.contains("FLOPPY"_L1))
        return CkRSlash(globals.floppy);
    if (device.contains("REMOV"_L1))
        return CkRSlash(globals.reader);
    return device.contains("ROM"_L1) ? CkRSlash(globals.rom) : u"C:\\"_s;
}

} // namespace vasclip::photos
