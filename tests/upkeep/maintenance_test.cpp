#include "upkeep/maintenance_home.h"

#include "comments/comment_file.h"

namespace vasclip::upkeep {
namespace {

class Maintenance : public MaintenanceHome
{};

TEST_F(Maintenance, AsksEachQuestionLetterForLetterAndDoesNothingOnNo)
{
    Comp(u"1 A ST"_s, {{u"LATITUDE"_s, u"45"_s}, {u"PHOTOS"_s, u"FRONT VIEW|A1\r\n"_s}});
    Open();
    EXPECT_EQ(screen->Caption(), u"Data Maintenance"_s);
    const std::pair<forms::Button*, QString> asked[] = {
        {&screen->cmdRecalc,
         u"This will recalculate the 'price per square foot' calculation and 'age' fields and modify date fields.  Please have all users (using this program) quit at this time.  You should have a good backup of your data BEFORE using this option.  Are you ready at this time?"_s},
        {&screen->cmdclearAnchors, u"This will remove the anchors for all records in the database.  Are you sure?"_s},
        {&screen->cmdClear, u"Clear all photos..... Are you Absolutely Sure?"_s},
        {&screen->cmdLandSize,
         u"This will correct the landsize (acres or sqft) field.  If the comp is of 'Land' type and LandSize if empty (or 0); the GLA field will be copied into LandSize.  Please have all users (using this program) quit at this time.  You should have a good backup of your data BEFORE using this option.  Are you ready at this time?"_s},
        {&screen->cmdRemoveIllegal,
         u"This will remove illegal characters (apostrophes, astericks, commas, pound symbols, tildes, etc) from the CENTRALKEY and ADDRESS fields.  Please have all users (using this program) quit at this time.  You should have a good backup of your data BEFORE using this option.  Are you ready at this time?"_s},
        {&screen->cmdRemoveIllegal2,
         u"This will remove illegal characters (apostrophes, astericks, commas, pound symbols, tildes, etc) from the Comments fields.  Please have all users (using this program) quit at this time.  You should have a good backup of your data BEFORE using this option.  Are you ready at this time?"_s},
        {&screen->cmdCorrectAddress(0),
         u"This will correct syntax errors within the Address field by matching to the Central Key entry. Case sensitivity will depend upon current settings. Make sure no other user is currently in the system (You should have a recent backup before continuing). Are you sure you want to continue?"_s},
        {&screen->cmdCorrectAddress(1),
         u"This will correct Case Sensitivity to Proper Case (i.e. 101 West Main Street).  Make sure no other user is currently in the system (You should have a recent backup before continuing). Are you sure you want to continue?"_s},
        {&screen->cmdCorrectAddress(2),
         u"This will correct Case Sensitivity to Upper Case (i.e. 101 WEST MAIN STREET).  Make sure no other user is currently in the system (You should have a recent backup before continuing). Are you sure you want to continue?"_s},
    };
    for (const auto& [button, question] : asked) {
        doubles.prompter.Answer(forms::Answer::No);
        Click(*button);
        EXPECT_EQ(doubles.prompter.Last().text, question);
        EXPECT_EQ(doubles.prompter.Last().icon,
                  button == &screen->cmdRecalc ? forms::Icon::Exclamation : forms::Icon::Question);
    }
    EXPECT_EQ(Field(u"1 A ST"_s, u"LATITUDE"_s), u"45"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"PHOTOS"_s), u"FRONT VIEW|A1\r\n"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), QString());
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_FALSE(screen->cmdSave.Enabled());
}

TEST_F(Maintenance, NamesItsButtonsAndTheirTips)
{
    Open();
    EXPECT_EQ(screen->cmdclearAnchors.Caption(), u"Clear Comp &Anchors"_s);
    EXPECT_EQ(QString(screen->cmdClear.Caption()).remove(u'&'), u"Clear All Photos"_s);
    EXPECT_EQ(screen->cmdRemoveIllegal.Caption(), u"Remove &Illegal Characters"_s);
    EXPECT_EQ(QString(screen->cmdRemoveIllegal2.Caption()).remove(u'&'), u"Remove Illegal Characters"_s);
    EXPECT_EQ(screen->cmdDeleteByDate.Caption(), u"Erase Comps by &Sale Date"_s);
    EXPECT_EQ(screen->cmddelloaddate.Caption(), u"Erase Comps by &Load Date"_s);
    EXPECT_EQ(screen->cmdRecalc.ToolTipText(), u"Recalculates number fields in database"_s);
    EXPECT_EQ(screen->cmdclearAnchors.ToolTipText(), u"Clears 'Anchored' status in database entries"_s);
    EXPECT_EQ(screen->cmdLandSize.ToolTipText(), u"Corrects Land Sizes in the database (LAND comps)"_s);
    EXPECT_EQ(screen->cmdRemoveIllegal.ToolTipText(),
              u"Removes Illegal Characters (,#'...etc) from the key field (CENTRALKEY) and Address field"_s);
    EXPECT_EQ(screen->cmdRemoveIllegal2.ToolTipText(),
              u"Removes Illegal Characters (,#'...etc) from the User Comments database"_s);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(screen->cmdCorrectAddress(i).ToolTipText(), u"Matches Address field to Central Key field"_s);
    EXPECT_EQ(screen->cmdDeleteByDate.ToolTipText(), u"Erases comp entries by Sale Date"_s);
    EXPECT_EQ(screen->cmddelloaddate.ToolTipText(), u"Erases comp entries by Load Date"_s);
}

TEST_F(Maintenance, RecalculatesAndTellsEveryFieldBeforeAndAfter)
{
    Comp(u"1 A ST"_s, {{u"SELLINGPR"_s, u"$250,000"_s},
                       {u"GLA"_s, u"2,000 sf"_s},
                       {u"YEARBUILT"_s, u"1985"_s},
                       {u"SALEDATE"_s, u"3/7/2004"_s},
                       {u"LOADDATE"_s, u"01/02/2005"_s},
                       {u"LOADSERIAL"_s, u" 38354"_s},
                       {u"PRICEGLA"_s, u"1"_s},
                       {u"AGE"_s, u"7"_s},
                       {u"PHOTOS"_s, u"FRONT VIEW|A1\r\n"_s}});
    Comp(u"2 B ST"_s, {{u"SALEDATE"_s, u"soon"_s}, {u"FRONT"_s, u"1"_s}, {u"AGE"_s, u"7"_s}});
    Open();
    Yes();
    Click(screen->cmdRecalc);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Rebuild Complete"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"PRICEGLA"_s), u"125."_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"AGE"_s), u"19"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALEDATE"_s), u"03/07/2004"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALESERIAL"_s), u"38053"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALEFLD"_s), QString());
    EXPECT_EQ(Field(u"1 A ST"_s, u"LOADDATE"_s), u"01/02/2005"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"LOADSERIAL"_s), u"38354"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"FRONT"_s), u"1"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"SALEFLD"_s), u"PENDING"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"SALESERIAL"_s), u"2"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"LOADDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"LOADSERIAL"_s), u"2"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"PRICEGLA"_s), u"0"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"AGE"_s), u"0"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"FRONT"_s), QString());
    EXPECT_TRUE(Lines().contains(u"1 A ST: AGE \"7\" → \"19\""_s)) << Lines().join(u'\n').toStdString();
    EXPECT_TRUE(Lines().contains(u"2 B ST: SALEDATE \"soon\" → \"01/01/1900\""_s));
    EXPECT_FALSE(Lines().join(u'\n').contains(u"1 A ST: LOADDATE"_s)) << "what stays is no change";
    EXPECT_TRUE(screen->lblAccount.Caption().contains(u"2 of 2 records changed: AGE 2, FRONT 2 (1 emptied), "_s))
        << screen->lblAccount.Caption().toStdString();
    Yes();
    Click(screen->cmdRecalc);
    EXPECT_TRUE(Lines().isEmpty()) << "done once, there is nothing left to do";
    EXPECT_EQ(screen->lblmsg.Caption(), u"Rebuild Complete"_s);
}

TEST_F(Maintenance, ASaleOfTheFutureIsPendingAtOnce)
{
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"3/7/2150"_s}, {u"LOADDATE"_s, u"3/7/1750"_s}, {u"YEARBUILT"_s, u"1985"_s}});
    Comp(u"2 B ST"_s, {{u"SALEDATE"_s, u"01/01/1900"_s}, {u"SALEFLD"_s, u"250,000"_s}});
    Open();
    Yes();
    Click(screen->cmdRecalc);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALESERIAL"_s), u"2"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALEFLD"_s), u"PENDING"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"LOADDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"AGE"_s), u"0"_s) << "not of a sale in 2150";
    EXPECT_EQ(Field(u"2 B ST"_s, u"SALEFLD"_s), u"250,000"_s) << "a date that stands there stays as it is";
    Yes();
    Click(screen->cmdRecalc);
    EXPECT_TRUE(Lines().isEmpty()) << Lines().join(u'\n').toStdString();
}

TEST_F(Maintenance, ClearsAnchorsAndPlaces)
{
    Comp(u"1 A ST"_s, {{u"LATITUDE"_s, u"45"_s}, {u"LONGITUDE"_s, u"-93"_s}, {u"ANCHORED"_s, u"1"_s}});
    Comp(u"2 B ST"_s);
    Open();
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Removal of anchors complete"_s);
    for (const QString& comp : {u"1 A ST"_s, u"2 B ST"_s}) {
        EXPECT_EQ(Field(comp, u"LATITUDE"_s), QString());
        EXPECT_EQ(Field(comp, u"LONGITUDE"_s), QString());
        EXPECT_EQ(Field(comp, u"ANCHORED"_s), u"0"_s);
    }
}

TEST_F(Maintenance, ClearsPhotosOfTheRecordsAndLeavesTheFiles)
{
    disk.WriteWhole(u"C:\\JPG\\A1.jpg"_s, "picture");
    Comp(u"1 A ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|A1\r\n"_s}, {u"FRONT"_s, u"1"_s}});
    Open();
    Yes();
    Click(screen->cmdClear);
    EXPECT_EQ(Field(u"1 A ST"_s, u"PHOTOS"_s), QString());
    EXPECT_EQ(Field(u"1 A ST"_s, u"FRONT"_s), QString());
    EXPECT_TRUE(HasFile(u"C:\\JPG\\A1.jpg"_s));
    EXPECT_TRUE(Lines().contains(u"1 A ST: PHOTOS \"FRONT VIEW|A1; \" → \"\""_s))
        << Lines().join(u'\n').toStdString();
}

TEST_F(Maintenance, CorrectsTheSizeOfLandAlone)
{
    Comp(u"1 A ST"_s, {{u"APPRSLTYPE"_s, u"L"_s}, {u"GLA"_s, u"9000"_s}});
    Comp(u"2 B ST"_s, {{u"APPRSLTYPE"_s, u"L"_s}, {u"GLA"_s, u"9000"_s}, {u"LANDSIZE"_s, u"0"_s}});
    Comp(u"3 C ST"_s, {{u"APPRSLTYPE"_s, u"L"_s}, {u"GLA"_s, u"9000"_s}, {u"LANDSIZE"_s, u"2 acres"_s}});
    Comp(u"4 D ST"_s, {{u"APPRSLTYPE"_s, u"F"_s}, {u"GLA"_s, u"9000"_s}});
    Open();
    Yes();
    Click(screen->cmdLandSize);
    EXPECT_EQ(screen->lblmsg.Caption(), u"LandSize adjustment complete"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"LANDSIZE"_s), u"9000"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"LANDSIZE"_s), u"9000"_s);
    EXPECT_EQ(Field(u"3 C ST"_s, u"LANDSIZE"_s), u"2 acres"_s);
    EXPECT_EQ(Field(u"4 D ST"_s, u"LANDSIZE"_s), QString());
}

TEST_F(Maintenance, GivesKeysThatCleanToTheSameTextNumbers)
{
    AddComps({u"12 OAK ST"_s, u"12 O'AK ST"_s, u"12 OAK #ST"_s, u"123456789 LONG STREET NAME AVENU#"_s,
              u"123456789 LONG STREET NAME AVENUE"_s});
    Open();
    Yes();
    Click(screen->cmdRemoveIllegal);
    EXPECT_EQ(Keys(), (QStringList{u"12 OAK ST"_s, u"12 OAK ST(2)"_s, u"12 OAK ST(3)"_s,
                                   u"123456789 LONG STREET NAME AVENU"_s, u"123456789 LONG STREET NAME AVENUE"_s}));
    EXPECT_EQ(Field(u"12 OAK ST(2)"_s, u"ADDRESS"_s), u"12 OAK ST"_s) << "an address may be there twice";
    EXPECT_EQ(doubles.prompter.Last().text, u"Number of illegal characters found:6"_s);
    EXPECT_EQ(screen->lblmsg.Caption(),
              u"6 illegal characters were found... Removal of illegal characters is complete"_s);
    EXPECT_TRUE(Lines().contains(
        u"12 O'AK ST: the key \"12 OAK ST\" was there already, so it became \"12 OAK ST(2)\""_s))
        << Lines().join(u'\n').toStdString();
    Yes();
    Click(screen->cmdRemoveIllegal);
    EXPECT_EQ(screen->lblmsg.Caption(), u"NO illegal characters were found... Process complete"_s);
}

TEST_F(Maintenance, CleansTheCommentFileInUse)
{
    store::MakeDatabase(engine, u"C:\\VAS2000\\comments.mdb"_s);
    {
        const auto database = engine.OpenDatabase(u"C:\\VAS2000\\comments.mdb"_s);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->MoveFirst();
        rows->Edit();
        rows->SetValue(u"STORAGE"_s, u"the owner's shed"_s);
        rows->SetValue(u"LOCATION"_s, u"busy, near #9"_s);
        rows->Update();
    }
    Open();
    Yes();
    Click(screen->cmdRemoveIllegal2);
    EXPECT_EQ(screen->lblmsg.Caption(),
              u"2 illegal characters were found... Removal of illegal characters is complete"_s);
    const auto database = engine.OpenDatabase(u"C:\\VAS2000\\comments.mdb"_s);
    const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
    rows->MoveFirst();
    EXPECT_EQ(rows->Value(u"STORAGE"_s).toString().trimmed(), u"the owners shed"_s);
    EXPECT_EQ(rows->Value(u"LOCATION"_s).toString().trimmed(), u"busy, near 9"_s);
    Yes();
    Click(screen->cmdRemoveIllegal2);
    EXPECT_EQ(screen->lblmsg.Caption(), u"NO illegal characters were found... Process complete"_s);
}

TEST_F(Maintenance, SaysThatThereIsNoCommentFile)
{
    Open();
    Yes();
    Click(screen->cmdRemoveIllegal2);
    EXPECT_TRUE(screen->lblmsg.Caption().startsWith(u"Nothing was changed, every record is as it was: "_s));
    EXPECT_TRUE(screen->lblmsg.Caption().contains(u"C:\\VAS2000\\comments.mdb"_s))
        << screen->lblmsg.Caption().toStdString();
    EXPECT_EQ(screen->lblmsg.Fore(), forms::Colour::Red);
}

TEST_F(Maintenance, MatchesAddressesToKeysInTheCaseOfTheSettings)
{
    for (const auto& [addressCase, address] : {std::pair{0, u"12 OAK ST"_s}, {1, u"12 Oak St"_s}, {2, u"12 OAK ST"_s}}) {
        globals.addressCase = addressCase;
        const QString comp = u"12 OAK ST"_s;
        engine.Disk().Kill(path);
        store::MakeDatabase(engine, path);
        Comp(comp, {{u"ADDRESS"_s, u"12 oka st"_s}, {u"CITY"_s, u"ALDER"_s}, {u"ST"_s, u"o.r."_s}});
        Open();
        Yes();
        Click(screen->cmdCorrectAddress(0));
        EXPECT_EQ(screen->lblmsg.Caption(), u"Resetting process Complete"_s);
        EXPECT_EQ(Field(comp, u"ADDRESS"_s), address) << addressCase;
        EXPECT_EQ(Field(comp, u"CITY"_s), u"ALDER"_s);
        EXPECT_EQ(Field(comp, u"ST"_s), u"OR"_s);
        source.Close();
    }
}

TEST_F(Maintenance, PutsAddressesIntoACase)
{
    Comp(u"12 OAK ST"_s, {{u"ADDRESS"_s, u"12 oak ST"_s},
                          {u"ADDRESS2"_s, u"old town"_s},
                          {u"CITY"_s, u"port ELLIS"_s},
                          {u"ST"_s, u"wa"_s},
                          {u"COUNTY"_s, u"skagit"_s}});
    Open();
    const QStringList touched{u"ADDRESS"_s, u"ADDRESS2"_s, u"CITY"_s, u"ST"_s, u"COUNTY"_s};
    const auto held = [&] {
        QStringList texts;
        for (const QString& field : touched)
            texts.append(Field(u"12 OAK ST"_s, field));
        return texts;
    };
    Yes();
    Click(screen->cmdCorrectAddress(1));
    EXPECT_EQ(held(), (QStringList{u"12 Oak St"_s, u"Old Town"_s, u"Port Ellis"_s, u"WA"_s, u"Skagit"_s}));
    Yes();
    Click(screen->cmdCorrectAddress(2));
    EXPECT_EQ(held(), (QStringList{u"12 OAK ST"_s, u"OLD TOWN"_s, u"PORT ELLIS"_s, u"WA"_s, u"SKAGIT"_s}));
}

TEST_F(Maintenance, TellsThatNevadaLosesItsState)
{
    Comp(u"12 OAK ST"_s, {{u"ADDRESS"_s, u"12 OAK ST"_s}, {u"ST"_s, u"NV"_s}});
    Open();
    Yes();
    Click(screen->cmdCorrectAddress(2));
    EXPECT_EQ(Field(u"12 OAK ST"_s, u"ST"_s), QString());
    EXPECT_TRUE(screen->lblAccount.Caption().endsWith(u"ST 1 (1 emptied)."_s))
        << screen->lblAccount.Caption().toStdString();
    EXPECT_TRUE(
        Lines().contains(u"12 OAK ST: \"NV\" is no state of the program's list and was taken out of ST"_s));
}

TEST_F(Maintenance, DeletesARecordWithoutAKeyWhenAddressesAreCorrected)
{
    disk.WriteWhole(u"C:\\JPG\\A1.jpg"_s, "picture");
    AddRow({{key, u" "_s}, {u"CITY"_s, u"Alder"_s}, {u"PHOTOS"_s, u"FRONT VIEW|A1\r\n"_s}});
    Comp(u"12 OAK ST"_s);
    Open();
    Yes();
    Click(screen->cmdCorrectAddress(0));
    EXPECT_EQ(Keys(), QStringList{u"12 OAK ST"_s});
    EXPECT_TRUE(Lines().contains(u" deleted: CITY was \"Alder\""_s)) << Lines().join(u'\n').toStdString();
    EXPECT_TRUE(screen->lblAccount.Caption().contains(u"1 deleted"_s));
    EXPECT_TRUE(HasFile(u"C:\\JPG\\A1.jpg"_s)) << "only the row was asked about";
}

} // namespace
} // namespace vasclip::upkeep
