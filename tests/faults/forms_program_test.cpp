// A forms program that is not there, dies, answers garbage, late or never, and a home that lacks what the
// link needs.

#include "faults/fault_home.h"

#include <sqlite3.h>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Beyond a time limit of its own, a run may take as long as programs take to start on a busy machine.
constexpr double kStartSeconds = 15;

class FormsFaults : public FaultHome
{
protected:
    void SetUp() override
    {
        FaultHome::SetUp();
        m_key = FirstKey();
    }
    [[nodiscard]] Timed Drop(const QString& slot, int timeLimitSeconds = 5) const
    {
        return Vasctl({u"--time-limit"_s, QString::number(timeLimitSeconds), u"--yes"_s, u"drop"_s, m_key,
                       u"--on"_s, slot});
    }
    QString m_key;
};

TEST_F(FormsFaults, NobodyListens)
{
    const QString words = u"No report is open. Start the forms program, open a report and try again."_s;
    const Timed never = Drop(u"txtComp:3"_s);
    EXPECT_EQ(never.code, kNoLink) << never.Story();
    EXPECT_TRUE(never.Says(words)) << never.Story();

    ASSERT_TRUE(StartForms({}));
    home.forms.kill(); // its socket stays behind
    home.forms.waitForFinished();
    for (const QStringList& command :
         {QStringList{u"drop"_s, m_key, u"--on"_s, u"txtComp:3"_s}, QStringList{u"refresh"_s},
          QStringList{u"report"_s, u"status"_s}, QStringList{u"report"_s, u"pages"_s}}) {
        const Timed run = Vasctl(command);
        EXPECT_EQ(run.code, kNoLink) << run.Story();
        EXPECT_TRUE(run.Says(words)) << run.Story();
    }
    ExpectWhole(u"a drop without a forms program"_s);
    ASSERT_TRUE(StartForms({})) << "the socket that a killed one left is replaced";
    EXPECT_EQ(Drop(u"txtComp:3"_s).code, kDone);
}

TEST_F(FormsFaults, NoReportIsOpen)
{
    ASSERT_TRUE(StartForms({}, {}));
    const Timed run = Drop(u"txtComp:3"_s);
    EXPECT_EQ(run.code, kNoLink) << run.Story();
    EXPECT_TRUE(run.Says(u"No report is open."_s)) << run.Story();
}

TEST_F(FormsFaults, DyingAtAnyAnswerIsToldAndLeavesEverythingWhole)
{
    for (const int answers : {0, 1, 4, 40, 95, 110}) {
        ASSERT_TRUE(StartForms({u"--die-after"_s, QString::number(answers)}));
        const Timed run = Drop(u"txtComp:3"_s);
        EXPECT_EQ(run.code, kFailed) << answers << ": " << run.Story();
        EXPECT_TRUE(run.Says(u"The forms program closed the link in the middle of an answer"_s))
            << answers << ": " << run.Story();
        EXPECT_LT(run.seconds, 5 + kStartSeconds) << answers;
        EXPECT_TRUE(home.forms.waitForFinished(kPatienceMs));
        ExpectWhole(u"%1 answers"_s.arg(answers));
    }
}

TEST_F(FormsFaults, DyingInTheMiddleOfASendTellsHowFarItGot)
{
    ASSERT_TRUE(StartForms({u"--die-after"_s, u"100"_s}));
    const Timed run = Drop(u"txtComp:3"_s);
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(
        run.Says(u"fields were sent and stay in the report; whether this one was is not known, those after it were not. Send "
                 u"the comp again to send them all."_s))
        << run.Story();
    EXPECT_TRUE(run.Says(u"Only a part of %1 reached the report"_s.arg(m_key))) << run.Story();
    home.forms.waitForFinished();

    ASSERT_TRUE(StartForms({})) << "and again, with a forms program that lives";
    EXPECT_EQ(Drop(u"txtComp:3"_s).code, kDone);
    EXPECT_EQ(home.Cell(3, u"ADDRESS"_s).toUpper(), m_key);
}

TEST_F(FormsFaults, GarbageAtAnyAnswerIsShownAndNotTakenForAnAnswer)
{
    for (const int answers : {0, 1, 4, 40, 100}) {
        ASSERT_TRUE(StartForms({u"--garbage-after"_s, QString::number(answers)}));
        const Timed run = Drop(u"txtComp:3"_s);
        EXPECT_EQ(run.code, kFailed) << answers << ": " << run.Story();
        EXPECT_TRUE(run.Says(u"Garbage on the link"_s)) << answers << ": " << run.Story();
        EXPECT_LT(run.seconds, 5 + kStartSeconds) << answers;
        ProgramHome::Stop(home.forms);
        ExpectWhole(u"garbage after %1 answers"_s.arg(answers));
    }
}

TEST_F(FormsFaults, OneThatNeverAnswersIsLeftAtTheTimeLimit)
{
    ASSERT_TRUE(StartForms({u"--never-answer"_s}));
    for (const QStringList& command :
         {QStringList{u"drop"_s, m_key, u"--on"_s, u"txtComp:3"_s}, QStringList{u"refresh"_s},
          QStringList{u"report"_s, u"cells"_s}, QStringList{u"doctor"_s}}) {
        const Timed run = Vasctl(QStringList{u"--time-limit"_s, u"1"_s} + command);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE((run.out + run.err).contains("The forms program did not answer in time")) << run.Story();
        EXPECT_GE(run.seconds, 1) << run.Story();
        EXPECT_LT(run.seconds, 1 + kStartSeconds) << run.Story();
    }
    ExpectWhole(u"silence"_s);
}

TEST_F(FormsFaults, LateAnswersCountUpToTheTimeLimit)
{
    ASSERT_TRUE(StartForms({u"--delay"_s, u"10"_s}));
    EXPECT_EQ(Drop(u"txtComp:3"_s).code, kDone);
    EXPECT_EQ(home.Cell(3, u"ADDRESS"_s).toUpper(), m_key);
    ProgramHome::Stop(home.forms);

    ASSERT_TRUE(StartForms({u"--delay"_s, u"4000"_s}));
    const Timed run = Drop(u"txtComp:3"_s, 1);
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"The forms program did not answer in time"_s)) << run.Story();
    EXPECT_LT(run.seconds, 1 + kStartSeconds) << run.Story();
    ExpectWhole(u"late answers"_s);
}

TEST_F(FormsFaults, AMappingWithoutRowsForTheFormSendsNothing)
{
    sqlite3* mapping = nullptr;
    ASSERT_EQ(sqlite3_open(Mapping().toUtf8().constData(), &mapping), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(mapping, "DELETE FROM Comp2Kel", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(mapping);
    Remember();
    const QString exchanges = home.Path() + u"/exchanges"_s;
    ASSERT_TRUE(StartForms({u"--log"_s, exchanges}));
    const Timed run = Drop(u"txtComp:3"_s);
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"No Matches to Form Type Found: Reference Entries Not Found (Comp2Kel file "
                         u"incomplete)."_s))
        << run.Story();
    EXPECT_TRUE(run.Says(u"Comp2Kel has no rows for form 'UA5', group 'SALE', comp '1'; nothing was sent"_s))
        << run.Story();
    EXPECT_TRUE(Bytes(exchanges).contains("ActiveReports"));
    EXPECT_FALSE(Bytes(exchanges).contains("poke"));
    ExpectWhole(u"a drop without a mapping"_s);
}

TEST_F(FormsFaults, AMappingThatIsNoDatabaseOrNotThereIsNamed)
{
    ASSERT_TRUE(StartForms({}));
    ASSERT_TRUE(Write(Mapping(), "FORMTYPE,FORMNAME\r\n"));
    const Timed text = Drop(u"txtComp:3"_s);
    EXPECT_EQ(text.code, kFailed) << text.Story();
    EXPECT_TRUE(text.Says(u"C:\\VAS2000\\Comp2Kel.mdb is a text file and not a database"_s)) << text.Story();
    ASSERT_TRUE(QFile::remove(Mapping()));
    Remember();
    const Timed missing = Drop(u"txtComp:3"_s);
    EXPECT_EQ(missing.code, kFailed) << missing.Story();
    EXPECT_TRUE(missing.Says(u"The file C:\\VAS2000\\Comp2Kel.mdb was not found.  This file must be present "
                             u"for this program to work properly.  Please correct and try again."_s))
        << missing.Story();
    EXPECT_FALSE(QFile::exists(Mapping()));
    ExpectWhole(u"a drop without Comp2Kel.mdb"_s);
}

TEST_F(FormsFaults, WithoutKelIniTheRecordsStayAndTheReportHasNoPages)
{
    ASSERT_TRUE(StartForms({}));
    ASSERT_TRUE(QFile::remove(KelIni()));
    Remember();
    EXPECT_EQ(Vasctl({u"records"_s, u"show"_s, m_key}).code, kDone);
    const Ended name = home.Vasctl({u"settings"_s, u"get"_s, u"ApplicationName"_s});
    EXPECT_EQ(name.Object()[u"value"_s].toString(), u"Korvat Forms"_s) << "its default";
    for (const QStringList& command :
         {QStringList{u"refresh"_s}, QStringList{u"drop"_s, m_key, u"--on"_s, u"txtComp:3"_s}}) {
        const Timed run = Vasctl(command);
        const bool refresh = command[0] == u"refresh"_s;
        EXPECT_EQ(run.code, refresh ? kFailed : kNotFound) << run.Story();
        EXPECT_TRUE(run.Says(refresh ? u"pages are not known without KEL.INI, which belongs at C:\\APPRAISE\\KEL.INI"_s
                                     : u"C:\\APPRAISE\\KEL.INI is not there"_s))
            << run.Story();
    }
    const Ended doctor = home.Vasctl({u"doctor"_s});
    EXPECT_EQ(doctor.code, kFailed);
    EXPECT_TRUE(doctor.out.contains("KEL.INI is not there; it comes with the forms program"));
    ExpectWhole(u"working without KEL.INI"_s);
}

} // namespace
} // namespace vasclip::tests
