#include "upkeep/archive_journal.h"

#include "platform/text/runtime_error.h"
#include "store/record.h"
#include "upkeep/named_pictures.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kMark = u".archiving"_s;

QList<ArchivedFile> PicturesOf(const QJsonObject& content)
{
    QList<ArchivedFile> pictures;
    for (const QJsonValue& value : content[u"pictures"_s].toArray())
        pictures.append({.here = value[u"here"_s].toString(),
                         .there = value[u"there"_s].toString(),
                         .mark = {value[u"bytes"_s].toInteger(), value[u"changed"_s].toInteger()},
                         .fresh = value[u"fresh"_s].toBool()});
    return pictures;
}

/// Nothing else is touched, whatever a file of a list's name says.
bool IsPicture(const ArchivedFile& one)
{
    const QFileInfo here(one.here);
    const QFileInfo there(one.there);
    return here.isAbsolute() && there.isAbsolute() && here.fileName().endsWith(u".jpg"_s, Qt::CaseInsensitive) &&
           here.fileName().compare(there.fileName(), Qt::CaseInsensitive) == 0 && here.path() != there.path();
}

QString StemOf(const QString& native)
{
    return QFileInfo(native).completeBaseName();
}

NamedPictures NamedIn(const store::DataSource& databook, const QJsonObject& content, bool moved)
{
    if (moved)
        return NamedPictures(databook);
    store::DataSource archive(databook.Engine(), u"datarchive"_s);
    archive.Open(content[u"archive"_s].toString(), content[u"table"_s].toString(), store::SourceKind::Table);
    NamedPictures named(archive);
    archive.Close();
    return named;
}

/// @param moved  the record is in the archive
/// @return false if something of it stays to be done
bool Settle(const store::DataSource& databook, const QJsonObject& content, bool moved)
{
    QList<ArchivedFile> pictures = PicturesOf(content);
    if (pictures.isEmpty() || !std::ranges::all_of(pictures, IsPicture))
        return false;
    // Whichever goes, the other holds the same.
    pictures.removeIf([&](const ArchivedFile& one) {
        const bool goes = moved ? FileMark::Of(one.here) == one.mark : one.fresh;
        return !goes || !SameBytes(one.here, one.there);
    });
    if (pictures.isEmpty())
        return true;
    const NamedPictures named = NamedIn(databook, content, moved);
    bool whole = true;
    for (const ArchivedFile& one : std::as_const(pictures))
        whole = (named.Has(StemOf(one.here)) || RemoveFile(moved ? one.here : one.there)) && whole;
    return whole;
}

} // namespace

ArchiveJournal::ArchiveJournal(const store::DataSource& databook, const QString& archive, const QString& table)
    : m_databook(databook)
    , m_archive(archive)
    , m_table(table)
    , m_list(databook.Engine().Disk(), databook.DatabaseName(), kMark)
{}

void ArchiveJournal::Begin(const QString& key, const QList<ArchivedFile>& pictures)
{
    m_moved = false;
    m_content = {};
    if (pictures.isEmpty())
        return;
    QJsonArray files;
    for (const ArchivedFile& one : pictures)
        files.append(QJsonObject{{u"here"_s, one.here},
                                 {u"there"_s, one.there},
                                 {u"bytes"_s, one.mark.bytes},
                                 {u"changed"_s, one.mark.changed},
                                 {u"fresh"_s, one.fresh}});
    m_content = {{u"key"_s, key}, {u"archive"_s, m_archive}, {u"table"_s, m_table}, {u"pictures"_s, files}};
    m_list.Write(m_content);
}

void ArchiveJournal::End()
try {
    if (m_content.isEmpty() || m_moved || Settle(m_databook, m_content, false))
        m_list.Remove();
} catch (const RuntimeError&) {
}

void ArchiveJournal::Replay(const store::DataSource& databook)
try {
    LeftList::Replay(databook.Engine().Disk(), databook.DatabaseName(), kMark, [&](const QJsonObject& content) {
        return Settle(databook, content, !store::ReadRecord(databook, content[u"key"_s].toString()));
    });
} catch (const RuntimeError&) {
}

} // namespace vasclip::upkeep
