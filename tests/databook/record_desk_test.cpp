#include "databook/record_desk.h"

#include "support/databook_home.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class RecordDesk : public tests::DatabookHome
{
protected:
    forms::ControlSet set;
    common::StatusDesk status{set};
    databook::RecordDesk desk{set};
};

TEST_F(RecordDesk, HasItsControlsUnderTheirNames)
{
    for (const QString& name :
         u"lblAddingaComp txtcentralkey cboapprslType cmdAdd cmdCopy cmdDelete cmdRename cmdEdit cmdSearch "
         u"cmdAddManual grddatabook cmdPrint cmdRefresh cmdDetails lblDatabookADDR"_s.split(u' '))
        EXPECT_NE(set.Find(name), nullptr) << name.toStdString();
    EXPECT_EQ(desk.cmdPrint.Caption(), u"Print Comps"_s);
    EXPECT_EQ(desk.cmdRefresh.Caption(), u"Refresh Grid"_s);
    EXPECT_EQ(desk.cmdDetails.Caption(), u"Current Details"_s);
}

TEST_F(RecordDesk, ListsTheSixTypesOnce)
{
    desk.LoadCompType();
    desk.LoadCompType();
    EXPECT_EQ(desk.cboapprslType.Items(),
              (QStringList{u"F=Single Family"_s, u"C=Condo"_s, u"S=1-4 Unit Sale"_s, u"R=1-4 Unit Rental"_s,
                           u"L=Land"_s, u"M=Manufactured Housing"_s}));
}

TEST_F(RecordDesk, ATypeSelectsItsText)
{
    struct Row
    {
        QString code, text;
    };
    for (const Row& row :
         {Row{u"L"_s, u"L=Land"_s}, Row{u"S"_s, u"S=1-4 Unit Sale"_s}, Row{u"C"_s, u"C=Condo"_s},
          Row{u"R"_s, u"R=1-4 Unit Rental"_s}, Row{u"F"_s, u"F=Single Family"_s},
          Row{u" "_s, u"F=Single Family"_s}, Row{u"M"_s, u"M=Mobile Home"_s}, Row{u"c"_s, u"C=Condo"_s},
          Row{u"Z"_s, u"before"_s}, Row{QString(), u"before"_s}}) {
        desk.cboapprslType.SetText(u"before"_s);
        desk.SetAppraisalType(row.code);
        EXPECT_EQ(desk.cboapprslType.Text(), row.text) << row.code.toStdString();
    }
}

TEST_F(RecordDesk, TheAddressGuard)
{
    desk.txtcentralkey.SetText(u"   "_s);
    EXPECT_FALSE(desk.VerifyAddress(status));
    EXPECT_EQ(status.lblmsg.Caption(), u"Please Enter An Address"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Blue);
    desk.txtcentralkey.SetText(u"12 Main St"_s);
    status.lblmsg.Show(u"quiet"_s, forms::Colour::Normal);
    EXPECT_TRUE(desk.VerifyAddress(status));
    EXPECT_EQ(status.lblmsg.Caption(), u"quiet"_s);
}

TEST_F(RecordDesk, TheTypeGuardTakesSevenLetters)
{
    int focus = 0;
    QObject::connect(&desk.cboapprslType, &forms::Control::FocusWanted, [&] { ++focus; });
    for (const QString& text :
         {u"F=Single Family"_s, u"s"_s, u"R"_s, u"L=Land"_s, u"C"_s, u"M=Mobile Home"_s, u" "_s}) {
        desk.cboapprslType.SetText(text);
        EXPECT_TRUE(desk.SetAppraisalType(status)) << text.toStdString();
    }
    EXPECT_EQ(focus, 0);
    for (const QString& text : {QString(), u"Z"_s, u"1-4 Unit Sale"_s}) {
        desk.cboapprslType.SetText(text);
        status.lblmsg.Show(QString(), forms::Colour::Normal);
        EXPECT_FALSE(desk.SetAppraisalType(status)) << text.toStdString();
        EXPECT_EQ(status.lblmsg.Caption(), u"Please Select The Appraisal Type"_s);
        EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Blue);
    }
    EXPECT_EQ(focus, 3);
}

TEST_F(RecordDesk, BothGuardsTheAddressFirst)
{
    EXPECT_FALSE(desk.VerifyFields(status));
    EXPECT_EQ(status.lblmsg.Caption(), u"Please Enter An Address"_s);
    desk.txtcentralkey.SetText(u"12 Main St"_s);
    EXPECT_FALSE(desk.VerifyFields(status));
    EXPECT_EQ(status.lblmsg.Caption(), u"Please Select The Appraisal Type"_s);
    desk.cboapprslType.SetText(u"F=Single Family"_s);
    EXPECT_TRUE(desk.VerifyFields(status));
}

TEST_F(RecordDesk, ButtonsFollowTheState)
{
    struct Row
    {
        QString state;
        bool add, others;
    };
    for (const Row& row :
         {Row{u"Found"_s, false, true}, Row{u"anything"_s, false, true}, Row{u" not found "_s, true, false},
          Row{QString(), true, false}, Row{u"FOUND "_s, false, true}}) {
        desk.ButtonStatus(row.state);
        EXPECT_EQ(desk.cmdAdd.Enabled(), row.add) << row.state.toStdString();
        for (const forms::Button* button : {&desk.cmdDelete, &desk.cmdRename, &desk.cmdCopy, &desk.cmdEdit})
            EXPECT_EQ(button->Enabled(), row.others) << row.state.toStdString();
    }
}

class CheckStatus : public RecordDesk
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    void SetUp() override
    {
        RecordDesk::SetUp();
        AddRow({{key, u"12 MAIN ST"_s.leftJustified(35)}, {u"APPRSLTYPE"_s, u"L"_s}});
        AddComps({u"7 OAK AVE"_s}); // without a type
        Bind(source);
    }
};

TEST_F(CheckStatus, ABlankKeyIsSaid)
{
    desk.txtcentralkey.SetText(u"  "_s);
    desk.CheckStatus(ports, source, status);
    EXPECT_EQ(status.lblmsg.Caption(), u"CentralKey is null or missing"_s);
}

TEST_F(CheckStatus, AFoundCompShowsItsType)
{
    desk.txtcentralkey.SetText(u" 12 main st"_s);
    desk.CheckStatus(ports, source, status);
    EXPECT_EQ(status.lblmsg.Caption(), u"12 MAIN ST was found in the comp file."_s);
    EXPECT_FALSE(desk.cmdAdd.Enabled());
    EXPECT_TRUE(desk.cmdDelete.Enabled());
    EXPECT_EQ(desk.cboapprslType.Text(), u"L=Land"_s);
    EXPECT_EQ(store::GetFieldData(source, key), u"12 MAIN ST"_s);
}

TEST_F(CheckStatus, AFoundCompWithoutATypeIsSingleFamily)
{
    desk.txtcentralkey.SetText(u"7 Oak Ave"_s);
    desk.CheckStatus(ports, source, status);
    EXPECT_EQ(desk.cboapprslType.Text(), u"F=Single Family"_s);
}

TEST_F(CheckStatus, EveryKindOfTextIsLookedUp)
{
    for (const QString& text : {QString(5000, u'W'), u"Caf\u00e9 \u00d1u\u00f1ez"_s,
                                u"\u05e8\u05d7\u05d5\u05d1 12"_s, u"12 MAIN ST\t"_s, u"O'B \"x\" *; --"_s}) {
        desk.txtcentralkey.SetText(text);
        desk.CheckStatus(ports, source, status);
        EXPECT_EQ(status.lblmsg.Caption(), text.toUpper() + u" was NOT found in the comp file."_s);
        EXPECT_TRUE(desk.cmdAdd.Enabled());
        EXPECT_FALSE(desk.cmdDelete.Enabled());
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CheckStatus, ANewAddressMayBeAdded)
{
    desk.cboapprslType.SetText(u"L=Land"_s);
    desk.txtcentralkey.SetText(u"99 Nowhere"_s);
    desk.CheckStatus(ports, source, status);
    EXPECT_EQ(status.lblmsg.Caption(), u"99 NOWHERE was NOT found in the comp file."_s);
    EXPECT_TRUE(desk.cmdAdd.Enabled());
    EXPECT_FALSE(desk.cmdEdit.Enabled());
    EXPECT_EQ(desk.cboapprslType.Text(), u"F=Single Family"_s);
}

} // namespace
