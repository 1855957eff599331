#include "databook/frm_rename.h"

#include "support/databook_home.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using databook::RenameMode;

namespace {

class FrmRename : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    void SetUp() override
    {
        DatabookHome::SetUp();
        AddRow({{key, u"12 MAIN ST"_s.leftJustified(35)},
                {u"ADDRESS"_s, u"12 Main St"_s},
                {u"GLA"_s, u"1500"_s}});
        AddComps({u"7 OAK AVE"_s});
        Bind(source);
    }
    bool IsThere(const QString& address) { return store::FindRecord(ports, source, address, key); }
};

TEST_F(FrmRename, ShowsTheKeyAndOffersTheAddressToChange)
{
    databook::frm_Rename screen(
        ports, source, RenameMode::Rename, u"12 main st"_s,
        {u"22 Ferry St"_s, u" 12 MAIN ST "_s, u"  "_s, u"22 FERRY ST"_s, u" 5 Elm Ct "_s});
    int focus = 0;
    QObject::connect(&screen.cboNewName, &forms::Control::FocusWanted, [&] { ++focus; });
    screen.Open();
    EXPECT_EQ(screen.Caption(), u"Rename Search Address"_s);
    EXPECT_EQ(screen.cmdRename.Caption(), u"&Rename"_s);
    EXPECT_EQ(screen.lblCentral.Caption(), u"12 MAIN ST"_s);
    EXPECT_EQ(screen.cboNewName.Text(), u"12 Main St"_s);
    EXPECT_EQ(screen.cboNewName.Items(), (QStringList{u"22 Ferry St"_s, u"5 Elm Ct"_s}))
        << "neither its own address, nor a blank, nor one twice";
    EXPECT_EQ(focus, 1);
    screen.Unload();
    EXPECT_EQ(screen.NewKey(), QString());
}

TEST_F(FrmRename, RefusesWithItsMessagesAndStaysOpen)
{
    struct Row
    {
        const char* name;
        QString typed, message;
    };
    for (const RenameMode mode : {RenameMode::Copy, RenameMode::Rename}) {
        databook::frm_Rename screen(ports, source, mode, u"12 MAIN ST"_s, {});
        int focus = 0;
        screen.Open();
        QObject::connect(&screen.cboNewName, &forms::Control::FocusWanted, [&] { ++focus; });
        for (const Row& row :
             {Row{"its own", u"12 MAIN ST"_s, u"Address cannot be renamed to itself."_s},
              Row{"its own in another case", u" 12 main st "_s, u"Address cannot be renamed to itself."_s},
              Row{"empty", {}, u"Please enter a valid address."_s},
              Row{"blanks", u"   "_s, u"Please enter a valid address."_s},
              Row{"only signs", u"#-'"_s, u"Please enter a valid address."_s},
              Row{"control characters", u"14 Main St\r\n"_s, u"Please enter a valid address."_s},
              Row{"too long", QString(36, u'x'),
                  u"The address "_s + QString(36, u'x') +
                      u" has 36 characters; the Databook holds at most 35. Shorten it and try again."_s},
              Row{"there already", u"7 Oak Ave"_s, u"The address 7 Oak Ave already exists.  Try again."_s}}) {
            focus = 0;
            screen.cboNewName.SetText(row.typed);
            Q_EMIT screen.cmdRename.Clicked();
            EXPECT_EQ(screen.lblmsg.Caption(), row.message) << row.name;
            EXPECT_EQ(focus, 1) << row.name;
            EXPECT_TRUE(screen.IsOpen()) << row.name;
        }
        EXPECT_EQ(source.Recordset().RecordCount(), 2);
        EXPECT_EQ(screen.NewKey(), QString());
    }
}

TEST_F(FrmRename, TakesAddressesOfAllKinds)
{
    QString from = u"12 MAIN ST"_s;
    for (const QString& address : {u"3 O'Brien's \"Rd\""_s, u"4 \u00c9cole W\u00e4y"_s,
                                   u"\u05e8\u05d7\u05d5\u05d1 12"_s, u"5 %s; DROP TABLE COMPS --"_s}) {
        databook::frm_Rename screen(ports, source, RenameMode::Rename, from, {});
        screen.Open();
        screen.cboNewName.SetText(address);
        Q_EMIT screen.cmdRename.Clicked();
        EXPECT_EQ(screen.lblmsg.Caption(), QString()) << address.toStdString();
        from = screen.NewKey();
        ASSERT_TRUE(IsThere(from)) << address.toStdString();
        EXPECT_EQ(store::GetFieldData(source, u"ADDRESS"_s), address);
        EXPECT_EQ(store::GetFieldData(source, u"GLA"_s), u"1500"_s);
    }
    EXPECT_EQ(source.Recordset().RecordCount(), 2);
}

TEST_F(FrmRename, RenamesAndCloses)
{
    databook::frm_Rename screen(ports, source, RenameMode::Rename, u"12 MAIN ST"_s, {});
    screen.Open();
    screen.cboNewName.SetText(u" 14 Main St "_s);
    Q_EMIT screen.cmdRename.Clicked();
    EXPECT_FALSE(screen.IsOpen());
    EXPECT_EQ(screen.NewKey(), u"14 MAIN ST"_s);
    EXPECT_FALSE(IsThere(u"12 MAIN ST"_s));
    ASSERT_TRUE(IsThere(u"14 MAIN ST"_s));
    EXPECT_EQ(source.Recordset().Value(u"ADDRESS"_s).toString(), u"14 Main St"_s.leftJustified(35));
}

TEST_F(FrmRename, CopiesAndCloses)
{
    databook::frm_Rename screen(ports, source, RenameMode::Copy, u"12 MAIN ST"_s, {});
    EXPECT_EQ(screen.Caption(), u"Copy Record"_s);
    EXPECT_EQ(screen.cmdRename.Caption(), u"&Copy"_s);
    screen.Open();
    screen.cboNewName.SetText(u"14 Main St"_s);
    Q_EMIT screen.cmdRename.Clicked();
    EXPECT_FALSE(screen.IsOpen());
    EXPECT_TRUE(IsThere(u"12 MAIN ST"_s));
    ASSERT_TRUE(IsThere(u"14 MAIN ST"_s));
    EXPECT_EQ(store::GetFieldData(source, u"GLA"_s), u"1500"_s);
}

} // namespace
