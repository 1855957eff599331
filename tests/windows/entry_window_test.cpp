#include "databook/entry_screen.h"
#include "databook/frm_calendar.h"
#include "support/databook_home.h"
#include "windows/guard.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTest>
#include <QToolButton>
#include <QWindow>

// The window of every entry screen, on a comp of a Databook.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class EntryWindows : public tests::DatabookHome
{
protected:
    EventGuard guard{doubles.prompter, {}};
    QSettings settings{dir.filePath(u"view.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};
    databook::EntryDesk desk{ports, engine, path, table, {u"Marlow, WA  98210  Skagit"_s}, nullptr};

    void SetUp() override
    {
        DatabookHome::SetUp();
        Values values;
        for (const store::CompsColumn& column : store::CompsColumns())
            if (column.size > 0)
                values.append({QString(column.name), QString(column.heading).left(column.size)});
        const std::pair<QString, QString> own[] = {{key, u"101 OAK ST"_s.leftJustified(35)},
                                                   {u"ADDRESS"_s, u"101 Oak St"_s},
                                                   {u"CITY"_s, u"Ferndale"_s},
                                                   {u"ST"_s, u"WA"_s},
                                                   {u"ZIP"_s, u"98248"_s},
                                                   {u"SELLINGPR"_s, u"389000"_s},
                                                   {u"GLA"_s, u"1860"_s},
                                                   {u"SALEDATE"_s, u"3/7/2004"_s},
                                                   {u"LEASEDATE"_s, u"3/7/2004"_s},
                                                   {u"YEARBUILT"_s, u"1985"_s},
                                                   {u"LOADDATE"_s, u"4/1/2004"_s},
                                                   {u"AGE"_s, u"19"_s}};
        for (const auto& [field, value] : own)
            for (auto& pair : values)
                if (pair.first == field)
                    pair.second = value;
        AddRow(values);
    }

    struct Shown
    {
        Shown(EntryWindows& test, const databook::EntryForm& form)
            : record(test.desk, form.secondPage ? databook::EntryForms().front() : form, u"101 OAK ST"_s)
            , screen(test.desk, form, record)
        {
            screen.Open();
            window = std::make_unique<ScreenWindow>(screen, test.guard);
        }
        databook::EntryRecord record;
        databook::EntryScreen screen;
        std::unique_ptr<ScreenWindow> window;
    };
};

TEST_F(EntryWindows, EachShowsEveryControlOfItsScreen)
{
    for (const databook::EntryForm& form : databook::EntryForms()) {
        Shown shown(*this, form);
        EXPECT_TRUE(shown.window->Leftovers().isEmpty())
            << form.screen.data() << "\n"
            << shown.window->Leftovers().join(u'\n').toStdString();
        for (const auto& box : shown.screen.Boxes()) {
            auto* widget = shown.window->findChild<QWidget*>(box->box.ObjectName());
            ASSERT_NE(widget, nullptr) << box->field.toStdString();
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << box->field.toStdString();
        }
    }
}

constexpr int kPadding = 9; ///< of a box, with its frame

TEST_F(EntryWindows, EachOpensWithAllOfItsBoxesInSight)
{
    QDialog().ensurePolished(); // the main window has brought the style sheet
    for (const databook::EntryForm& form : databook::EntryForms()) {
        Shown shown(*this, form);
        shown.window->show();
        QCoreApplication::processEvents();
        const auto* scroller = shown.window->findChild<QScrollArea*>();
        EXPECT_EQ(scroller->horizontalScrollBar()->maximum(), 0) << form.screen.data();
        EXPECT_EQ(scroller->verticalScrollBar()->maximum(), 0) << form.screen.data();
        shown.window->resize(1280 - 48, 720 - 48); // of a small screen
        QCoreApplication::processEvents();
        EXPECT_EQ(scroller->horizontalScrollBar()->maximum(), 0) << form.screen.data() << " on a small screen";
        for (const auto& box : shown.screen.Boxes()) {
            const auto* edit = shown.window->findChild<QLineEdit*>(box->box.ObjectName());
            if (edit == nullptr || !box->field.contains("DATE"_L1))
                continue;
            const int text = edit->fontMetrics().horizontalAdvance(u"12/30/2026"_s);
            EXPECT_GE(edit->width(), text + 2 * kPadding) << box->field.toStdString();
        }
    }
}

TEST_F(EntryWindows, EnterWalksTheBoxesInTheOrderOfTheForm)
{
    for (const databook::EntryForm& form : databook::EntryForms()) {
        Shown shown(*this, form);
        shown.window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(shown.window.get()));
        const auto& boxes = shown.screen.Boxes();
        auto* first = shown.window->findChild<QWidget*>(boxes.front()->box.ObjectName());
        first->setFocus();
        for (std::size_t i = 0; i + 1 < boxes.size(); ++i) {
            QWidget* now = QApplication::focusWidget();
            ASSERT_NE(now, nullptr);
            ASSERT_EQ(now->objectName(), boxes[i]->box.ObjectName()) << form.screen.data();
            QTest::keyClick(now, Qt::Key_Return);
            QCoreApplication::processEvents();
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), boxes[boxes.size() - 2]->box.ObjectName());
        EXPECT_TRUE(shown.screen.IsOpen());
    }
}

TEST_F(EntryWindows, TypingStopsAtTheFieldsSize)
{
    Shown shown(*this, databook::EntryForms().front());
    shown.window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown.window.get()));
    auto* city = shown.window->findChild<QLineEdit*>(u"txtCity"_s);
    city->setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    EXPECT_EQ(city->selectedText(), u"Ferndale"_s);
    QTest::keyClicks(city, QString(60, u'w'));
    EXPECT_EQ(city->text(), QString(25, u'w'));
    EXPECT_EQ(shown.screen.Box("CITY"_L1)->Text(), QString(25, u'w'));
}

TEST_F(EntryWindows, NotesStopAtTheFieldsSizeAndKeepTheirLineEnds)
{
    Shown shown(*this, databook::SecondPage());
    shown.window->show();
    forms::TextBox& box = *shown.screen.Box("NOTES"_L1);
    box.SetText(u"one\r\ntwo"_s);
    auto* notes = shown.window->findChild<QPlainTextEdit*>(u"txtNotes"_s);
    EXPECT_EQ(notes->toPlainText(), u"one\ntwo"_s);
    EXPECT_EQ(box.Text(), u"one\r\ntwo"_s) << "showing changes nothing";
    notes->selectAll();
    notes->insertPlainText(QString(400, u'n'));
    EXPECT_EQ(notes->toPlainText(), QString(255, u'n'));
    EXPECT_EQ(box.Text(), QString(255, u'n'));
}

TEST_F(EntryWindows, LeavingTheSaleDateMakesItADate)
{
    Shown shown(*this, databook::EntryForms().front());
    shown.window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown.window.get()));
    auto* date = shown.window->findChild<QLineEdit*>(u"txtSaleDate"_s);
    date->setFocus();
    QCoreApplication::processEvents();
    date->selectAll();
    QTest::keyClicks(date, u"soon"_s);
    QTest::keyClick(date, Qt::Key_Tab);
    EXPECT_EQ(date->text(), u"1/1/1900"_s);
}

/// A date typed with the keys and left with Tab.
void TypeDate(QWidget& box, const QString& text)
{
    box.setFocus();
    QCoreApplication::processEvents();
    static_cast<QLineEdit&>(box).selectAll();
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Tab);
    QCoreApplication::processEvents();
}

TEST_F(EntryWindows, EveryDateSaysAtOnceWhatBecameOfItAndGivesItBack)
{
    int dates = 0;
    for (const databook::EntryForm& form : databook::EntryForms()) {
        Shown shown(*this, form);
        shown.window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(shown.window.get()));
        for (const auto& box : shown.screen.Boxes()) {
            if (box->row.kind != databook::EntryKind::Date)
                continue;
            SCOPED_TRACE(form.screen.data() + (" " + box->field.toStdString()));
            ++dates;
            const QString stem = box->box.ObjectName().mid(3);
            auto* edit = shown.window->findChild<QLineEdit*>(box->box.ObjectName());
            auto* words = shown.window->findChild<QLabel*>(u"lbl"_s + stem + u"Note"_s);
            auto* back = shown.window->findChild<QToolButton*>(u"cmd"_s + stem + u"Back"_s);
            ASSERT_TRUE(edit && words && back);
            EXPECT_FALSE(words->isVisible());
            EXPECT_FALSE(back->isVisible());

            TypeDate(*edit, u"13/45/2026"_s);
            EXPECT_TRUE(words->isVisible());
            EXPECT_TRUE(words->text().startsWith(u"\"13/45/2026\" is not understood as a date;"_s))
                << words->text().toStdString();
            const int gap = words->mapTo(shown.window.get(), QPoint()).y() -
                            edit->mapTo(shown.window.get(), QPoint(0, edit->height())).y();
            EXPECT_GE(gap, 0);
            EXPECT_LE(gap, edit->height()) << "right below its box";
            EXPECT_GE(words->height(), words->heightForWidth(words->width())) << "nothing is cut off";

            if (box->field == "LOADDATE"_L1) { // which keeps its text until the screen is left
                EXPECT_EQ(edit->text(), u"13/45/2026"_s);
                EXPECT_FALSE(back->isVisible());
                continue;
            }
            QTest::mouseClick(back, Qt::LeftButton);
            QCoreApplication::processEvents();
            EXPECT_EQ(edit->text(), u"13/45/2026"_s);
            EXPECT_TRUE(edit->hasFocus());
            EXPECT_FALSE(words->isVisible());

            QTest::keyClick(edit, Qt::Key_Tab);
            QCoreApplication::processEvents();
            EXPECT_TRUE(words->isVisible()) << "still no date";
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
            QCoreApplication::processEvents();
            EXPECT_TRUE(edit->hasFocus());
            QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
            QCoreApplication::processEvents();
            EXPECT_EQ(edit->text(), u"13/45/2026"_s);
            EXPECT_FALSE(words->isVisible());
            QTest::keyClick(edit, Qt::Key_End);
            QTest::keyClick(edit, Qt::Key_Backspace);
            QTest::keyClicks(edit, u"z"_s);
            EXPECT_EQ(edit->text(), u"13/45/202z"_s) << "the letter alone is a letter";
        }
    }
    EXPECT_EQ(dates, 7) << "one on each screen";
}

/// The words push down what stands below them: a button that was pressed meanwhile is pressed all the same.
TEST_F(EntryWindows, ThePressThatLeavesADateStillReachesItsButton)
{
    Shown shown(*this, databook::EntryForms().front());
    shown.window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown.window.get()));
    auto* date = shown.window->findChild<QLineEdit*>(u"txtSaleDate"_s);
    date->setFocus();
    QCoreApplication::processEvents();
    date->selectAll();
    QTest::keyClicks(date, u"13/45/2026"_s);
    auto* save = shown.window->findChild<QPushButton*>(u"cmdSave"_s);
    QWindow* window = shown.window->windowHandle();
    const QPoint at = save->mapTo(shown.window.get(), save->rect().center());
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    QTest::qWait(20); // the window lays itself out anew
    QTest::mouseRelease(window, Qt::LeftButton, {}, at);
    QCoreApplication::processEvents();
    EXPECT_EQ(shown.screen.lblmsg.Caption(), u"The record was saved."_s);
    EXPECT_EQ(date->text(), u"01/01/1900"_s);
    auto* words = shown.window->findChild<QLabel*>(u"lblSaleDateNote"_s);
    EXPECT_TRUE(words->isVisible()) << "what was stored is not what was typed";
    auto* back = shown.window->findChild<QToolButton*>(u"cmdSaleDateBack"_s);
    QTest::mouseClick(window, Qt::LeftButton, {}, back->mapTo(shown.window.get(), back->rect().center()));
    EXPECT_EQ(date->text(), u"13/45/2026"_s);
}

TEST_F(EntryWindows, APriceThatIsNoneIsSaidBesideItAndKeepsTheFocus)
{
    Shown shown(*this, databook::EntryForms().front());
    shown.window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown.window.get()));
    auto* price = shown.window->findChild<QLineEdit*>(u"txtSellingPr"_s);
    TypeDate(*price, u"250K"_s);
    EXPECT_EQ(price->text(), u"250K"_s);
    auto* words = shown.window->findChild<QLabel*>(u"lblSellingPrNote"_s);
    EXPECT_TRUE(words->isVisible());
    EXPECT_FALSE(shown.window->findChild<QToolButton*>(u"cmdSellingPrBack"_s)->isVisible());
    QTest::mouseClick(shown.window->findChild<QPushButton*>(u"cmdExit"_s), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(shown.screen.IsOpen());
    EXPECT_TRUE(price->hasFocus());
    QTest::keyClicks(price, u"$250,000"_s);
    QTest::keyClick(price, Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(price->text(), u"250000"_s);
    EXPECT_FALSE(words->isVisible());
}

TEST_F(EntryWindows, PicturesForEyes)
{
    const QString wish = qEnvironmentVariable("VASCLIP_SHOTS");
    if (wish.isEmpty())
        GTEST_SKIP() << "set VASCLIP_SHOTS to write the pictures";
    const QString out = wish.contains(u'/') ? wish : u"out/shots"_s;
    ASSERT_TRUE(QDir().mkpath(out));
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        for (const databook::EntryForm& form : databook::EntryForms()) {
            Shown shown(*this, form);
            shown.window->show();
            QTest::qWait(30);
            EXPECT_TRUE(shown.window->grab().save(u"%1/%2-%3.png"_s.arg(out, form.screen, name)));
            for (const auto& [field, text] : {std::pair{"SALEDATE"_L1, u"13/45/2026"_s},
                                              {"LEASEDATE"_L1, u"30/3/04"_s},
                                              {"LOADDATE"_L1, u"last week"_s},
                                              {"SELLINGPR"_L1, u"250K"_s},
                                              {"GLA"_L1, u"big"_s}})
                if (forms::TextBox* box = shown.screen.Box(field)) {
                    box->SetText(text);
                    Q_EMIT box->LostFocus();
                }
            QTest::qWait(30);
            EXPECT_TRUE(shown.window->grab().save(u"%1/%2-notes-%3.png"_s.arg(out, form.screen, name)));
        }
        databook::frm_Calendar calendar(ports, u"Sale Date"_s, QDate(2004, 3, 7));
        ScreenWindow window(calendar, guard);
        window.show();
        QTest::qWait(30);
        EXPECT_TRUE(window.grab().save(u"%1/frm_Calendar-%2.png"_s.arg(out, name)));
    }
    theme.Choose(ThemeChoice::System);
}

} // namespace
} // namespace vasclip::windows
