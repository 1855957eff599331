#include "upkeep/archive_records.h"

#include "common/error_block.h"
#include "platform/engine/errors.h"
#include "photos/photo_files.h"
#include "platform/text/dates.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/move_record.h"
#include "store/record.h"
#include "upkeep/archive_fields.h"
#include "upkeep/archive_journal.h"
#include "upkeep/archive_pictures.h"
#include "upkeep/archive_target.h"
#include "upkeep/named_pictures.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kMoveWords = u"Archive %1"_s;
const QString kNoDate = u"01/01/1900"_s;
const QString kOverwrite = u"Overwrite %1"_s;
const QString kStays = u"%1: the archive has a record of this address; both stay"_s;
const QString kKeptOut = u"%1: the archive's table keeps it out, by a field that must be filled or an index besides the key; it stays"_s;
const QString kMissing = u"%1: its picture %2.jpg is not in %3; the record went without it"_s;
const QString kNoPhotoDirectory = u"The photo directory %1 is not there, so no record could go with its pictures. Connect "
                                  u"its disk, or name another one in the setup"_s;
const QString kOtherPicture =
    u"%1: the archive has another picture named %2; the record stays. Give that view of it another picture first"_s;

const QString kRefused = u"%1: %2; the record stays"_s;
const QString kBlanksFirst = u"%1: nothing finds its key, which begins with a blank; the record stays"_s;
const QString kBusy = u"%1: somebody else goes on changing it; the record stays"_s;
constexpr int kTries = 5; ///< at a record that others change under the hands

/// Does a failure stand for this record alone, so that the next one may well go?
bool IsOfTheRecord(const RuntimeError& failure)
{
    switch (failure.Number()) {
    case error::kFileNotFound:
    case error::kDeviceIo:
    case error::kPermissionDenied:
    case error::kPathFileAccess:
    case error::kOverflow:
    case error::kDuplicateKey:
    case error::kRecordTooLarge:
    case error::kFieldTooLong:
    case error::kValueRequired:
    case error::kZeroLength:
    case error::kConversion:
    case error::kRecordDeleted:
        return true;
    default:
        return false;
    }
}

std::optional<QDate> DayOf(const QString& text, QDate today)
{
    const auto date = text::ReadDate(text, today);
    return date ? std::optional(date->date()) : std::nullopt;
}

class Archiving
{
public:
    Archiving(const ArchiveWork& work, const ArchiveStep& step)
        : m_work(work)
        , m_step(step)
        , m_archive(work.databook.Engine(), u"datarchive"_s)
        , m_pictures(work.disk, work.globals.G_PhotoDir, work.file)
        , m_journal(work.databook, work.file, work.table)
    {}
    Archived Run();

private:
    void NeedPhotoDirectory() const; ///< @throws 76
    void TakeKey(const QString& key);
    [[nodiscard]] bool Take(const QString& key, const store::Record& record);
    [[nodiscard]] store::FieldValues OwnFields(const QString& key) const;
    [[nodiscard]] bool IsEqual(const store::Record& ours, const store::Record& theirs) const;
    [[nodiscard]] QMap<QString, QByteArray> FrontPhoto(const store::Record& record) const;

    const ArchiveWork& m_work;
    const ArchiveStep& m_step;
    store::DataSource m_archive;
    store::MoveTarget m_target;
    ArchiveFields m_fields;
    ArchivedPictures m_pictures;
    ArchiveJournal m_journal;
    NamedPictures m_named;
    Archived m_done;
};

void Archiving::NeedPhotoDirectory() const
{
    if (!m_work.disk.DirExists(m_work.globals.G_PhotoDir))
        throw RuntimeError(error::kPathNotFound, kNoPhotoDirectory.arg(m_work.globals.G_PhotoDir));
}

store::FieldValues Archiving::OwnFields(const QString& key) const
{
    store::FieldValues held;
    if (const auto there = store::ReadRecord(m_archive, key))
        for (const QString& field : m_fields.Own())
            held.insert(field, there->Value(field));
    return held;
}

QMap<QString, QByteArray> Archiving::FrontPhoto(const store::Record& record) const
{
    const QByteArray picture =
        m_target.fields.contains(fields::FRONTPHOTO) ? m_pictures.FrontOf(record) : QByteArray();
    return picture.isNull() ? QMap<QString, QByteArray>() : QMap<QString, QByteArray>{{fields::FRONTPHOTO, picture}};
}

bool Archiving::IsEqual(const store::Record& ours, const store::Record& theirs) const
{
    return std::ranges::all_of(m_target.fields, [&](const QString& field) {
        return field == fields::FRONTPHOTO || ours.Text(field) == theirs.Text(field);
    });
}

/// @return false if it is another record by now, and has to be looked at anew
bool Archiving::Take(const QString& key, const store::Record& record)
{
    if (const QString why = m_fields.WhyNot(key, record); !why.isEmpty()) {
        m_done.left.append(why);
        return true;
    }
    const auto there = store::ReadRecord(m_archive, key);
    // What the archive has word for word needs no question: it was put back there from it, or copied.
    const bool equal = there && IsEqual(record, *there);
    if (there && !equal && m_work.duplicates == Duplicates::Ask &&
        !m_work.ports.prompter.YesNo(store::kPlainTitle, kOverwrite.arg(key))) {
        m_done.left.append(kStays.arg(key));
        return true;
    }
    QStringList missing;
    const QStringList stems = m_pictures.StemsOf(record, missing);
    if (!missing.isEmpty())
        NeedPhotoDirectory(); // it may have gone meanwhile, with all that is in it
    m_journal.Begin(key, m_pictures.FilesOf(stems));
    const auto ended = qScopeGuard([this] { m_journal.End(); });
    if (const QString other = m_pictures.Copy(stems, m_archive, there); !other.isEmpty()) {
        m_done.left.append(kOtherPicture.arg(key, other));
        return true;
    }
    m_target.kept = [this, &key] { return OwnFields(key); };
    switch (store::MoveRecord(m_work.databook, key, record, m_target,
                              there ? store::SameKey::Replace : store::SameKey::Leave, FrontPhoto(record),
                              kMoveWords)) {
    case store::Moved::Done:
        ++m_done.moved;
        break;
    case store::Moved::Replaced:
        ++(equal ? m_done.moved : m_done.overwritten);
        break;
    case store::Moved::KeyTaken:
        m_done.left.append(kStays.arg(key));
        return true;
    case store::Moved::Refused:
        m_done.left.append(kKeptOut.arg(key));
        return true;
    case store::Moved::Changed:
        return false;
    case store::Moved::Gone:
        return true;
    }
    m_journal.Moved();
    for (const QString& stem : std::as_const(missing))
        m_done.missing.append(kMissing.arg(key, stem, m_work.globals.G_PhotoDir));
    if (record.Has(fields::PHOTOS))
        m_named.Leave(record.Text(fields::PHOTOS));
    QStringList gone = stems;
    gone.removeIf([this](const QString& stem) { return m_named.Has(stem); });
    m_done.pictures += photos::DeletePhotos(m_work.ports, m_work.disk, m_work.globals.G_PhotoDir, gone);
    return true;
}

/// What stands under the key is taken; while it was copied somebody may have stored another date or another picture.
void Archiving::TakeKey(const QString& key)
{
    const QDate today = m_work.ports.clock.Today();
    for (int tried = 0; tried < kTries; ++tried) {
        const auto record = store::ReadRecord(m_work.databook, key);
        if (!record) {
            if (tried == 0)
                m_done.left.append(kBlanksFirst.arg(key));
            return;
        }
        if (!InRange(record->Text(fields::SALEDATE), m_work.range, today) || Take(key, *record))
            return;
    }
    m_done.left.append(kBusy.arg(key));
}

Archived Archiving::Run()
{
    ArchiveJournal::Replay(m_work.databook);
    CompleteFields(m_work.databook, m_work.file, m_work.table);
    m_archive.Open(m_work.file, m_work.table, store::SourceKind::Table);
    m_fields = ArchiveFields(m_work.databook, m_archive);
    m_target = {m_work.file, m_work.table, m_fields.Both()};
    m_named = NamedPictures(m_work.databook);
    if (m_named.Any())
        NeedPhotoDirectory();
    store::Rows rows = store::ReadRows(m_work.databook, u"SELECT %1, %2 FROM [%3]"_s.arg(
                                                            QString(fields::CENTRALKEY), QString(fields::SALEDATE),
                                                            m_work.databook.RecordSource()));
    const qint64 all = rows.Count();
    m_done.empty = all == 0;
    const QDate today = m_work.ports.clock.Today();
    for (qint64 at = 0; at < all; ++at) {
        if (!m_step(at, all, m_done)) {
            m_done.stopped = true;
            break;
        }
        QString key;
        try {
            const auto row = rows.At(at);
            key = row ? row->Text(fields::CENTRALKEY) : QString();
            if (key.isEmpty() || !InRange(row->Text(fields::SALEDATE), m_work.range, today))
                continue;
            TakeKey(key);
        } catch (const RuntimeError& failure) {
            if (!IsOfTheRecord(failure)) {
                m_done.failure = failure;
                m_done.failedAt = key;
                break;
            }
            m_done.left.append(kRefused.arg(key, failure.Description()));
        }
    }
    return m_done;
}

} // namespace

bool InRange(const QString& saleDate, const SaleRange& range, QDate today)
{
    const auto bound = [&](const QString& text) {
        return DayOf(text::Trim(text).isEmpty() ? kNoDate : text, today);
    };
    const auto day = text::Trim(saleDate).isEmpty() ? std::nullopt : DayOf(saleDate, today);
    const auto start = bound(range.start);
    const auto stop = bound(range.stop);
    return day && start && stop && *start <= *day && *day <= *stop;
}

Archived CopyArchiveData(const ArchiveWork& work, const ArchiveStep& step)
{
    const common::RoutineScope scope{"copyarchivedata"};
    return Archiving(work, step).Run();
}

} // namespace vasclip::upkeep
