#include "import_home.h"

#include "support/xlsx_file.h"

#include <QAbstractItemView>
#include <QComboBox>

namespace vasclip::windows {
namespace {

const QString kList = u"C:\\DATABOOK\\IMPORT\\SALES.CSV"_s;
const QString kBook = u"C:\\DATABOOK\\IMPORT\\SALES.XLSX"_s;

/// A list over the import's window: its columns, then the rehearsal.
class ListWindow : public ImportWindow
{
protected:
    void SetUp() override
    {
        ImportWindow::SetUp();
        home.disk.WriteWhole(kList, "House;Town;Sold;Price;Colour\r\n"
                                    "1 Ash St;Cedar;31.3.2004;250.000,50;red\r\n"
                                    "2 Ash St;Cedar;3.4.2004;a lot;blue\r\n"
                                    "3 Ash St;Alder;3.4.2004;;\"green; \"\"or\"\" so\"\r\n");
    }
    /// Plays one screen after the other in the windows that open over the import's.
    void Next(const std::function<void()>& script)
    {
        doubles.screens.Play([this, script](forms::Screen& screen) {
            ScreenWindow* const below = window;
            ScreenWindow stands(screen, guard);
            EXPECT_TRUE(stands.Leftovers().isEmpty()) << stands.Leftovers().join(u'\n').toStdString();
            window = &stands;
            stands.show();
            stands.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&stands));
            script();
            window = below;
        });
    }
    void Shoot(const QString& name) const
    {
        if (qEnvironmentVariableIsSet("VASCLIP_SHOTS"))
            window->grab().save(qEnvironmentVariable("VASCLIP_SHOTS") + u'/' + name);
    }
    QString Chosen(const QString& combo) const { return The<QComboBox>(combo).currentText(); }
    /// As a user does: the box opens, and its list takes keys.
    void Choose(const QString& combo, const QString& words) const
    {
        auto& box = The<QComboBox>(combo);
        const int wanted = box.findText(words, Qt::MatchStartsWith);
        ASSERT_GE(wanted, 0) << words.toStdString();
        box.setFocus();
        for (int steps = 0; box.currentIndex() != wanted && steps < box.count(); ++steps)
            QTest::keyClick(&box, box.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
        ASSERT_EQ(box.currentIndex(), wanted);
    }
    void ClickRow(const QString& grid, int row) const
    {
        auto& view = The<QAbstractItemView>(grid);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row, 0)).center());
    }
    void ClickFile(const QString& name) const { ClickLine(u"filexport"_s, static_cast<int>(Lines(u"filexport"_s).indexOf(name))); }
    QStringList Refused() const { return home.disk.Dir(main.globals.G_UserDir + u"*REFUSED*"_s); }
};

TEST_F(ListWindow, ProposesTakesAChoiceAndGoesOnIntoTheRehearsal)
{
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList());
        Next([&] {
            EXPECT_EQ(Chosen(u"cboDelimiter"_s), u"Semicolon  ;"_s);
            EXPECT_EQ(Chosen(u"cboDates"_s), u"Month first  3/31/2004"_s) << "no column is a date yet";
            EXPECT_EQ(Chosen(u"cboDecimal"_s), u"Comma  1.250,50"_s);
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0), (QStringList{u"House"_s, u"1 Ash St  \u00B7  2 Ash St  \u00B7  3 Ash St"_s, u"(left behind)"_s}));
            EXPECT_TRUE(Cells(u"grdcolumns"_s, 3).at(2).endsWith(u"SELLINGPR"_s));
            Press(u"cmdGo"_s);
            EXPECT_EQ(Says(), u"No column goes into the address or the key, by which records are told apart. Choose one."_s);
            ClickRow(u"grdcolumns"_s, 0);
            Choose(u"cboField"_s, u"Address"_s);
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(2), u"Address"_s);
            QTest::keyClick(&The<QAbstractItemView>(u"grdcolumns"_s), Qt::Key_Down);
            QTest::keyClick(&The<QAbstractItemView>(u"grdcolumns"_s), Qt::Key_Down);
            Choose(u"cboField"_s, u"Sale Date"_s);
            EXPECT_EQ(Chosen(u"cboDates"_s), u"Day first  31/3/2004"_s) << "as its values tell";
            EXPECT_TRUE(Cells(u"grdcolumns"_s, 3).at(2).endsWith(u"SELLINGPR"_s)) << "the arrow keys only passed it";
            Choose(u"cboDates"_s, u"Month first"_s);
            EXPECT_TRUE(Says().startsWith(u"Can't be read: 2 of 3"_s)) << Says().toStdString();
            Choose(u"cboDates"_s, u"Day first"_s);
            EXPECT_EQ(Says(), u"Can't be read: 1 of 3 lines. What is refused can be mended afterwards."_s);
            EXPECT_EQ(Lines(u"lstfaults"_s),
                      QStringList{u"Line 3: Price: \"a lot\" is no price. Type digits, such as 250000 or 250,000.50."_s});
            EXPECT_EQ(Cells(u"grdlines"_s, 0), (QStringList{u"2"_s, u"1 Ash St"_s, u"3/31/2004"_s, u"250000.50"_s}));
            Shoot(u"list-columns.png"_s);
            Press(u"cmdGo"_s);
        });
        Next([&] {
            EXPECT_EQ(The<QLabel>(u"lblSource"_s).text(), kList);
            EXPECT_EQ(The<QLabel>(u"lblSummary"_s).text(), u"new: 2, changed: 0, same: 0, same address: 0, refused: 1"_s);
            EXPECT_EQ(Records().size(), 1) << "nothing is done before the button";
            Press(u"cmdRefused"_s);
            EXPECT_EQ(Says(), u"1 refused row stands in %1SALES_REFUSED.CSV; mend it there and import that file."_s.arg(
                                  main.globals.G_UserDir));
            home.disk.WriteWhole(main.globals.G_UserDir + u"SALES_REFUSED.CSV"_s, "half mended");
            Press(u"cmdRefused"_s);
            EXPECT_TRUE(Says().contains(u"SALES_REFUSED2.CSV"_s)) << Says().toStdString();
            Press(u"cmdImport"_s);
            EXPECT_EQ(Says(), u"Records added: 2, changed: 0."_s);
        });
        Press(u"cmdImport"_s);
        EXPECT_TRUE(doubles.screens.Shown().contains(u"frm_Rehearse"_s));
    });
    EXPECT_EQ(Records().size(), 3);
    EXPECT_EQ(Refused(), (QStringList{u"SALES_REFUSED.CSV"_s, u"SALES_REFUSED2.CSV"_s}));
    EXPECT_EQ(home.disk.ReadWhole(main.globals.G_UserDir + u"SALES_REFUSED.CSV"_s), "half mended") << "somebody is at it";
    EXPECT_EQ(main.records.grddatabook.Source()->RowCount(), 3);
}

TEST_F(ListWindow, GoesToTheSheetThatIsChosenAmongTheTables)
{
    tests::XlsxFile made;
    made.sheets = {{"Notes", tests::XlsxFile::Row(1, {"hello"})},
                   {"March", tests::XlsxFile::Row(1, {"Sales"}) + tests::XlsxFile::Row(2, {"Address", "City"}) +
                                 tests::XlsxFile::Row(3, {"1 Ash St", "Cedar"})}};
    home.disk.WriteWhole(kBook, made.Bytes());
    Play([&] {
        ClickFile(u"SALES.XLSX"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), (QStringList{u"Notes"_s, u"March"_s}));
        ClickLine(u"lstTables"_s, 1);
        Press(u"cmdDelete"_s);
        EXPECT_EQ(Says(), u"C:\\DATABOOK\\IMPORT\\SALES.XLSX has no tables that could be deleted here."_s);
        Next([&] {
            EXPECT_EQ(Chosen(u"cboSheet"_s), u"March"_s);
            EXPECT_EQ(Text(u"txtHeadings"_s), u"2"_s);
            Choose(u"cboSheet"_s, u"Notes"_s);
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(0), u"hello"_s);
            Choose(u"cboSheet"_s, u"March"_s);
            EXPECT_EQ(Cells(u"grdlines"_s, 0), (QStringList{u"3"_s, u"1 Ash St"_s, u"Cedar"_s}));
            Type(u"txtHeadings"_s, u"x"_s);
            The<QAbstractItemView>(u"grdcolumns"_s).setFocus();
            EXPECT_EQ(Says(), u"\"x\" is no number of a line. 0 means that the list has no headings."_s);
            Type(u"txtHeadings"_s, u"1"_s);
            The<QAbstractItemView>(u"grdcolumns"_s).setFocus();
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(0), u"Sales"_s);
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
        EXPECT_FALSE(doubles.screens.Shown().contains(u"frm_Rehearse"_s)) << "it was left";
    });
    EXPECT_EQ(Records().size(), 1);
}

TEST_F(ListWindow, KeepsAPresetAndTakesItAgain)
{
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        Next([&] {
            Press(u"cmdKeep"_s);
            EXPECT_EQ(Says(), u"Type a name for the preset first."_s);
            ClickRow(u"grdcolumns"_s, 0);
            Choose(u"cboField"_s, u"Address"_s);
            Choose(u"cboDates"_s, u"Day first"_s);
            auto& name = The<QComboBox>(u"cboPreset"_s);
            name.setFocus();
            QTest::keyClicks(&name, u"County"_s);
            Press(u"cmdKeep"_s);
            EXPECT_EQ(Says(), u"Kept as County."_s);
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
        home.disk.WriteWhole(kList, "House|Colour\n1 Ash St|red\n");
        Next([&] {
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(2), u"(left behind)"_s);
            Choose(u"cboPreset"_s, u"County"_s);
            EXPECT_EQ(Chosen(u"cboDelimiter"_s), u"Semicolon  ;"_s) << "the preset's";
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(0), u"House|Colour"_s);
            doubles.prompter.Answer(forms::Answer::Yes);
            Press(u"cmdForget"_s);
            EXPECT_EQ(doubles.prompter.Last().text, u"Delete the preset County?"_s);
            EXPECT_EQ(The<QComboBox>(u"cboPreset"_s).count(), 0);
        });
        Press(u"cmdRehearse"_s);
    });
}

TEST_F(ListWindow, APresetWhoseNameIsTypedIsKeptAsTheColumnsStand)
{
    const auto kept = [&] { return home.disk.ReadWhole(main.globals.G_UserDir + u"ListPresets.json"_s); };
    const auto name = [&] {
        auto& box = The<QComboBox>(u"cboPreset"_s);
        box.setFocus();
        QTest::keyClicks(&box, u"County"_s);
    };
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        Next([&] {
            ClickRow(u"grdcolumns"_s, 0);
            Choose(u"cboField"_s, u"Address"_s);
            name();
            Press(u"cmdKeep"_s);
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
        ASSERT_TRUE(kept().contains("\"HOUSE\": \"ADDRESS\"")) << kept().toStdString();
        Next([&] {
            ClickRow(u"grdcolumns"_s, 1);
            Choose(u"cboField"_s, u"City"_s);
            name();
            doubles.prompter.Answer(forms::Answer::Yes);
            Press(u"cmdKeep"_s);
            EXPECT_EQ(doubles.prompter.Last().text, u"There is a preset County. Replace it?"_s);
            EXPECT_EQ(Cells(u"grdcolumns"_s, 1).at(2), u"City"_s) << "the old preset did not come over it";
            EXPECT_EQ(Says(), u"Kept as County."_s);
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
        EXPECT_TRUE(kept().contains("\"TOWN\": \"CITY\"")) << kept().toStdString();
        EXPECT_TRUE(kept().contains("\"HOUSE\": \"\"")) << kept().toStdString();
        Next([&] {
            ClickRow(u"grdcolumns"_s, 0);
            Choose(u"cboField"_s, u"Address"_s);
            name();
            doubles.prompter.Answer(forms::Answer::No);
            Press(u"cmdKeep"_s);
            EXPECT_TRUE(kept().contains("\"HOUSE\": \"\"")) << kept().toStdString();
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(2), u"Address"_s);
            auto& presets = The<QComboBox>(u"cboPreset"_s);
            presets.showPopup();
            QTest::keyClick(presets.view(), Qt::Key_Return);
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(2), u"(left behind)"_s) << "chosen in its list it is taken";
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
    });
}

TEST_F(ListWindow, GoesNotOnWithALineOfHeadingsThatIsNone)
{
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        Next([&] {
            ClickRow(u"grdcolumns"_s, 0);
            Choose(u"cboField"_s, u"Address"_s);
            for (const auto& [line, words] :
                 {std::pair{u"x"_s, u"\"x\" is no number of a line. 0 means that the list has no headings."_s},
                  std::pair{u"40"_s, kList + u" has no line of headings."_s}}) {
                Type(u"txtHeadings"_s, line);
                QTest::keyClick(&The<QPushButton>(u"cmdGo"_s), Qt::Key_Space); // as its access key: no box is left
                EXPECT_TRUE(window->isVisible()) << line.toStdString();
                EXPECT_EQ(Says(), words);
            }
            EXPECT_EQ(Text(u"txtHeadings"_s), u"1"_s) << "the line that counts";
            EXPECT_EQ(Cells(u"grdcolumns"_s, 0).at(2), u"Address"_s);
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
        EXPECT_FALSE(doubles.screens.Shown().contains(u"frm_Rehearse"_s));
    });
}

TEST_F(ListWindow, SaysWhyAFileCanNotBeRead)
{
    home.disk.WriteWhole(kBook, QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 32));
    Play([&] {
        ClickFile(u"SALES.XLSX"_s);
        EXPECT_EQ(Says(), u"SALES.XLSX can't be read: it is protected by a password; save it without one."_s);
        Press(u"cmdImport"_s);
        EXPECT_EQ(Says(), u"SALES.XLSX can't be read: it is protected by a password; save it without one."_s);
        EXPECT_FALSE(doubles.screens.Shown().contains(u"frm_ListColumns"_s));
    });
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(ListWindow, WhatWasSaidStaysAndAFieldHasOneColumn)
{
    home.disk.WriteWhole(kList, "Notes of the county\nAddress,Sold,Closed,Price\n1 Ash St,31/3/2004,1/4/2004,\"1,250.50\"\n");
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        Next([&] {
            Choose(u"cboDelimiter"_s, u"Semicolon"_s);
            EXPECT_EQ(Text(u"txtHeadings"_s), u"1"_s);
            Choose(u"cboDelimiter"_s, u"Comma"_s);
            EXPECT_EQ(Text(u"txtHeadings"_s), u"2"_s) << "found anew for other lines";
            Choose(u"cboDates"_s, u"Year first"_s);
            Choose(u"cboDates"_s, u"Month first"_s);
            Choose(u"cboDecimal"_s, u"Comma"_s);
            ClickRow(u"grdcolumns"_s, 1);
            Choose(u"cboField"_s, u"Sale Date"_s);
            EXPECT_EQ(Chosen(u"cboDates"_s), u"Month first  3/31/2004"_s) << "whatever its values tell";
            EXPECT_EQ(Chosen(u"cboDecimal"_s), u"Comma  1.250,50"_s);
            ClickRow(u"grdcolumns"_s, 2);
            Choose(u"cboField"_s, u"Sale Date"_s);
            EXPECT_EQ(Cells(u"grdcolumns"_s, 1).at(2), u"(left behind)"_s);
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
    });
}

TEST_F(ListWindow, TheOrderOfDatesThatIsShownCanBeConfirmed)
{
    home.disk.WriteWhole(kList, "Address,Sale Date\n1 Ash St,03/04/2004\n");
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        Next([&] {
            EXPECT_EQ(Says(), u"All can be read (lines: 1). No date tells whether the month or the day stands first: look at them."_s);
            auto& dates = The<QComboBox>(u"cboDates"_s);
            dates.showPopup();
            QTest::keyClick(dates.view(), Qt::Key_Return);
            EXPECT_EQ(Chosen(u"cboDates"_s), u"Month first  3/31/2004"_s);
            EXPECT_EQ(Says(), u"All can be read (lines: 1)."_s);
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
    });
}

TEST_F(ListWindow, WhatIsRefusedOfRefusedLinesHasTheNameOfTheFirstList)
{
    home.disk.WriteWhole(u"C:\\DATABOOK\\IMPORT\\SALES_REFUSED2.CSV"_s, "Address,Price,REASON\n2 Ash St,a lot,of an earlier time\n");
    Play([&] {
        ClickFile(u"SALES_REFUSED2.CSV"_s);
        Next([&] { Press(u"cmdGo"_s); });
        Next([&] {
            Press(u"cmdRefused"_s);
            EXPECT_TRUE(Says().contains(u"\\SALES_REFUSED.CSV;"_s)) << Says().toStdString();
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
    });
    EXPECT_EQ(Refused(), QStringList{u"SALES_REFUSED.CSV"_s});
}

TEST_F(ListWindow, AListThatBreaksOffIsToldBelow)
{
    QByteArray lines = "Address,City\n";
    for (int i = 0; i < 2000; ++i)
        lines += QByteArray::number(i) + " Ash St,Cedar\n";
    home.disk.WriteWhole(kList, lines + "1 Elm St,\"Cedar\n");
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        Next([&] { Press(u"cmdGo"_s); }); // the lines that it looked at are good
        Press(u"cmdRehearse"_s);
        EXPECT_EQ(Says(), u"Line 2002: a quote is never closed."_s);
        EXPECT_TRUE(doubles.prompter.Boxes().empty());
        home.disk.WriteWhole(kList, lines);
        Next([&] { Press(u"cmdGo"_s); });
        doubles.pump.onTurn = [&] {
            if (The<QPushButton>(u"cmdStop"_s).isVisible())
                Press(u"cmdStop"_s);
        };
        Press(u"cmdRehearse"_s);
        doubles.pump.onTurn = {};
        EXPECT_EQ(Says(), u"Canceled: nothing came in."_s);
    });
    EXPECT_FALSE(doubles.screens.Shown().contains(u"frm_Rehearse"_s));
    EXPECT_EQ(Records().size(), 1);
}

TEST_F(ListWindow, ShowsAListThatHasNoLines)
{
    home.disk.WriteWhole(kList, "\r\n");
    Play([&] {
        ClickFile(u"SALES.CSV"_s);
        Next([&] {
            EXPECT_EQ(Says(), kList + u" has no line of headings."_s);
            Press(u"cmdGo"_s);
            EXPECT_TRUE(window->isVisible());
            Press(u"cmdExit"_s);
        });
        Press(u"cmdRehearse"_s);
    });
}

} // namespace
} // namespace vasclip::windows
