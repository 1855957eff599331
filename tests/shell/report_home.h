#pragma once

#include "shell/main_home.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

inline const QString kIni = u"C:\\APPRAISE\\VAS2000.INI"_s;
inline const QString kDatabook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
inline const QString kMapping = u"C:\\VAS2000\\Comp2Kel.mdb"_s;
inline const QString kReport = u"KEL|SMITH"_s;

/// The main screen on a Databook of one comp, with a report open in the forms program.
class ReportHome : public MainHome
{
protected:
    using MainHome::MainHome;

    void SetUp() override
    {
        for (const QString& directory : {u"C:\\WINDOWS"_s, u"C:\\DATABOOK"_s, u"C:\\VAS2000"_s, u"C:\\JPG"_s,
                                         u"C:\\KEL"_s, u"C:\\SNAP"_s})
            home.MakeDirs(directory);
        home.Put(kIni, "[DIRECTORIES]\r\nAPPDIR=C:\\VAS2000\r\nPHOTODIR=C:\\JPG\r\nCAPTUREDIR=C:\\SNAP\r\n"
                       "[CITIES]\r\nCITY1=Alder, OR  97001  Calder\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s,
                 "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n[Descriptions]\r\nALTPH1=ALTPH1\r\n"
                 "[3X5_PHOTO_PAGES]\r\nCOMPARABLES_1=COMPPH1\r\nLISTINGS_1=LISTPH1\r\nRENTALS_1=RENTPH1\r\n");
        store::MakeDatabase(engine, kMapping);
        store::MakeDatabase(engine, kDatabook);
        Add(kDatabook, u"COMPS"_s,
            {{u"CENTRALKEY"_s, u"12 OAK ST"_s.leftJustified(35)}, {u"ADDRESS"_s, u"12 Oak St"_s}});
        Report();
    }
    /// A report with the subject, a comp, an alternate, a listing and a rental, each with its address in row
    /// 1 and its area in row 2 of its group's page.
    void Report()
    {
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
        conduit.Answer(kReport, u"ListForms"_s, u"UA5,COMPPH1,ALTPH1,LISTPH1,RENTPH1,"_s);
        const std::tuple<QString, QString, QString, QString> groups[] = {
            {u"SALE"_s, u"10"_s, u"SUBJ"_s, u"1 Subject Way"_s},
            {u"SALE"_s, u"1"_s, u"CMP"_s, u"12 Oak St"_s},
            {u"ALT"_s, u"1"_s, u"ALTC"_s, u"3 Alt St"_s},
            {u"LIST"_s, u"1"_s, u"LST"_s, u"4 List St"_s},
            {u"RENT"_s, u"1"_s, u"RNT"_s, u"5 Rent St"_s}};
        int area = 1000;
        for (const auto& [group, base, page, address] : groups) {
            int row = 0;
            for (const QString& field : {u"ADDRESS"_s, u"GLA"_s})
                Add(kMapping, u"Comp2Kel"_s,
                    {{u"FORMTYPE"_s, u"UA5"_s},
                     {u"FORMNAME"_s, page},
                     {u"FIELDNAME"_s, field},
                     {u"ROW"_s, QString::number(++row)},
                     {u"CELL"_s, u"1"_s},
                     {u"COMPTYPE"_s, group},
                     {u"COMP"_s, base},
                     {u"OFFSET"_s, u"1"_s}});
            conduit.Answer(kReport, page + u"|1|1"_s, address);
            conduit.Answer(kReport, page + u"|2|1"_s, QString::number(++area));
        }
    }
    void Load()
    {
        MainHome::Load();
        ASSERT_TRUE(main.linkState.linkActive);
    }
    /// GLA by key.
    [[nodiscard]] QMap<QString, QString> Records()
    {
        QMap<QString, QString> records;
        const auto rows =
            engine.OpenDatabase(kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext())
            records.insert(rows->Value(u"CENTRALKEY"_s).toString().trimmed(),
                           rows->Value(u"GLA"_s).toString().trimmed());
        return records;
    }
};

} // namespace vasclip::shell
