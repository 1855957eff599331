#include "mapdata/program.h"

#include <QRandomGenerator>

namespace vasclip::mapdata {
namespace {

using namespace Qt::StringLiterals;

/// A grid of streets as a GeoJSON layer with house numbers.
QByteArray Town(int streets)
{
    QByteArrayList features;
    for (int at = 0; at < streets; ++at) {
        const QByteArray west = QByteArray::number(-86.5 + at % 100 * 0.001, 'f', 6);
        const QByteArray east = QByteArray::number(-86.499 + at % 100 * 0.001, 'f', 6);
        const QByteArray south = QByteArray::number(32.4 + at / 100 * 0.001, 'f', 6);
        features.append(R"({"type":"Feature","properties":{"FULLNAME":"Street )" + QByteArray::number(at / 100) +
                        R"(","LFROMHN":"100","LTOHN":"198","RFROMHN":"101","RTOHN":"199"},)"
                        R"("geometry":{"type":"LineString","coordinates":[[)" +
                        west + ',' + south + "],[" + east + ',' + south + "]]}}");
    }
    return R"({"type":"FeatureCollection","features":[)" + features.join(',') + "]}";
}

class KilledImports : public tests::ImportHome
{};

TEST_F(KilledImports, LeaveTheOldMapsWhole)
{
    constexpr int kOld = 900;
    constexpr int kNew = 1500;
    const QString source = Put(u"tl_2021_01001_addrfeat.geojson"_s, Town(kOld));
    const QString other = Put(u"tl_2021_01003_addrfeat.geojson"_s, Town(kOld));
    ASSERT_EQ(Import({source, other}).code, 0);
    Put(u"tl_2021_01001_addrfeat.geojson"_s, Town(kNew));

    const auto edges = [this] {
        const street::MapData maps(Maps());
        QList<qint64> counts;
        for (const street::CountyRecord& record : maps.Counties())
            counts.append(record.info.edges);
        return counts;
    };
    QElapsedTimer timer;
    timer.start();
    ASSERT_EQ(Import({source}).code, 0);
    const int whole = static_cast<int>(timer.elapsed());
    ASSERT_EQ(edges(), (QList<qint64>{kNew, kOld}));
    Put(u"tl_2021_01001_addrfeat.geojson"_s, Town(kOld));
    ASSERT_EQ(Import({source}).code, 0);
    Put(u"tl_2021_01001_addrfeat.geojson"_s, Town(kNew));

    const int kills = qEnvironmentVariableIntValue("VASCLIP_KILLS") > 0 ? qEnvironmentVariableIntValue("VASCLIP_KILLS")
                                                                        : 30;
    int killed = 0;
    for (int round = 0; round < kills; ++round) {
        QProcess program;
        program.start(tests::ProgramHome::Program(u"vasclip-mapdata"_s), {u"import"_s, source, u"--to"_s, Maps()});
        ASSERT_TRUE(program.waitForStarted(tests::kPatienceMs));
        QThread::msleep(static_cast<unsigned long>(QRandomGenerator::global()->bounded(whole + 1)));
        program.kill();
        ASSERT_TRUE(program.waitForFinished(tests::kPatienceMs));
        killed += program.exitStatus() == QProcess::CrashExit ? 1 : 0;
        const QStringList faults = street::VerifyMaps(Maps());
        ASSERT_TRUE(faults.isEmpty()) << faults.join(u'|').toStdString();
        const QList<qint64> now = edges();
        ASSERT_EQ(now.size(), 2);
        EXPECT_TRUE(now[0] == kOld || now[0] == kNew) << now[0];
        EXPECT_EQ(now[1], kOld);
    }
    EXPECT_GT(killed, kills / 3);
    // What the killed ones left is gone after the next that is let live.
    ASSERT_EQ(Import({source}).code, 0);
    EXPECT_EQ(QDir(Maps()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    EXPECT_EQ(edges(), (QList<qint64>{kNew, kOld}));
}

} // namespace
} // namespace vasclip::mapdata
