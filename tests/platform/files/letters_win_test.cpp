#include "platform/files/ini_text.h"
#include "platform/files/profile.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <windows.h>

// The header takes these names for its own.
#undef GetPrivateProfileString
#undef WritePrivateProfileString

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

using tests::TempHome;

TEST(ProfileLetters, AreThoseOfTheSystem)
{
    const QString town = u"Łódź"_s;
    const QByteArray inPolish = "[S]\r\nDIR=C:\\\xA3\xF3" "d\x9F\\\r\n";
    IniText polish(inPolish, LettersOf(1250));
    EXPECT_EQ(polish.Value(u"S"_s, u"DIR"_s), u"C:\\"_s + town + u"\\"_s);
    ASSERT_TRUE(polish.Write(u"S"_s, u"NEW"_s, town));
    EXPECT_EQ(polish.Bytes(), inPolish + "NEW=\xA3\xF3" "d\x9F\r\n");
    ASSERT_TRUE(polish.Write(u"S"_s, u"NEW"_s, u"\u4E2D"_s)) << "what the page lacks";
    EXPECT_EQ(polish.Bytes(), (u"[S]\r\nDIR=C:\\"_s + town + u"\\\r\nNEW=\u4E2D\r\n"_s).toUtf8());

    // The second byte of this letter is that of a backslash.
    IniText japanese("[S]\r\nDIR=\x95\x5C\x8E\xA6\r\n", LettersOf(932));
    EXPECT_EQ(japanese.Value(u"S"_s, u"DIR"_s), u"\u8868\u793A"_s);

    // What other programs write, they are given: GetPrivateProfileStringA of theirs reads no UTF-8.
    IniText plain("[S]\r\n", LettersOf(1250));
    ASSERT_TRUE(plain.Write(u"S"_s, u"A"_s, town));
    EXPECT_EQ(plain.Bytes(), "[S]\r\nA=\xA3\xF3" "d\x9F\r\n");
    IniText unicode("[S]\r\nA=\xC5\x81\r\n", LettersOf(1250));
    EXPECT_EQ(unicode.Value(u"S"_s, u"A"_s), u"\u0141"_s);

    // A system of UTF-8: old files are Western, new ones Unicode.
    IniText utf8("[S]\r\n", LettersOf(65001));
    ASSERT_TRUE(utf8.Write(u"S"_s, u"A"_s, u"é"_s));
    EXPECT_EQ(utf8.Bytes(), "[S]\r\nA=\xC3\xA9\r\n");
    EXPECT_EQ(IniText("[S]\r\nA=\xE9\r\n", LettersOf(65001)).Value(u"S"_s, u"A"_s), u"é"_s);
}

/// What another program of this system reads of ours, and we of its.
TEST(ProfileLetters, AreReadByTheSystemItself)
{
    const TempHome home;
    const QString native = home.Native(u"drive_c/P/a.ini"_s);
    home.MakeDirs(u"C:\\P"_s);
    ASSERT_TRUE(WritePrivateProfileString(home.disk, u"S"_s, u"A"_s, u"Café"_s, u"C:\\P\\a.ini"_s));
    wchar_t read[40] = {};
    const std::wstring name = QString(native).replace(u'/', u'\\').toStdWString();
    GetPrivateProfileStringW(L"S", L"A", L"", read, 40, name.c_str());
    EXPECT_EQ(QString::fromWCharArray(read), u"Café"_s);
    ASSERT_TRUE(::WritePrivateProfileStringW(L"S", L"B", L"Müller", name.c_str()));
    EXPECT_EQ(GetPrivateProfileString(home.disk, u"S"_s, u"B"_s, {}, u"C:\\P\\a.ini"_s), u"Müller"_s);
}

} // namespace
} // namespace vasclip::files
