#include "upkeep/embedded_images.h"

#include "common/paths.h"
#include "photos/photo_list.h"
#include "platform/engine/file_owner.h"
#include "platform/engine/process.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/long_fields.h"
#include "store/store.h"
#include "upkeep/import_plan.h"
#include "upkeep/photo_places.h"
#include "upkeep/target_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kPiece = 256 * 1024;
constexpr qint64 kBetweenTurns = 8 * kPiece; ///< bytes of a picture
const QString kJpg = u".jpg"_s;
const QString kFrontView = u"FRONT VIEW"_s;
const QString kMark = u".incoming"_s;
const QString kReplacedMark = u".incoming-over"_s; ///< another one of these, for whatever clears them away
const QString kStepWords = u"Picture of %1"_s;
const QString kNoName = u"%1: \"%2\" is no name of a picture"_s;
const QString kNoPicture = u"%1: what stands inside is no JPEG picture"_s;
const QString kCut = u"%1: the picture could not be read to its end, because the file is damaged there"_s;
const QString kTwice = u"%1: an earlier row has another picture of the name %2"_s;
const QString kOverTitle = u"Pictures With The Same Name"_s;
const QString kOver = u"The photo directory has other pictures under these names:\n\n%1\n\nYes writes the pictures of the "
                      u"file over them, No keeps those that are there, Cancel imports nothing."_s;
const QString kNoCopy = u"The picture %1 could not be put aside, so nothing takes its place. Make room in the photo directory"_s;
constexpr int kNamesAsked = 10;
constexpr qint64 kBetweenLooks = 16; ///< rows
const QString kLooking = u"Looking at the pictures"_s;

/// The list of photos, whose last line may lack its end: other programs leave it out.
QString FrontStem(QString photos)
{
    if (!photos.endsWith(u"\r\n"_s))
        photos += u"\r\n"_s;
    return photos::PhotoList(photos::ParsePhotos(photos)).StemOf(kFrontView);
}

QString LongestSuffix()
{
    return kReplacedMark + engine::FileOwner::Own().Mark();
}

} // namespace

/// The picture inside one row.
class PictureRow
{
public:
    explicit PictureRow(const store::LongRows& rows)
        : m_rows(rows)
    {}
    [[nodiscard]] QString Key() const { return text::Trim(m_rows.Text(fields::CENTRALKEY)); }
    [[nodiscard]] QString Mark() const { return KeyMark(m_rows.Text(fields::CENTRALKEY)); }
    [[nodiscard]] QString Stem() const { return FrontStem(m_rows.Text(fields::PHOTOS)); }
    [[nodiscard]] qint64 Size() const { return m_rows.Size(fields::FRONTPHOTO); }
    /// Is a part of it lost in a damaged file? Nothing of it is read then.
    [[nodiscard]] bool IsCut() const { return Size() > 0 && m_rows.Chunk(fields::FRONTPHOTO, 0, 1).isEmpty(); }
    [[nodiscard]] bool IsPicture() const
    {
        return m_rows.Chunk(fields::FRONTPHOTO, 0, 3) == QByteArray("\xFF\xD8\xFF");
    }
    /// Does a file hold the same?
    [[nodiscard]] bool IsIn(const QString& native) const
    {
        QFile file(native);
        const qint64 size = Size();
        bool same = file.open(QIODevice::ReadOnly) && file.size() == size;
        for (qint64 at = 0; same && at < size; at += kPiece)
            same = file.read(kPiece) == m_rows.Chunk(fields::FRONTPHOTO, at, std::min(kPiece, size - at));
        return same;
    }
    /// @param shown  the name that it gets in the end. @return false if it was stopped. @throws RuntimeError 61, 75
    [[nodiscard]] bool WriteTo(const QString& native, const QString& shown, const std::function<bool()>& goOn) const
    {
        QFile file(native);
        const qint64 size = Size();
        bool good = file.open(QIODevice::WriteOnly);
        for (qint64 at = 0; good && at < size; at += kPiece) {
            if (at > 0 && at % kBetweenTurns == 0 && !goOn())
                return false;
            const QByteArray piece = m_rows.Chunk(fields::FRONTPHOTO, at, std::min(kPiece, size - at));
            if (piece.isEmpty())
                throw RuntimeError(error::kPathFileAccess, u"The picture of %1 could not be read to its end"_s.arg(Key()));
            good = file.write(piece) == piece.size();
        }
        if (!good || !file.flush() || !engine::FlushFile(native))
            FailWriting(shown, file);
        return true;
    }

private:
    const store::LongRows& m_rows;
};

namespace {

QString PictureSelect(const QString& table)
{
    return u"SELECT "_s + fields::CENTRALKEY + u", "_s + fields::PHOTOS + u", "_s + fields::FRONTPHOTO + u" FROM ["_s +
           table + u']';
}

} // namespace

QList<RowPicture> LookAtPictures(const TransferDesk& desk, engine::Database& source, const QString& table,
                                 const WorkStep& step)
{
    QList<RowPicture> pictures;
    const PhotoPlaces places(desk);
    store::LongRows rows(source, PictureSelect(table));
    for (qint64 at = 0; at < rows.Count(); ++at) {
        if (at % kBetweenLooks == 0 && !step(at, rows.Count(), kLooking))
            break;
        pictures.append(RowPicture::None);
        if (!rows.StandOn(at))
            continue;
        const PictureRow row(rows);
        const QString stem = row.Stem();
        if (stem.isEmpty() || row.Size() <= 0)
            continue;
        const QString file = places.Of(stem, LongestSuffix());
        if (file.isEmpty() || !row.IsPicture())
            pictures.last() = RowPicture::Refused;
        else if (!QFile::exists(file))
            pictures.last() = RowPicture::Fresh;
        else
            pictures.last() = row.IsIn(file) ? RowPicture::There : RowPicture::Other;
    }
    return pictures;
}

EmbeddedImages::EmbeddedImages(const TransferDesk& desk, engine::Database& source, const QString& table)
    : m_desk(desk)
    , m_source(source)
    , m_table(table)
    , m_journal(desk)
{}

EmbeddedImages::~EmbeddedImages()
{
    for (const Waiting& one : std::as_const(m_waiting))
        QFile::remove(WaitingName(one.file));
    bool back = true;
    for (const QString& placed : std::as_const(m_placed)) {
        const QString kept = ReplacedName(placed);
        back = (QFile::exists(kept) ? engine::RenameOver(kept, placed) : RemoveFile(placed)) && back;
    }
    if (back)
        m_journal.Remove(); // else the next import tries again
}

QString EmbeddedImages::ReplacedName(const QString& native) const
{
    return native + LongestSuffix();
}

QString EmbeddedImages::WaitingName(const QString& native) const
{
    return native + kMark + engine::FileOwner::Own().Mark();
}

/// What imports that were killed have left; another machine may be importing into the same directory. A copy of a picture that gave way is its journal's alone to take.
void EmbeddedImages::Sweep() const
{
    PictureJournal::Replay(m_desk);
    const QString directory = common::CkRSlash(m_desk.globals.G_PhotoDir);
    for (const QString& name : m_desk.Disk().Dir(directory + u"*"_s + kMark + u"*"_s, files::ReadOnly)) {
        const QStringView mark = QStringView(name).sliced(name.lastIndexOf(kMark) + kMark.size());
        const auto owner = engine::FileOwner::In(mark);
        const QString native = m_desk.Disk().ToNative(directory + name);
        if (owner.length == mark.size() && owner.HasLeft(native, m_desk.ports.clock.Now()))
            QFile::remove(native);
    }
}

bool EmbeddedImages::MetBefore(const PictureRow& row, const QString& native, const QString& stem)
{
    const auto met = m_met.constFind(native.toUpper());
    if (met == m_met.cend())
        return false;
    if (!row.IsIn(*met)) {
        m_result.notSaved.append(kTwice.arg(row.Key(), stem));
        return true;
    }
    for (Waiting& one : m_waiting) // two records may show one file
        if (WaitingName(one.file) == *met)
            one.keys.insert(row.Mark());
    return true;
}

void EmbeddedImages::Drop(const QSet<QString>& keys)
{
    for (Waiting& one : m_waiting) {
        one.keys.subtract(keys);
        if (one.keys.isEmpty())
            QFile::remove(WaitingName(one.file));
    }
    m_waiting.removeIf([](const Waiting& one) { return one.keys.isEmpty(); });
}

bool EmbeddedImages::SaveOne(const PictureRow& row, const PhotoPlaces& places, const std::function<bool()>& goOn)
{
    const QString stem = row.Stem();
    if (stem.isEmpty() || row.Size() <= 0)
        return true;
    const QString native = places.Of(stem, LongestSuffix());
    if (native.isEmpty()) {
        m_result.notSaved.append(kNoName.arg(row.Key(), stem));
        return true;
    }
    if (!row.IsPicture()) {
        m_result.notSaved.append((row.IsCut() ? kCut : kNoPicture).arg(row.Key()));
        return true;
    }
    if (MetBefore(row, native, stem))
        return true;
    const QString waiting = WaitingName(native);
    m_met.insert(native.toUpper(), waiting);
    m_waiting.append({native, false, {row.Mark()}});
    if (!row.WriteTo(waiting, common::CkRSlash(m_desk.globals.G_PhotoDir) + stem + kJpg, goOn))
        return false;
    if (!QFile::exists(native))
        return true;
    if (SameBytes(native, waiting)) {
        ++m_result.same;
        QFile::remove(waiting);
        m_waiting.removeLast();
        m_met.insert(native.toUpper(), native);
    } else {
        m_waiting.last().over = true;
    }
    return true;
}

bool EmbeddedImages::SaveEmbeddedImages(const WorkStep& step)
{
    Sweep();
    const PhotoPlaces places(m_desk);
    store::LongRows rows(m_source, PictureSelect(m_table));
    for (qint64 at = 0; at < rows.Count(); ++at) {
        if (!rows.StandOn(at))
            continue; // somebody deleted it meanwhile
        const PictureRow row(rows);
        if (m_only && !m_only->contains(row.Mark()))
            continue;
        const auto goOn = [&] { return step(at, rows.Count(), kStepWords.arg(row.Key())); };
        m_result.stopped = !goOn() || !SaveOne(row, places, goOn);
        if (m_result.stopped)
            return false;
    }
    QStringList over;
    for (const Waiting& one : std::as_const(m_waiting))
        if (one.over)
            over.append(QFileInfo(one.file).fileName());
    if (over.isEmpty())
        return true;
    QStringList asked = over.mid(0, kNamesAsked);
    if (over.size() > kNamesAsked)
        asked.append(u"and %1 more"_s.arg(over.size() - kNamesAsked));
    const forms::Answer answer = m_desk.ports.prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Question,
                                                              kOverTitle, kOver.arg(asked.join(u'\n')));
    m_result.declined = answer == forms::Answer::Cancel;
    if (answer == forms::Answer::No) {
        m_result.kept = static_cast<int>(over.size());
        for (const Waiting& one : std::as_const(m_waiting))
            if (one.over)
                QFile::remove(WaitingName(one.file));
        m_waiting.removeIf([](const Waiting& one) { return one.over; });
    }
    return !m_result.declined;
}

QList<PlacedPicture> EmbeddedImages::ToPlace() const
{
    QList<PlacedPicture> pictures;
    for (const Waiting& one : m_waiting) {
        const QString waiting = WaitingName(one.file);
        pictures.append({one.file, waiting, one.over ? ReplacedName(one.file) : QString(), FileMark::Of(waiting)});
    }
    return pictures;
}

void EmbeddedImages::Place()
{
    if (m_waiting.isEmpty())
        return;
    m_journal.Write(ToPlace(), m_proofs);
    QSet<QString> directories;
    while (!m_waiting.isEmpty()) {
        const Waiting one = m_waiting.first();
        if (one.over && (!QFile::copy(one.file, ReplacedName(one.file)) || !engine::FlushFile(ReplacedName(one.file)))) {
            RemoveFile(ReplacedName(one.file));
            throw RuntimeError(error::kPathFileAccess, kNoCopy.arg(QFileInfo(one.file).fileName()));
        }
        m_placed.append(one.file);
        directories.insert(QFileInfo(one.file).absolutePath());
        if (!engine::RenameOver(WaitingName(one.file), one.file, engine::NamesFlushed::Later))
            throw RuntimeError(error::kPathFileAccess,
                               u"The picture %1 could not be put into the photo directory"_s.arg(
                                   QFileInfo(one.file).fileName()));
        m_waiting.removeFirst();
        ++(one.over ? m_result.over : m_result.written);
        if (m_desk.globals.writeProtectPhotos)
            if (const auto shown = m_desk.Disk().ToDrivePath(one.file))
                store::DalmoSetReadWriteBit(m_desk.ports, m_desk.Disk(), *shown, files::ReadOnly);
    }
    for (const QString& directory : std::as_const(directories))
        engine::FlushNames(directory);
}

void EmbeddedImages::Keep()
{
    for (const QString& placed : std::as_const(m_placed))
        RemoveFile(ReplacedName(placed));
    m_placed.clear();
    m_journal.Remove();
}

} // namespace vasclip::upkeep
