#include "platform/engine/file_kind.h"

#include "platform/engine/errors.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kHeaderBytes = 512;

quint32 BigEndian(const QByteArray& header, int offset)
{
    return qFromBigEndian<quint32>(header.constData() + offset);
}

[[noreturn]] void ThrowKind(const QString& shown, const QString& what)
{
    throw RuntimeError(error::kUnrecognisedDatabase, u"The file %1 %2"_s.arg(shown, what));
}

bool LooksLikeText(const QByteArray& header)
{
    for (const char c : header) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 && byte != '\t' && byte != '\r' && byte != '\n' && byte != '\f' && byte != 0x1A)
            return false;
    }
    return true;
}

} // namespace

void CheckFileKind(const QString& nativePath, const QString& shown)
{
    const QFileInfo info(nativePath);
    if (!info.exists())
        throw RuntimeError(
            error::kDatabaseNotFound,
            u"Could not find the file %1. Make sure that its name and directory are right"_s.arg(shown));
    if (!info.isFile())
        ThrowKind(shown, u"is a directory and not a database"_s);
    QFile file(nativePath);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(
            error::kCouldNotOpenFile,
            u"The file %1 can not be opened. Make sure that you have the right to read it"_s.arg(shown));
    const QByteArray header = file.read(kHeaderBytes);
    const qint64 size = file.size();
    file.close();

    if (header.isEmpty())
        ThrowKind(shown, u"is empty and not a database. Restore it from a backup"_s);
    if (!header.startsWith(QByteArray("SQLite format 3\0", 16))) {
        if (LooksLikeText(header))
            ThrowKind(
                shown,
                u"is a text file and not a database. Choose another file or restore it from a backup"_s);
        ThrowKind(
            shown,
            u"is not a database that this program knows. Choose another file or restore it from a backup"_s);
    }
    constexpr int kSqliteHeader = 100;
    if (header.size() < kSqliteHeader)
        throw RuntimeError(
            error::kCorruptDatabase,
            u"The file %1 is damaged: it breaks off in its first %2 bytes. Restore it from a backup"_s.arg(
                shown, QString::number(size)));
    // While a journal waits to be rolled back, the header need not be the last whole one.
    if (QFile::exists(nativePath + u"-journal"_s))
        return;
    if (BigEndian(header, 68) != kApplicationId)
        ThrowKind(shown, u"is a SQLite database of another program. It was left as it is"_s);
    const quint32 stored = qFromBigEndian<quint16>(header.constData() + 16);
    const qint64 pageSize = stored == 1 ? 65536 : stored;
    const bool countIsValid = BigEndian(header, 24) == BigEndian(header, 92);
    if (countIsValid && size < pageSize * BigEndian(header, 28))
        throw RuntimeError(
            error::kCorruptDatabase,
            u"The file %1 is damaged: only %2 of its %3 bytes are there. Restore it from a backup"_s.arg(
                shown, QString::number(size), QString::number(pageSize * BigEndian(header, 28))));
}

} // namespace vasclip::engine
