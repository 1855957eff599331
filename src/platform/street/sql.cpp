#include "platform/street/sql.h"

#include "platform/files/file_address.h"
#include "platform/files/native.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cerrno>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

qint32 VersionOf(FileKind kind)
{
    return static_cast<qint32>(kind) * 1000 + (kind == FileKind::County ? kCountyVersion : kIndexVersion);
}

/// What opens files by names of any length, where the library's usual does not.
const char* AnyLength()
{
    constexpr auto* kName = "win32-longpath";
    return sqlite3_vfs_find(kName) != nullptr ? kName : nullptr;
}

qint32 OldestOf(FileKind kind)
{
    return kind == FileKind::County ? static_cast<qint32>(kind) * 1000 + kOldestCounty : VersionOf(kind);
}

/// What stands in the first hundred bytes of a database file.
class Head
{
public:
    explicit Head(const QString& path)
    {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            m_bytes = file.read(kSize);
    }

    [[nodiscard]] bool IsDatabase() const
    {
        return m_bytes.size() == kSize && m_bytes.startsWith(QByteArrayView("SQLite format 3\0", 16));
    }
    [[nodiscard]] quint32 Mark() const { return At(68); }
    [[nodiscard]] quint32 Version() const { return At(60); }
    /// Bytes of the whole file as it was written.
    [[nodiscard]] qint64 Bytes() const { return qint64(At(28)) * (At(14) & 0xffff); }

private:
    static constexpr qsizetype kSize = 100;

    [[nodiscard]] quint32 At(qsizetype at) const { return qFromBigEndian<quint32>(m_bytes.constData() + at); }

    QByteArray m_bytes;
};

/// Why a file is not one of `kind` that can be read here; "" where it is.
QString HeadProblem(const QFileInfo& info, FileKind kind)
{
    const Head head(info.filePath());
    if (!head.IsDatabase() || head.Mark() != kFileMark || head.Version() / 1000 != static_cast<quint32>(kind))
        return kind == FileKind::County ? u"the file is no map of a county"_s
                                        : u"the file is no index of maps"_s;
    if (head.Version() > static_cast<quint32>(VersionOf(kind)) || head.Version() < static_cast<quint32>(OldestOf(kind)))
        return u"the file was made for another version of the program; import the map again"_s;
    if (head.Bytes() > info.size())
        return u"the file is shorter than it was written"_s;
    return {};
}

} // namespace

void CloseSql::operator()(sqlite3* file) const
{
    sqlite3_close_v2(file);
}

void CloseSql::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

QString SqlProblem(sqlite3* file)
{
    if (!file)
        return u"out of memory"_s;
    const int code = sqlite3_errcode(file);
    int system = 0;
    sqlite3_file_control(file, "main", SQLITE_FCNTL_LAST_ERRNO, &system);
    if (code == SQLITE_FULL || (code == SQLITE_IOERR && (system == ENOSPC || system == EFBIG)))
        return u"the disk is full"_s;
    if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB)
        return u"the file is damaged"_s;
    return QString::fromUtf8(sqlite3_errmsg(file));
}

bool RunSql(sqlite3* file, const char* sql, QString& problem)
{
    if (sqlite3_exec(file, sql, nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    problem = SqlProblem(file);
    return false;
}

SqlStatement PrepareSql(sqlite3* file, const char* sql, QString& problem)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(file, sql, -1, &statement, nullptr) != SQLITE_OK)
        problem = SqlProblem(file);
    return SqlStatement(statement);
}

SqlFile CreateSql(const QString& path, FileKind kind, QString& problem)
{
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(files::native::SystemPath(path).toUtf8().constData(), &raw,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX, AnyLength());
    SqlFile file(raw);
    if (opened != SQLITE_OK) {
        problem = SqlProblem(raw);
        return {};
    }
    const QByteArray head =
        QByteArrayLiteral("PRAGMA page_size=4096; PRAGMA journal_mode=OFF; PRAGMA locking_mode=EXCLUSIVE;"
                          "PRAGMA synchronous=FULL; PRAGMA application_id=") +
        QByteArray::number(kFileMark) + "; PRAGMA user_version=" + QByteArray::number(VersionOf(kind)) + "; BEGIN";
    if (!RunSql(raw, head.constData(), problem))
        return {};
    return file;
}

bool FinishSql(SqlFile& file, QString& problem)
{
    if (!RunSql(file.get(), "COMMIT", problem))
        return false;
    sqlite3* raw = file.release();
    if (sqlite3_close(raw) == SQLITE_OK)
        return true;
    problem = SqlProblem(raw);
    sqlite3_close_v2(raw);
    return false;
}

SqlFile OpenSql(const QString& path, FileKind kind, QString& problem)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        problem = u"the file is missing"_s;
        return {};
    }
    if (!info.isFile() || !info.isReadable()) {
        problem = u"the file can't be read"_s;
        return {};
    }
    problem = HeadProblem(info, kind);
    if (!problem.isEmpty())
        return {};
    const QByteArray address = files::FileAddress(info.absoluteFilePath()) + "?immutable=1";
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(address.constData(), &raw,
                                       SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_FULLMUTEX, AnyLength());
    SqlFile file(raw);
    if (opened != SQLITE_OK) {
        problem = SqlProblem(raw);
        return {};
    }
    // 128 KB of pages: what is read again is kept decoded.
    sqlite3_exec(raw, "PRAGMA cache_size=-128; PRAGMA query_only=1", nullptr, nullptr, nullptr);
    return file;
}

void BindText(sqlite3_stmt* statement, int column, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(statement, column, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
}

QString ColumnText(sqlite3_stmt* statement, int column)
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(statement, column));
}

} // namespace vasclip::street
