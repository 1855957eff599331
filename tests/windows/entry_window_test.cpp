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
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTest>

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
