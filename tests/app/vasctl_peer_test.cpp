// vasctl against a forms program that refuses: what did not work ends with its code.

#include "platform/conduit/link_server.h"
#include "platform/text/runtime_error.h"
#include "support/processes.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1;

/// One report is open; from a step of that kind on everything is refused.
class Refusing final : public conduit::LinkHandler
{
public:
    QString Request(const QString&, const QString& item) override
    {
        if (item == u"ActiveReports"_s) {
            refuseCells = refuseCells || ++asked >= refuseFrom;
            return u"OAKST114.RPT,"_s;
        }
        if (item == u"ListForms"_s)
            return form + u",COMP46,SUBPHOTO,COMPPH1,"_s;
        if (!item.contains(u'|'))
            return {};
        Refuse(refuseCells, item);
        return u"12 Refused Rd"_s;
    }
    void Poke(const QString&, const QString& item, const QString&) override { Refuse(refusePokes, item); }
    void Execute(const QString&, const QString& command) override
    {
        if (command.contains(u"SWAPCOMPS"_s))
            refuseCells = true; // it swaps, and can't be read any more
    }
    QString form = u"UA5"_s;
    bool refusePokes = false, refuseCells = false;
    int asked = 0, refuseFrom = 1000; ///< times for the active report

private:
    static void Refuse(bool refuse, const QString& item)
    {
        if (refuse)
            throw RuntimeError(error::kLinkBusy, u"%1 is locked"_s.arg(item));
    }
};

class VasctlPeer : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(home.Make());
        path = own.filePath(u"refusing.sock"_s);
        conduit::ServerOptions options;
        options.socketPath = path;
        server = std::make_unique<conduit::LinkServer>(peer, options);
        server->Listen();
        for (const QJsonValue& row :
             home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY FROM COMPS"_s}).Array())
            key = row.toObject()[u"CENTRALKEY"_s].toString().trimmed();
    }
    std::pair<int, QString> Run(const QStringList& arguments)
    {
        QProcess vasctl;
        vasctl.setProcessEnvironment(home.environment);
        vasctl.start(ProgramHome::Program(u"vasctl"_s),
                     QStringList{u"--home"_s, home.Path(), u"--socket"_s, path, u"--yes"_s} + arguments);
        vasctl.closeWriteChannel();
        QEventLoop loop; // the server answers in it
        QObject::connect(&vasctl, &QProcess::finished, &loop, &QEventLoop::quit);
        QTimer::singleShot(4 * kPatienceMs, &loop, &QEventLoop::quit);
        loop.exec();
        return {vasctl.exitCode(), QString::fromUtf8(vasctl.readAllStandardError())};
    }
    ProgramHome home;
    const QTemporaryDir own; // a socket's directory is its user's alone
    Refusing peer;
    QString path, key;
    std::unique_ptr<conduit::LinkServer> server;
};

TEST_F(VasctlPeer, AReportOfAFormThatIsNotServedFails)
{
    peer.form = u"X99"_s;
    for (const QStringList& line : {QStringList{u"refresh"_s}, {u"report"_s, u"pages"_s}, {u"transfer"_s, u"all"_s}}) {
        const auto [code, words] = Run(line);
        EXPECT_EQ(code, kFailed) << line.join(u' ').toStdString();
        EXPECT_TRUE(words.contains(u"out of date for this form"_s)) << words.toStdString();
    }
}

TEST_F(VasctlPeer, ADropOfWhichNothingIsTakenFails)
{
    EXPECT_EQ(Run({u"drop"_s, key, u"--on"_s, u"geaComp:1"_s}).first, kDone);
    peer.refusePokes = true;
    const auto [code, words] = Run({u"drop"_s, key, u"--on"_s, u"geaComp:1"_s});
    EXPECT_EQ(code, kFailed);
    EXPECT_TRUE(words.contains(u"Nothing of %1 reached the report."_s.arg(key))) << words.toStdString();
}

TEST_F(VasctlPeer, ASwapThatCannotBeReadAgainFails)
{
    const auto [code, words] = Run({u"swap"_s, u"1"_s, u"2"_s});
    EXPECT_EQ(code, kFailed);
    EXPECT_TRUE(words.contains(u"were swapped, but could not be read again"_s)) << words.toStdString();
}

TEST_F(VasctlPeer, ATransferOfWhichNothingCanBeReadFails)
{
    ASSERT_EQ(Run({u"refresh"_s}).first, kDone);
    peer.refuseFrom = std::exchange(peer.asked, 0) + 1; // behind the reading of the tabs
    const auto [code, words] = Run({u"transfer"_s, u"comps"_s, u"1"_s, u"--data"_s});
    EXPECT_EQ(code, kFailed);
    EXPECT_TRUE(words.contains(u"1 could not be stored."_s)) << words.toStdString();
}

TEST_F(VasctlPeer, KelIniSaysOverWhichWay)
{
    QFile ini(home.Native(u"APPRAISE/KEL.INI"_s));
    ASSERT_TRUE(ini.open(QIODevice::Append));
    ini.write("\r\n[LINK]\r\nExchange=DDE\r\nWine=/no/such/wine\r\nBridge=/bin/sh\r\n");
    ini.close();
#ifdef Q_OS_UNIX // elsewhere it is spoken to by this process
    const Ended told = home.Vasctl({u"--plain"_s, u"doctor"_s});
    EXPECT_TRUE((told.out + told.err).contains("speaks the desktop's data exchange, which needs Wine here, and /no/such/wine"))
        << (told.out + told.err).toStdString();
    EXPECT_TRUE((told.out + told.err).contains("error 298"));
#endif
    EXPECT_EQ(Run({u"refresh"_s}).first, kDone); // a socket on the command line outdoes it
}

} // namespace
