#include "desk_test.h"
#include "link/drop_comp.h"
#include "link/kel_channel.h"
#include "link/refresh.h"
#include "platform/conduit/link_server.h"
#include "platform/conduit/socket_conduit.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QTemporaryDir>
#include <QThread>

#include <semaphore>

namespace vasclip::link {
namespace {

/// A forms program with one report, on a socket and a thread of its own.
class FormsThread : public QThread, private conduit::LinkHandler
{
public:
    FormsThread(const QString& path, conduit::LinkFaults faults)
    {
        m_options.socketPath = path;
        m_options.program = u"test"_s;
        m_options.faults = std::move(faults);
        start();
        m_ready.acquire();
    }
    ~FormsThread() override
    {
        quit();
        wait();
    }
    [[nodiscard]] QStringList Pokes() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_pokes;
    }

private:
    void run() override
    {
        conduit::LinkServer server(*this, m_options);
        server.Listen();
        m_ready.release();
        exec();
    }
    QString Request(const QString& topic, const QString& item) override
    {
        if (item == "ActiveReports"_L1)
            return u"SMITH,"_s;
        if (item == "ListForms"_L1)
            return u"UA5,SUBPHOTO,"_s;
        return topic == "KEL|System"_L1 ? QString() : u"x"_s;
    }
    void Poke(const QString&, const QString& item, const QString& text) override
    {
        const QMutexLocker lock(&m_mutex);
        m_pokes << item + u'=' + text;
    }
    void Execute(const QString&, const QString&) override {}

    conduit::ServerOptions m_options;
    std::binary_semaphore m_ready{0};
    mutable QMutex m_mutex;
    QStringList m_pokes;
};

constexpr int kTimeLimitMs = 400;

/// The desk with a real socket in place of the recording conduit.
class Live : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"1850"_s}, {u"CITY"_s, u"Duluth"_s}, {u"ST"_s, u"MN"_s}});
        for (const auto& [field, row] :
             {std::pair{u"GLA"_s, u"12"_s}, {u"CITY"_s, u"13"_s}, {u"ST"_s, u"14"_s}})
            Map({u"UA5"_s, u"PAGE2"_s, field, row, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        Map({u"UA5"_s, u"PAGE1"_s, u"ADDRESS"_s, u"2"_s, u"1"_s, u"SALE"_s, u"10"_s, u"0"_s});
        addr.txtKelReport.SetText(u"SMITH"_s);
    }
    void Start(conduit::LinkFaults faults = {})
    {
        m_forms = std::make_unique<FormsThread>(Socket(), std::move(faults));
        Connect();
    }
    void Connect()
    {
        conduit::SocketOptions options;
        options.socketPath = Socket();
        options.timeLimitMs = kTimeLimitMs;
        m_socket = conduit::MakeSocketConduit(options);
        m_live = std::make_unique<LinkDesk>(LinkDesk{
            {.txtDDE = *m_socket,
             .ports = doubles.Get(),
             .status = status,
             .kelIni = desk.kelIni,
             .fileVersion = desk.fileVersion},
            {.report = report,
             .addr = addr,
             .state = state,
             .slots = slots,
             .loader = loader},
            {.sources = sources,
             .globals = globals,
             .lists = lists,
             .disk = home.disk}});
    }
    [[nodiscard]] QString Socket() const { return m_private.filePath(u"link.sock"_s); }
    [[nodiscard]] LinkDesk& Desk() { return *m_live; }
    [[nodiscard]] QStringList Pokes() const { return m_forms->Pokes(); }
    DropOutcome DropOnFive(const QString& key = u"12 OAK ST"_s)
    {
        return DropComp(Desk(), {Group::Sales, 5}, key).outcome;
    }
    /// Answers of a drop before its first poke: three looks for reports, opening and listing.
    static constexpr int kBeforePokes = 5;
    static conduit::LinkFaults Dies(int after)
    {
        conduit::LinkFaults faults;
        faults.dieAfter = after;
        faults.die = [] { QThread::currentThread()->quit(); };
        return faults;
    }

    QTemporaryDir m_private; // the socket's directory must be closed to others
    std::unique_ptr<FormsThread> m_forms;
    std::unique_ptr<conduit::Conduit> m_socket;
    std::unique_ptr<LinkDesk> m_live;
};

TEST_F(Live, ADropReachesTheReport)
{
    Start();
    EXPECT_EQ(DropOnFive(), DropOutcome::Sent);
    EXPECT_EQ(Pokes(), (QStringList{u"PAGE2|12|5=1850"_s, u"PAGE2|13|5=Duluth"_s, u"PAGE2|14|5=MN"_s}));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Live, ARefreshReadsTheReport)
{
    Start();
    RefreshAppraisal(Desk());
    EXPECT_EQ(report.txtSubject.Text(), u"x"_s);
    EXPECT_EQ(addr.txtFormType.Text(), u"UA5"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Live, AProgramThatIsNotThereIsSilentAtARefreshAndToldAtADrop)
{
    Connect();
    RefreshAppraisal(Desk());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(DropOnFive(), DropOutcome::NotRunning);
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"The Appraisal Program is not running at this time."_s}));
}

TEST_F(Live, AProgramThatDiesInTheMiddleOfASendLeavesWhatItTook)
{
    Start(Dies(kBeforePokes + 1));
    EXPECT_EQ(DropOnFive(), DropOutcome::Incomplete);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"sending CITY to PAGE2|13|5, row 2 of 3"_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"Error # 289 in module KelPokeText"_s));
    EXPECT_EQ(Pokes().value(0), u"PAGE2|12|5=1850"_s);
    EXPECT_EQ(m_socket->LinkMode(), 0);
    EXPECT_EQ(Read(u"12 OAK ST"_s).Text(u"GLA"_s), u"1850"_s);
}

TEST_F(Live, AProgramThatComesBackIsFoundAgain)
{
    Start(Dies(kBeforePokes + 1));
    EXPECT_EQ(DropOnFive(), DropOutcome::Incomplete);
    m_forms.reset();
    m_forms = std::make_unique<FormsThread>(Socket(), conduit::LinkFaults{});
    EXPECT_EQ(DropOnFive(), DropOutcome::Sent);
    EXPECT_EQ(Pokes().size(), 3);
}

TEST_F(Live, GarbageEndsTheSendAndSaysSo)
{
    conduit::LinkFaults faults;
    faults.garbageAfter = kBeforePokes + 2;
    Start(faults);
    EXPECT_EQ(DropOnFive(), DropOutcome::Incomplete);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"Garbage on the link"_s));
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"2 fields were sent"_s));
}

TEST_F(Live, ASilentProgramCostsAFewTimeLimitsAndShowsEveryTab)
{
    conduit::LinkFaults faults;
    faults.neverAnswer = true;
    Start(faults);
    QElapsedTimer clock;
    clock.start();
    RefreshAppraisal(Desk());
    EXPECT_LT(clock.elapsed(), 5 * kTimeLimitMs);
    EXPECT_FALSE(state.linkActive);
    EXPECT_LE(doubles.prompter.Boxes().size(), 2U);
    for (const QString& text : doubles.prompter.Texts())
        EXPECT_TRUE(text.contains(u"did not answer in time"_s)) << text.toStdString();
    EXPECT_FALSE(Captions(report.TabComp).contains(u"N/A"_s));
}

TEST_F(Live, LateAnswersWithinTheLimitServe)
{
    conduit::LinkFaults faults;
    faults.delayMs = 20;
    Start(faults);
    EXPECT_EQ(DropOnFive(), DropOutcome::Sent);
    EXPECT_EQ(Pokes().size(), 3);
}

TEST_F(Live, AnAnswerThatComesTooLateBelongsToNobody)
{
    conduit::LinkFaults faults;
    faults.delayMs = 3 * kTimeLimitMs / 2;
    Start(faults);
    EXPECT_THROW(KelListForms(*m_socket, u"SMITH"_s), RuntimeError);
    QThread::msleep(kTimeLimitMs);
    EXPECT_THROW((void)KelGetFieldInfo(*m_socket, u"SMITH"_s, u"PAGE1|1|1"_s), RuntimeError);
    EXPECT_NE(m_socket->Text(), u"UA5,SUBPHOTO,"_s);
}

TEST_F(Live, NamesWithAccentsQuotesAndGreatLengthArrive)
{
    const QString city = u"Caf\u00e9 \"O'Brien\" \\ \u65e5\u672c"_s;
    AddComp(u"1 O'Brien Ave"_s, {{u"GLA"_s, u"1"_s}, {u"NOTES"_s, u""_s}, {u"CITY"_s, city.left(20)}});
    Start();
    EXPECT_EQ(DropOnFive(u"1 O'BRIEN AVE"_s), DropOutcome::Sent);
    EXPECT_TRUE(Pokes().contains(u"PAGE2|13|5="_s + city.left(20))) << Pokes().join(u'\n').toStdString();
    const QString longText(300, QChar(0x00e9));
    EXPECT_NO_THROW(KelPokeText(*m_socket, u"KEL|SMITH"_s, u"PAGE2|9|9"_s, longText));
    EXPECT_EQ(Pokes().last(), u"PAGE2|9|9="_s + longText);
}

} // namespace
} // namespace vasclip::link
