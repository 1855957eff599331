#include "platform/paper/painter.h"
#include "report_windows.h"
#include "upkeep/frm_crystal.h"
#include "upkeep/frm_report_preview.h"
#include "windows/paper_view.h"
#include "windows/send_to_printer.h"

#include <QComboBox>
#include <QFileDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QWheelEvent>

// Printing as a person does it: the menu entry, the options, the preview.

namespace vasclip::windows {

namespace {

using namespace Qt::Literals::StringLiterals;

class PrintWindows : public PlayedScreen
{
protected:
    QTemporaryDir out;

    void SetUp() override
    {
        PlayedScreen::SetUp();
        StartProgram();
        ASSERT_TRUE(main.sources.datsql.Bound());
    }
    /// Chooses the menu entry and plays on its window.
    void OnOptions(const std::function<void()>& script)
    {
        PlayOn(u"frm_Crystal"_s, [&] { main.mnuFileItem.Choose(u"mnuFileItem"_s, 9); }, [&] {
            ExpectOwnAccessKeys();
            script();
        });
    }
    /// Presses Print on the options and plays on the preview.
    void OnPreview(const std::function<void(upkeep::frm_ReportPreview&)>& script)
    {
        OnOptions([&] {
            PlayOn(u"frm_ReportPreview"_s, [&] { Press(u"cmdPrint"_s); }, [&](forms::Screen& screen) {
                ExpectOwnAccessKeys();
                script(dynamic_cast<upkeep::frm_ReportPreview&>(screen));
            });
        });
    }
    /// Down the list by its keys.
    void Choose(const QString& box, const QString& line) const
    {
        auto& combo = The<QComboBox>(box);
        QTest::keyClick(&combo, Qt::Key_Home);
        while (combo.currentText() != line && combo.currentIndex() + 1 < combo.count())
            QTest::keyClick(&combo, Qt::Key_Down);
        EXPECT_EQ(combo.currentText(), line);
    }
    void Wait(const upkeep::frm_ReportPreview& preview) const
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !preview.lblPages.Caption().contains(u"more"_s); }));
    }
    void ExpectOwnAccessKeys() const
    {
        QApplication::processEvents();
        QSet<QChar> marks;
        const auto take = [&](const QString& text) {
            const qsizetype at = text.indexOf(u'&');
            if (at < 0)
                return;
            EXPECT_FALSE(marks.contains(text[at + 1].toUpper())) << text.toStdString();
            marks.insert(text[at + 1].toUpper());
        };
        for (const auto* button : window->findChildren<QAbstractButton*>())
            take(button->text());
        for (const auto* label : window->findChildren<QLabel*>())
            if (label->buddy())
                take(label->text());
    }
};

TEST_F(PrintWindows, TheOptionsFollowThePointer)
{
    OnOptions([&] {
        EXPECT_EQ(window->windowTitle(), u"Report Print Options"_s);
        EXPECT_TRUE(The<QRadioButton>(u"optSelected_0"_s).isChecked());
        QTest::mouseClick(&The<QRadioButton>(u"optSelected_2"_s), Qt::LeftButton, {}, QPoint(8, 8));
        EXPECT_TRUE(The<QRadioButton>(u"optSelected_2"_s).isChecked());
        EXPECT_FALSE(The<QRadioButton>(u"optSelected_0"_s).isChecked());
        QTest::mouseClick(&The<QRadioButton>(u"optSelected_2"_s), Qt::LeftButton, {}, QPoint(8, 8));
        EXPECT_TRUE(The<QRadioButton>(u"optSelected_2"_s).isChecked())
            << "a choice is not taken back by its own click";
        EXPECT_EQ(The<QLabel>(u"lblRecordCount"_s).text(), QString::number(main.sources.datsql.Count()));
    });
}

TEST_F(PrintWindows, ThePreviewIsThePaperPixelByPixel)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Wait(preview);
        Choose(u"cboZoom"_s, u"100 %"_s);
        QApplication::processEvents();
        const auto& view = The<PaperView>(u"paperView"_s);
        const QImage wanted = paper::Picture(preview.Sheet(), preview.Shown(), 96 * view.devicePixelRatioF(),
                                             preview.Pictures());
        EXPECT_EQ(view.Shown().convertToFormat(QImage::Format_RGB32).size(), wanted.size());
        QImage shown = view.Shown();
        shown.setDevicePixelRatio(1);
        EXPECT_EQ(shown, wanted);
        EXPECT_EQ(wanted.pixel(2, 2), qRgb(255, 255, 255));
    });
}

TEST_F(PrintWindows, KeysTurnThePagesAndTheWheelZooms)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 120; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Choose(u"cboLayout"_s, u"Extended"_s);
        Wait(preview);
        ASSERT_GT(preview.Pages(), 2);
        auto& view = The<PaperView>(u"paperView"_s);
        QTest::keyClick(&view, Qt::Key_PageDown);
        EXPECT_EQ(The<QLineEdit>(u"txtPage"_s).text(), u"2"_s);
        QTest::keyClick(&view, Qt::Key_PageUp);
        EXPECT_EQ(The<QLineEdit>(u"txtPage"_s).text(), u"1"_s);
        QTest::keyClick(&view, Qt::Key_End);
        EXPECT_EQ(The<QLineEdit>(u"txtPage"_s).text(), QString::number(preview.Pages()));
        QTest::keyClick(&view, Qt::Key_Home);
        EXPECT_EQ(The<QLineEdit>(u"txtPage"_s).text(), u"1"_s);
        const QSize before = view.Shown().size();
        const QPointF middle(view.viewport()->rect().center());
        QWheelEvent wheel(middle, view.viewport()->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &wheel);
        EXPECT_NE(view.Shown().size(), before);
        EXPECT_NE(The<QComboBox>(u"cboZoom"_s).currentText(), u"Whole page"_s);
    });
}

TEST_F(PrintWindows, SaveAsPdfAsksForItsNameAndMakesIt)
{
    const QString file = out.filePath(u"mine"_s);
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        QTimer::singleShot(100, qApp, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_TRUE(dialog->selectedFiles().value(0).endsWith(u".pdf"_s));
            dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(file);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        Press(u"cmdPDF"_s);
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report is in %1.pdf."_s.arg(file));
    });
    QFile made(file + u".pdf"_s);
    ASSERT_TRUE(made.open(QIODevice::ReadOnly)) << "the extension was added";
    EXPECT_TRUE(made.readAll().startsWith("%PDF-"));
}

TEST_F(PrintWindows, AnEmptySearchIsAPageThatSaysSo)
{
    main.records.state.sqlText = u"SELECT * FROM COMPS WHERE CITY = 'Nowhere'"_s;
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Wait(preview);
        EXPECT_EQ(The<QLabel>(u"lblPages"_s).text(), u"of 1"_s);
        EXPECT_FALSE(The<QPushButton>(u"cmdNext"_s).isEnabled());
        EXPECT_FALSE(preview.Shown().texts.isEmpty());
    });
}

TEST_F(PrintWindows, AllPagesArePrintedAlsoWhileTheyAreCounted)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 400; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    const QString file = out.filePath(u"printed.pdf"_s);
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Choose(u"cboLayout"_s, u"Extended"_s);
        const int counted = preview.Pages();
        ASSERT_TRUE(preview.lblPages.Caption().contains(u"more"_s)) << "the count still runs";
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        SendToPrinter(preview, printer);
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report was sent to the printer."_s);
        Wait(preview);
        EXPECT_GT(preview.Pages(), counted);
        QFile made(file);
        ASSERT_TRUE(made.open(QIODevice::ReadOnly));
        EXPECT_EQ(made.readAll().count("/Type /Page\n"), preview.Pages());
    });
}

TEST_F(PrintWindows, ThePagesThatWereChosenArePrintedAndNoneBetweenThem)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 200; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    const QString file = out.filePath(u"printed.pdf"_s);
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Wait(preview);
        ASSERT_GE(preview.Pages(), 4);
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setPrintRange(QPrinter::PageRange);
        printer.setPageRanges(QPageRanges::fromString(u"1,4"_s));
        SendToPrinter(preview, printer);
    });
    QFile made(file);
    ASSERT_TRUE(made.open(QIODevice::ReadOnly));
    EXPECT_EQ(made.readAll().count("/Type /Page\n"), 2);
}

TEST_F(PrintWindows, MoreThanFiveHundredRecordsAsk)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 500; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    doubles.prompter.Answer(forms::Answer::No);
    OnOptions([&] {
        Press(u"cmdPrint"_s);
        ASSERT_EQ(doubles.prompter.Boxes().size(), 1);
        const tests::ShownBox asked = doubles.prompter.Last();
        EXPECT_EQ(asked.title, u"Output Report Record Count"_s);
        EXPECT_EQ(asked.text, u"You have more than 500 records queued for printing (Exact count = 501 )\r\n"
                              u"Do you with to Continue ?"_s);
        EXPECT_EQ(asked.buttons, forms::Buttons::YesNoCancel);
    });
    EXPECT_FALSE(doubles.screens.Shown().contains(u"frm_ReportPreview"_s));
}

TEST_F(PrintWindows, WithoutAPrinterItSaysWhatToDo)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "this computer has printers";
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Press(u"cmdPrint"_s);
        EXPECT_TRUE(preview.lblmsg.Caption().contains(u"save the report as a PDF"_s));
    });
}

TEST_F(PrintWindows, FindMarksWhatItFinds)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Wait(preview);
        const QImage before = The<PaperView>(u"paperView"_s).Shown();
        QTest::keyClick(window, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(&The<QLineEdit>(u"txtFind"_s), u"address"_s);
        QTest::keyClick(&The<QLineEdit>(u"txtFind"_s), Qt::Key_Return);
        EXPECT_TRUE(window->isVisible()) << "Return looks and closes nothing";
        EXPECT_FALSE(preview.Found().isEmpty());
        EXPECT_NE(The<PaperView>(u"paperView"_s).Shown(), before);
    });
}

TEST_F(PrintWindows, ReturnInFindGoesOnFindingAndWorkGivesTheFocusBack)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 200; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Wait(preview);
        QTest::keyClick(window, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(window->focusWidget(), u"z st"_s);
        for (const int page : {2, 3, 4}) {
            QTest::keyClick(window->focusWidget(), Qt::Key_Return);
            EXPECT_EQ(Text(u"txtPage"_s), QString::number(page));
        }
        EXPECT_EQ(window->focusWidget(), &The<QLineEdit>(u"txtFind"_s));
        preview.SavePdf(out.filePath(u"focus.pdf"_s));
        EXPECT_EQ(window->focusWidget(), &The<QPushButton>(u"cmdPDF"_s));
    });
}

TEST_F(PrintWindows, NothingOfThePageCanBePressedWhileItWorks)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 200; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Wait(preview);
        The<QLineEdit>(u"txtPage"_s).setFocus();
        bool looked = false;
        doubles.pump.onTurn = [&] {
            looked = true;
            EXPECT_FALSE(preview.cmdNext.Enabled());
            EXPECT_EQ(window->focusWidget(), &The<QPushButton>(u"cmdStop"_s));
        };
        preview.SavePdf(out.filePath(u"quiet.pdf"_s));
        doubles.pump.onTurn = {};
        EXPECT_TRUE(looked);
        EXPECT_TRUE(preview.cmdNext.Enabled());
    });
}

TEST_F(PrintWindows, TheGridsButtonOpensTheOptionsToo)
{
    EXPECT_TRUE(main.records.cmdPrint.Enabled());
    PlayOn(u"frm_Crystal"_s, [&] { Q_EMIT main.records.cmdPrint.Clicked(); }, [] {});
}

TEST_F(PrintWindows, ANumberThatIsTypedWhileThePagesAreCountedStays)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 400; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Choose(u"cboLayout"_s, u"Extended"_s);
        Type(u"txtPage"_s, u"2"_s);
        ASSERT_TRUE(preview.lblPages.Caption().contains(u"more"_s)) << "the count still runs";
        Wait(preview);
        EXPECT_EQ(Text(u"txtPage"_s), u"2"_s);
        QTest::keyClick(&The<QLineEdit>(u"txtPage"_s), Qt::Key_Return);
        EXPECT_EQ(Text(u"txtPage"_s), u"2"_s);
        QTest::keyClick(&The<PaperView>(u"paperView"_s), Qt::Key_PageDown);
        EXPECT_EQ(Text(u"txtPage"_s), u"3"_s);
    });
}

TEST_F(PrintWindows, AReportThatCanNotBeReadAnyMoreIsToldOnceAndEndsNothing)
{
    const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
    for (int i = 1; i <= 400; ++i)
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Choose(u"cboLayout"_s, u"Extended"_s); // whose pages take a while to count
        ASSERT_TRUE(preview.lblPages.Caption().contains(u"more"_s)) << "the count still runs";
        QFile report(home.disk.ToNative(u"C:\\VAS2000\\Report_Brief.mdb"_s));
        ASSERT_TRUE(report.resize(8192)); // a disk that fails, or somebody who cleans up
        EXPECT_TRUE(QTest::qWaitFor([&] { return !doubles.prompter.Boxes().empty(); }));
        QTest::qWait(50);
        EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << doubles.prompter.Texts().join(u'|').toStdString();
        QTest::keyClick(&The<PaperView>(u"paperView"_s), Qt::Key_End);
        EXPECT_EQ(doubles.prompter.Boxes().size(), 2U) << doubles.prompter.Texts().join(u'|').toStdString();
        EXPECT_TRUE(The<QPushButton>(u"cmdExit"_s).isEnabled());
    });
}

TEST_F(PrintWindows, ALayoutThatIsEditedBesideThePreviewIsReadWhenItIsChosenOnceMore)
{
    const auto write = [&](const char* text) {
        home.MakeDirs(u"C:\\VAS2000\\REPORTS"_s);
        home.Put(u"C:\\VAS2000\\REPORTS\\mine.layout"_s, text);
    };
    const auto shown = [](const upkeep::frm_ReportPreview& preview) {
        QStringList texts;
        for (const paper::TextItem& item : preview.Shown().texts)
            texts.append(item.text);
        return texts.join(u'|');
    };
    write("layout \"Mine\"\ncolumn CITY \"Town\"\n");
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Choose(u"cboLayout"_s, u"Mine (mine)"_s);
        EXPECT_TRUE(shown(preview).contains(u"Town"_s)) << shown(preview).toStdString();
        write("layout \"Mine\"\ncolumn CITY \"Village\"\n");
        Wait(preview);
        preview.SavePdf(out.filePath(u"before.pdf"_s));
        EXPECT_TRUE(shown(preview).contains(u"Town"_s)) << "what is looked at is what is saved";
        const auto again = [&] { // as the list raises it where the line that is on show is chosen
            auto& combo = The<QComboBox>(u"cboLayout"_s);
            Q_EMIT combo.activated(combo.currentIndex());
        };
        again();
        EXPECT_TRUE(shown(preview).contains(u"Village"_s)) << shown(preview).toStdString();
        write("column CITTY\n");
        again();
        EXPECT_TRUE(Says().contains(u"Did you mean CITY?"_s)) << Says().toStdString();
        EXPECT_TRUE(shown(preview).contains(u"Village"_s));
        QFile::remove(home.disk.ToNative(u"C:\\VAS2000\\REPORTS\\mine.layout"_s));
        again();
        EXPECT_TRUE(Says().contains(u"There is no report layout 'mine'"_s)) << Says().toStdString();
        EXPECT_TRUE(shown(preview).contains(u"Village"_s));
    });
}

TEST_F(PrintWindows, WhatAnotherProgramStoresBehindThePreviewChangesNoPage)
{
    const QString file = out.filePath(u"printed.csv"_s);
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        Wait(preview);
        const int texts = static_cast<int>(preview.Shown().texts.size());
        engine::Engine other{home.disk, tests::SomeTime()};
        const auto theirs = other.OpenDatabase(shell::kDatabook);
        theirs->Execute(u"UPDATE COMPS SET ADDRESS = 'Elsewhere', CITY = 'Elsewhere'"_s);
        theirs->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('9 NEW ST', '9 New St')"_s);
        preview.SaveCsv(file);
        EXPECT_EQ(preview.Shown().texts.size(), texts);
        QFile made(file);
        ASSERT_TRUE(made.open(QIODevice::ReadOnly));
        const QByteArray said = made.readAll();
        EXPECT_TRUE(said.contains("12 Oak St")) << said.toStdString();
        EXPECT_FALSE(said.contains("Elsewhere"));
        EXPECT_FALSE(said.contains("9 New St"));
    });
}

} // namespace
} // namespace vasclip::windows
