#include "upkeep/picture_journal.h"

#include "platform/engine/process.h"
#include "platform/text/runtime_error.h"
#include "store/record.h"
#include "upkeep/import_plan.h"
#include "upkeep/named_pictures.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kMark = u".placing"_s;
const QString kEarlier = u"Pictures of an earlier import could not be put back (%1). Make sure that you have rights to the photo "
                         u"directory, start the program anew and import again"_s;

/// What one journal says.
struct Entries
{
    QList<PlacedPicture> pictures;
    QList<Proof> proofs;
};

QJsonObject ContentOf(const QList<PlacedPicture>& pictures, const QList<Proof>& proofs)
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
    return {{u"records"_s, records}, {u"pictures"_s, files}};
}

/// Nothing else is touched, whatever a file of a journal's name says.
bool IsPicture(const PlacedPicture& one)
{
    const auto beside = [&](const QString& file) { return file.startsWith(one.file + u".incoming"_s); };
    return one.file.endsWith(u".jpg"_s, Qt::CaseInsensitive) && QFileInfo(one.file).isAbsolute() && beside(one.waiting) &&
           (one.kept.isEmpty() || beside(one.kept));
}

/// @return nothing for what is no journal
std::optional<Entries> EntriesOf(const QJsonObject& whole)
{
    if (!whole.contains(u"pictures"_s))
        return std::nullopt;
    Entries entries;
    for (const QJsonValue& value : whole[u"pictures"_s].toArray())
        entries.pictures.append({.file = value[u"file"_s].toString(),
                                 .waiting = value[u"waiting"_s].toString(),
                                 .kept = value[u"kept"_s].toString(),
                                 .mark = {value[u"bytes"_s].toInteger(), value[u"changed"_s].toInteger()}});
    for (const QJsonValue& value : whole[u"records"_s].toArray())
        entries.proofs.append({value[u"key"_s].toString(), value[u"values"_s].toString().toLatin1()});
    if (!std::ranges::all_of(entries.pictures, IsPicture))
        return std::nullopt;
    return entries;
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
    : m_list(desk.Disk(), desk.Databook(), kMark)
{}

void PictureJournal::Write(const QList<PlacedPicture>& pictures, const QList<Proof>& proofs)
{
    if (m_list.IsThere())
        throw RuntimeError(error::kPathFileAccess, kEarlier.arg(m_list.File()));
    m_list.Write(ContentOf(pictures, proofs));
}

void PictureJournal::Replay(const TransferDesk& desk)
try {
    LeftList::Replay(desk.Disk(), desk.Databook(), kMark, [&](const QJsonObject& content) {
        const auto entries = EntriesOf(content);
        return entries && Undo(desk, *entries);
    });
} catch (const RuntimeError&) {
}

} // namespace vasclip::upkeep
