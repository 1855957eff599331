// The steps of the tour that keep the Databook.

#include "app/vasclip/tour/steps.h"
#include "databook/comp_types.h"
#include "store/fields.h"
#include "store/record.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The first comp of a type, "" if there is none.
QString KeyOfType(shell::frm_Main& main, char type)
{
    const auto first = store::ReadRows(
        main.sources.datDatabook,
        u"SELECT CENTRALKEY FROM [%1] WHERE APPRSLTYPE = '%2' ORDER BY CENTRALKEY"_s.arg(main.globals.G_Table)
            .arg(QLatin1Char(type))).Next();
    return first ? first->Value(fields::CENTRALKEY).toString() : QString();
}

void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(&widget, &down);
    QApplication::sendEvent(&widget, &up);
}

/// As if typed: a text that is set is not told to the control.
void Write(const QWidget& window, const QString& box, const QString& text)
{
    if (auto* found = window.findChild<QLineEdit*>(box)) {
        found->selectAll();
        found->insert(text);
    }
}

/// Opens the entry screen of the first comp of a type.
bool OnEntryScreen(const Stage& stage, char type, const Tour::Visit& visit)
{
    const QString key = KeyOfType(stage.main, type);
    if (key.isEmpty())
        return stage.tour.Fail(u"The Databook has no comp of the type %1."_s.arg(QLatin1Char(type)));
    return stage.tour.During(
        u"The entry screen of "_s + key, [&] { stage.main.LoadCompForm(key); }, visit);
}

} // namespace

bool FindByWords(const Stage& stage)
{
    auto& grid = stage.main.records.grddatabook;
    const qint64 all = grid.Source()->RowCount();
    stage.main.records.txtQuickFind.SetText(u"oak"_s);
    Settle(400);
    const qint64 found = grid.Source()->RowCount();
    stage.tour.Step(u"Quick find \"oak\": %1 of %2 records."_s.arg(found).arg(all));
    stage.tour.Shoot(stage.window, u"quick-find"_s);
    stage.main.records.txtQuickFind.SetText({});
    Settle(400);
    return found > 0 && found < all && grid.Source()->RowCount() == all;
}

bool SearchByField(const Stage& stage)
{
    const QString city = stage.main.records.grddatabook.CurrentText(fields::CITY).trimmed();
    const bool shown = stage.tour.During(
        u"The search"_s, [&] { Click(stage.window, u"cmdSearch"_s); },
        [&](QWidget& search) {
            Write(search, u"txtCity"_s, city);
            Write(search, u"txtBedRoom"_s, u"3"_s);
            Click(search, u"cmdSearch"_s);
            stage.tour.Shoot(search, u"search"_s);
            Click(search, u"cmdClear"_s);
        });
    stage.main.DisplayAllRecords();
    stage.tour.Step(u"Searched the comps of %1 by field."_s.arg(city));
    return shown;
}

bool RenameRecord(const Stage& stage)
{
    const auto look = [&](const QString& button, const QString& name) {
        return stage.tour.During(
            name, [&] { Click(stage.window, button); },
            [&](QWidget& dialog) { stage.tour.Shoot(dialog, name); });
    };
    const bool renaming = look(u"cmdRename"_s, u"rename"_s);
    const bool copying = look(u"cmdCopy"_s, u"copy"_s);
    stage.tour.Step(u"Looked at renaming and copying a record."_s);
    return renaming && copying;
}

bool SendToSlot(const Stage& stage)
{
    return LookAt(stage, u"View > Send to Slot..."_s, u"send-to-slot"_s);
}

bool Columns(const Stage& stage)
{
    return LookAt(stage, u"View > Columns..."_s, u"columns"_s);
}

bool EntryScreens(const Stage& stage)
{
    bool all = true;
    for (const databook::CompType& type : databook::CompTypes()) {
        all =
            OnEntryScreen(stage, type.letter,
                          [&](QWidget& screen) {
                              stage.tour.Shoot(screen, u"entry-%1"_s.arg(QLatin1Char(type.letter)).toLower());
                              if (type.letter != 'F')
                                  return;
                              all = stage.tour.During(
                                        u"The second page"_s, [&] { Click(screen, u"cmdPage2"_s); },
                                        [&](QWidget& page) { stage.tour.Shoot(page, u"entry-page-2"_s); }) &&
                                    all;
                          }) &&
            all;
        stage.tour.Step(u"Opened the entry screen of a comp: %1."_s.arg(QString(type.listText)));
    }
    return all;
}

bool PhrasesOfAField(const Stage& stage)
{
    bool library = false;
    const bool shown = OnEntryScreen(stage, 'F', [&](QWidget& screen) {
        auto* field = screen.findChild<QLineEdit*>(u"txtLocation"_s);
        if (!field)
            return;
        field->setFocus();
        stage.tour.Shoot(screen, u"phrases"_s);
        library = stage.tour.During(
            u"The phrases of a field"_s, [&] { Press(*field, Qt::Key_F2); },
            [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"comment"_s); });
    });
    stage.tour.Step(u"Looked at the phrases of a field."_s);
    return shown && library;
}

bool CalendarOfADate(const Stage& stage)
{
    bool calendar = false;
    const bool shown = OnEntryScreen(stage, 'F', [&](QWidget& screen) {
        calendar = stage.tour.During(
            u"The calendar"_s, [&] { Click(screen, u"imaSaleCal"_s); },
            [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"calendar"_s); });
    });
    stage.tour.Step(u"Looked at the calendar of a date."_s);
    return shown && calendar;
}

} // namespace vasclip::app
