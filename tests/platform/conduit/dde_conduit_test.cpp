// The conduit for forms programs under Wine, with a script in Wine's place and a bridge that plays its partner itself.

#include "servers.h"

#include "platform/conduit/dde_conduit.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;
using namespace vasclip::test;

namespace {

class DdeConduit : public testing::Test
{
protected:
    /// A Wine that says that version and runs the fake bridge in a manner.
    QString Wine(const QString& manner = {}, const QString& says = u"wine-8.0 (Debian 8.0~repack-4)"_s)
    {
        const QString path = m_directory.filePath(u"wine"_s);
        QFile script(path);
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(u"#!/bin/sh\nif [ \"$1\" = --version ]; then echo '%1'; exit 0; fi\necho start >>'%4'\nexec '%2' '%3' \"$@\"\n"_s
                         .arg(says, u"" FAKE_BRIDGE ""_s, manner, Starts())
                         .toUtf8());
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    /// Where a Wine was set up.
    QString Prefix()
    {
        const QString prefix = m_directory.filePath(u"a Wine of Jürgen"_s);
        EXPECT_TRUE(QDir().mkpath(prefix));
        EXPECT_TRUE(QFile(prefix + u"/system.reg"_s).open(QIODevice::WriteOnly));
        return prefix;
    }
    QString Starts() const { return m_directory.filePath(u"starts"_s); }
    int HowOftenStarted() const
    {
        QFile starts(Starts());
        return starts.open(QIODevice::ReadOnly) ? static_cast<int>(starts.readAll().count('\n')) : 0;
    }
    QString BridgeFile()
    {
        const QString path = m_directory.filePath(u"vasclip-bridge.exe"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path;
    }
    std::unique_ptr<Conduit> Link(const QString& wine, int timeLimitMs = 5000)
    {
        DdeOptions options;
        options.wine = wine;
        options.bridge = BridgeFile();
        options.timeLimitMs = timeLimitMs;
        options.codePage = 1252;
        options.winePrefix = Prefix();
        options.patience = patience;
        auto link = MakeDdeConduit(options);
        link->SetLinkTopic(u"KEL|R1"_s);
        link->SetLinkItem(u"UA5|14|2"_s);
        return link;
    }
    static QString Ask(Conduit& link, const QString& item)
    {
        link.SetLinkMode(2);
        link.SetLinkItem(item);
        link.LinkRequest();
        return link.Text();
    }

    Patience* patience = nullptr;
    QTemporaryDir m_directory;
};

TEST_F(DdeConduit, SpeaksThroughABridgeUnderWine)
{
    const auto link = Link(Wine(), 4321);
    link->SetLinkMode(2);
    const QString text = u"1.2 Mi. NW\r\n\"é\" "_s.repeated(2000);
    link->SetText(text);
    link->LinkPoke();
    link->SetLinkMode(0);
    EXPECT_TRUE(Ask(*link, u"UA5|14|2"_s) == text);
    link->LinkExecute(u"[RunMacro(a.bas)]\r"_s);
    EXPECT_EQ(Ask(*link, u"COMMANDS"_s), u"[RunMacro(a.bas)]\r"_s);
    EXPECT_EQ(Ask(*link, u"ARGUMENTS"_s), BridgeFile() + u" --time-limit 4321 --code-page 1252"_s);
    EXPECT_EQ(Ask(*link, u"WINEPREFIX"_s), Prefix());
    EXPECT_EQ(Ask(*link, u"WINEDEBUG"_s), qEnvironmentVariable("WINEDEBUG", u"-all"_s));
    EXPECT_EQ(HowOftenStarted(), 1);
}

TEST_F(DdeConduit, WhatBecameOfThePartnerKeepsTheBridge)
{
    const auto link = Link(Wine());
    link->SetLinkMode(2);
    for (const auto& [item, number] : {std::pair(u"LATE"_s, 286), std::pair(u"GONE"_s, 289)}) {
        link->SetLinkMode(2);
        link->SetLinkItem(item);
        EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, number);
        EXPECT_EQ(link->LinkMode(), 0);
    }
    EXPECT_EQ(Ask(*link, u"OPENED"_s), u"ooo"_s); // the conversation anew each time
    link->SetLinkItem(u"REFUSE"_s);
    const Thrown refused = ThrownBy([&] { link->LinkRequest(); });
    EXPECT_EQ(refused.number, 285);
    EXPECT_EQ(refused.words, u"The forms program refuses \"REFUSE\""_s);
    EXPECT_EQ(link->LinkMode(), 2);
    link->SetLinkMode(0);
    link->SetLinkTopic(u"KEL|nobody"_s);
    link->SetLinkMode(2);
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, 282);
    EXPECT_EQ(link->LinkMode(), 0);
    EXPECT_EQ(HowOftenStarted(), 1);
}

TEST_F(DdeConduit, WhatTheExchangeCannotHoldIsARefusal)
{
    const auto link = Link(Wine());
    link->SetLinkMode(2);
    link->SetText(u"12 漢 Street"_s);
    const Thrown thrown = ThrownBy([&] { link->LinkPoke(); });
    EXPECT_EQ(thrown.number, 285);
    EXPECT_EQ(thrown.words, u"The value for \"UA5|14|2\" holds \"漢\" (U+6F22) at place 4, which code page 28591 does not "
                            "have; nothing was sent"_s);
    EXPECT_EQ(Ask(*link, u"UA5|14|2"_s), u"nothing"_s);
    link->SetLinkMode(0);
    link->SetLinkTopic(u"KEL|A|B.RPT"_s);
    EXPECT_TRUE(ThrownBy([&] { Ask(*link, u"X"_s); }).words.startsWith(u"The topic \"A|B.RPT\" holds a bar"_s));
}

TEST_F(DdeConduit, ABridgeThatIsSlowToStartIsWaitedForAgain)
{
    const auto link = Link(Wine(u"slow"_s), 500); // twice, and two seconds more for the bridge itself
    const Thrown thrown = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(thrown.number, 286);
    EXPECT_EQ(thrown.words, u"The bridge to the forms program is still starting, which the first time can take a minute; "
                            "try again"_s);
    EXPECT_EQ(link->LinkMode(), 0);
    QFile go(BridgeFile() + u".go"_s);
    ASSERT_TRUE(go.open(QIODevice::WriteOnly));
    EXPECT_EQ(Ask(*link, u"X"_s), u"nothing"_s);
    EXPECT_EQ(HowOftenStarted(), 1);
}

TEST_F(DdeConduit, ABridgeThatHangsIsReplaced)
{
    const auto link = Link(Wine(u"silent"_s), 1000);
    link->SetLinkMode(2);
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, 286);
    EXPECT_EQ(link->LinkMode(), 0);
    Wine();
    EXPECT_EQ(Ask(*link, u"X"_s), u"nothing"_s);
    EXPECT_EQ(HowOftenStarted(), 2);
}

TEST_F(DdeConduit, ABridgeThatEndsSaysWhy)
{
    const auto link = Link(Wine(u"ends"_s));
    Thrown thrown = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(thrown.number, 298);
    EXPECT_EQ(thrown.words, u"The bridge to the forms program has ended: vasclip-bridge: The system gives no window for the "
                            "exchange"_s);
    Wine(u"dies"_s);
    link->SetLinkMode(2);
    thrown = ThrownBy([&] { link->LinkRequest(); });
    EXPECT_EQ(thrown.number, 289);
    EXPECT_EQ(thrown.words, u"The bridge to the forms program has ended: with code 5, without a word"_s);
    Wine(u"garbage"_s);
    link->SetLinkMode(2);
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, 289);
    EXPECT_EQ(link->LinkMode(), 0);
}

TEST_F(DdeConduit, NoWineOrAnOldOne)
{
    const auto thrown = [&](const QString& wine) {
        const auto link = Link(wine);
        return ThrownBy([&] { link->SetLinkMode(2); });
    };
    const QString why =
        u"KEL.INI says that the forms program speaks the desktop's data exchange, which needs Wine here"_s;
    Thrown told = thrown(u"/no/such/wine"_s);
    EXPECT_EQ(told.number, 298);
    EXPECT_TRUE(told.words.startsWith(why + u", and /no/such/wine cannot be started: "_s));
    EXPECT_TRUE(told.words.endsWith(u"Install Wine 8 or newer; Wine in section [LINK] of KEL.INI can name another one"_s));
    const QString old = Wine({}, u"wine-5.0.3 (Debian 5.0.3-3)"_s);
    told = thrown(old);
    EXPECT_EQ(told.number, 298);
    EXPECT_EQ(told.words, why + u", and %1 is Wine 5.0.3, which is too old: 8 or newer is wanted; Wine in section [LINK] of "
                                "KEL.INI can name another one"_s.arg(old));
    EXPECT_TRUE(thrown(Wine({}, u"GNU bash"_s)).words.contains(u"does not say which Wine it is (\"GNU bash\")"_s));
    for (const QString& version : {u"wine-8.0"_s, u"wine-10.2"_s, u"wine-9.0-rc1"_s})
        EXPECT_EQ(thrown(Wine({}, version)).number, 0) << qPrintable(version);
}

TEST_F(DdeConduit, AWineThatHangs)
{
    struct Counts final : Patience
    {
        void BeforeExchange() override {}
        void AfterExchange() override {}
        void Waiting() override { ++waited; }
        int waited = 0;
    } counts;
    patience = &counts;
    const QString wine = Wine();
    QFile script(wine);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nexec sleep 600\n");
    script.close();
    const auto link = Link(wine);
    const Thrown told = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(told.number, 298);
    EXPECT_EQ(told.words, u"KEL.INI says that the forms program speaks the desktop's data exchange, which needs Wine here, and "
                          "%1 does not say within 5 seconds which Wine it is; Wine in section [LINK] of KEL.INI can name "
                          "another one"_s.arg(wine));
    EXPECT_GT(counts.waited, 5); // the window lives meanwhile
}

TEST_F(DdeConduit, APrefixWhereNoWineLives)
{
    const QString empty = m_directory.filePath(u"empty"_s);
    ASSERT_TRUE(QDir().mkpath(empty));
    for (const QString& prefix : {empty, u"/no/such/prefix"_s, u"prefix"_s}) {
        DdeOptions options;
        options.wine = Wine();
        options.bridge = BridgeFile();
        options.winePrefix = prefix;
        const auto link = MakeDdeConduit(options);
        link->SetLinkTopic(u"KEL|R1"_s);
        const Thrown told = ThrownBy([&] { link->SetLinkMode(2); });
        EXPECT_EQ(told.number, 298);
        EXPECT_TRUE(told.words.endsWith(u", and WinePrefix in section [LINK] of KEL.INI names %1, where no Wine was ever set up "
                                        "(it has no file system.reg)"_s.arg(prefix)))
            << qPrintable(told.words);
    }
    EXPECT_EQ(HowOftenStarted(), 0);
}

TEST_F(DdeConduit, WineIsGivenALocaleOfAllLetters)
{
    const auto told = [&](const char* all, const char* type, const char* language) {
        const char* const names[] = {"LC_ALL", "LC_CTYPE", "LANG"};
        const char* const values[] = {all, type, language};
        QByteArray before[3];
        for (int i = 0; i < 3; ++i) {
            before[i] = qgetenv(names[i]);
            qputenv(names[i], values[i]);
        }
        const auto link = Link(Wine());
        const QString locale = Ask(*link, u"LC_ALL"_s) + u'/' + Ask(*link, u"LC_CTYPE"_s) + u'/' + Ask(*link, u"LANG"_s);
        for (int i = 0; i < 3; ++i)
            qputenv(names[i], before[i]);
        return locale;
    };
    EXPECT_EQ(told("C", "", "de_DE.UTF-8"), u"/C.UTF-8/de_DE.UTF-8"_s);
    EXPECT_EQ(told("", "", ""), u"/C.UTF-8/"_s);
    EXPECT_EQ(told("", "POSIX", ""), u"/C.UTF-8/"_s);
    EXPECT_EQ(told("", "", "de_DE.UTF-8"), u"//de_DE.UTF-8"_s);
    EXPECT_EQ(told("C.UTF-8", "C", "C"), u"C.UTF-8/C/C"_s);
}

TEST_F(DdeConduit, NoBridge)
{
    DdeOptions options;
    options.wine = Wine();
    options.bridge = u"/no/such/vasclip-bridge.exe"_s;
    const auto link = MakeDdeConduit(options);
    link->SetLinkTopic(u"KEL|R1"_s);
    const Thrown told = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(told.number, 298);
    EXPECT_TRUE(told.words.contains(u"needs Wine here and a bridge, and /no/such/vasclip-bridge.exe is not there."_s));
}

} // namespace
