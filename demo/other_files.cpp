#include "demo/other_files.h"

#include "demo/databook_file.h"
#include "demo/photo_shoot.h"
#include "platform/engine/genuine_file.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/schema.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

const QString kOffice = u"C:\\DATABOOK\\IMPORT\\HARBOR.MDB"_s;
const QString kOldBook = u"C:\\DATABOOK\\OLDBOOK.MDB"_s;
const QString kArchive = u"C:\\DATABOOK\\ARCHIVE\\ARCHIVE.MDB"_s;
constexpr int kNew = 46; ///< of the office's comps
constexpr int kSame = 6;
constexpr int kTwins = 3;
constexpr int kPictured = 8;
constexpr int kOldComps = 24;
constexpr int kSoldYearsBefore = 28;

/// The day on which all of it is made.
class DemoDay final : public text::TimeSource
{
public:
    [[nodiscard]] QDateTime Now() const override { return {DemoToday(), QTime(9, 0)}; }
};

/// The same house as somebody else writes it: "12 OAK ST" as "12 OAK STREET".
QString Spelled(const QString& key)
{
    static const std::pair<QString, QString> kWords[]{{u" ST"_s, u" STREET"_s},
                                                      {u" AVE"_s, u" AVENUE"_s},
                                                      {u" LN"_s, u" LANE"_s},
                                                      {u" RD"_s, u" ROAD"_s},
                                                      {u" DR"_s, u" DRIVE"_s},
                                                      {u" CT"_s, u" COURT"_s}};
    for (const auto& [brief, whole] : kWords)
        if (key.endsWith(brief))
            return key.chopped(brief.size()) + whole;
    return {};
}

QList<Comp> OfficeComps(const QList<Comp>& comps, const QList<Comp>& strangers)
{
    QList<Comp> rows = strangers.mid(0, kNew);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        rows[i].photos.clear();
        if (i < kPictured)
            rows[i].photos.append({u"FRONT VIEW"_s, u"7000%1"_s.arg(i + 1, 4, 10, QChar(u'0'))});
    }
    for (int i = 0; i < kSame; ++i) {
        Comp comp = comps.at(i % comps.size());
        comp.photos.clear();
        comp.fields[u"NOTES"_s] = u"Seen by Harbor Appraisal, spring of 2026"_s;
        comp.fields[u"CONDITION"_s] = u"Good"_s;
        rows.append(comp);
    }
    for (int i = 0, found = 0; found < kTwins && i < comps.size(); ++i) {
        Comp comp = comps.at(comps.size() - 1 - i);
        const QString spelled = Spelled(comp.key);
        if (spelled.isEmpty() || spelled.size() > 35)
            continue;
        comp.key = spelled;
        comp.fields[u"ADDRESS"_s] = spelled;
        comp.photos.clear();
        rows.append(comp);
        ++found;
    }
    Comp nameless = rows.at(10);
    nameless.key.clear();
    Comp again = rows.at(11);
    Comp far = rows.at(12);
    far.key = u"1 FAR AWAY RD"_s;
    far.fields[u"CITY"_s] = u"Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch"_s;
    Comp dear = rows.at(13);
    dear.key = u"2 HARBOR PT"_s;
    dear.fields[u"SELLINGPR"_s] = u"on request"_s;
    Comp blurred = rows.at(14);
    blurred.key = u"3 HARBOR PT"_s;
    blurred.photos.append({u"FRONT VIEW"_s, u"70009999"_s});
    return rows + QList<Comp>{nameless, again, far, dear, blurred};
}

/// Without keys, and with a wider field than the Databook has: others keep their tables as they like.
void MakeOffice(engine::Engine& engine, const QList<Comp>& comps)
{
    engine::TableDef table = store::CompsTable();
    table.indexes.clear();
    for (engine::Field& field : table.fields)
        if (field.name == "CITY"_L1)
            field.size = 60;
    engine::GenuineFile file(engine, kOffice);
    file.Content().CreateTable(table);
    AddComps(file.Content(), comps, [](engine::Recordset& row, const Comp& comp) {
        if (comp.photos.isEmpty())
            return;
        const bool picture = comp.photos.first().stem != "70009999"_L1;
        row.SetValue(u"FRONTPHOTO"_s, picture ? Taken({{}, comp.look, View::Front})
                                              : QByteArray("The picture is on the other computer"));
    });
    static_cast<void>(file.Finish());
}

void MakeOldBook(engine::Engine& engine, QList<Comp> comps)
{
    const QStringList later{u"FRONTPHOTO"_s, u"LONGITUDE"_s, u"LATITUDE"_s,   u"ANCHORED"_s,   u"COMPID"_s,    u"SALEHIST4"_s,
                            u"SALEHIST5"_s,  u"FINANCETYP"_s, u"CONTRKDATE"_s, u"OTHERAREA1"_s, u"OTHERAREA2"_s};
    engine::TableDef table = store::CompsTable();
    table.fields.removeIf([&](const engine::Field& field) { return later.contains(field.name); });
    for (Comp& comp : comps) {
        comp.photos.clear();
        for (const QString& field : later)
            comp.fields.remove(field);
    }
    const auto database = engine.CreateDatabase(kOldBook);
    engine::Transaction all(*database);
    database->CreateTable(table);
    AddComps(*database, comps);
    all.Commit();
    database->Close();
}

QList<Comp> SoldLongAgo(QList<Comp> comps)
{
    for (Comp& comp : comps) {
        comp.photos.clear();
        const auto sold = text::ReadDate(comp.fields.value(u"SALEDATE"_s), DemoToday());
        const QDate day = (sold && sold->date().year() > 1990 ? sold->date() : DemoToday()).addYears(-kSoldYearsBefore);
        comp.fields[u"SALEDATE"_s] = DateText(day);
        comp.fields[u"SALESERIAL"_s] = text::Str(static_cast<double>(text::DateSerial(day)));
    }
    return comps;
}

} // namespace

void MakeOtherFiles(const files::Disk& disk, const QList<Comp>& comps, const QList<Comp>& strangers)
{
    const DemoDay day;
    engine::Engine engine(disk, day);
    MakeOffice(engine, OfficeComps(comps, strangers));
    MakeOldBook(engine, strangers.mid(kNew, kOldComps));
    MakeDatabook(engine, kArchive, SoldLongAgo(strangers.mid(kNew + kOldComps)));
}

} // namespace vasclip::demo
