#include "upkeep/maintenance_home.h"

namespace vasclip::upkeep {
namespace {

class EraseByDate : public MaintenanceHome
{
protected:
    void SetUp() override
    {
        MaintenanceHome::SetUp();
        Dated(u"1 OLD ST"_s, u"03/07/1999"_s);
        Dated(u"2 EDGE ST"_s, u"03/08/1999"_s);
        Dated(u"3 NEW ST"_s, u"03/09/1999"_s);
        Dated(u"4 PENDING ST"_s, u"01/01/1900"_s);
        Dated(u"5 EMPTY ST"_s, {});
        Dated(u"6 WORDS ST"_s, u"soon"_s);
        Open();
    }
    /// With a picture, both dates the same.
    void Dated(const QString& name, const QString& date)
    {
        const QString stem = u"P"_s + name.left(1);
        disk.WriteWhole(u"C:\\JPG\\"_s + stem + u".jpg"_s, "picture");
        Comp(name, {{u"SALEDATE"_s, date}, {u"LOADDATE"_s, date}, {u"PHOTOS"_s, u"FRONT VIEW|"_s + stem + u"\r\n"_s}});
    }
    [[nodiscard]] QString Left() const
    {
        QString kept;
        for (const QString& name : Keys())
            kept += name.left(1);
        return kept;
    }
    [[nodiscard]] QString Pictures() const
    {
        QString kept;
        for (int i = 1; i <= 6; ++i)
            if (HasFile(u"C:\\JPG\\P%1.jpg"_s.arg(i)))
                kept += QString::number(i);
        return kept;
    }
};

TEST_F(EraseByDate, DeletesUpToTheDateWithPictures)
{
    Yes();
    Erase(screen->cmdDeleteByDate, u"3/8/1999"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"You should have a good backup of your data BEFORE using this option.  All comps saved on or before 3/8/1999 will be deleted.  Are you sure?"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Process Complete.  Delete by Sale Date of 3/8/1999."_s);
    EXPECT_EQ(Left(), u"3456"_s);
    EXPECT_EQ(Pictures(), u"3456"_s);
    EXPECT_TRUE(Lines().contains(u"1 OLD ST deleted: SALEDATE was \"03/07/1999\""_s))
        << Lines().join(u'\n').toStdString();
}

TEST_F(EraseByDate, NamesTheDayThatATextMeans)
{
    const QDate today = doubles.clock.Today();
    const auto named = [&](const QString& typed) {
        const auto deletion = Deletion::Of(typed, today);
        return deletion ? deletion->date : u"<none>"_s;
    };
    EXPECT_EQ(named(u"March 5 2001"_s), u"03/05/2001"_s);
    EXPECT_EQ(named(u" 03/08/1999 11:30 PM"_s), u"03/08/1999"_s);
    EXPECT_EQ(named(u"3/8/99"_s), u"03/08/1999"_s);
    EXPECT_EQ(named(u"3/8/1999 "_s), u"3/8/1999"_s);
    EXPECT_EQ(named(u"soon"_s), u"<none>"_s);
    EXPECT_EQ(named({}), u"<none>"_s);
    EXPECT_TRUE(Deletion::Of(u"January 1, 1900"_s, today)->pending);
    EXPECT_FALSE(TestRec(u"03/09/2001"_s, *Deletion::Of(u"March 8 2001"_s, today), today));
    EXPECT_TRUE(TestRec(u"03/08/2001"_s, *Deletion::Of(u"March 8 2001"_s, today), today));
    Yes();
    Erase(screen->cmdDeleteByDate, u"Mar 8 1999"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u" on or before 03/08/1999 will be deleted."_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(screen->lblmsg.Caption(), u"Process Complete.  Delete by Sale Date of 03/08/1999."_s);
    EXPECT_EQ(Left(), u"3456"_s);
}

TEST_F(EraseByDate, LeavesPicturesThatAnotherRecordNames)
{
    Comp(u"7 ROW ST"_s, {{u"SALEDATE"_s, u"03/09/1999"_s}, {u"PHOTOS"_s, u"STREET VIEW|p1\r\n"_s}});
    Yes();
    Erase(screen->cmdDeleteByDate, u"3/8/1999"_s);
    EXPECT_EQ(Left(), u"34567"_s);
    EXPECT_EQ(Pictures(), u"13456"_s) << "of 1 OLD ST, which 7 ROW ST shows too";
    Yes();
    Erase(screen->cmdDeleteByDate, u"3/9/1999"_s);
    EXPECT_EQ(Pictures(), u"456"_s);
}

TEST_F(EraseByDate, EveryRecordMayGo)
{
    source.Close();
    engine.Disk().Kill(path);
    store::MakeDatabase(engine, path);
    Dated(u"1 OLD ST"_s, u"03/07/1999"_s);
    Dated(u"2 EDGE ST"_s, u"03/08/1999"_s);
    Open();
    Yes();
    Erase(screen->cmdDeleteByDate, u"3/8/1999"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Process Complete.  Delete by Sale Date of 3/8/1999."_s);
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_EQ(Pictures(), u"3456"_s);
}

TEST_F(EraseByDate, GoesByTheLoadDateToo)
{
    Yes();
    Erase(screen->cmddelloaddate, u"03/07/1999"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"You should have a good backup of your data BEFORE using this option.  All records saved on or before (LOAD DATE) 03/07/1999 will be deleted.  Are you sure?"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Process Complete.  Delete by Load Date of 03/07/1999."_s);
    EXPECT_EQ(Left(), u"23456"_s);
}

TEST_F(EraseByDate, KnowsThePendingDateInBothForms)
{
    for (const QString& date : {u"1/1/1900"_s, u"01/01/1900"_s}) {
        doubles.prompter.Answer(forms::Answer::No);
        Erase(screen->cmdDeleteByDate, date);
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"The date of '1/1/1900' will erase all pending sales.  Are you sure?"_s);
        doubles.prompter.Answer(forms::Answer::No);
        Erase(screen->cmddelloaddate, date);
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"The date of '1/1/1900' will erase all records with LOAD DATE.  Are you sure?"_s);
    }
    EXPECT_EQ(Left(), u"123456"_s);
    EXPECT_EQ(Pictures(), u"123456"_s);
    QString gauge;
    doubles.pump.onTurn = [&] {
        if (gauge.isEmpty())
            gauge = screen->gauWork.Caption();
    };
    Yes();
    Erase(screen->cmdDeleteByDate, u"  1/1/1900  "_s);
    EXPECT_EQ(gauge, u"Deleting all PENDING SALES (Date='01/01/1900') from the Databook."_s);
    EXPECT_EQ(Left(), u"1236"_s);
    EXPECT_EQ(Pictures(), u"1236"_s);
}

TEST_F(EraseByDate, WantsADateAndCanBeGivenUp)
{
    Erase(screen->cmdDeleteByDate, {});
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "given up before any question";
    EXPECT_EQ(screen->lblmsg.Caption(), QString()) << "nothing is asked for any more";
    QString said;
    QString title;
    doubles.screens.Play([&](forms::Screen& asks) {
        auto& dialog = dynamic_cast<frm_DelDate&>(asks);
        title = dialog.Caption();
        dialog.txtDate.SetText(u"soon"_s);
        Q_EMIT dialog.cmdOK.Clicked();
        said = dialog.lblmsg.Caption();
        EXPECT_TRUE(dialog.IsOpen());
        dialog.txtDate.SetText(u"March 8, 1999"_s);
        Q_EMIT dialog.cmdOK.Clicked();
        EXPECT_EQ(dialog.lblmsg.Caption(), u"March 8, 1999 has more than ten letters. Enter the date as mm/dd/yyyy."_s);
        EXPECT_TRUE(dialog.IsOpen());
        dialog.txtDate.SetText(u"   03/08/1999  "_s);
        EXPECT_EQ(dialog.txtDate.Text(), u"   03/08/1999  "_s) << "what is pasted is not cut";
        dialog.Unload();
    });
    Click(screen->cmddelloaddate);
    EXPECT_EQ(title, u"Delete By LOAD date"_s);
    EXPECT_EQ(said, u"Please enter a date"_s);
    EXPECT_EQ(Left(), u"123456"_s);
}

TEST_F(EraseByDate, NoPictureGoesBeforeTheRecordsAreGoneForGood)
{
    int turns = 0;
    doubles.pump.onTurn = [&] {
        ++turns;
        EXPECT_EQ(Pictures(), u"123456"_s) << "at turn " << turns;
        Q_EMIT screen->cmdStop.Clicked();
    };
    Yes();
    Erase(screen->cmdDeleteByDate, u"3/8/1999"_s);
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(Left(), u"123456"_s);
    EXPECT_EQ(Pictures(), u"123456"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Stopped. Every record is as it was."_s);
    EXPECT_TRUE(Lines().isEmpty());
}

TEST_F(EraseByDate, NamesPicturesThatCouldNotBeDeleted)
{
    disk.Kill(u"C:\\JPG\\P1.jpg"_s);
    disk.MkDir(u"C:\\JPG\\KEPT"_s);
    Yes();
    Erase(screen->cmdDeleteByDate, u"3/8/1999"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Process Complete.  Delete by Sale Date of 3/8/1999."_s)
        << "one that was not there is no failure";
}

} // namespace
} // namespace vasclip::upkeep
