#pragma once

#include "link/link_desk.h"
#include "store/schema.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QMap>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

using Fields = QList<std::pair<QString, QString>>;

/// A link desk on a home of its own: a Databook, an empty mapping, a KEL.INI of entries, a recording conduit.
class DeskTest : public testing::Test
{
protected:
    tests::TempHome home;
    engine::Engine engine{home.disk, tests::SomeTime()};
    tests::TestPorts doubles;
    forms::ControlSet set;
    test::RecordingConduit conduit;
    common::Globals globals;
    common::StatusDesk status{set};
    ReportControls report{set};
    frm_Addr addr;
    LinkState state;
    photos::SlotControls slots{set};
    photos::SlotTable table;
    photos::SlotLoader loader{home.disk, doubles.Get(), table};
    photos::PhotoLists lists{set};
    store::Sources sources{engine};
    QMap<QString, QString> ini; ///< "SECTION/KEY"
    QStringList logged;
    LinkDesk desk{
        {.txtDDE = conduit,
         .ports = doubles.Get(),
         .status = status,
         .kelIni = [this](const QString& section,
                         const QString& key) { return ini.value(section.toUpper() + u'/' + key.toUpper()); },
         .fileVersion = [](const QString&) { return u"5.3.1"_s; },
         .log = [this](const QString& text) { logged << text; }},
        {.report = report,
         .addr = addr,
         .state = state,
         .slots = slots,
         .loader = loader},
        {.sources = sources,
         .globals = globals,
         .lists = lists,
         .disk = home.disk}};

    static inline const QString kDatabook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
    static inline const QString kMapping = u"C:\\VAS2000\\Comp2Kel.mdb"_s;

    void SetUp() override
    {
        for (const QString& directory : {u"C:\\VAS2000"_s, u"C:\\DATABOOK"_s, u"C:\\JPG"_s, u"C:\\KEL"_s})
            home.MakeDirs(directory);
        globals.G_ProgramDir = globals.G_UserDir = u"C:\\VAS2000\\"_s;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        globals.kelAppDir = u"C:\\KEL\\"_s;
        globals.productName = u"Vasclip"_s;
        globals.formsProgram = u"Korvat Forms"_s;
        store::MakeDatabase(engine, kDatabook);
        store::MakeDatabase(engine, kMapping);
        store::Connect2Databook(desk.ports, sources, kDatabook, u"COMPS"_s);
        store::Connect2mdb(desk.ports, sources.datComp2Kel_CURRENT, kMapping, u"Comp2Kel"_s,
                           store::SourceKind::Query);
    }

    static void Add(engine::Engine& engine, const QString& path, const QString& table, const Fields& fields)
    {
        const auto database = engine.OpenDatabase(path);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        for (const auto& [field, value] : fields)
            rows->SetValue(field, value);
        rows->Update();
        rows->Close();
    }
    void AddComp(const QString& key, const Fields& fields = {})
    {
        Add(engine, kDatabook, u"COMPS"_s,
            Fields{{u"CENTRALKEY"_s, key.toUpper().leftJustified(35)}, {u"ADDRESS"_s, key}} + fields);
    }
    /// A mapping row: form, page, field, row, cell, group, page base, offset, preeval, truefalse.
    void Map(const QStringList& values)
    {
        static const QStringList columns = {u"FORMTYPE"_s, u"FORMNAME"_s, u"FIELDNAME"_s, u"ROW"_s,
                                            u"CELL"_s,     u"COMPTYPE"_s, u"COMP"_s,      u"OFFSET"_s,
                                            u"PREEVAL"_s,  u"TRUEFALSE"_s};
        Fields fields;
        for (qsizetype i = 0; i < values.size(); ++i)
            fields.append({columns[i], values[i]});
        Add(engine, kMapping, u"Comp2Kel"_s, fields);
    }
    /// Stands datDatabook on a comp.
    void StandOn(const QString& key)
    {
        ASSERT_TRUE(store::FindRecord(desk.ports, sources.datDatabook, key, u"CENTRALKEY"_s));
    }
    /// A comp as a value.
    [[nodiscard]] store::Record Read(const QString& key)
    {
        const auto record = store::ReadRecord(sources.datDatabook, key);
        EXPECT_TRUE(record) << key.toStdString();
        return record.value();
    }
    /// Open in the forms program, and the one that the tabs mirror.
    void OpenReport(const QString& name, const QString& forms)
    {
        addr.txtKelReport.SetText(name);
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, name + u',');
        conduit.Answer(u"KEL|"_s + name, u"ListForms"_s, forms);
    }
    void Script(const QString& name) { home.Put(u"C:\\KEL\\"_s + name, QByteArrayLiteral("' script")); }
    void Picture(const QString& drivePath)
    {
        QImage image(16, 12, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        ASSERT_TRUE(image.save(home.disk.ToNative(drivePath)));
    }
    /// Item and text of every poke.
    [[nodiscard]] QStringList Poked() const
    {
        QStringList pairs;
        for (const QStringList& poke : conduit.pokes)
            pairs << poke[1] + u'=' + poke[2];
        return pairs;
    }
    [[nodiscard]] QStringList Captions(const forms::TabControl& tab) const
    {
        QStringList captions;
        for (int i = 0; i < tab.Tabs(); ++i)
            captions << tab.TabCaption(i);
        return captions;
    }
};

} // namespace vasclip::link
