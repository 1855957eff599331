#include "link/link_choice.h"

#include "platform/conduit/no_way.h"

#include "support/error_number.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QDir>

namespace vasclip::link {
namespace {

using namespace Qt::Literals::StringLiterals;

class LinkChoiceTest : public testing::Test
{
protected:
    LinkChoice Read(const QByteArray& section)
    {
        m_home.Put(kIni, "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n" + section);
        return ReadLinkChoice(m_home.disk, kIni);
    }

    const QString kIni = u"C:\\APPRAISE\\KEL.INI"_s;
    tests::TempHome m_home;
};

TEST_F(LinkChoiceTest, NothingNamedMeansTheSocket)
{
    EXPECT_FALSE(ReadLinkChoice(m_home.disk, kIni).exchange); // no file
    EXPECT_FALSE(Read("").exchange);
    EXPECT_FALSE(Read("[LINK]\r\nCodePage=1252\r\n").exchange);
    EXPECT_FALSE(Read("[LINK]\r\nExchange=socket\r\n").exchange);
    EXPECT_EQ(MakeChosen(Read(""), 1000, nullptr), nullptr);
}

TEST_F(LinkChoiceTest, TheDesktopsExchange)
{
    LinkChoice choice = Read("[LINK]\r\nExchange= dde \r\n");
    EXPECT_TRUE(choice.exchange);
    EXPECT_EQ(choice.trouble, QString());
    EXPECT_EQ(choice.codePage, 0U);
    EXPECT_EQ(choice.bridge + choice.wine + choice.winePrefix, QString());
    m_home.MakeDirs(u"C:\\KEL"_s);
    choice = Read("[Link]\r\nEXCHANGE=DDE\r\nCodePage=1250\r\nBridge=C:\\KEL\\bridge.exe\r\nWine=/opt/wine/bin/wine\r\n"
                  "WinePrefix=/home/x/.forms\r\n");
    EXPECT_EQ(choice.trouble, QString());
    EXPECT_EQ(choice.codePage, 1250U);
    EXPECT_EQ(choice.bridge, m_home.Native(u"drive_c/KEL/bridge.exe"_s));
    EXPECT_EQ(choice.wine, u"/opt/wine/bin/wine"_s);
    EXPECT_EQ(choice.winePrefix, u"/home/x/.forms"_s);
    choice = Read("[LINK]\r\nExchange=DDE\r\nWine=~/wine 9/bin/wine\r\nWinePrefix=~/forms ~/x\r\nBridge=~x/bridge.exe\r\n");
    EXPECT_EQ(choice.wine, QDir::homePath() + u"/wine 9/bin/wine"_s);
    EXPECT_EQ(choice.winePrefix, QDir::homePath() + u"/forms ~/x"_s);
    EXPECT_EQ(choice.bridge, u"~x/bridge.exe"_s);
}

TEST_F(LinkChoiceTest, WhatCanNotBeFollowedIsSaidAtEachOpening)
{
    EXPECT_EQ(Read("[LINK]\r\nExchange=OLE\r\n").trouble,
              u"Exchange in section [LINK] of C:\\APPRAISE\\KEL.INI is \"OLE\"; DDE or Socket is wanted"_s);
    EXPECT_EQ(Read("[LINK]\r\nExchange=DDE\r\nCodePage=Latin\r\n").trouble,
              u"CodePage in section [LINK] of C:\\APPRAISE\\KEL.INI is \"Latin\"; a number such as 1252 is wanted"_s);
    EXPECT_NE(Read("[LINK]\r\nExchange=DDE\r\nCodePage=70000\r\n").trouble, QString());
    const LinkChoice choice = Read("[LINK]\r\nExchange=DDE\r\nBridge=Q:\\bridge.exe\r\n");
    EXPECT_TRUE(choice.trouble.startsWith(u"A path in section [LINK] of C:\\APPRAISE\\KEL.INI can't be followed: "_s));
    const auto link = MakeChosen(choice, 1000, nullptr);
    link->SetLinkTopic(u"KEL|Query"_s);
    for (int i = 0; i < 2; ++i) {
        const tests::Thrown thrown = tests::ThrownBy([&] {
            link->SetLinkMode(2);
            return 0;
        });
        EXPECT_EQ(thrown.number, conduit::kNoWay);
        EXPECT_EQ(thrown.words, choice.trouble);
    }
}

} // namespace
} // namespace vasclip::link
