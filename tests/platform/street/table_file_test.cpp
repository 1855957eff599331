#include "platform/street/table_file.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <map>
#include <random>

namespace vasclip::street {
namespace {

using namespace Qt::StringLiterals;

class Tables : public testing::Test
{
protected:
    /// Rows of all lengths around what a page and a chain of pages take, with gaps between their numbers.
    void Write(int rows, int longest)
    {
        QString problem;
        SqlFile file = CreateSql(path, FileKind::County, problem);
        ASSERT_TRUE(file) << problem.toStdString();
        ASSERT_TRUE(RunSql(file.get(),
                           "CREATE TABLE about(words TEXT, small INT, large INT, below INT, one INT, none INT);"
                           "INSERT INTO about VALUES('Pr\u00e4ttville', 7, 5000000000, -86123456, 1, NULL);"
                           "CREATE TABLE first(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                           "CREATE TABLE second(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                           "CREATE TABLE empty(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL)",
                           problem))
            << problem.toStdString();
        std::mt19937 chance(5);
        for (const char* sql : {"INSERT INTO first VALUES(?, ?)", "INSERT INTO second VALUES(?, ?)"}) {
            SqlStatement insert = PrepareSql(file.get(), sql, problem);
            qint64 number = 0;
            for (int row = 0; row < rows; ++row) {
                number += 1 + static_cast<qint64>(chance() % 900'000);
                QByteArray bytes(static_cast<qsizetype>(chance() % static_cast<unsigned>(longest)), '\0');
                for (char& byte : bytes)
                    byte = static_cast<char>(chance());
                sqlite3_reset(insert.get());
                sqlite3_bind_int64(insert.get(), 1, number);
                sqlite3_bind_blob64(insert.get(), 2, bytes.isEmpty() ? "" : bytes.constData(),
                                    static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
                ASSERT_EQ(sqlite3_step(insert.get()), SQLITE_DONE);
                wanted[sql[12] == 'f' ? "first" : "second"][number] = bytes;
            }
        }
        ASSERT_TRUE(FinishSql(file, problem)) << problem.toStdString();
    }

    std::unique_ptr<TableFile> Opened()
    {
        QString problem;
        std::unique_ptr<TableFile> file = TableFile::Open(path, FileKind::County, problem);
        EXPECT_TRUE(file) << problem.toStdString();
        return file;
    }

    QTemporaryDir directory;
    QString path = directory.filePath(u"01001-a.cel"_s);
    std::map<std::string, std::map<qint64, QByteArray>> wanted;
};

TEST_F(Tables, GiveEveryRowAsItWasWritten)
{
    for (const auto& [rows, longest] : {std::pair(3, 50), std::pair(3000, 200), std::pair(120, 20'000), std::pair(900, 4200)}) {
        QFile::remove(path);
        wanted.clear();
        Write(rows, longest);
        const auto file = Opened();
        ASSERT_TRUE(file);
        for (const auto& [name, all] : wanted) {
            const quint32 table = file->Table(name.c_str());
            ASSERT_NE(table, 0U) << name;
            std::vector<quint32> numbers;
            ASSERT_TRUE(file->Numbers(table, 0, 0xffffffff, numbers));
            ASSERT_EQ(numbers.size(), all.size());
            auto number = numbers.begin();
            for (const auto& [id, bytes] : all) {
                EXPECT_EQ(*number++, id);
                QByteArray blob = "before";
                ASSERT_EQ(file->Blob(table, id, blob), TableFile::Read::Done) << name << ' ' << id;
                ASSERT_EQ(blob, bytes) << name << ' ' << id << ' ' << bytes.size();
                for (const qint64 beside : {id - 1, id + 1}) {
                    if (!all.contains(beside)) {
                        EXPECT_EQ(file->Blob(table, beside, blob), TableFile::Read::None);
                    }
                }
            }
        }
    }
}

TEST_F(Tables, GiveTheNumbersBetweenTwo)
{
    Write(3000, 60);
    const auto file = Opened();
    const auto& all = wanted["first"];
    std::vector<qint64> ids;
    for (const auto& [id, bytes] : all)
        ids.push_back(id);
    std::mt19937 chance(9);
    for (int round = 0; round < 400; ++round) {
        const auto pick = [&] { return ids[chance() % ids.size()] + static_cast<qint64>(chance() % 3) - 1; };
        const qint64 first = pick();
        const qint64 last = round % 4 == 0 ? first : pick();
        std::vector<quint32> found;
        ASSERT_TRUE(file->Numbers(file->Table("first"), first, last, found));
        std::vector<quint32> right;
        for (auto at = all.lower_bound(first); at != all.end() && at->first <= last; ++at)
            right.push_back(static_cast<quint32>(at->first));
        ASSERT_EQ(found, right) << first << ' ' << last;
    }
}

TEST_F(Tables, GiveTextsAndNumbers)
{
    Write(3, 10);
    const auto file = Opened();
    QByteArray record;
    ASSERT_EQ(file->Row(file->Table("about"), 1, record), TableFile::Read::Done);
    RecordColumns columns(record);
    EXPECT_EQ(QString::fromUtf8(columns.Bytes()), u"Pr\u00e4ttville"_s);
    EXPECT_EQ(columns.Number(), 7);
    EXPECT_EQ(columns.Number(), 5'000'000'000);
    EXPECT_EQ(columns.Number(), -86'123'456);
    EXPECT_EQ(columns.Number(), 1);
    EXPECT_EQ(columns.Number(), 0);
    EXPECT_FALSE(columns.Failed());
    EXPECT_EQ(columns.Number(), 0) << "there is no more";
    EXPECT_TRUE(columns.Failed());
}

TEST_F(Tables, HaveNoRowWhereThereIsNone)
{
    Write(40, 100);
    const auto file = Opened();
    QByteArray blob;
    std::vector<quint32> numbers;
    EXPECT_EQ(file->Table("third"), 0U);
    EXPECT_EQ(file->Blob(0, 1, blob), TableFile::Read::None);
    EXPECT_TRUE(file->Numbers(0, 0, 100, numbers));
    EXPECT_EQ(file->Blob(file->Table("empty"), 1, blob), TableFile::Read::None);
    EXPECT_TRUE(file->Numbers(file->Table("empty"), 0, 0xffffffff, numbers));
    EXPECT_TRUE(numbers.empty());
    EXPECT_EQ(file->Blob(file->Table("first"), -5, blob), TableFile::Read::None);
    EXPECT_EQ(file->Blob(file->Table("first"), qint64(1) << 40, blob), TableFile::Read::None);
}

/// Whatever the bytes are: an answer comes soon, and no row that is given is longer than the file.
TEST_F(Tables, AnswerWhateverTheBytesAre)
{
    Write(700, 6000);
    QFile whole(path);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray good = whole.readAll();
    whole.close();
    std::mt19937 chance(17);
    int opened = 0;
    QElapsedTimer timer;
    timer.start();
    for (int round = 0; round < 60; ++round) {
        QByteArray bad = good;
        // All over the file; then mostly where the pages begin, which lead to the others.
        for (int spoilt = 0; spoilt < 12; ++spoilt) {
            auto at = static_cast<qsizetype>(chance() % static_cast<unsigned>(bad.size()));
            if (round % 2 == 1)
                at = at / 4096 * 4096 + static_cast<qsizetype>(chance() % 40);
            if (at >= 100)
                bad[at] = static_cast<char>(round % 3 == 0 ? 5 : chance());
        }
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bad);
        file.close();
        QString problem;
        const std::unique_ptr<TableFile> tables = TableFile::Open(path, FileKind::County, problem);
        if (!tables) {
            EXPECT_EQ(problem, u"the file is damaged"_s);
            continue;
        }
        ++opened;
        for (const char* name : {"about", "first", "second", "empty"}) {
            std::vector<quint32> numbers;
            (void)tables->Numbers(tables->Table(name), 0, 0xffffffff, numbers);
            EXPECT_LE(numbers.size(), std::size_t(bad.size()));
            for (const auto& [id, bytes] : wanted["first"]) {
                QByteArray blob;
                (void)tables->Blob(tables->Table(name), id, blob);
                EXPECT_LE(blob.size(), bad.size());
            }
        }
    }
    EXPECT_GT(opened, 20);
    EXPECT_LT(timer.elapsed(), 60'000);
}

TEST_F(Tables, DoNotWalkInCircles)
{
    Write(3000, 200);
    const quint32 root = Opened()->Table("first");
    constexpr quint32 kLevels = 8;
    ASSERT_LT(root + kLevels, 256U);
    // Inner pages with a hundred ways to one and the same below, the last of which leads back, or to a leaf.
    for (const bool back : {true, false}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        for (quint32 level = 0; level < kLevels; ++level) {
            const bool last = level + 1 == kLevels;
            const auto below = static_cast<char>(last ? root : root + level + 1);
            QByteArray page(4096, '\0');
            page[0] = last && !back ? 13 : 5;
            page[4] = last && !back ? 0 : 100;
            page[11] = below;
            for (int cell = 0; cell < 100 && page[4] > 0; ++cell) {
                const int at = 4096 - 8 * (cell + 1);
                page[12 + 2 * cell] = static_cast<char>(at >> 8);
                page[13 + 2 * cell] = static_cast<char>(at & 0xff);
                page[at + 3] = below;
                page[at + 4] = static_cast<char>(cell);
            }
            file.seek(qint64(root + level - 1) * 4096);
            file.write(page);
        }
        file.close();
        const auto spoilt = Opened();
        QElapsedTimer timer;
        timer.start();
        QByteArray blob;
        std::vector<quint32> numbers;
        EXPECT_EQ(spoilt->Blob(root, 50, blob), back ? TableFile::Read::Damaged : TableFile::Read::None);
        EXPECT_FALSE(spoilt->Numbers(root, 0, 0xffffffff, numbers));
        EXPECT_LT(timer.elapsed(), 5'000);
    }
}

} // namespace
} // namespace vasclip::street
