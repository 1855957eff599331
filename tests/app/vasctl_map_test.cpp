// vasctl map and mapdata: the street map of a demo home, asked as a person or a script asks it.

#include "support/processes.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QSet>

#include <tuple>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotFound = 3, kDeclined = 4, kNoLink = 5;

class VasctlMap : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!QFile::exists(ProgramHome::Program(u"vasclip-mapdata"_s)))
            GTEST_SKIP() << "vasclip-mapdata is not built here";
        ASSERT_TRUE(home.Make());
    }
    [[nodiscard]] Ended Map(const QStringList& words) const { return home.Vasctl(QStringList{u"map"_s} + words); }
    [[nodiscard]] Ended Mapdata(const QStringList& words) const
    {
        return home.Vasctl(QStringList{u"mapdata"_s} + words);
    }
    /// The native path of a drive path, whose parts may be spelt in another case there.
    [[nodiscard]] QString Found(const QString& file) const
    {
        QString below;
        QDir drive(home.Native(QString()));
        for (const QString& part : file.mid(3).split(u'\\', Qt::SkipEmptyParts))
            for (const QString& name : drive.entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
                if (name.compare(part, Qt::CaseInsensitive) == 0) {
                    below = drive.filePath(name);
                    drive.cd(name);
                    break;
                }
        return below;
    }
    /// Records with a place of their own.
    [[nodiscard]] QJsonArray Located() const
    {
        return home
            .Vasctl({u"sql"_s, u"SELECT CENTRALKEY, CITY, ST, ZIP, LATITUDE, LONGITUDE FROM COMPS WHERE LATITUDE > ''"_s})
            .Array();
    }

    ProgramHome home;
};

TEST_F(VasctlMap, GeocodesAnAddress)
{
    const QJsonObject record = Located()[0].toObject();
    const QString address = record[u"CENTRALKEY"_s].toString().trimmed() + u", "_s + record[u"CITY"_s].toString();
    const Ended ended = Map({u"geocode"_s, address});
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
    const QJsonObject best = ended.Array()[0].toObject();
    EXPECT_EQ(best[u"kind"_s], u"range"_s);
    EXPECT_EQ(best[u"sure"_s], u"yes"_s);
    EXPECT_GE(best[u"uncertainty"_s].toDouble(), 50);
    EXPECT_TRUE(best[u"address"_s].toString().endsWith(u", OR "_s + record[u"ZIP"_s].toString()))
        << best[u"address"_s].toString().toStdString();
    // 0.0003 degrees are some 100 feet
    EXPECT_NEAR(best[u"latitude"_s].toDouble(), record[u"LATITUDE"_s].toVariant().toDouble(), 0.0003);
    EXPECT_NEAR(best[u"longitude"_s].toDouble(), record[u"LONGITUDE"_s].toVariant().toDouble(), 0.0003);
    // words without quotation marks are one address
    EXPECT_EQ(Map(QStringList{u"geocode"_s} + address.split(u' ')).out, ended.out);
    EXPECT_TRUE(home.Vasctl({u"--plain"_s, u"map"_s, u"geocode"_s, address}).out.startsWith("latitude"));
}

TEST_F(VasctlMap, SaysWhatIsNotOnTheMap)
{
    for (const QString& address :
         {u"1 Nowhere Ln, Nowhere, ZZ"_s, QString(10000, u'x'), u"'; DROP TABLE COMPS; --"_s, u"\U0001F3E0"_s}) {
        const Ended ended = Map({u"geocode"_s, u"--"_s, address});
        EXPECT_EQ(ended.code, kNotFound) << address.left(30).toStdString() << ended.err.toStdString();
        EXPECT_TRUE(ended.Array().isEmpty());
        EXPECT_TRUE(ended.err.contains("was not found on the map")) << ended.err.toStdString();
        EXPECT_LT(ended.err.size(), 500);
    }
    EXPECT_EQ(Map({u"geocode"_s}).code, kUsage);
    EXPECT_EQ(Map({u"geocode"_s, u"  "_s}).code, kUsage);
}

TEST_F(VasctlMap, TellsTheAddressOfAPlace)
{
    const QJsonObject record = Located()[0].toObject();
    const Ended ended = Map({u"reverse"_s, record[u"LATITUDE"_s].toVariant().toString(),
                             record[u"LONGITUDE"_s].toVariant().toString()});
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
    EXPECT_FALSE(ended.Array()[0].toObject()[u"address"_s].toString().isEmpty());
    EXPECT_EQ(Map({u"reverse"_s, u"44.82"_s, u"-10.5"_s}).code, kNotFound);
    EXPECT_EQ(Map({u"reverse"_s, u"-44.82"_s, u".5"_s}).code, kNotFound);
    for (const auto& [latitude, longitude] :
         {std::pair(u"-120.9"_s, u"44.8"_s), std::pair(u"north"_s, u"44"_s), std::pair(u"44"_s, u"-181"_s),
          std::pair(u"nan"_s, u"44"_s), std::pair(u"44"_s, u"inf"_s)}) {
        const Ended wrong = Map({u"reverse"_s, latitude, longitude});
        EXPECT_EQ(wrong.code, kUsage) << latitude.toStdString();
        EXPECT_TRUE(wrong.err.contains((latitude + u' ' + longitude).toUtf8())) << wrong.err.toStdString();
    }
    EXPECT_EQ(Map({u"reverse"_s, u"44.8"_s}).code, kUsage);
}

TEST_F(VasctlMap, AsksWithoutChangingAFile)
{
    const QString copy = home.Native(u"VAS2000/pwstreet.ini"_s);
    EXPECT_EQ(Map({u"geocode"_s, u"97991"_s}).code, kDone);
    EXPECT_FALSE(QFile::exists(copy));
    // the program's own copy comes first
    QFile ini(copy);
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[V2BETA]\r\nCellData=C:\\NOMAPS\r\n");
    ini.close();
    const Ended ended = Map({u"geocode"_s, u"97991"_s});
    EXPECT_EQ(ended.code, kFailed);
    EXPECT_TRUE(ended.err.contains("There are no street maps in") && ended.err.contains("vasctl mapdata import"))
        << ended.err.toStdString();
}

TEST_F(VasctlMap, ExportsTheReportsAddresses)
{
    EXPECT_EQ(Map({u"export"_s, u"delorme"_s}).code, kNoLink);
    EXPECT_EQ(Map({u"export"_s}).code, kUsage);
    EXPECT_EQ(Map({u"export"_s, u"atlas"_s}).code, kUsage);
    EXPECT_EQ(Map({u"export"_s, u"delorme"_s, u"--to"_s, u"access"_s}).code, kUsage);
    EXPECT_EQ(Map({u"export"_s, u"streets"_s, u"--to"_s, u"csv"_s}).code, kUsage);
    ASSERT_TRUE(home.StartForms());
    for (const QString& kind : {u"delorme"_s, u"delorme2005"_s, u"streets"_s, u"streets2001"_s}) {
        const Ended ended = Map({u"export"_s, kind});
        ASSERT_EQ(ended.code, kDone) << kind.toStdString() << ended.err.toStdString();
        const QString file = ended.Object()[u"file"_s].toString();
        EXPECT_TRUE(file.startsWith(u"C:\\"_s)) << file.toStdString();
        const QString words = ended.Object()[u"message"_s].toString();
        const QString led = kind == u"streets"_s       ? u"In MS Streets, select Data, Import Data Wizard, "_s
                            : kind == u"streets2001"_s ? u"In MS Streets, select File, Import Data, "_s
                                                       : u"In Street Atlas USA, select File, "_s;
        EXPECT_TRUE(words.startsWith(led)) << words.toStdString();
        if (!kind.startsWith(u"delorme"_s))
            continue;
        QFile text(Found(file));
        ASSERT_TRUE(text.open(QIODevice::ReadOnly)) << file.toStdString();
        const QByteArray first = text.readLine();
        EXPECT_TRUE(first.startsWith(kind == u"delorme"_s ? "\"SUBJECT\",\"" : "SUBJECT,")) << first.toStdString();
        EXPECT_TRUE(first.toUpper().contains("114 OAK ST")) << first.toStdString();
    }
}

TEST_F(VasctlMap, ExportsAnAccessDatabase)
{
    ASSERT_TRUE(home.StartForms());
    const QString subject = u"SELECT * FROM appraisal WHERE NAME = 'SUBJECT'"_s;
    const std::pair<QStringList, QByteArray> kinds[] = {{{}, "Standard Jet DB"},
                                                        {{u"--to"_s, u"vasclip"_s}, "SQLite format 3"},
                                                        {{u"--to"_s, u"access"_s}, "Standard Jet DB"}};
    for (const auto& [to, begins] : kinds) {
        const Ended ended = Map(QStringList{u"export"_s, u"streets"_s} + to);
        ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
        const QString file = ended.Object()[u"file"_s].toString();
        QFile written(Found(file));
        ASSERT_TRUE(written.open(QIODevice::ReadOnly)) << file.toStdString();
        EXPECT_TRUE(written.read(19).contains(begins)) << to.join(u' ').toStdString();
        const Ended read = home.Vasctl({u"sql"_s, u"--file"_s, file, subject});
        ASSERT_EQ(read.code, kDone) << read.err.toStdString();
        ASSERT_EQ(read.Array().size(), 1) << read.out.toStdString();
        EXPECT_EQ(read.Array()[0].toObject()[u"ADDRESS"_s].toString().toUpper(), u"114 OAK ST"_s);
        EXPECT_GE(home.Vasctl({u"sql"_s, u"--file"_s, file, u"SELECT NAME FROM appraisal"_s}).Array().size(), 3);
    }
}

TEST_F(VasctlMap, DrawsTheSamePictureEachTime)
{
    const QTemporaryDir out;
    QStringList drawn;
    for (const QString& name : {u"one.png"_s, u"two.png"_s}) {
        drawn.append(out.filePath(name));
        const Ended ended = Map({u"picture"_s, u"--out"_s, drawn.last()});
        ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
        EXPECT_EQ(ended.Object()[u"points"_s].toArray()[0], u"SUBJECT"_s);
    }
    const QImage first(drawn[0]);
    EXPECT_EQ(first.size(), QSize(1500, 1000));
    QSet<QRgb> colours;
    for (int x = 0; x < first.width(); ++x)
        for (int y = 0; y < first.height(); ++y)
            colours.insert(first.pixel(x, y));
    EXPECT_GT(colours.size(), 20) << "streets, names and arrows";
    QFile one(drawn[0]), two(drawn[1]);
    ASSERT_TRUE(one.open(QIODevice::ReadOnly) && two.open(QIODevice::ReadOnly));
    EXPECT_TRUE(one.readAll() == two.readAll());

    ASSERT_TRUE(home.StartForms());
    const QString report = out.filePath(u"report.png"_s);
    ASSERT_EQ(Map({u"picture"_s, u"--out"_s, report}).code, kDone);
    EXPECT_NE(QImage(report), first) << "another report, another map";
    ProgramHome::Stop(home.forms);

    EXPECT_EQ(Map({u"picture"_s}).code, kUsage);
    EXPECT_EQ(Map({u"picture"_s, u"--out"_s, u"a.gif"_s}).code, kUsage);
    EXPECT_EQ(Map({u"picture"_s, u"--out"_s, u"/proc/a.png"_s}).code, kFailed);
    ASSERT_TRUE(QFile::remove(home.Path() + u"/demo-home.txt"_s));
    EXPECT_EQ(Map({u"picture"_s, u"--out"_s, drawn[0]}).code, kNoLink) << "only the demo has a map without a report";
}

TEST_F(VasctlMap, PlacesRecordsAndKeepsAnchors)
{
    const QString key = Located()[0].toObject()[u"CENTRALKEY"_s].toString().trimmed();
    const auto place = [&] {
        const QJsonObject record = home.Vasctl({u"records"_s, u"show"_s, key}).Object();
        return std::tuple(record[u"LATITUDE"_s].toVariant().toDouble(), record[u"LONGITUDE"_s].toVariant().toDouble(),
                          record[u"ANCHORED"_s].toVariant().toInt());
    };
    EXPECT_EQ(Map({u"anchor"_s, key, u"44.8"_s, u"-120.9"_s}).code, kDone);
    EXPECT_EQ(place(), std::tuple(44.8, -120.9, 1));
    Ended ended = Map({u"place"_s, key.toLower()});
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
    EXPECT_EQ(ended.Array()[0].toObject()[u"anchored"_s], u"yes"_s);
    EXPECT_EQ(place(), std::tuple(44.8, -120.9, 1)) << "an anchor beats every look-up";

    // a longitude without its sign
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"map"_s, u"anchor"_s, key, u"44.8"_s, u"120.9"_s}).code, kDeclined);
    EXPECT_EQ(place(), std::tuple(44.8, -120.9, 1));
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"map"_s, u"anchor"_s, key, u"44.8"_s, u"120.9"_s}).code, kDone);
    EXPECT_EQ(place(), std::tuple(44.8, 120.9, 1));
    EXPECT_EQ(Map({u"anchor"_s, u"1 NOWHERE LN"_s, u"44.8"_s, u"-120.9"_s}).code, kNotFound);
    EXPECT_EQ(Map({u"anchor"_s, key, u"44.8"_s}).code, kUsage);

    QString free;
    for (const QJsonValue& value : home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, LATITUDE FROM COMPS"_s}).Array())
        if (value.toObject()[u"LATITUDE"_s].toVariant().toString().trimmed().isEmpty())
            free = value.toObject()[u"CENTRALKEY"_s].toString().trimmed();
    ASSERT_FALSE(free.isEmpty());
    ended = Map({u"place"_s, free, u"1 NOWHERE LN"_s});
    EXPECT_EQ(ended.code, kNotFound) << "one of them";
    EXPECT_TRUE(ended.err.contains("1 NOWHERE LN"));
    const QJsonObject stored = home.Vasctl({u"records"_s, u"show"_s, free}).Object();
    EXPECT_NEAR(stored[u"LATITUDE"_s].toVariant().toDouble(), 44.82, 0.15);
    EXPECT_EQ(stored[u"LATITUDE"_s].toVariant().toDouble(),
              ended.Array()[0].toObject()[u"latitude"_s].toVariant().toDouble());
}

TEST_F(VasctlMap, PlacesTheReportAndSendsItsProximities)
{
    EXPECT_EQ(Map({u"place"_s}).code, kNoLink);
    EXPECT_EQ(Map({u"proximity"_s}).code, kNoLink);
    ASSERT_TRUE(home.StartForms());
    const Ended placed = Map({u"place"_s});
    ASSERT_EQ(placed.code, kDone) << placed.err.toStdString();
    ASSERT_GE(placed.Array().size(), 3);
    EXPECT_EQ(placed.Array()[0].toObject()[u"point"_s], u"SUBJECT"_s);
    EXPECT_EQ(placed.Array()[0].toObject()[u"address"_s].toString().toUpper(), u"114 OAK ST"_s);
    EXPECT_EQ(placed.Array()[1].toObject()[u"point"_s], u"COMP #1"_s);
    const Ended sent = Map({u"proximity"_s});
    ASSERT_EQ(sent.code, kDone) << sent.err.toStdString();
    EXPECT_TRUE(sent.Object()[u"message"_s].toString().contains(u"In the report ("_s))
        << sent.out.toStdString();
    const QString cell = home.Cell(1, u"PROXIMITY"_s);
    EXPECT_TRUE(cell.contains(u"Mi"_s)) << cell.toStdString();
    EXPECT_TRUE(sent.Object()[u"message"_s].toString().contains(cell)) << cell.toStdString();

    const QJsonObject subject = Map({u"find"_s, u"subject"_s}).Object();
    EXPECT_EQ(subject[u"latitude"_s], placed.Array()[0].toObject()[u"latitude"_s]);
    EXPECT_EQ(Map({u"find"_s, u"COMP #1"_s}).code, kDone);
    EXPECT_EQ(Map({u"find"_s, u"COMP #9"_s}).code, kNotFound);
}

TEST_F(VasctlMap, FindsWhatIsSure)
{
    EXPECT_EQ(Map({u"find"_s, u"114 Oak St, Marlow Falls, OR"_s}).code, kDone);
    const Ended street = Map({u"find"_s, u"Oak St, Marlow Falls"_s});
    EXPECT_EQ(street.code, kNotFound);
    EXPECT_TRUE(street.err.contains("OAK ST, MARLOW FALLS")) << street.err.toStdString();
    EXPECT_EQ(Map({u"find"_s, u"1 Nowhere Ln, Nowhere"_s}).code, kNotFound);
    EXPECT_EQ(Map({u"find"_s}).code, kUsage);
    EXPECT_EQ(Map({u"find"_s, u"SUBJECT"_s}).code, kNoLink);
}

TEST_F(VasctlMap, ListsVerifiesAndRemovesMaps)
{
    const QJsonObject county = Mapdata({u"list"_s}).Array()[0].toObject();
    EXPECT_EQ(county[u"county"_s], u"Calder"_s);
    EXPECT_EQ(county[u"state"_s], u"OR"_s);
    EXPECT_EQ(Mapdata({u"verify"_s}).code, kDone);
    EXPECT_EQ(Mapdata({u"remove"_s, u"NOWHERE"_s}).code, kNotFound);
    EXPECT_EQ(Mapdata({u"remove"_s}).code, kUsage);
    EXPECT_EQ(Mapdata({u"import"_s}).code, kUsage);
    EXPECT_EQ(Mapdata({u"list"_s, u"all"_s}).code, kUsage);

    QFile cells(home.Native(u"VAS2000/maps/Calder-demo.cel"_s));
    ASSERT_TRUE(cells.open(QIODevice::ReadWrite));
    ASSERT_TRUE(cells.seek(cells.size() / 2));
    cells.write("damaged");
    cells.close();
    const Ended damaged = Mapdata({u"verify"_s});
    EXPECT_EQ(damaged.code, kFailed);
    EXPECT_TRUE(damaged.err.contains("Calder")) << damaged.err.toStdString();

    EXPECT_EQ(Mapdata({u"remove"_s, u"Calder"_s}).code, kDone);
    EXPECT_TRUE(Mapdata({u"list"_s}).Array().isEmpty());
    EXPECT_EQ(Map({u"geocode"_s, u"97991"_s}).code, kNotFound);
}

TEST_F(VasctlMap, ImportsStreetFiles)
{
    const QTemporaryDir sources;
    QFile file(sources.filePath(u"houses.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("number,street,city,postcode,lon,lat\n7,Pier St,Harbor,97000,-121.5,44.1\n9,Pier St,Harbor,97000,"
               "-121.5002,44.1\n");
    file.close();
    const QString account = sources.filePath(u"account.txt"_s);
    const Ended ended = Mapdata({u"import"_s, file.fileName(), u"--county"_s, u"Harbor"_s, u"--state"_s, u"OR"_s,
                                 u"--account"_s, account});
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
    EXPECT_EQ(ended.Object()[u"taken"_s].toArray(), (QJsonArray{u"1 counties"_s, u"2 houses"_s})) << ended.out.toStdString();
    EXPECT_FALSE(ended.out.contains("progress")) << "nobody sits at a terminal";
    const Ended told = home.Vasctl({u"--plain"_s, u"mapdata"_s, u"import"_s, file.fileName(), u"--county"_s, u"Harbor"_s});
    EXPECT_EQ(told.out, QByteArray("Taken: 1 counties\nTaken: 2 houses\n"));
    EXPECT_TRUE(QFile::exists(account));
    EXPECT_EQ(Mapdata({u"list"_s}).Array().size(), 2);
    const QJsonObject house = Map({u"geocode"_s, u"9 Pier St, Harbor, OR"_s}).Array()[0].toObject();
    EXPECT_EQ(house[u"kind"_s], u"house"_s);
    EXPECT_NEAR(house[u"longitude"_s].toDouble(), -121.5002, 1e-6);
    EXPECT_EQ(Mapdata({u"import"_s, sources.filePath(u"none.shp"_s)}).code, kFailed);
    EXPECT_EQ(home.Vasctl({u"mapdata"_s, u"list"_s, u"--county"_s, u"X"_s}).code, kUsage);
}

TEST_F(VasctlMap, ListsTheRecordsThatNewMapsWouldMove)
{
    // A record whose place was found, not put right by hand.
    const QJsonArray free =
        home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, CITY, ZIP, LATITUDE, LONGITUDE FROM COMPS WHERE LATITUDE > '' AND "
                               "(ANCHORED IS NULL OR ANCHORED <> '1')"_s})
            .Array();
    ASSERT_FALSE(free.isEmpty());
    const QJsonObject record = free[0].toObject();
    const QString key = record[u"CENTRALKEY"_s].toString().trimmed();
    EXPECT_EQ(Mapdata({u"use"_s}).code, kNotFound);
    EXPECT_TRUE(Mapdata({u"diff"_s}).Array().isEmpty()) << "the demo's records stand where its maps have them";
    const double north = record[u"LATITUDE"_s].toVariant().toDouble() + 0.01;
    const QTemporaryDir sources;
    QFile file(sources.filePath(u"houses.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(u"number,street,city,postcode,lon,lat\n%1,%2,%3,%4,%5,%6\n"_s
                   .arg(key.section(u' ', 0, 0), key.section(u' ', 1), record[u"CITY"_s].toString(),
                        record[u"ZIP"_s].toString(), record[u"LONGITUDE"_s].toVariant().toString())
                   .arg(north, 0, 'f', 6)
                   .toUtf8());
    file.close();
    ASSERT_EQ(Mapdata({u"import"_s, file.fileName(), u"--county"_s, u"Calder"_s, u"--state"_s, u"OR"_s, u"--beside"_s}).code,
              kDone);
    EXPECT_GT(Mapdata({u"list"_s}).Array()[0].toObject()[u"streets"_s].toInt(), 100) << "it waits";
    // The farthest first; the others are not on this map of one house.
    const auto moves = [this] {
        QJsonArray moved;
        for (const QJsonValue& row : Mapdata({u"diff"_s}).Array())
            if (row.toObject()[u"feet"_s].isDouble())
                moved.append(row);
        return moved;
    };
    EXPECT_GE(Mapdata({u"diff"_s}).Array().size(), free.size());
    ASSERT_EQ(moves().size(), 1) << Mapdata({u"diff"_s}).out.toStdString();
    const QJsonObject moved = moves()[0].toObject();
    EXPECT_EQ(moved[u"key"_s], key);
    EXPECT_NEAR(moved[u"feet"_s].toDouble(), 3645, 60); // a hundredth of a degree
    EXPECT_NEAR(moved[u"newLatitude"_s].toDouble(), north, 1e-6);
    EXPECT_EQ(Mapdata({u"use"_s}).code, kDone);
    EXPECT_EQ(Mapdata({u"list"_s}).Array()[0].toObject()[u"streets"_s].toInt(), 0);
    EXPECT_EQ(moves().size(), 1) << "it stands there until it is placed";
    ASSERT_EQ(home.Vasctl({u"--yes"_s, u"map"_s, u"anchor"_s, key, record[u"LATITUDE"_s].toVariant().toString(),
                           record[u"LONGITUDE"_s].toVariant().toString()})
                  .code,
              kDone);
    EXPECT_TRUE(moves().isEmpty()) << "what is anchored never moves";
    EXPECT_EQ(Mapdata({u"discard"_s}).code, kNotFound);
}

} // namespace
