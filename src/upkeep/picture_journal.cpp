#include "upkeep/picture_journal.h"

#include "platform/engine/process.h"
#include "platform/text/runtime_error.h"
#include "store/record.h"
#include "upkeep/import_plan.h"
#include "upkeep/named_pictures.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kPiece = 32768;
constexpr qint64 kMost = 256 << 20; ///< bytes of a journal
const QString kMark = u".placing"_s;
const QString kEarlier = u"Pictures of an earlier import could not be put back (%1). Make sure that you have rights to the photo "
                         u"directory, start the program anew and import again"_s;

/// What one journal says.
struct Entries
{
    QString host, started;
    qint64 process = 0;
    QList<PlacedPicture> pictures;
    QList<Proof> proofs;
};

QByteArray TextOf(const QList<PlacedPicture>& pictures, const QList<Proof>& proofs)
{
    QJsonArray files;
    for (const PlacedPicture& one : pictures)
        files.append(QJsonObject{{u"file"_s, one.file},
                                 {u"waiting"_s, one.waiting},
                                 {u"kept"_s, one.kept},
                                 {u"bytes"_s, one.mark.bytes},
                                 {u"changed"_s, one.mark.changed}});
    QJsonArray records;
    for (const Proof& one : proofs)
        records.append(QJsonObject{{u"key"_s, one.key}, {u"values"_s, QString::fromLatin1(one.values)}});
    const qint64 process = engine::OwnProcess();
    return QJsonDocument(QJsonObject{{u"host"_s, QSysInfo::machineHostName()},
                                     {u"process"_s, process},
                                     {u"started"_s, engine::StartMark(process)},
                                     {u"records"_s, records},
                                     {u"pictures"_s, files}})
        .toJson(QJsonDocument::Compact);
}

/// Nothing else is touched, whatever a file of a journal's name says.
bool IsPicture(const PlacedPicture& one)
{
    const auto beside = [&](const QString& file) { return file.startsWith(one.file + u".incoming"_s); };
    return one.file.endsWith(u".jpg"_s, Qt::CaseInsensitive) && QFileInfo(one.file).isAbsolute() && beside(one.waiting) &&
           (one.kept.isEmpty() || beside(one.kept));
}

/// @return nothing for a file that is no journal
std::optional<Entries> Read(const QString& native)
{
    QFile file(native);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject whole = QJsonDocument::fromJson(file.read(kMost)).object();
    if (!whole.contains(u"pictures"_s))
        return std::nullopt;
    Entries entries{.host = whole[u"host"].toString(),
                    .started = whole[u"started"].toString(),
                    .process = whole[u"process"].toInteger(),
                    .pictures = {},
                    .proofs = {}};
    for (const QJsonValue& value : whole[u"pictures"].toArray())
        entries.pictures.append({.file = value[u"file"].toString(),
                                 .waiting = value[u"waiting"].toString(),
                                 .kept = value[u"kept"].toString(),
                                 .mark = {value[u"bytes"].toInteger(), value[u"changed"].toInteger()}});
    for (const QJsonValue& value : whole[u"records"].toArray())
        entries.proofs.append({value[u"key"].toString(), value[u"values"].toString().toLatin1()});
    if (!std::ranges::all_of(entries.pictures, IsPicture))
        return std::nullopt;
    return entries;
}

/// Of another machine's process nobody can tell from here whether it still runs.
bool IsLeft(const Entries& entries)
{
    return entries.host == QSysInfo::machineHostName() &&
           (entries.process == engine::OwnProcess() || !engine::IsAlive(entries.process, entries.started));
}

bool WereStored(const TransferDesk& desk, const QList<Proof>& proofs)
{
    QStringList added;
    for (const Proof& proof : proofs)
        if (proof.values.isEmpty())
            added.append(proof.key);
        else if (SumOf(desk.databook, proof.key) == proof.values)
            return true;
    const QSet<QString> there = KeysThere(desk.databook, desk.globals.G_Table, added);
    return std::ranges::any_of(added, [&](const QString& key) { return there.contains(KeyMark(key)); });
}

/// @return false if something of it stays to be done
bool TakeBack(const PlacedPicture& one, const NamedPictures& named)
{
    const bool placed = FileMark::Of(one.file) == one.mark; // else it has no name yet, or somebody's other picture has it
    if (!one.kept.isEmpty())
        return placed && QFile::exists(one.kept) ? engine::RenameOver(one.kept, one.file) : RemoveFile(one.kept);
    return !placed || named.Has(QFileInfo(one.file).completeBaseName()) || RemoveFile(one.file);
}

bool Undo(const TransferDesk& desk, const Entries& entries)
{
    bool whole = true;
    if (WereStored(desk, entries.proofs)) {
        for (const PlacedPicture& one : entries.pictures)
            whole = (one.kept.isEmpty() || RemoveFile(one.kept)) && whole;
        return whole;
    }
    const NamedPictures named(desk.databook);
    for (const PlacedPicture& one : entries.pictures) {
        whole = TakeBack(one, named) && whole;
        whole = RemoveFile(one.waiting) && whole;
    }
    return whole;
}

} // namespace

FileMark FileMark::Of(const QString& native)
{
    const QFileInfo info(native);
    return info.isFile() ? FileMark{info.size(), info.lastModified().toMSecsSinceEpoch()} : FileMark{};
}

bool SameBytes(const QString& left, const QString& right)
{
    QFile one(left);
    QFile other(right);
    if (!one.open(QIODevice::ReadOnly) || !other.open(QIODevice::ReadOnly) || one.size() != other.size())
        return false;
    while (!one.atEnd())
        if (one.read(kPiece) != other.read(kPiece))
            return false;
    return true;
}

bool RemoveFile(const QString& native)
{
    if (!QFile::exists(native) || QFile::remove(native))
        return true;
    QFile::setPermissions(native, QFile::permissions(native) | QFile::WriteOwner);
    return QFile::remove(native);
}

QByteArray SumOf(const store::DataSource& databook, const QString& key)
{
    const auto record = store::ReadRecord(databook, key);
    if (!record)
        return {};
    QCryptographicHash sum(QCryptographicHash::Sha256);
    for (const QVariant& value : record->Values()) {
        sum.addData(value.toString().toUtf8());
        sum.addData("\n");
    }
    return sum.result().toHex();
}

PictureJournal::PictureJournal(const TransferDesk& desk)
    : m_disk(desk.Disk())
    , m_file(desk.Databook() + kMark + QString::number(engine::OwnProcess()))
{}

void PictureJournal::Write(const QList<PlacedPicture>& pictures, const QList<Proof>& proofs)
{
    if (m_disk.Found(m_file, files::ReadOnly | files::Hidden))
        throw RuntimeError(error::kPathFileAccess, kEarlier.arg(m_file));
    m_disk.WriteWhole(m_file, TextOf(pictures, proofs));
    m_written = true;
}

void PictureJournal::Remove()
{
    if (m_written)
        static_cast<void>(RemoveFile(m_disk.ToNative(m_file)));
    m_written = false;
}

void PictureJournal::Replay(const TransferDesk& desk)
try {
    const QFileInfo databook(desk.Disk().ToNative(desk.Databook()));
    const QDir directory = databook.absoluteDir();
    const QString begin = databook.fileName() + kMark;
    for (const QString& name : directory.entryList({u"*"_s + kMark + u"*"_s}, QDir::Files | QDir::Hidden)) {
        if (!name.startsWith(begin))
            continue;
        const auto entries = Read(directory.filePath(name));
        if (entries && IsLeft(*entries) && Undo(desk, *entries))
            QFile::remove(directory.filePath(name));
    }
} catch (const RuntimeError&) {
}

} // namespace vasclip::upkeep
