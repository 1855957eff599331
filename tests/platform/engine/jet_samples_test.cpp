// Genuine files of other programs: what stands in them must come out as independent readers see it.

#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/engine/jet/back_end.h"
#include "platform/engine/jet_samples.h"

#include <QDirIterator>

#include <cmath>

namespace vasclip::engine {
namespace {

using Cells = QList<QStringList>;

QString WithoutEscapes(const QString& cell)
{
    QString text;
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != u'\\' || i + 1 == cell.size()) {
            text += cell[i];
            continue;
        }
        const QChar code = cell[++i];
        text += code == u'n' ? u'\n' : code == u'r' ? u'\r' : code == u't' ? u'\t' : code;
    }
    return text;
}

/// A tab separated table of an independent reader, its escapes resolved; "<NULL>" stays as it is.
Cells TableOf(const QString& native)
{
    Cells cells;
    const QString text = QString::fromUtf8(BytesOf(native));
    for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
        QStringList row;
        for (const QString& cell : line.split(u'\t'))
            row.append(WithoutEscapes(cell));
        cells.append(row);
    }
    return cells;
}

/// A value as the independent reader writes it, as far as it is no number.
QString Written(const QVariant& value)
{
    if (!value.isValid())
        return u"<NULL>"_s;
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? u"true"_s : u"false"_s;
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s);
    if (value.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        return u"<%1 bytes sha256 %2>"_s.arg(QString::number(bytes.size()),
                              QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex()));
    }
    return value.toString();
}

bool Same(const QVariant& value, const QString& there)
{
    if (Written(value) == there)
        return true;
    bool one = false;
    bool other = false;
    const double left = value.toString().toDouble(&one);
    const double right = there.toDouble(&other);
    return one && other && left == right;
}

struct JetSamplesTest : testing::Test
{
    void SetUp() override
    {
        samples = JetSamples();
        if (samples.isEmpty())
            GTEST_SKIP() << "no genuine files beside the source";
    }
    std::shared_ptr<Database> Open(const QString& name)
    {
        QFile::remove(home.Native(u"X.MDB"_s));
        EXPECT_TRUE(tests::CopyGenuineFile(name, home.Native(u"X.MDB"_s)));
        return home.engine.OpenDatabase(u"C:\\X.MDB"_s);
    }

    Home home;
    QString samples;
};

TEST_F(JetSamplesTest, EveryValueIsAsIndependentReadersSeeIt)
{
    int values = 0;
    for (QDirIterator files(samples, {u"*.mdb"_s}, QDir::Files); files.hasNext();) {
        const QString file = files.next();
        const QString typed = samples + u"/export/"_s + files.fileInfo().completeBaseName() + u"/typed/"_s;
        SCOPED_TRACE(file.toStdString());
        const auto database = Open(files.fileName());
        const QStringList names = database->TableNames();
        QStringList listed;
        for (const QStringList& row : TableOf(typed + u"_tables.tsv"_s)) {
            if (row.size() < 3 || row[0].startsWith(u'#'))
                continue;
            listed.append(row[0]);
            SCOPED_TRACE(row[0].toStdString());
            const auto rows = database->OpenRecordset(row[0], RecordsetType::Table);
            EXPECT_EQ(rows->RecordCount(), row[1].toLongLong());
            const Cells there = TableOf(typed + row[0] + u".tsv"_s);
            QStringList fields;
            for (const Field& field : rows->Fields())
                fields.append(field.name);
            QStringList sorted = fields;
            QStringList thereSorted = there.value(0);
            sorted.sort();
            thereSorted.sort();
            ASSERT_EQ(sorted, thereSorted);
            qsizetype line = 1;
            for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext(), ++line) {
                ASSERT_LT(line, there.size());
                for (qsizetype i = 0; i < there[0].size(); ++i, ++values) {
                    const QVariant value = rows->Value(there[0][i]);
                    EXPECT_TRUE(Same(value, there[line].value(i)))
                        << "line " << line << ", " << there[0][i].toStdString() << ": "
                        << Written(value).toStdString() << " for " << there[line].value(i).toStdString();
                }
            }
            EXPECT_EQ(line, there.size());
        }
        EXPECT_EQ(QSet(names.begin(), names.end()), QSet(listed.begin(), listed.end()));
        EXPECT_EQ(CheckDatabase(*database, CheckDepth::Whole), QStringList());
    }
    EXPECT_GT(values, 1500);
}

TEST_F(JetSamplesTest, AFileThatAnotherKindHasOpenIsNotLookedAt)
{
    QDir().mkpath(QFileInfo(home.Native(u"X.MDB"_s)).path());
    ASSERT_TRUE(QFile::copy(samples + u"/testV2000.mdb"_s, home.Native(u"X.MDB"_s)));
    bool open = false;
    const jet::JetBackEnd backEnd(home.disk, [&](const QString&) { return open; });
    EXPECT_TRUE(backEnd.Owns(u"C:\\X.MDB"_s));
    open = true; // to open and close it would drop that kind's locks
    EXPECT_FALSE(backEnd.Owns(u"C:\\X.MDB"_s));
    open = false;
    EXPECT_FALSE(backEnd.Owns(u"C:\\GONE.MDB"_s));
    EXPECT_FALSE(backEnd.Owns(u"Q:\\X.MDB"_s));
    EXPECT_FALSE(backEnd.Owns(u"C:\\"_s));
}

TEST_F(JetSamplesTest, SavedQueriesAndLinkedTablesAreNamedAsSuch)
{
    const auto database = Open(u"queryTestV2003.mdb"_s);
    QString text;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(database->OpenRecordset(u"UnionQuery"_s, RecordsetType::Dynaset)); }, &text),
              error::kTableUnknown);
    EXPECT_TRUE(text.contains(u"is a saved query"_s)) << text.toStdString();
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(database->OpenRecordset(u"SELECT * FROM [C:\\A.MDB].T"_s, RecordsetType::Dynaset)); }, &text),
              error::kInvalidOperation);
    EXPECT_TRUE(text.contains(u"reaches no other files"_s)) << text.toStdString();
    EXPECT_EQ(NotTakenOver(*database).size(), 9);
    EXPECT_TRUE(NotTakenOver(*database).contains(u"the saved query UnionQuery"_s));
}

TEST_F(JetSamplesTest, RelationsAreNamedButNotThoseOfTheSystem)
{
    QStringList relations = NotTakenOver(*Open(u"indexTestV1997.mdb"_s));
    relations.sort();
    EXPECT_EQ(relations, (QStringList{u"the relation Table2Table1"_s, u"the relation Table3Table1"_s}));
    EXPECT_EQ(NotTakenOver(*Open(u"functionsV2000.mdb"_s)), QStringList()) << "it has some of the system's own";
}

TEST_F(JetSamplesTest, NothingIsWrittenIntoOneOrBesideIt)
{
    const QString name = u"testV2000.mdb"_s;
    const QByteArray before = BytesOf(samples + u'/' + name);
    const auto database = Open(name);
    const QFileInfo file(home.Native(u"X.MDB"_s));
    const QDateTime changed = file.lastModified();
    const auto rows = database->OpenRecordset(u"Table1"_s, RecordsetType::Table);
    const QString words = u"is an Access database, which is read here and never written"_s;
    const std::function<void()> writes[] = {
        [&] { rows->Edit(); },
        [&] { rows->AddNew(); },
        [&] { rows->Delete(); },
        [&] { database->Execute(u"DELETE FROM Table1"_s); },
        [&] { database->CreateTable(SmallComps()); },
        [&] { database->AppendField(u"Table1"_s, TextField(u"X"_s, 5)); },
        [&] { database->AppendIndex(u"Table1"_s, {u"X"_s, {u"A"_s}, false, false}); },
    };
    for (const auto& write : writes) {
        QString text;
        EXPECT_EQ(ErrorOf(write, &text), error::kFileIsReadOnly);
        EXPECT_TRUE(text.contains(words)) << text.toStdString();
    }
    database->Close();
    EXPECT_EQ(BytesOf(file.filePath()), before);
    EXPECT_EQ(QFileInfo(file.filePath()).lastModified(), changed);
    EXPECT_EQ(QDir(file.path()).entryList(QDir::Files), QStringList{u"X.MDB"_s});
}

TEST_F(JetSamplesTest, ItsRowsAreSelectedSortedCountedAndCopied)
{
    const auto old = Open(u"compIndexTestV2000.mdb"_s);
    const TableDef def = old->Table(u"Table1"_s);
    ASSERT_FALSE(def.indexes.isEmpty());
    const auto all = old->OpenRecordset(u"Table1"_s, RecordsetType::Table);
    all->SetIndex(def.indexes[0].name);
    QVariantList keys;
    for (all->MoveFirst(); !all->Eof(); all->MoveNext())
        keys.append(all->Value(def.indexes[0].fields[0]));
    ASSERT_EQ(keys.size(), 512);
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end(), [](const QVariant& left, const QVariant& right) {
        return left.toString().compare(right.toString(), Qt::CaseInsensitive) < 0 &&
               left.toDouble() <= right.toDouble();
    }));
    const QString field = def.fields[0].name;
    const auto counted = old->OpenRecordset(u"SELECT COUNT(*), MAX([%1]) FROM Table1"_s.arg(field),
                                            RecordsetType::Dynaset);
    EXPECT_EQ(counted->Value(0).toInt(), 512);
    const auto sorted = old->OpenRecordset(u"SELECT [%1] FROM Table1 ORDER BY [%1] DESC"_s.arg(field),
                                           RecordsetType::Dynaset);
    EXPECT_EQ(sorted->Value(0), counted->Value(1));

    const auto fresh = home.engine.CreateDatabase(u"C:\\NEW.MDB"_s);
    EXPECT_EQ(fresh->Execute(u"SELECT * INTO COPIED FROM [C:\\X.MDB].Table1"_s), 512);
    const auto copied = fresh->OpenRecordset(u"COPIED"_s, RecordsetType::Table);
    const auto source = old->OpenRecordset(u"Table1"_s, RecordsetType::Table);
    for (; !source->Eof(); source->MoveNext(), copied->MoveNext()) {
        for (int i = 0; i < source->Fields().size(); ++i)
            ASSERT_EQ(copied->Value(i), source->Value(i));
    }
    EXPECT_TRUE(copied->Eof());
}

TEST_F(JetSamplesTest, OneThatWasCutShortSaysWhatIsMissing)
{
    const QByteArray whole = BytesOf(samples + u"/compIndexTestV2000.mdb"_s);
    qint64 most = 0;
    for (qsizetype size = whole.size(); size > 80'000; size -= 1024) {
        QFile file(home.Native(u"X.MDB"_s));
        QDir().mkpath(QFileInfo(file.fileName()).path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(whole.left(size)) == size);
        file.close();
        qint64 rows = 0;
        QStringList found;
        try {
            const auto database = home.engine.OpenDatabase(u"C:\\X.MDB"_s);
            rows = database->OpenRecordset(u"Table1"_s, RecordsetType::Table)->RecordCount();
            found = CheckDatabase(*database, CheckDepth::Quiet);
        } catch (const RuntimeError& failure) {
            found.append(failure.Description());
        }
        if (size % 4096 != 0) {
            EXPECT_TRUE(found.join(u' ').contains(u"breaks off"_s) || found.join(u' ').contains(u"damaged"_s)) << size;
        }
        if (size < whole.size() && rows < 512) {
            EXPECT_FALSE(found.isEmpty()) << rows << " rows of 512, and not a word";
        }
        most = std::max(most, rows);
    }
    EXPECT_EQ(most, 512);
}

TEST_F(JetSamplesTest, DamagedOnesAreReadInPartOrRefusedInWords)
{
    int seen = 0;
    for (QDirIterator files(samples + u"/corrupt"_s, {u"*.mdb"_s}, QDir::Files); files.hasNext(); ++seen) {
        files.next();
        SCOPED_TRACE(files.fileName().toStdString());
        QString text;
        const int number = ErrorOf(
            [&] {
                const auto database = Open(u"corrupt/"_s + files.fileName());
                const QStringList found = CheckDatabase(*database, CheckDepth::Whole);
                EXPECT_FALSE(found.isEmpty());
                EXPECT_EQ(DamageOf(*database), found.value(0));
            },
            &text);
        EXPECT_TRUE(number == 0 || text.contains(u"damaged"_s) || text.contains(u"is empty"_s)) << text.toStdString();
    }
    EXPECT_GT(seen, 2);
}

} // namespace
} // namespace vasclip::engine
