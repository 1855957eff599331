#include "databook/entry_screen.h"

#include "databook/frm_calendar.h"
#include "databook/load_comp_form.h"
#include "databook/messages.h"
#include "databook/number_text.h"
#include "forms/keys.h"
#include "support/databook_home.h"
#include "support/file_limit.h"
#include "support/unix.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <QFile>
#include <QHash>
#include <QThread>

#include <functional>
#include <utility>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The phrase keys of a test: remembers what it was told and answers as it was told to.
class Phrases : public comments::CommentPort
{
public:
    QStringList log;
    comments::KeyAnswer answer;
    QString phrase;

    void EntryOpened(forms::Screen& screen, comments::EntryKeys& entry) override
    {
        keys = &entry;
        log << u"open "_s + screen.Name();
    }
    void FieldEntered(comments::EntryKeys&, forms::TextBox&, const QString& dataField) override
    {
        log << u"enter "_s + dataField;
    }
    void FieldLeft() override { log << u"left"_s; }
    comments::KeyAnswer KeyDown(int keyCode, int shift, forms::TextBox& field,
                                const QString& dataField) override
    {
        log << u"key %1 %2 %3"_s.arg(keyCode).arg(shift).arg(dataField);
        if (!phrase.isEmpty())
            field.SetText(phrase);
        return answer;
    }
    forms::Screen& Frame() override { return frame; }
    comments::EntryKeys* keys = nullptr;
    forms::Screen frame{u"frm_FKey"_s};
};

/// The clock of the tests stands at 17 May 2024.
class Entry : public tests::DatabookHome
{
protected:
    const QString comp = u"101 OAK ST"_s;
    Phrases phrases;
    EntryDesk desk{ports, engine, path, table, {}, nullptr};

    void SetUp() override
    {
        DatabookHome::SetUp();
        AddRow({{key, comp.leftJustified(35)},
                {u"ADDRESS"_s, u"101 Oak St"_s.leftJustified(35)},
                {u"CITY"_s, u"Ferndale"_s},
                {u"SELLINGPR"_s, u"250000"_s},
                {u"GLA"_s, u"1600"_s},
                {u"YEARBUILT"_s, u"1985"_s},
                {u"AGE"_s, u"19"_s},
                {u"SALEDATE"_s, u"3/7/2004"_s},
                {u"SALESERIAL"_s, u" 38053"_s},
                {u"LOADDATE"_s, u"4/1/2004"_s},
                {u"LOADSERIAL"_s, u" 38078"_s}});
    }

    using Play = std::function<void(EntryScreen&)>;
    void Show(const Play& play, const QString& type = u"F"_s)
    {
        doubles.screens.Play([play](forms::Screen& screen) { play(dynamic_cast<EntryScreen&>(screen)); });
        changed = LoadCompForm(desk, comp, type);
    }
    bool changed = false;

    static void Click(forms::Control& control) { Q_EMIT control.Clicked(); }
    static void Type(EntryScreen& screen, QLatin1StringView field, const QString& text)
    {
        forms::TextBox& box = *screen.Box(field);
        Q_EMIT box.GotFocus();
        box.SetText(text);
        Q_EMIT box.LostFocus();
    }
    QString Field(const QString& field)
    {
        const auto rows = engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(key);
        rows->Seek(u"="_s, comp);
        return rows->NoMatch() ? u"(no record)"_s : rows->Value(field).toString();
    }
    void Elsewhere(const QString& field, const QString& value)
    {
        const auto rows = engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(key);
        rows->Seek(u"="_s, comp);
        rows->Edit();
        rows->SetValue(field, value);
        rows->Update();
    }
};

TEST_F(Entry, EachTypeOpensItsScreen)
{
    const std::pair<QString, QString> rows[] = {
        {u"F"_s, u"frm_CompMnt1"_s}, {u"C"_s, u"frm_CompMntC"_s}, {u"S"_s, u"frm_CompMntS"_s},
        {u"R"_s, u"frm_CompMntR"_s}, {u"L"_s, u"frm_CompMntL"_s}, {u"M"_s, u"frm_CompMntM"_s},
        {u" "_s, u"frm_CompMnt1"_s}, {u"X"_s, u"frm_CompMnt1"_s}, {QString(), u"frm_CompMnt1"_s}};
    for (const auto& [type, name] : rows)
        Show([name = name](EntryScreen& screen) { EXPECT_EQ(screen.Name(), name); }, type);
    EXPECT_FALSE(changed);
}

TEST_F(Entry, OpensOnItsRecord)
{
    desk.cities = {u"Marlow, WA  98210  Skagit"_s};
    Show([this](EntryScreen& screen) {
        EXPECT_EQ(screen.lblCentralKey.Caption(), comp);
        EXPECT_EQ(screen.Caption(), u"Single Family Comparable Description - 101 OAK ST"_s);
        EXPECT_EQ(screen.Box("ADDRESS"_L1)->Text(), u"101 Oak St"_s);
        EXPECT_EQ(screen.lblPriceGla.Caption(), u"156.25"_s);
        EXPECT_EQ(screen.cboCity->Items(), desk.cities);
        EXPECT_EQ(screen.cmdSave.Caption(), u"&Save"_s);
        EXPECT_EQ(screen.cmdCancel.Caption(), u"&Cancel"_s);
        EXPECT_EQ(screen.cmdExit.Caption(), u"E&xit"_s);
        EXPECT_EQ(screen.cmdPage2->Caption(), u"Page &2"_s);
        EXPECT_FALSE(screen.cmdPage1.has_value());
    });
    EXPECT_GT(doubles.pump.turns, 0);
}

TEST_F(Entry, ACompThatIsNotThereIsTold)
{
    doubles.screens.Play([](forms::Screen& screen) { EXPECT_FALSE(screen.IsOpen()); });
    EXPECT_FALSE(LoadCompForm(desk, u"9 NOWHERE LN"_s, u"F"_s));
    EXPECT_EQ(doubles.prompter.Last().text, kNoSuchAddress.arg(u"9 NOWHERE LN"_s));
}

TEST_F(Entry, LimitsComeFromTheFieldsOnFocus)
{
    Show([](EntryScreen& screen) {
        EXPECT_EQ(screen.Box("SELLINGPR"_L1)->MaxLength(), 7);
        EXPECT_EQ(screen.Box("AGE"_L1)->MaxLength(), 4);
        EXPECT_EQ(screen.Box("GLA"_L1)->MaxLength(), 5);
        for (const auto& box : screen.Boxes()) {
            Q_EMIT box->box.GotFocus();
            const store::CompsColumn* column = store::FindCompsColumn(box->field);
            EXPECT_EQ(box->box.MaxLength(), column->size) << box->field.toStdString();
        }
    });
    for (const QString& type : {u"S"_s, u"R"_s})
        Show(
            [](EntryScreen& screen) {
                for (const auto& box : screen.Boxes())
                    EXPECT_EQ(box->box.MaxLength(), store::FindCompsColumn(box->field)->size)
                        << box->field.toStdString();
            },
            type);
}

TEST_F(Entry, AStoredTextIsNeverCutToTheDrawnLimit)
{
    Elsewhere(u"SELLINGPR"_s, u"1234567890"_s);
    Show([](EntryScreen& screen) {
        EXPECT_EQ(screen.Box("SELLINGPR"_L1)->Text(), u"1234567890"_s);
        Click(screen.cmdExit);
    });
    EXPECT_EQ(Field(u"SELLINGPR"_s), u"1234567890"_s);
}

TEST_F(Entry, TheFocusTrimsAndSelects)
{
    Show([](EntryScreen& screen) {
        forms::TextBox& box = *screen.Box("CITY"_L1);
        int selected = 0;
        QObject::connect(&box, &forms::TextBox::SelectAllWanted, &box, [&selected] { ++selected; });
        box.SetText(u"  Marlow "_s);
        Q_EMIT box.GotFocus();
        EXPECT_EQ(box.Text(), u"Marlow"_s);
        EXPECT_EQ(selected, 1);
        box.SetText(u"Ferndale"_s);
    });
}

TEST_F(Entry, SaveStampsTheDayAndStays)
{
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Marlow"_s);
        Click(screen.cmdSave);
        EXPECT_TRUE(screen.IsOpen());
        EXPECT_EQ(screen.lblmsg.Caption(), kSaved);
        EXPECT_EQ(Field(u"CITY"_s), u"Marlow"_s);
        EXPECT_EQ(Field(u"MODIFIEDDATE"_s), u"5/17/2024"_s);
        EXPECT_EQ(Field(u"LOADDATE"_s), u"4/1/2004"_s);
        Click(screen.cmdCancel);
        EXPECT_FALSE(screen.IsOpen()) << "nothing has changed since it was saved";
    });
    EXPECT_TRUE(changed);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Entry, SaveKeepsTheSerialAndThePricePerAreaInStep)
{
    Show([this](EntryScreen& screen) {
        Type(screen, "SALEDATE"_L1, u"03/08/2004"_s);
        Type(screen, "SELLINGPR"_L1, u"320000"_s);
        Click(screen.cmdSave);
        EXPECT_EQ(Field(u"SALEDATE"_s), u"3/8/2004"_s);
        EXPECT_EQ(Field(u"SALESERIAL"_s).trimmed(), u"38054"_s);
        EXPECT_EQ(Field(u"PRICEGLA"_s), u"200."_s);
    });
}

TEST_F(Entry, ExitMakesTheRecordGood)
{
    Elsewhere(u"LOADDATE"_s, u"sometime"_s);
    Show([](EntryScreen& screen) {
        screen.Box("SELLINGPR"_L1)->SetMaxLength(0);
        Type(screen, "SELLINGPR"_L1, u"$320,000"_s);
        Type(screen, "GLA"_L1, u"1,600 sf"_s);
        Type(screen, "AGE"_L1, {});
        Click(screen.cmdExit);
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_TRUE(changed);
    EXPECT_EQ(Field(u"SELLINGPR"_s), u"320000"_s);
    EXPECT_EQ(Field(u"GLA"_s), u"1600"_s);
    EXPECT_EQ(Field(u"AGE"_s), u"0"_s);
    EXPECT_EQ(Field(u"PRICEGLA"_s), u"200."_s);
    EXPECT_EQ(Field(u"LOADDATE"_s), u"5/17/2024"_s);
    EXPECT_EQ(Field(u"LOADSERIAL"_s), u" 45429"_s);
    EXPECT_EQ(Field(u"MODIFIEDDATE"_s), u"5/17/2024"_s);
    EXPECT_EQ(Field(u"SALESERIAL"_s).trimmed(), u"38053"_s);
}

TEST_F(Entry, ZerosShowAndStoreZeroPerArea)
{
    Show([](EntryScreen& screen) {
        Type(screen, "SELLINGPR"_L1, u"0"_s);
        Type(screen, "GLA"_L1, u"0"_s);
        EXPECT_EQ(screen.lblPriceGla.Caption(), u"0"_s);
        Click(screen.cmdExit);
    });
    EXPECT_EQ(Field(u"PRICEGLA"_s), u"0"_s);
}

TEST_F(Entry, DatesInEveryWrongFormBecomeAPendingSale)
{
    doubles.prompter.AnswerAlways(forms::Answer::Yes); // to leave all the same
    for (const QString& text :
         {QString(), u"   "_s, u"soon"_s, u"13/45/2004"_s, u"2/30/2004"_s, u"12/30/1899"_s, u"3/7"_s,
          u"1/1"_s, u"2004"_s, u"//"_s, u"03.07.2004x"_s, u"\u0663/\u0667/2004"_s, u"3/7/2004\t\n;DROP"_s}) {
        Show([&](EntryScreen& screen) {
            Type(screen, "SALEDATE"_L1, text);
            EXPECT_EQ(screen.Box("SALEDATE"_L1)->Text(), u"1/1/1900"_s) << text.toStdString();
            Click(screen.cmdExit);
        });
        EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s) << text.toStdString();
        EXPECT_EQ(Field(u"SALESERIAL"_s), u" 2"_s) << text.toStdString();
        Elsewhere(u"SALEDATE"_s, u"3/7/2004"_s);
    }
}

/// The words beside a box; "" while there are none.
QString Note(EntryScreen& screen, QLatin1StringView field)
{
    for (const auto& box : screen.Boxes())
        if (box->row.field == field && box->note && box->note->label.Visible())
            return box->note->label.Caption();
    return {};
}

FieldNote& NoteOf(EntryScreen& screen, QLatin1StringView field)
{
    for (const auto& box : screen.Boxes())
        if (box->row.field == field)
            return *box->note;
    throw std::out_of_range("no such box");
}

TEST_F(Entry, WhatADateIsTakenForIsSaidBesideIt)
{
    struct Row
    {
        QString typed, shown, words;
    };
    const QString pending = u"\" is not understood as a date; it counts as 1/1/1900, a pending sale."_s;
    const Row rows[] = {
        {u"13/45/2026"_s, u"1/1/1900"_s, u"\"13/45/2026"_s + pending},
        {u"soon"_s, u"1/1/1900"_s, u"\"soon"_s + pending},
        {u"3/7"_s, u"1/1/1900"_s, u"\"3/7"_s + pending},
        {u"7/3/2030"_s, u"7/3/2030"_s,
         u"7/3/2030 lies in a year to come; it counts as 01/01/1900, a pending sale."_s},
        {u"7/3/1830"_s, u"7/3/1830"_s, u"7/3/1830 lies before 1900; it counts as 01/01/1900, a pending sale."_s},
        {u"30/3/04"_s, u"30/3/04"_s, u"\"30/3/04\" is read as 3/4/1930."_s},
        {u"25/3/2004"_s, u"25/3/2004"_s, u"\"25/3/2004\" is read as 3/25/2004."_s},
        {u"3/2004"_s, u"3/2004"_s, u"\"3/2004\" is read as 3/1/2004."_s},
        {u"03/08/2004"_s, u"03/08/2004"_s, QString()},
        {u"3/8/04"_s, u"3/8/04"_s, QString()},
        {u"01/01/1900"_s, u"01/01/1900"_s, QString()},
        {u"pending"_s, u"1/1/1900"_s, QString()},
        {QString(), u"1/1/1900"_s, QString()}};
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    for (const Row& row : rows) {
        Show([&](EntryScreen& screen) {
            Type(screen, "SALEDATE"_L1, row.typed);
            EXPECT_EQ(screen.Box("SALEDATE"_L1)->Text(), row.shown) << row.typed.toStdString();
            EXPECT_EQ(Note(screen, "SALEDATE"_L1), row.words);
            EXPECT_EQ(NoteOf(screen, "SALEDATE"_L1).back.Visible(),
                      !row.words.isEmpty() && row.shown != row.typed);
            Q_EMIT screen.Box("SALEDATE"_L1)->GotFocus(); // passing through says nothing new
            Q_EMIT screen.Box("SALEDATE"_L1)->LostFocus();
            EXPECT_EQ(Note(screen, "SALEDATE"_L1), row.words);
            Click(screen.cmdCancel);
        });
    }
    Show(
        [](EntryScreen& screen) {
            Type(screen, "LEASEDATE"_L1, u"never"_s);
            EXPECT_EQ(Note(screen, "LEASEDATE"_L1),
                      u"\"never\" is not understood as a date; it counts as 1/1/1900, no lease date."_s);
            Click(screen.cmdCancel);
        },
        u"R"_s);
}

TEST_F(Entry, TheTypedDateIsBroughtBackByButtonAndKey)
{
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    Show([this](EntryScreen& screen) {
        forms::TextBox& box = *screen.Box("SALEDATE"_L1);
        int focus = 0;
        QObject::connect(&box, &forms::Control::FocusWanted, &box, [&focus] { ++focus; });
        for (const bool saved : {false, true})
            for (const bool key : {false, true}) {
                Type(screen, "SALEDATE"_L1, u"13/45/2026"_s);
                if (saved) {
                    Click(screen.cmdSave);
                    EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s);
                    EXPECT_EQ(box.Text(), u"01/01/1900"_s);
                }
                EXPECT_TRUE(NoteOf(screen, "SALEDATE"_L1).back.Visible());
                EXPECT_TRUE(NoteOf(screen, "SALEDATE"_L1).back.ToolTipText().contains(u"13/45/2026"_s));
                focus = 0;
                if (key) {
                    bool handled = false;
                    Q_EMIT box.KeyPressed(forms::kKeyZ, forms::kCtrlMask, handled);
                    EXPECT_TRUE(handled);
                } else {
                    Click(NoteOf(screen, "SALEDATE"_L1).back);
                }
                EXPECT_EQ(box.Text(), u"13/45/2026"_s);
                EXPECT_EQ(focus, 1);
                EXPECT_EQ(Note(screen, "SALEDATE"_L1), QString());
                bool handled = false;
                Q_EMIT box.KeyPressed(forms::kKeyZ, forms::kCtrlMask, handled);
                EXPECT_FALSE(handled) << "nothing to bring back: the widget undoes";
                Type(screen, "SALEDATE"_L1, u"3/9/2004"_s);
                EXPECT_EQ(Note(screen, "SALEDATE"_L1), QString());
            }
        Click(screen.cmdCancel);
    });
}

TEST_F(Entry, ADateThatStandsAsTypedIsBroughtBackOnlyOnceItIsStored)
{
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    for (const auto& [typed, stored] :
         {std::pair{u"30/3/04"_s, u"3/4/1930"_s}, {u"7/3/2030"_s, u"01/01/1900"_s}})
        Show([&, typed = typed, stored = stored](EntryScreen& screen) {
            forms::TextBox& box = *screen.Box("SALEDATE"_L1);
            Type(screen, "SALEDATE"_L1, typed);
            bool handled = true;
            Q_EMIT box.KeyPressed(forms::kKeyZ, forms::kCtrlMask, handled);
            EXPECT_FALSE(handled);
            Click(screen.cmdSave);
            EXPECT_EQ(box.Text(), stored);
            EXPECT_NE(Note(screen, "SALEDATE"_L1), QString());
            Q_EMIT box.KeyPressed(forms::kKeyZ, forms::kCtrlMask, handled);
            EXPECT_TRUE(handled);
            EXPECT_EQ(box.Text(), typed);
            Click(screen.cmdCancel);
        });
}

TEST_F(Entry, LeavingWithADateThatIsNoneAsksFirst)
{
    Show([this](EntryScreen& screen) {
        screen.Box("SALEDATE"_L1)->SetText(u"13/45/2026"_s); // Alt+X leaves no box
        doubles.prompter.Answer(forms::Answer::No);
        Click(screen.cmdExit);
        EXPECT_EQ(doubles.prompter.Last(),
                  (tests::ShownBox{forms::Buttons::YesNo, forms::Icon::Question, u"Vasclip"_s,
                                   u"Sale Date: \"13/45/2026\" is not understood as a date; it counts as 1/1/1900, a "
                                   u"pending sale.\n\nDo you want to store that and leave?"_s}));
        EXPECT_TRUE(screen.IsOpen());
        EXPECT_EQ(screen.Box("SALEDATE"_L1)->Text(), u"13/45/2026"_s) << "to be put right";
        EXPECT_EQ(Field(u"SALEDATE"_s), u"3/7/2004"_s);
        doubles.prompter.Answer(forms::Answer::Yes);
        Click(screen.cmdExit);
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U);
    Show([](EntryScreen& screen) { // the record is pending already: what was typed is lost all the same
        Type(screen, "SALEDATE"_L1, u"13/45/2026"_s);
        Click(screen.cmdSave);
        Click(screen.cmdExit);
        EXPECT_FALSE(screen.IsOpen()) << "what was stored and told is not asked about again";
    });
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U);
}

TEST_F(Entry, TheLoadDateSaysWhatExitMakesOfIt)
{
    Show([this](EntryScreen& screen) {
        doubles.screens.Play([this](forms::Screen& shown) {
            auto& second = dynamic_cast<EntryScreen&>(shown);
            Type(second, "LOADDATE"_L1, u"13/2/4"_s);
            EXPECT_EQ(Note(second, "LOADDATE"_L1), u"\"13/2/4\" is read as 2/4/2013."_s);
            second.Box("LOADDATE"_L1)->SetText(u"last week"_s);
            EXPECT_EQ(Note(second, "LOADDATE"_L1), QString()) << "the words were about the other text";
            Click(*second.cmdPage1); // by its key
            EXPECT_FALSE(second.IsOpen());
        });
        Click(*screen.cmdPage2);
        doubles.screens.Play([](forms::Screen& shown) {
            auto& second = dynamic_cast<EntryScreen&>(shown);
            EXPECT_EQ(Note(second, "LOADDATE"_L1),
                      u"\"last week\" is not understood as a date; Exit makes it the day of today, 5/17/2024."_s);
            Click(*second.cmdPage1);
        });
        Click(*screen.cmdPage2);
        doubles.prompter.Answer(forms::Answer::Yes);
        Click(screen.cmdExit);
    });
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Load Date: \"last week\""_s));
    EXPECT_EQ(Field(u"LOADDATE"_s), u"5/17/2024"_s);
}

TEST_F(Entry, ANumberIsCleanedOrRefusedWhenItsBoxIsLeft)
{
    Show([](EntryScreen& screen) {
        forms::TextBox& price = *screen.Box("SELLINGPR"_L1);
        Type(screen, "SELLINGPR"_L1, u"$320,000"_s);
        EXPECT_EQ(price.Text(), u"320000"_s);
        EXPECT_EQ(screen.lblPriceGla.Caption(), u"200."_s);
        EXPECT_EQ(Note(screen, "SELLINGPR"_L1), QString());
        Type(screen, "SELLINGPR"_L1, u"320K"_s);
        EXPECT_EQ(price.Text(), u"320K"_s);
        EXPECT_EQ(Note(screen, "SELLINGPR"_L1),
                  u"\"320K\" is no price. Type digits, such as 250000 or 250,000.50."_s);
        EXPECT_FALSE(NoteOf(screen, "SELLINGPR"_L1).back.Visible()) << "the text still stands";
        price.SetText(u"320"_s);
        EXPECT_EQ(Note(screen, "SELLINGPR"_L1), QString());
        Type(screen, "GLA"_L1, u"big"_s);
        EXPECT_EQ(Note(screen, "GLA"_L1), u"\"big\" is no area. Type digits, such as 1600 or 1,600."_s);
        screen.Box("GLA"_L1)->SetText(u"1600"_s);
        price.SetText(u"250000"_s);
        Click(screen.cmdCancel);
        EXPECT_FALSE(screen.IsOpen());
    });
}

TEST_F(Entry, AnEmptySaleDateIsStoredAsPending)
{
    Show([](EntryScreen& screen) {
        screen.Box("SALEDATE"_L1)->SetText({}); // closed without leaving the box
        Click(screen.cmdExit);
    });
    EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"SALESERIAL"_s), u" 2"_s);
}

TEST_F(Entry, DatesInTheirManyRightForms)
{
    doubles.prompter.AnswerAlways(forms::Answer::Yes); // to leave with a date to come
    const std::pair<QString, QString> rows[] = {
        {u"03/09/2004"_s, u"3/9/2004"_s}, {u"March 9, 2004"_s, u"3/9/2004"_s},
        {u"9-Mar-04"_s, u"3/9/2004"_s},   {u"2004-03-09"_s, u"3/9/2004"_s},
        {u"25/3/2004"_s, u"3/25/2004"_s}, {u"5/18/2025"_s, u"01/01/1900"_s}};
    for (const auto& [text, stored] : rows) {
        Show([text = text](EntryScreen& screen) {
            Type(screen, "SALEDATE"_L1, text);
            Click(screen.cmdExit);
        });
        EXPECT_EQ(Field(u"SALEDATE"_s), stored) << text.toStdString();
    }
}

TEST_F(Entry, TheAgeFollowsYearAndSale)
{
    Show([](EntryScreen& screen) {
        forms::TextBox& age = *screen.Box("AGE"_L1);
        Type(screen, "AGE"_L1, u"7"_s);
        EXPECT_EQ(age.Text(), u"7"_s) << "a typed age stays";
        Type(screen, "YEARBUILT"_L1, u"1990"_s);
        EXPECT_EQ(age.Text(), u"14"_s);
        Type(screen, "SALEDATE"_L1, u"1/5/2010"_s);
        EXPECT_EQ(age.Text(), u"20"_s);
        Type(screen, "YEARBUILT"_L1, u"45"_s);
        EXPECT_EQ(age.Text(), u"45"_s);
        Type(screen, "YEARBUILT"_L1, u"1985"_s);
        Type(screen, "SALEDATE"_L1, {});
        EXPECT_EQ(age.Text(), QString()) << "pending";
        Click(screen.cmdSave);
    });
}

TEST_F(Entry, AnAgeWithoutAYearOutlivesANewSaleDate)
{
    Elsewhere(u"YEARBUILT"_s, u" "_s);
    Show([](EntryScreen& screen) {
        forms::TextBox& age = *screen.Box("AGE"_L1);
        Type(screen, "SALEDATE"_L1, u"1/5/2010"_s);
        EXPECT_EQ(age.Text(), u"19"_s);
        Type(screen, "YEARBUILT"_L1, u"1990"_s);
        EXPECT_EQ(age.Text(), u"20"_s);
        Type(screen, "YEARBUILT"_L1, {});
        EXPECT_EQ(age.Text(), QString()) << "the year was taken away";
        Click(screen.cmdSave);
    });
}

TEST_F(Entry, RentalsKeepTheirLeaseDate)
{
    Show(
        [](EntryScreen& screen) {
            EXPECT_FALSE(screen.lblPriceGla.Visible());
            Type(screen, "LEASEDATE"_L1, u"03/08/2004"_s);
            Type(screen, "AGE"_L1, u"a1b2"_s);
            Click(screen.cmdExit);
        },
        u"R"_s);
    EXPECT_EQ(Field(u"LEASEDATE"_s), u"3/8/2004"_s);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"3/8/2004"_s);
    EXPECT_EQ(Field(u"SALESERIAL"_s).trimmed(), u"38054"_s);
    EXPECT_EQ(Field(u"AGE"_s), u"12"_s);
    EXPECT_EQ(Field(u"SELLINGPR"_s), u"250000"_s) << "not on this form";
    Show(
        [this](EntryScreen& screen) {
            Type(screen, "LEASEDATE"_L1, u"never"_s);
            doubles.prompter.Answer(forms::Answer::Yes);
            Click(screen.cmdExit);
        },
        u"R"_s);
    EXPECT_EQ(Field(u"LEASEDATE"_s), u"01/01/1900"_s);
}

/// Every field of the record, so that a stray write shows wherever it lands.
TEST_F(Entry, WhatWasNotTouchedKeepsItsTextOnEveryScreen)
{
    const std::pair<QString, QString> odd[] = {{u"LEASEDATE"_s, u"month to month"_s},
                                               {u"SALEDATE"_s, u"not yet"_s},
                                               {u"SALESERIAL"_s, u"36000"_s},
                                               {u"SELLINGPR"_s, u"250000.00"_s},
                                               {u"GLA"_s, u"n/a"_s},
                                               {u"AGE"_s, u"new"_s},
                                               {u"CONTRKDATE"_s, u"13/45/2026"_s},
                                               {u"PRICEGLA"_s, u"0"_s}};
    for (const auto& [field, value] : odd)
        Elsewhere(field, value);
    const auto all = [this] {
        QMap<QString, QString> values;
        const auto rows = engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        for (const engine::Field& field : rows->Fields())
            values.insert(field.name, rows->Value(field.name).toString());
        values.remove(u"MODIFIEDDATE"_s);
        return values;
    };
    const QMap<QString, QString> before = all();
    for (const QString& type : {u"F"_s, u"C"_s, u"S"_s, u"R"_s, u"L"_s, u"M"_s})
        for (const bool walked : {false, true})
            for (const bool second : {false, true}) {
                Show(
                    [&](EntryScreen& screen) {
                        const auto walk = [walked](EntryScreen& page) {
                            for (const auto& box : page.Boxes())
                                if (walked) {
                                    Q_EMIT box->box.GotFocus();
                                    Q_EMIT box->box.LostFocus();
                                }
                        };
                        walk(screen);
                        if (second) {
                            doubles.screens.Play([&](forms::Screen& shown) {
                                walk(dynamic_cast<EntryScreen&>(shown));
                                Click(dynamic_cast<EntryScreen&>(shown).cmdExit);
                            });
                            Click(*screen.cmdPage2);
                        } else {
                            Click(screen.cmdExit);
                        }
                        EXPECT_FALSE(screen.IsOpen());
                    },
                    type);
                const QMap<QString, QString> after = all();
                for (auto field = before.cbegin(); field != before.cend(); ++field)
                    EXPECT_EQ(after.value(field.key()), field.value())
                        << field.key().toStdString() << " on " << type.toStdString();
            }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Entry, AnUntouchedLeaseDateIsTheSaleDateOnlyWhereThereIsNone)
{
    Elsewhere(u"LEASEDATE"_s, u"5/6/2003"_s);
    const auto leave = [](EntryScreen& screen) { Click(screen.cmdExit); };
    Show(leave, u"R"_s);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"3/7/2004"_s);
    EXPECT_EQ(Field(u"SALESERIAL"_s).trimmed(), u"38053"_s);
    Elsewhere(u"SALEDATE"_s, u" "_s);
    Show(leave, u"R"_s);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"5/6/2003"_s);
    EXPECT_EQ(Field(u"SALESERIAL"_s).trimmed(), u"37747"_s);
    Elsewhere(u"SALEDATE"_s, u" "_s);
    Elsewhere(u"LEASEDATE"_s, u"month to month"_s);
    Show(leave, u"R"_s);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"LEASEDATE"_s), u"month to month"_s);
    Elsewhere(u"SALEDATE"_s, u" "_s);
    Show(leave, u"F"_s);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s) << "blank is a pending sale on every screen";
}

TEST_F(Entry, ExitPutsTheSerialsRight)
{
    Elsewhere(u"LOADSERIAL"_s, u"7"_s);
    Elsewhere(u"SALESERIAL"_s, u"7"_s);
    Show([](EntryScreen& screen) { Click(screen.cmdExit); });
    EXPECT_EQ(Field(u"LOADSERIAL"_s), u" 38078"_s) << "of the load date that was there";
    EXPECT_EQ(Field(u"SALESERIAL"_s), u" 38053"_s);
}

TEST_F(Entry, PricesAndAreasAreStoredAsPlainNumbersOnBothRoads)
{
    struct Row
    {
        QString price, gla, storedPrice, storedGla, perArea;
    };
    for (const Row& row : {Row{u"$320,000"_s, u"1,600"_s, u"320000"_s, u"1600"_s, u"200."_s},
                           Row{u"250000.00"_s, u"1600 sf"_s, u"250000.00"_s, u"1600"_s, u"156.25"_s},
                           Row{u"$ 1,250,000"_s, u"2,500 Sq. Ft."_s, u"1250000"_s, u"2500"_s, u"500."_s},
                           Row{u"99999.50"_s, u"2000."_s, u"99999.50"_s, u"2000"_s, u"50."_s}}) {
        for (const bool exit : {false, true}) {
            Show([&](EntryScreen& screen) {
                screen.Box("SELLINGPR"_L1)->SetMaxLength(0);
                screen.Box("GLA"_L1)->SetMaxLength(0);
                screen.Box("SELLINGPR"_L1)->SetText(row.price);
                screen.Box("GLA"_L1)->SetText(row.gla);
                Click(exit ? screen.cmdExit : screen.cmdSave);
                EXPECT_EQ(screen.IsOpen(), !exit) << screen.lblmsg.Caption().toStdString();
            });
            EXPECT_EQ(Field(u"SELLINGPR"_s), row.storedPrice);
            EXPECT_EQ(Field(u"GLA"_s), row.storedGla);
            EXPECT_EQ(Field(u"PRICEGLA"_s), row.perArea);
            const auto found = engine.OpenDatabase(path)->OpenRecordset(
                u"SELECT * FROM COMPS WHERE SELLINGPR BETWEEN 99000 AND 1300000"_s, engine::RecordsetType::Dynaset);
            EXPECT_EQ(found->RecordCount(), 1) << row.price.toStdString();
            Elsewhere(u"SELLINGPR"_s, u"1"_s);
            Elsewhere(u"GLA"_s, u"1"_s);
        }
    }
}

TEST_F(Entry, WhatIsNoNumberIsRefusedAtItsField)
{
    const std::pair<QLatin1StringView, QString> rows[] = {
        {"SELLINGPR"_L1, u"250K"_s},      {"SELLINGPR"_L1, u"2,50"_s},  {"SELLINGPR"_L1, u"250.000"_s},
        {"SELLINGPR"_L1, u"about 3"_s},   {"SELLINGPR"_L1, u"$"_s},     {"SELLINGPR"_L1, u"1-2"_s},
        {"SELLINGPR"_L1, u"1600 sf"_s},   {"GLA"_L1, u"12x14"_s},       {"GLA"_L1, u"1600 acres"_s},
        {"GLA"_L1, u"1600 or so"_s}};
    for (const auto& [field, text] : rows) {
        Show([&, field = field, text = text](EntryScreen& screen) {
            forms::TextBox& box = *screen.Box(field);
            int focus = 0;
            QObject::connect(&box, &forms::Control::FocusWanted, &box, [&focus] { ++focus; });
            Type(screen, "CITY"_L1, u"Marlow"_s);
            box.SetMaxLength(0);
            box.SetText(text);
            for (forms::Button* button : {&screen.cmdSave, &screen.cmdExit}) {
                focus = 0;
                Click(*button);
                EXPECT_TRUE(screen.IsOpen());
                EXPECT_EQ(focus, 1) << text.toStdString();
                EXPECT_TRUE(screen.lblmsg.Caption().startsWith(
                    u"Nothing was stored: \"%1\" is no %2."_s.arg(text, field == "GLA"_L1 ? u"area"_s : u"price"_s)))
                    << screen.lblmsg.Caption().toStdString();
                EXPECT_EQ(screen.lblmsg.Fore(), forms::Colour::Red);
                EXPECT_EQ(box.Text(), text) << "what was typed stays";
            }
            EXPECT_EQ(Field(u"CITY"_s), u"Ferndale"_s) << "all or nothing";
            doubles.prompter.AnswerAlways(forms::Answer::Yes);
            Click(screen.cmdCancel);
        });
    }
}

TEST_F(Entry, APriceIsRefusedFromTheSecondPageToo)
{
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    Show([this](EntryScreen& screen) {
        screen.Box("SELLINGPR"_L1)->SetText(u"250K"_s);
        doubles.screens.Play([](forms::Screen& shown) {
            auto& second = dynamic_cast<EntryScreen&>(shown);
            Click(second.cmdExit);
            EXPECT_TRUE(second.IsOpen());
            EXPECT_TRUE(second.lblmsg.Caption().contains(u"\"250K\" is no price"_s));
            Click(*second.cmdPage1);
        });
        Click(*screen.cmdPage2);
        EXPECT_TRUE(screen.IsOpen());
        Click(screen.cmdCancel);
    });
    EXPECT_EQ(Field(u"SELLINGPR"_s), u"250000"_s);
}

TEST_F(Entry, AnAgeWithAPointIsANumberAndNotItsDigits)
{
    for (const QString& type : {u"F"_s, u"R"_s}) {
        Show(
            [](EntryScreen& screen) {
                Type(screen, "AGE"_L1, u"12.5"_s);
                Click(screen.cmdExit);
            },
            type);
        EXPECT_EQ(Field(u"AGE"_s), u"12.5"_s) << type.toStdString();
        Elsewhere(u"AGE"_s, u"1"_s);
    }
}

TEST_F(Entry, RentalAgeTakesTheNumbersOfTheFirstFour)
{
    const std::pair<QString, QString> rows[] = {
        {u"45"_s, u"45"_s},     {u"1985 new"_s, u"1985"_s}, {u"a1b2c3"_s, u"12"_s},  {u"-5yr"_s, u"-5"_s},
        {QString(), QString()}, {u"new"_s, QString()},      {u"    12"_s, QString()}};
    for (const auto& [text, age] : rows)
        EXPECT_EQ(ReturnRentalAge(text), age) << text.toStdString();
}

TEST_F(Entry, CancelAsksOnlyWhenSomethingChanged)
{
    Show([](EntryScreen& screen) {
        for (const auto& box : screen.Boxes()) { // looking changes nothing
            Q_EMIT box->box.GotFocus();
            Q_EMIT box->box.LostFocus();
        }
        Click(screen.cmdCancel);
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_FALSE(changed);

    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::Yes);
    Show([](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Marlow"_s);
        Click(screen.cmdCancel);
        EXPECT_TRUE(screen.IsOpen());
        Click(screen.cmdCancel);
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNo, forms::Icon::Question, u"Vasclip"_s,
                               u"Changes will be lost.  Are you sure?"_s}));
    EXPECT_EQ(Field(u"CITY"_s), u"Ferndale"_s);
    EXPECT_FALSE(changed);
}

TEST_F(Entry, TheWindowsCrossIsCancel)
{
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::Yes);
    Show([](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Marlow"_s);
        screen.Unload();
        EXPECT_TRUE(screen.IsOpen());
        screen.Unload();
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_EQ(Field(u"CITY"_s), u"Ferndale"_s);
}

TEST_F(Entry, PageTwoWorksOnTheSameRecord)
{
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Marlow"_s);
        doubles.screens.Play([this](forms::Screen& shown) {
            auto& second = dynamic_cast<EntryScreen&>(shown);
            EXPECT_EQ(second.Name(), u"frm_CompMnt2"_s);
            EXPECT_EQ(second.cmdPage1->Caption(), u"Page &1"_s);
            EXPECT_EQ(second.lblCentralKey.Caption(), comp);
            EXPECT_TRUE(second.Box("MODIFIEDDATE"_L1)->Locked());
            Type(second, "NOTES"_L1, u"corner lot"_s);
            Click(*second.cmdPage1);
        });
        Click(*screen.cmdPage2);
        EXPECT_TRUE(screen.IsOpen());
        EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Marlow"_s);
        Click(screen.cmdExit);
    });
    EXPECT_EQ(Field(u"CITY"_s), u"Marlow"_s);
    EXPECT_EQ(Field(u"NOTES"_s), u"corner lot"_s);
}

TEST_F(Entry, ExitAndCancelOnPageTwoLeaveBothPages)
{
    for (const bool exit : {true, false}) {
        doubles.prompter.AnswerAlways(forms::Answer::Yes);
        Show([&](EntryScreen& screen) {
            Type(screen, "COUNTY"_L1, exit ? u"Skagit"_s : u"Whatcom"_s);
            doubles.screens.Play([&](forms::Screen& shown) {
                auto& second = dynamic_cast<EntryScreen&>(shown);
                Click(exit ? second.cmdExit : second.cmdCancel);
            });
            Click(*screen.cmdPage2);
            EXPECT_FALSE(screen.IsOpen());
        });
        EXPECT_EQ(Field(u"COUNTY"_s), u"Skagit"_s);
    }
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
}

TEST_F(Entry, CalendarFromIconDoubleClickAndKey)
{
    const std::tuple<const char*, QString, QLatin1StringView, QString> rows[] = {
        {"sale", u"F"_s, "SALEDATE"_L1, u"Sale Date"_s}, {"lease", u"R"_s, "LEASEDATE"_L1, u"Lease Date"_s}};
    for (const auto& [name, type, field, title] : rows) {
        Show(
            [&, field = field, title = title](EntryScreen& screen) {
                const auto pick = [&, title](forms::Screen& shown) {
                    EXPECT_EQ(shown.Caption(), title);
                    auto& calendar = dynamic_cast<frm_Calendar&>(shown);
                    calendar.calCalendar.SetValue(calendar.calCalendar.Value().addDays(1));
                    Click(calendar.cmdOk);
                };
                forms::TextBox& box = *screen.Box(field);
                box.SetText(u"3/7/2004"_s);
                doubles.screens.Play(pick);
                Q_EMIT box.DoubleClicked();
                EXPECT_EQ(box.Text(), u"03/08/2004"_s);
                doubles.screens.Play(pick);
                Click(*screen.controls.Find(type == u"F"_s ? u"imaSaleCal"_s : u"imaLeaseCal"_s));
                EXPECT_EQ(box.Text(), u"03/09/2004"_s);
                doubles.screens.Play(pick);
                bool handled = false;
                Q_EMIT box.KeyPressed(forms::kKeyDown, forms::kAltMask, handled);
                EXPECT_TRUE(handled);
                EXPECT_EQ(box.Text(), u"03/10/2004"_s);
                Click(screen.cmdSave);
            },
            type);
    }
}

TEST_F(Entry, TheLoadDateHasItsCalendarOnPageTwo)
{
    Show([this](EntryScreen& screen) {
        doubles.screens.Play([this](forms::Screen& shown) {
            auto& second = dynamic_cast<EntryScreen&>(shown);
            doubles.screens.Play([](forms::Screen& calendarShown) {
                EXPECT_EQ(calendarShown.Caption(), u"Load Date"_s);
                auto& calendar = dynamic_cast<frm_Calendar&>(calendarShown);
                EXPECT_EQ(calendar.calCalendar.Value(), QDate(2004, 4, 1));
                calendar.calCalendar.SetValue(QDate(2004, 4, 2));
                Click(calendar.cmdOk);
            });
            Click(*second.controls.Find(u"imaLoadCal"_s));
            EXPECT_EQ(second.Box("LOADDATE"_L1)->Text(), u"04/02/2004"_s);
            Click(second.cmdExit);
        });
        Click(*screen.cmdPage2);
    });
    EXPECT_EQ(Field(u"LOADDATE"_s), u"04/02/2004"_s);
    EXPECT_EQ(Field(u"LOADSERIAL"_s), u" 38079"_s);
}

TEST_F(Entry, ThePendingButtonOfTheCalendarMakesAPendingSale)
{
    Show([this](EntryScreen& screen) {
        doubles.screens.Play(
            [](forms::Screen& shown) { Click(dynamic_cast<frm_Calendar&>(shown).cmdPending); });
        Click(*screen.controls.Find(u"imaSaleCal"_s));
        Click(screen.cmdExit);
    });
    EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"SALESERIAL"_s), u" 2"_s);
}

TEST_F(Entry, EnterIsTab)
{
    Show([](EntryScreen& screen) {
        forms::TextBox& box = *screen.Box("CITY"_L1);
        QList<bool> tabs;
        QObject::connect(&box, &forms::Control::TabWanted, &box, [&tabs](bool back) { tabs << back; });
        for (const int shift : {0, forms::kShiftMask}) {
            bool handled = false;
            Q_EMIT box.KeyPressed(forms::kKeyReturn, shift, handled);
            EXPECT_TRUE(handled);
        }
        EXPECT_EQ(tabs, (QList<bool>{false, true}));
        bool handled = false;
        Q_EMIT box.KeyPressed(forms::kKeyF1 + 2, 0, handled);
        EXPECT_FALSE(handled) << "no phrases, no key";
    });
}

TEST_F(Entry, PhraseKeysGoToTheirPort)
{
    desk.comments = &phrases;
    Show([this](EntryScreen& screen) {
        forms::TextBox& box = *screen.Box("OTHER1"_L1);
        int tabs = 0;
        QObject::connect(&box, &forms::Control::TabWanted, &box, [&tabs] { ++tabs; });
        Q_EMIT box.GotFocus();
        phrases.answer = {true, comments::Advance::Next};
        phrases.phrase = u"GOOD VIEW"_s;
        phrases.keys->SendKey(box, comments::kF3, comments::kNoShift);
        EXPECT_EQ(box.Text(), u"GOOD VIEW"_s);
        EXPECT_EQ(tabs, 1);
        phrases.answer = {false, comments::Advance::Stay};
        phrases.phrase.clear();
        bool handled = true;
        Q_EMIT box.KeyPressed(comments::kF4, comments::kCtrl | comments::kAlt, handled);
        EXPECT_FALSE(handled);
        Q_EMIT screen.cmdExit.GotFocus();
        Click(screen.cmdExit);
    });
    EXPECT_EQ(phrases.log, (QStringList{u"open frm_CompMnt1"_s, u"enter OTHER1"_s, u"key 114 0 OTHER1"_s,
                                        u"key 115 6 OTHER1"_s, u"left"_s}));
    EXPECT_EQ(Field(u"OTHER1"_s), u"GOOD VIEW"_s);
}

TEST_F(Entry, ACityFillsItsFourBoxes)
{
    desk.cities = {u"Marlow, WA  98210  Skagit"_s, u"Port Ellis, WA  98250  San Juan"_s};
    Show([](EntryScreen& screen) {
        screen.cboCity->SetListIndex(1);
        EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Port Ellis"_s);
        EXPECT_EQ(screen.Box("ST"_L1)->Text(), u"WA"_s);
        EXPECT_EQ(screen.Box("ZIP"_L1)->Text(), u"98250"_s);
        EXPECT_EQ(screen.Box("COUNTY"_L1)->Text(), u"San Juan"_s);
        Click(screen.cmdSave);
    });
}

TEST_F(Entry, EveryFieldTakesEveryKindOfText)
{
    const QString samples[] = {QString(300, u'W'),
                               u"Caf\u00e9 \u00d1u\u00f1ez"_s,
                               u"\u05e8\u05d7\u05d5\u05d1 12"_s,
                               u"a\tb\x01"
                               "c"_s,
                               u"O'Brien \"x\" %s"_s,
                               QString()};
    for (const QString& sample : samples) {
        for (const QString& type : {u"F"_s, u"C"_s, u"S"_s, u"R"_s, u"L"_s, u"M"_s}) {
            QHash<QString, QString> typed;
            const auto fill = [&](EntryScreen& screen) {
                for (const auto& box : screen.Boxes()) {
                    if (box->box.Locked() || box->row.kind == EntryKind::Date || WantsNumber(box->field))
                        continue;
                    Q_EMIT box->box.GotFocus();
                    box->box.SetText(sample);
                    typed.insert(box->field, box->box.Text());
                    EXPECT_EQ(box->box.Text(), sample.left(screen.Box(box->row.field)->MaxLength()));
                }
            };
            Show(
                [&](EntryScreen& screen) {
                    fill(screen);
                    doubles.screens.Play([&](forms::Screen& shown) {
                        fill(dynamic_cast<EntryScreen&>(shown));
                        shown.Unload();
                    });
                    Click(*screen.cmdPage2);
                    Click(screen.cmdSave);
                    EXPECT_EQ(screen.lblmsg.Caption(), kSaved);
                },
                type);
            const auto rows = engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
            for (auto field = typed.cbegin(); field != typed.cend(); ++field)
                ASSERT_EQ(rows->Value(field.key()).toString(), field.value())
                    << field.key().toStdString() << " on " << type.toStdString();
        }
    }
}

TEST_F(Entry, SomebodyElsesChangeIsToldAndOverwrittenOnYes)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Mine"_s);
        Elsewhere(u"CITY"_s, u"Theirs"_s);
        Elsewhere(u"COUNTY"_s, u"Skagit"_s);
        Click(screen.cmdSave);
        EXPECT_EQ(screen.lblmsg.Caption(), kSaved);
        EXPECT_EQ(screen.Box("COUNTY"_L1)->Text(), u"Skagit"_s) << "what only they changed stays";
    });
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNoCancel);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"CITY: \"Mine\" is yours, \"Theirs\" is theirs"_s));
    EXPECT_FALSE(doubles.prompter.Last().text.contains(u"COUNTY"_s));
    EXPECT_EQ(Field(u"CITY"_s), u"Mine"_s);
    EXPECT_EQ(Field(u"COUNTY"_s), u"Skagit"_s);
}

TEST_F(Entry, OfManyFieldsThatBothChangedEightAreNamed)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    const std::initializer_list<QLatin1StringView> fields = {
        "CITY"_L1,    "COUNTY"_L1,     "LOCATION"_L1,  "SITE"_L1,    "CONDITION"_L1,
        "STORAGE"_L1, "CONSTRQUAL"_L1, "FUNCTUTIL"_L1, "PARKING"_L1, "AC"_L1};
    Show([&](EntryScreen& screen) {
        for (const QLatin1StringView field : fields) {
            Type(screen, field, u"mine"_s);
            Elsewhere(QString(field), u"theirs"_s);
        }
        Click(screen.cmdSave);
    });
    const QString told = doubles.prompter.Last().text;
    EXPECT_EQ(told.count(u"is yours"_s), 8);
    EXPECT_TRUE(told.contains(u"AC: \"mine\" is yours, \"theirs\" is theirs"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(u"\n..."_s));
    EXPECT_EQ(Field(u"STORAGE"_s), u"mine"_s) << "what was not named is stored all the same";
}

TEST_F(Entry, OtherFieldsOfOthersAreToldToo)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Mine"_s);
        Elsewhere(u"COUNTY"_s, u"Skagit"_s);
        Click(screen.cmdSave);
    });
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"No field was changed by both of you."_s));
    EXPECT_EQ(Field(u"CITY"_s), u"Mine"_s);
    EXPECT_EQ(Field(u"COUNTY"_s), u"Skagit"_s);
}

/// Another program that stores: it keeps all others from it for as long as it takes.
class Storing
{
public:
    explicit Storing(const QString& native)
    {
        EXPECT_EQ(sqlite3_open(native.toUtf8().constData(), &m_handle), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(m_handle, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~Storing() { End(); }
    Storing(const Storing&) = delete;
    Storing& operator=(const Storing&) = delete;
    void End() { sqlite3_close(std::exchange(m_handle, nullptr)); }

private:
    sqlite3* m_handle = nullptr;
};

/// Lets something happen before a question is answered.
class SlowPrompter : public tests::ScriptedPrompter
{
public:
    std::function<void()> beforeAnswer;
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title,
                         const QString& text) override
    {
        if (beforeAnswer)
            beforeAnswer();
        return tests::ScriptedPrompter::MsgBox(buttons, icon, title, text);
    }
};

TEST_F(Entry, WhatWasTypedOutlivesALock)
{
    engine.SetLockWait(50);
    SlowPrompter prompter;
    const forms::Ports slow{prompter, doubles.pump, doubles.clock, doubles.random, doubles.window, doubles.screens};
    const EntryDesk slowDesk{slow, engine, path, table, {}, nullptr};
    doubles.screens.Play([&](forms::Screen& shown) {
        auto& screen = dynamic_cast<EntryScreen&>(shown);
        Type(screen, "CITY"_L1, u"Mine"_s);
        Storing other(disk.ToNative(path));
        prompter.Answer(forms::Answer::Cancel);
        Click(screen.cmdSave); // given up: the screen stands with its text
        EXPECT_TRUE(screen.IsOpen());
        EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Mine"_s);
        EXPECT_EQ(screen.lblmsg.Caption(), kNotStored);
        EXPECT_EQ(prompter.Last().buttons, forms::Buttons::RetryCancel);
        EXPECT_TRUE(prompter.Last().text.contains(u"currently locked by another user"_s));

        prompter.Answer(forms::Answer::Retry); // the other one is done by the second time
        int asked = 0;
        prompter.beforeAnswer = [&] {
            if (++asked == 2)
                other.End();
        };
        prompter.Answer(forms::Answer::Retry);
        Click(screen.cmdSave);
        EXPECT_EQ(asked, 2);
        EXPECT_EQ(screen.lblmsg.Caption(), kSaved);
        Click(screen.cmdExit);
        EXPECT_FALSE(screen.IsOpen());
    });
    LoadCompForm(slowDesk, comp, u"F"_s);
    EXPECT_EQ(Field(u"CITY"_s), u"Mine"_s);
}

TEST_F(Entry, APricePerAreaThatIsTooLongIsCutToItsField)
{
    Show([this](EntryScreen& screen) {
        Type(screen, "SELLINGPR"_L1, u"9999999"_s);
        Type(screen, "GLA"_L1, u".001"_s);
        Click(screen.cmdSave);
        EXPECT_EQ(Field(u"PRICEGLA"_s), u"9999999000"_s);
        EXPECT_EQ(Field(u"GLA"_s), u".001"_s);
    });
}

TEST_F(Entry, WithoutCitiesTheirListIsOff)
{
    Show([](EntryScreen& screen) { EXPECT_FALSE(screen.cboCity->Enabled()); });
    desk.cities = {u"Marlow, WA  98210  Skagit"_s};
    Show([](EntryScreen& screen) { EXPECT_TRUE(screen.cboCity->Enabled()); });
}

TEST_F(Entry, ABoxThatOnlyShowsTakesNoPhrase)
{
    desk.comments = &phrases;
    phrases.answer = {true, comments::Advance::Next};
    phrases.phrase = u"GOOD VIEW"_s;
    Show([this](EntryScreen& screen) {
        doubles.screens.Play([this](forms::Screen& shown) {
            auto& second = dynamic_cast<EntryScreen&>(shown);
            forms::TextBox& box = *second.Box("MODIFIEDDATE"_L1);
            phrases.log.clear();
            Q_EMIT box.GotFocus();
            bool handled = false;
            Q_EMIT box.KeyPressed(comments::kF3, comments::kNoShift, handled);
            EXPECT_FALSE(handled);
            EXPECT_EQ(box.Text(), QString());
            EXPECT_EQ(phrases.log, QStringList(u"left"_s));
            Click(*second.cmdPage1);
        });
        Click(*screen.cmdPage2);
    });
}

TEST_F(Entry, ADatabaseThatIsOpenAlreadyIsUsedAndLeftOpen)
{
    store::DataSource opened(engine, u"datDatabook"_s);
    Bind(opened);
    desk.opened = &opened;
    doubles.prompter.Answer(forms::Answer::Yes);
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Mine"_s);
        Elsewhere(u"CITY"_s, u"Theirs"_s);
        Click(screen.cmdExit);
    });
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
    ASSERT_TRUE(store::FindRecord(ports, opened, comp, key));
    EXPECT_EQ(store::GetFieldData(opened, u"CITY"_s), u"Mine"_s);
}

TEST_F(Entry, SomebodyElsesChangeIsTakenOnNo)
{
    doubles.prompter.Answer(forms::Answer::No);
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Mine"_s);
        Elsewhere(u"CITY"_s, u"Theirs"_s);
        Click(screen.cmdExit);
        EXPECT_TRUE(screen.IsOpen()) << "theirs are shown";
        EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Theirs"_s);
        Click(screen.cmdCancel);
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_EQ(Field(u"CITY"_s), u"Theirs"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
}

TEST_F(Entry, SomebodyElsesChangeIsAskedAgainAfterCancel)
{
    doubles.prompter.Answer(forms::Answer::Cancel);
    doubles.prompter.Answer(forms::Answer::Cancel);
    doubles.prompter.Answer(forms::Answer::Yes);
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Mine"_s);
        Elsewhere(u"CITY"_s, u"Theirs"_s);
        for (int i = 0; i < 2; ++i) {
            Click(screen.cmdExit);
            EXPECT_TRUE(screen.IsOpen());
            EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Mine"_s);
            EXPECT_EQ(Field(u"CITY"_s), u"Theirs"_s);
        }
        Click(screen.cmdExit);
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_EQ(Field(u"CITY"_s), u"Mine"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 3u);
}

TEST_F(Entry, ARecordRenamedMeanwhileIsFollowed)
{
    for (const forms::Answer answer : {forms::Answer::Yes, forms::Answer::No}) {
        const bool mine = answer == forms::Answer::Yes;
        doubles.prompter.Forget();
        doubles.prompter.Answer(answer);
        const QString renamed = mine ? u"103 OAK ST"_s : u"105 OAK ST"_s;
        const QString before = mine ? comp : u"103 OAK ST"_s;
        doubles.screens.Play([&](forms::Screen& shown) {
            auto& screen = dynamic_cast<EntryScreen&>(shown);
            Type(screen, "CITY"_L1, u"Mine"_s + before);
            engine.OpenDatabase(path)->Execute(
                u"UPDATE COMPS SET CENTRALKEY = '%1', ADDRESS = '%1'"_s.arg(renamed));
            Click(screen.cmdSave);
            EXPECT_EQ(screen.lblCentralKey.Caption(), renamed);
            EXPECT_TRUE(screen.Caption().endsWith(renamed)) << screen.Caption().toStdString();
            EXPECT_EQ(screen.Box("ADDRESS"_L1)->Text(), renamed);
            EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Mine"_s + comp) << "of the first round";
            Type(screen, "COUNTY"_L1, u"Skagit"_s);
            Click(screen.cmdExit);
            EXPECT_FALSE(screen.IsOpen());
        });
        EXPECT_TRUE(LoadCompForm(desk, before, u"F"_s));
        EXPECT_EQ(doubles.prompter.Boxes().size(), 1u) << "only the question whose change it shall be";
        const auto rows = engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        EXPECT_EQ(rows->Value(key).toString().trimmed(), renamed);
        EXPECT_EQ(rows->Value(u"COUNTY"_s).toString(), u"Skagit"_s);
        EXPECT_EQ(rows->RecordCount(), 1);
    }
}

TEST_F(Entry, ARecordDeletedMeanwhileIsTold)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Mine"_s);
        engine.OpenDatabase(path)->Execute(u"DELETE FROM COMPS"_s);
        Click(screen.cmdSave);
        EXPECT_EQ(doubles.prompter.Last().text, kDeletedMeanwhile.arg(comp));
        EXPECT_TRUE(screen.IsOpen());
        EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Mine"_s);
        Click(screen.cmdCancel);
    });
    EXPECT_FALSE(changed);
}

TEST_F(Entry, AReadOnlyDatabookIsShownButNotChanged)
{
    disk.SetAttr(path, files::ReadOnly); // for the superuser too
    Show([](EntryScreen& screen) {
        for (const auto& box : screen.Boxes())
            EXPECT_TRUE(box->box.Locked()) << box->field.toStdString();
        EXPECT_FALSE(screen.cboCity->Enabled());
        EXPECT_FALSE(screen.cmdSave.Enabled());
        EXPECT_EQ(screen.lblmsg.Caption(), kReadOnlyHere);
        Click(screen.cmdExit);
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_FALSE(changed);
}

TEST_F(Entry, LeavingAnUnchangedRecordStampsTheDayAndABlankLoadDate)
{
    Elsewhere(u"LOADDATE"_s, u"  "_s);
    Show([](EntryScreen& screen) { Click(screen.cmdExit); });
    EXPECT_TRUE(changed);
    EXPECT_EQ(Field(u"MODIFIEDDATE"_s), u"5/17/2024"_s);
    EXPECT_EQ(Field(u"LOADDATE"_s), u"5/17/2024"_s);
    EXPECT_EQ(Field(u"LOADSERIAL"_s), u" 45429"_s);
    EXPECT_EQ(Field(u"PRICEGLA"_s), u"156.25"_s);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"3/7/2004"_s);
    EXPECT_EQ(Field(u"CITY"_s), u"Ferndale"_s);
}

TEST_F(Entry, WhatCannotBeStoredStaysOnTheScreen)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    doubles.prompter.AnswerAlways(forms::Answer::Abort);
    Show([this](EntryScreen& screen) {
        Type(screen, "CITY"_L1, u"Marlow"_s);
        {
            const tests::FileLimit full(1024); // nor a journal
            for (forms::Button* button : {&screen.cmdSave, &screen.cmdExit}) {
                Click(*button);
                EXPECT_TRUE(screen.IsOpen());
                EXPECT_EQ(screen.lblmsg.Caption(), kNotStored);
                EXPECT_EQ(screen.Box("CITY"_L1)->Text(), u"Marlow"_s);
            }
        }
        EXPECT_EQ(Field(u"CITY"_s), u"Ferndale"_s);
        Click(screen.cmdExit);
        EXPECT_FALSE(screen.IsOpen()) << "there is room again";
    });
    EXPECT_EQ(Field(u"CITY"_s), u"Marlow"_s);
}

/// A program that saves again and again is killed at any moment: the record is the old or the new one.
TEST_F(Entry, AKillWhileSavingLeavesTheOldOrTheNewRecord)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    const std::initializer_list<QLatin1StringView> fields = {"CITY"_L1, "LOCATION"_L1, "SITE"_L1, "OTHER1"_L1,
                                                             "STORAGE"_L1};
    for (int round = 0; round < 12; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Show([&](EntryScreen& screen) {
                for (int i = 0;; ++i) {
                    for (const QLatin1StringView field : fields)
                        screen.Box(field)->SetText(u"value %1"_s.arg(i));
                    Click(screen.cmdSave);
                }
            });
            ::_exit(0);
        }
        QThread::msleep(static_cast<unsigned long>(20 + round * 7));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        const QString city = Field(u"CITY"_s);
        if (city == u"Ferndale"_s)
            continue;
        for (const QLatin1StringView field : fields)
            EXPECT_EQ(Field(QString(field)), city) << field.data() << " in round " << round;
    }
    EXPECT_NE(Field(u"CITY"_s), u"Ferndale"_s) << "no save was ever finished";
}

} // namespace
} // namespace vasclip::databook
