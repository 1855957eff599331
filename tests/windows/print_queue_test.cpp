#include "platform/paper/sheet.h"
#include "private_queue.h"
#include "report_windows.h"
#include "upkeep/frm_crystal.h"
#include "upkeep/frm_report_preview.h"

#include <QComboBox>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTimer>

// From the preview through the printer's dialogue to what a printer of a real print service gets.

namespace vasclip::windows {

namespace {

class PrintQueues : public PlayedScreen
{
protected:
    PrivateQueue queue;

    void SetUp() override
    {
        PlayedScreen::SetUp();
        if (!queue.Start())
            GTEST_SKIP() << "no print service can be started here";
        StartProgram();
        ASSERT_TRUE(main.sources.datsql.Bound());
        const auto database = main.program.Engine().OpenDatabase(main.program.DatabookPath());
        for (int i = 1; i <= 200; ++i)
            database->Execute(u"INSERT INTO COMPS (CENTRALKEY, ADDRESS) VALUES ('%1 Z ST', '%1 Z St')"_s.arg(i));
    }
    void OnPreview(const std::function<void(upkeep::frm_ReportPreview&)>& script)
    {
        PlayOn(u"frm_Crystal"_s, [&] { main.mnuFileItem.Choose(u"mnuFileItem"_s, 9); }, [&] {
            PlayOn(u"frm_ReportPreview"_s, [&] { Press(u"cmdPrint"_s); }, [&](forms::Screen& screen) {
                script(dynamic_cast<upkeep::frm_ReportPreview&>(screen));
            });
        });
    }
    /// Presses Print, chooses in the dialogue and agrees to it.
    void PrintWith(const std::function<void(QPrintDialog&)>& choose)
    {
        bool came = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            came = true;
            choose(*dialog);
            QTimer::singleShot(0, dialog, [] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    ADD_FAILURE() << box->text().toStdString();
                    box->reject();
                }
            });
            dialog->accept();
            EXPECT_FALSE(dialog->isVisible()) << "the dialogue does not take what was chosen";
            if (dialog->isVisible())
                dialog->reject();
        });
        Press(u"cmdPrint"_s);
        EXPECT_TRUE(came);
    }
    template <typename Widget> static Widget& In(const QWidget& dialog, const QString& name)
    {
        auto* found = dialog.findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }
    static qsizetype PagesOf(const QByteArray& pdf) { return pdf.count("/Type /Page\n"); }
    static QSize PaperOf(const QByteArray& pdf)
    {
        static const QRegularExpression box(u"/MediaBox \\[0 0 ([0-9]+)[0-9.]* ([0-9]+)"_s);
        const auto found = box.match(QString::fromLatin1(pdf));
        return {found.captured(1).toInt(), found.captured(2).toInt()};
    }
};

TEST_F(PrintQueues, ThePaperThatIsShownIsPrintedOn)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        preview.ChoosePaper(u"legal"_s, true);
        PrintWith([](QPrintDialog&) {});
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report was sent to the printer."_s);
        const QByteArray printed = queue.Printed();
        EXPECT_EQ(PaperOf(printed), QSize(1008, 612));
        EXPECT_EQ(PagesOf(printed), preview.Pages());
        EXPECT_TRUE(queue.Options().value(1).contains(u"media=Legal"_s)) << queue.Options().value(1).toStdString();
        EXPECT_TRUE(preview.optOrientation(1).Value()) << "nothing was chosen in the dialogue";
        EXPECT_EQ(preview.Sheet().name.toStdString(), "legal");
    });
}

TEST_F(PrintQueues, PagesThatWereTypedAreThosePrinted)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        PrintWith([&](QPrintDialog& dialog) {
            ASSERT_GE(preview.Pages(), 4);
            EXPECT_EQ(In<QSpinBox>(dialog, u"to"_s).value(), preview.Pages());
            In<QRadioButton>(dialog, u"pagesRadioButton"_s).click();
            In<QLineEdit>(dialog, u"pagesLineEdit"_s).setText(u"1,3-4"_s);
            In<QSpinBox>(dialog, u"copies"_s).setValue(2);
        });
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report was sent to the printer."_s);
    });
    EXPECT_EQ(PagesOf(queue.Printed()), 3);
    EXPECT_EQ(queue.Options().value(0), u"2"_s) << "copies";
    EXPECT_FALSE(queue.Options().value(1).contains(u"page-ranges"_s)) << "they would be chosen among the chosen ones";
}

TEST_F(PrintQueues, AnotherPaperInThePropertiesIsTheReportsFromThenOn)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        PrintWith([&](QPrintDialog& dialog) {
            QTimer::singleShot(0, qApp, [] {
                auto* properties = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                ASSERT_NE(properties, nullptr);
                In<QComboBox>(*properties, u"pageSizeCombo"_s).setCurrentText(u"A4"_s);
                In<QRadioButton>(*properties, u"portrait"_s).click();
                properties->accept();
            });
            In<QPushButton>(dialog, u"properties"_s).click();
        });
        EXPECT_EQ(preview.Sheet().name, u"a4"_s);
        EXPECT_FALSE(preview.Sheet().landscape);
        EXPECT_EQ(PaperOf(queue.Printed()), QSize(595, 842));
    });
}

TEST_F(PrintQueues, WhatDoesNotReachThePrinterIsNotSaidToHave)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        PrintWith([&](QPrintDialog&) { queue.Remove(); });
        EXPECT_EQ(preview.lblmsg.Caption(),
                  u"The printer has not taken the report: Kept is not there any more. Nothing was printed."_s);
        ASSERT_TRUE(queue.Add());
        queue.Refuse();
        PrintWith([](QPrintDialog&) {});
        EXPECT_TRUE(preview.lblmsg.Caption().startsWith(u"The printer has not taken the report: "_s))
            << preview.lblmsg.Caption().toStdString();
    });
    EXPECT_TRUE(queue.HasNothing());
}

TEST_F(PrintQueues, AStoppedPrinterIsTold)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        queue.Stop();
        PrintWith([](QPrintDialog&) {});
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report was sent to the printer. Kept is stopped: the report waits there until "
                                            "it is started again."_s);
    });
    EXPECT_TRUE(queue.HasNothing());
}

TEST_F(PrintQueues, APaperThatThePrinterDoesNotListIsTold)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        preview.ChoosePaper(u"tabloid"_s, false);
        PrintWith([](QPrintDialog&) {});
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report was sent to the printer. Kept does not list the paper Tabloid, 11 x 17 in: "
                                            "look at what it prints."_s);
        EXPECT_EQ(PaperOf(queue.Printed()), QSize(792, 1224));
    });
}

TEST_F(PrintQueues, APrinterThatKeepsAnotherPaperGetsNothing)
{
    OnPreview([&](upkeep::frm_ReportPreview& preview) {
        preview.ChoosePaper(u"legal"_s, true);
        doubles.prompter.Answer(forms::Answer::Abort);
        QPrinter printer; // refuses a layout without margins
        preview.PrintTo(printer, printer.resolution());
        EXPECT_TRUE(doubles.prompter.Last().text.contains(u"The printer does not take Legal, 8.5 x 14 in"_s))
            << doubles.prompter.Last().text.toStdString();
        EXPECT_EQ(preview.lblmsg.Caption(), QString());
    });
    EXPECT_TRUE(queue.HasNothing());
}

} // namespace
} // namespace vasclip::windows
