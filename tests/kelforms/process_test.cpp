#include "platform/conduit/socket_conduit.h"
#include "platform/text/runtime_error.h"
#include "sample_home.h"
#include "support/unix.h"

#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using kelforms::test::SampleHome;
using vasclip::RuntimeError;
using vasclip::conduit::Conduit;

namespace {

class Process : public testing::Test
{
protected:
    SampleHome m_home;
    QTemporaryDir m_place;
    QString m_socket = m_place.filePath(u"kel.sock"_s);
    QProcess m_process;

    bool Start(const QStringList& more)
    {
        m_process.start(u"" KELFORMS ""_s,
                        QStringList{u"--headless"_s, u"--home"_s, m_home.Path(), u"--socket"_s, m_socket} +
                            more);
        return m_process.waitForReadyRead(20000) &&
               m_process.readAllStandardOutput().contains("listening at");
    }

    bool Stop()
    {
        m_process.terminate();
        return m_process.waitForFinished(10000);
    }

    [[nodiscard]] std::unique_ptr<Conduit> Open(const QString& topic, int timeLimitMs = 5000) const
    {
        auto link = vasclip::conduit::MakeSocketConduit({m_socket, timeLimitMs, vasclip::conduit::PeerOf});
        link->SetLinkTopic(topic);
        link->SetLinkMode(2);
        return link;
    }

    static int Number(const std::function<void()>& step)
    {
        try {
            step();
        } catch (const RuntimeError& failure) {
            return failure.Number();
        }
        return 0;
    }
};

TEST_F(Process, ServesSavesAndGoes)
{
    const QString log = m_place.filePath(u"log"_s);
    ASSERT_TRUE(Start({u"--save-on-exit"_s, u"--log"_s, log, m_home.MakeReport(u"smith"_s, u"UA5"_s),
                       m_home.MakeReport(u"jones"_s, u"CN2"_s)}));
    const auto query = Open(u"KEL|Query"_s);
    query->SetLinkItem(u"ActiveReports"_s);
    query->LinkRequest();
    EXPECT_EQ(query->Text(), u"SMITH.RPT,JONES.RPT,"_s);
    const auto link = Open(u"KEL|SMITH.RPT"_s);
    link->SetLinkItem(u"UA5|44|3"_s);
    link->SetText(u"1.2 Mi. NW"_s);
    link->LinkPoke();
    EXPECT_EQ(Number([&] { link->LinkExecute(u"[Nonsense]"_s); }), 285);
    EXPECT_EQ(m_home.ReadReport(u"smith"_s).value("cells"_L1).toObject().size(), 0);
    ASSERT_TRUE(Stop());
    EXPECT_EQ(m_process.exitCode(), 0);
    EXPECT_FALSE(QFileInfo::exists(m_socket));
    EXPECT_EQ(m_home.ReadReport(u"smith"_s).value("cells"_L1).toObject().value("UA5|44|3"_L1).toString(),
              u"1.2 Mi. NW"_s);
    QFile file(log);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().trimmed().split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[1], R"({"do":"poke","item":"UA5|44|3","text":"1.2 Mi. NW","topic":"KEL|SMITH.RPT"})");
    EXPECT_TRUE(lines[2].contains("\"refused\":\"Macro not understood at character 2"));
}

TEST_F(Process, AWrongArgumentReachesTheOtherProgramInWords)
{
    ASSERT_TRUE(Start({m_home.MakeReport(u"smith"_s, u"UA5"_s)}));
    const auto link = Open(u"KEL|System"_s);
    for (const auto& [command, words] :
         {std::pair(u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(7))]"_s, u"GETIMAGES$ takes 1"_s),
          {u"[RUNMACRO(SetRequest \"RQ_CompForm\", CompT$(Boats))]"_s, u"COMPT$ takes a kind of comps"_s}}) {
        try {
            link->LinkExecute(command);
            ADD_FAILURE() << "taken: " << command.toStdString();
        } catch (const RuntimeError& refusal) {
            EXPECT_EQ(refusal.Number(), 285);
            EXPECT_TRUE(refusal.Description().contains(words)) << refusal.what();
        }
    }
    link->LinkExecute(u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s);
    ASSERT_TRUE(Stop());
}

TEST_F(Process, TakesTheHabitsOfOtherFormsPrograms)
{
    const auto answer = [this](const QString& topic, const QString& item) {
        const auto link = Open(topic);
        link->SetLinkItem(item);
        link->LinkRequest();
        return link->Text();
    };
    ASSERT_TRUE(Start({u"--bare-lists"_s, u"--no-value"_s, u"null"_s, m_home.MakeReport(u"smith"_s, u"UA5"_s)}));
    EXPECT_EQ(answer(u"KEL|Query"_s, u"ActiveReports"_s), u"SMITH.RPT"_s);
    EXPECT_EQ(answer(u"KEL|System"_s, u"SC_1"_s), u"NULL"_s);
    ASSERT_TRUE(Stop());
    ASSERT_TRUE(Start({u"--blank-for-none"_s, u"--no-value"_s, u"eral"_s}));
    EXPECT_EQ(answer(u"KEL|Query"_s, u"ActiveReports"_s), QString());
    EXPECT_EQ(answer(u"KEL|System"_s, u"SC_1"_s), u"ERAL)"_s);
    ASSERT_TRUE(Stop());
}

TEST_F(Process, WritesNothingUnlessAskedTo)
{
    const QString report = m_home.MakeReport(u"smith"_s, u"UA5"_s);
    const QByteArray before = m_home.Read(u"smith.json"_s);
    const QDir home(m_home.Path());
    const QStringList entries = home.entryList();
    ASSERT_TRUE(Start({report}));
#ifdef Q_OS_UNIX
    const QStringList sockets{u"kel.sock"_s};
#else
    const QStringList sockets; // a pipe is no file
#endif
    EXPECT_EQ(QDir(m_place.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot), sockets);
    const auto link = Open(u"KEL|SMITH.RPT"_s);
    link->SetLinkItem(u"UA5|44|3"_s);
    link->SetText(u"x"_s);
    link->LinkPoke();
    ASSERT_TRUE(Stop());
    EXPECT_EQ(m_home.Read(u"smith.json"_s), before);
    EXPECT_EQ(home.entryList(), entries);
}

TEST_F(Process, ASecondStartIsRefusedAndTheFirstGoesOn)
{
    ASSERT_TRUE(Start({}));
    QProcess second;
    second.start(u"" KELFORMS ""_s, {u"--headless"_s, u"--home"_s, m_home.Path(), u"--socket"_s, m_socket});
    ASSERT_TRUE(second.waitForFinished(20000));
    EXPECT_EQ(second.exitCode(), 3);
    EXPECT_TRUE(second.readAllStandardError().contains("Another program already listens at"));
    const auto link = Open(u"KEL|Query"_s);
    link->SetLinkItem(u"ActiveReports"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"none"_s);
    ASSERT_TRUE(Stop());
}

TEST_F(Process, WrongLinesAndFilesAreToldInWords)
{
    struct Row
    {
        QStringList arguments;
        int code;
        QByteArray words;
    };
    m_home.Write(u"bad.json"_s, "{\"name\":");
    for (const Row& row :
         {Row{{u"--home"_s, u"/no/such/home"_s}, 3, "There is no home /no/such/home"},
          Row{{u"--home"_s, m_home.Path(), u"--nonsense"_s}, 2, "nonsense"},
          Row{{u"--home"_s, m_home.Path(), u"--delay"_s, u"soon"_s}, 2, "--delay takes a whole number"},
          Row{{u"--home"_s, m_home.Path(), u"--socket"_s, m_socket, m_home.File(u"none.json"_s)},
              3,
              "There is no report"},
          Row{{u"--home"_s, m_home.Path(), u"--socket"_s, m_socket, m_home.File(u"bad.json"_s)},
              3,
              "is no report"}}) {
        QProcess process;
        process.start(u"" KELFORMS ""_s, QStringList{u"--headless"_s} + row.arguments);
        ASSERT_TRUE(process.waitForFinished(20000));
        EXPECT_EQ(process.exitCode(), row.code) << row.words.constData();
        EXPECT_TRUE(process.readAllStandardError().contains(row.words)) << row.words.constData();
    }
}

TEST_F(Process, WithoutADisplayServesWithItsWindowOutOfSight)
{
    VASCLIP_NEEDS_UNIX("a display that may be missing");
    QProcessEnvironment bare = QProcessEnvironment::systemEnvironment();
    for (const QString& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s})
        bare.remove(name);
    m_process.setProcessEnvironment(bare);
    m_process.start(u"" KELFORMS ""_s, {u"--home"_s, m_home.Path(), u"--socket"_s, m_socket});
    ASSERT_TRUE(m_process.waitForReadyRead(20000));
    EXPECT_TRUE(m_process.readAllStandardOutput().contains("listening at"));
    EXPECT_TRUE(m_process.readAllStandardError().contains("there is no display"));
    const auto link = Open(u"KEL|Query"_s);
    link->SetLinkItem(u"ActiveReports"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"none"_s); // and it was given no reports
    ASSERT_TRUE(Stop());
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_process.exitCode(), 0);
}

TEST_F(Process, Dies)
{
    ASSERT_TRUE(Start({u"--die-after"_s, u"2"_s, m_home.MakeReport(u"smith"_s, u"UA5"_s)}));
    const auto link = Open(u"KEL|SMITH.RPT"_s);
    link->SetLinkItem(u"UA5|44|3"_s);
    link->LinkPoke();
    link->LinkPoke();
    EXPECT_EQ(Number([&] { link->LinkPoke(); }), 289);
    ASSERT_TRUE(m_process.waitForFinished(10000));
    EXPECT_EQ(Number([&] { link->SetLinkMode(2); }), 282);
    QProcess again;
    again.start(u"" KELFORMS ""_s, {u"--headless"_s, u"--home"_s, m_home.Path(), u"--socket"_s, m_socket});
    ASSERT_TRUE(again.waitForReadyRead(20000));
    link->SetLinkMode(2);
    again.terminate();
    again.waitForFinished(5000);
}

TEST_F(Process, IsLateSilentOrAnswersGarbageOnDemand)
{
    ASSERT_TRUE(Start({u"--delay"_s, u"1000"_s}));
    auto link = Open(u"KEL|Query"_s, 200);
    EXPECT_EQ(Number([&] { link->LinkRequest(); }), 286);
    ASSERT_TRUE(Stop());
    ASSERT_TRUE(Start({u"--never-answer"_s}));
    link = Open(u"KEL|Query"_s, 200);
    EXPECT_EQ(Number([&] { link->LinkRequest(); }), 286);
    ASSERT_TRUE(Stop());
    ASSERT_TRUE(Start({u"--garbage-after"_s, u"1"_s}));
    link = Open(u"KEL|Query"_s, 2000);
    link->LinkRequest();
    EXPECT_EQ(Number([&] { link->LinkRequest(); }), 289);
    ASSERT_TRUE(Stop());
}

} // namespace
