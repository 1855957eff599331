// The steps of the tour that work with the report.

#include "app/vasclip/tour/steps.h"
#include "databook/records.h"
#include "link/comp_data.h"
#include "photos/photo_records.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/record.h"

#include <QMessageBox>
#include <QPushButton>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kComps = 9;

struct Stop
{
    QString key;
    int slot;
};

/// Single-family comps with a front photo that do not stand in the report yet.
QStringList Candidates(shell::frm_Main& main)
{
    store::Rows rows = store::ReadRows(main.sources.datDatabook,
                                       u"SELECT CENTRALKEY FROM ["_s + main.globals.G_Table +
                                           u"] WHERE FRONT = '1' AND APPRSLTYPE = 'F' ORDER BY CENTRALKEY"_s);
    QStringList keys;
    while (keys.size() < 3) {
        const std::optional<store::Record> record = rows.Next();
        if (!record)
            break;
        const QString key = text::Folded(record->Text(fields::CENTRALKEY));
        bool there = text::Folded(main.report.txtSubject.Text()) == key;
        for (int i = 1; i <= kComps; ++i)
            there = there || text::Folded(main.report.txtComp(i).Text()) == key;
        if (!there)
            keys.append(key);
    }
    return keys;
}

bool DropOne(const Stage& stage, const Stop& stop)
{
    shell::frm_Main& main = stage.main;
    forms::Control* target = main.controls.Find(u"txtComp"_s, stop.slot);
    auto& databook = main.sources.datDatabook;
    const bool found = store::FindRecord(main.program.Ports(), databook, stop.key, store::kKeyIndex);
    const qint64 row = found ? main.sources.datsql.PlaceOf(databook) : -1;
    if (!target || row < 0)
        return stage.tour.Fail(u"%1 or the slot txtComp(%2) is not there."_s.arg(stop.key).arg(stop.slot));
    stage.Show({link::Group::Sales, stop.slot});
    main.records.grddatabook.SetRow(row);
    const QString before = main.report.txtComp(stop.slot).Text();
    const int pokes = stage.recorder.Pokes();
    const drops::Outcome outcome = main.drags.Router().End(main.drags.Router().Start(main.records.grddatabook), *target);
    const int sent = stage.recorder.Pokes() - pokes;
    stage.tour.Step(u"Dropped %1 on comp %2%3: %4 fields sent."_s.arg(stop.key)
                        .arg(stop.slot)
                        .arg(before.isEmpty() ? QString() : u", which held "_s + before)
                        .arg(sent));
    stage.tour.Shoot(stage.window, u"drop-on-comp-%1"_s.arg(stop.slot));
    return outcome.done && sent > 0;
}

/// @param name  of the question's picture
void AnswerYes(const Stage& stage, QWidget& dialog, const QString& name)
{
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    if (!box)
        return;
    stage.tour.Step(u"Asked: \"%1\" - answered Yes."_s.arg(box->text()));
    stage.tour.Shoot(*box, name);
    if (auto* yes = box->button(QMessageBox::Yes))
        yes->click();
}

/// Holds the record on which datDatabook stands against the report.
/// @return how many of the subject's cells it holds; -1 if one of them is stored otherwise
int CellsStored(shell::frm_Main& main)
{
    store::DataSource& databook = main.sources.datDatabook;
    link::MappingPages pages;
    const auto cells = link::ReadCompData(main.Link(), main.addr.txtFormType.Text(),
                                          text::Trim(main.addr.txtKelReport.Text()), 10, u"SALE"_s, pages);
    int same = 0;
    for (const link::CompCell& cell : cells.value_or(QList<link::CompCell>())) {
        // The address is the key's, a cell of two fields is none of the record's.
        const bool own = cell.field != fields::ADDRESS && databook.FieldIndex(cell.field) >= 0;
        if (!own || cell.text.isEmpty())
            continue;
        if (store::GetFieldData(databook, cell.field) !=
            text::Trim(store::Trim2Size(databook, cell.text, cell.field)))
            return -1;
        ++same;
    }
    return same;
}

} // namespace

void Stage::Show(link::SlotRef slot) const
{
    const link::GroupRow& row = link::RowOf(slot.group);
    main.report.TabData.SetTab(row.dataPage);
    (main.report.*row.tabControl).SetTab(link::PageOf(row, slot.index));
}

bool Started(const Stage& stage)
{
    const bool stand = PicturesStand(stage);
    stage.tour.Shoot(stage.window, u"started"_s);
    return stand;
}

bool RefreshReport(const Stage& stage)
{
    shell::frm_Main& main = stage.main;
    main.RefreshAppraisal();
    stage.tour.Step(u"Refreshed: report %1, forms %2, subject %3."_s.arg(
        main.addr.txtKelReport.Text(), main.addr.txtKelListForms.Text(), main.report.txtSubject.Text()));
    main.report.TabData.SetTab(0);
    stage.tour.Shoot(stage.window, u"subject"_s);
    main.report.TabData.SetTab(2);
    stage.tour.Shoot(stage.window, u"general"_s);
    const bool views = !main.drags.Router().FileOf(main.slots.imaGeneral(1)).isEmpty() &&
                       !main.report.cboGeneral(1).Text().isEmpty();
    for (const int listingsOrRentals : {3, 4}) {
        main.report.TabData.SetTab(listingsOrRentals);
        Settle();
        stage.tour.Check(stage.window);
    }
    main.report.TabData.SetTab(1);
    stage.tour.Shoot(stage.window, u"refreshed"_s);
    return !main.addr.txtKelReport.Text().isEmpty() && views;
}

bool DropComps(const Stage& stage)
{
    shell::frm_Main& main = stage.main;
    const QStringList keys = Candidates(main);
    int filled = 0;
    int empty = 0;
    for (int i = 1; i <= kComps; ++i) {
        const bool blank = text::Trim(main.report.txtComp(i).Text()).isEmpty();
        if (!blank && filled == 0)
            filled = i;
        if (blank && empty == 0)
            empty = i;
    }
    if (keys.size() < 3 || filled == 0 || empty == 0)
        return stage.tour.Fail(
            u"The home has no three comps to drop, or the report no filled and no empty slot."_s);
    bool done = DropOne(stage, {keys[0], empty});
    done = DropOne(stage, {keys[1], empty < 4 ? 4 : empty + 1}) && done;
    bool replaced = false;
    const bool asked = stage.tour.During(
        u"The question before a comp is replaced"_s,
        [&] {
            replaced = DropOne(stage, {keys[2], filled});
        },
        [&](QWidget& box) { AnswerYes(stage, box, u"question-replace"_s); });
    stage.tour.ShootFormsProgram(u"report"_s);
    return done && replaced && asked;
}

bool TransferSubject(const Stage& stage)
{
    shell::frm_Main& main = stage.main;
    store::DataSource& databook = main.sources.datDatabook;
    const QString key = text::Folded(main.report.txtSubject.Text());
    if (store::FindRecord(main.program.Ports(), databook, key, fields::CENTRALKEY))
        return stage.tour.Fail(u"%1 is in the Databook before it was transferred."_s.arg(key));
    main.report.TabData.SetTab(0);
    const bool chosen = stage.tour.Choose(stage.window, u"Transfer > Subject: Appraisal to Databook"_s);
    if (!store::FindRecord(main.program.Ports(), databook, key, fields::CENTRALKEY))
        return stage.tour.Fail(u"%1 did not come into the Databook."_s.arg(key));
    const int cells = CellsStored(main);
    photos::ReadPhotoLists(databook, main.photoLists.lstViews, main.photoLists.lstimages);
    const int pictures = main.photoLists.lstViews.ListCount();
    stage.tour.Step(
        u"Transferred %1 to the Databook, which holds its %2 fields and %3 pictures: %4"_s.arg(key)
            .arg(cells)
            .arg(pictures)
            .arg(main.status.lblmsg.Caption()));
    main.ShowRecord(key);
    stage.tour.Shoot(stage.window, u"transferred"_s);
    const bool located = LookAt(stage, u"Setup > City Listings"_s, u"city-listings"_s);
    return chosen && located && cells > 0 && pictures > 0;
}

bool DeleteTheSubject(const Stage& stage)
{
    shell::frm_Main& main = stage.main;
    const QString key = text::Folded(main.report.txtSubject.Text());
    main.ShowRecord(key);
    const bool asked = stage.tour.During(
        u"The question before a record is deleted"_s, [&] { main.CompDeleteRecord(); },
        [&](QWidget& box) { AnswerYes(stage, box, u"question-delete"_s); });
    return asked && !store::FindRecord(main.program.Ports(), main.sources.datDatabook, key, fields::CENTRALKEY);
}

} // namespace vasclip::app
