#include "shell/frm_main.h"

#include "link/general_text.h"
#include "link/tabs.h"
#include "shell/printing.h"
#include "shell/start.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

frm_Main::frm_Main(Program& theProgram)
    : Menus(theProgram.controls)
    , program(theProgram)
    , tabSource(controls, u"tabSource"_s, {u"Report and Databook"_s, u"Atlas"_s})
    , lblChangingDB(controls, u"lblChangingDB"_s)
    , fraAddaComp(controls, u"fraAddaComp"_s)
    , shown(program)
    , rows(program, shown)
    , entry(program, shown, fraAddaComp)
    , databookInUse(program, shown, *this, {tabSource, lblChangingDB})
    , setup(program, shown, databookInUse, *this, *this)
    , linkLine(program, shown, *this)
    , drags(program, shown, *this)
    , popUps(program, drags, *this)
    , recordPhotos(program, shown, popUps.Point())
    , captureEvents(program, popUps)
    , map(program, tabSource)
    , stop(program, *this)
{
    WireControls();
}

void frm_Main::Form_load(const StartUpOptions& options, frm_Splash& splash)
{
    shell::Form_load(*this, options, splash);
}

void frm_Main::WireControls()
{
    for (forms::Menu* menu : All())
        connect(menu, &forms::Menu::Chosen, this,
                [this](const QString& array, int index) { Choose(*this, array, index); });

    connect(&records.cmdRefresh, &forms::Control::Clicked, this, [this] { shown.DisplayAllRecords(); });
    connect(&records.cmdPrint, &forms::Control::Clicked, this, [this] { PrintReport(program); });
    connect(&records.grddatabook, &forms::Control::Clicked, this, [this] { shown.grddatabook_Click(); });
    connect(&records.grddatabook, &forms::Grid::RowColChange, this,
            [this] { shown.grddatabook_RowColChange(); });
    // The entry can what its button can.
    const auto follow = [this] { popGrid_M.SetEntryEnabled(kSearchEntry, records.cmdSearch.Enabled()); };
    connect(&records.cmdSearch, &forms::Control::Changed, this, follow);
    follow();
    for (forms::TabControl* tab :
         {&report.TabSubject, &report.TabComp, &report.TabGeneral, &report.TabListing, &report.TabRental})
        connect(tab, &forms::TabControl::TabClicked, this,
                [this, tab](int previous) { link::TabClicked(Link(), *tab, previous); });
    for (int i = report.cboGeneral.First(); i <= report.cboGeneral.Last(); ++i) {
        connect(&report.cboGeneral(i), &forms::ComboBox::TextChanged, this,
                [this, i] { link::cboGeneral_Change(Link(), i); });
        connect(&report.cboGeneral(i), &forms::ListBox::ListIndexChanged, this,
                [this, i] { link::cboGeneral_Click(Link(), i); });
    }

    lblChangingDB.Show(u"Changing database..."_s, forms::Colour::Blue);
    lblChangingDB.SetVisible(false);

    // Their screens are not there yet: disabled, not dead.
    for (forms::Button* button : {&records.cmdAddManual, &records.cmdDetails})
        button->SetEnabled(false);
}

} // namespace vasclip::shell
