// The steps of the tour that work on the whole Databook.

#include "app/vasclip/tour/steps.h"

#include "common/paths.h"
#include "shell/frm_main.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/record.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kArchive = u"TOUR.MDB"_s;
const QString kSale = u"1 ARCHIVE LN"_s;

void RemoveIfThere(const files::Disk& disk, const QString& file)
{
    if (disk.FileExists(file))
        disk.Kill(file);
}

void AddSale(const Stage& stage)
{
    store::Change change(stage.main.sources.datDatabook, store::Change::NewKey{}, u"Add 1 ARCHIVE LN"_s);
    change.Set(fields::CENTRALKEY, kSale);
    change.Set(fields::ADDRESS, u"1 Archive Ln"_s);
    change.Set(fields::SALEDATE, u"06/15/1950"_s);
    change.Store();
}

} // namespace

bool Repairs(const Stage& stage)
{
    bool rebuilt = false, dated = false;
    const bool shown =
        LookAt(stage, u"Maintenance > Data Correction"_s, u"maintenance-before"_s, [&](QWidget& dialog) {
            const bool asked = stage.tour.During(
                u"The question of the recalculation"_s,
                [&] { dialog.findChild<QPushButton*>(u"cmdRecalc"_s)->click(); },
                [](QWidget& box) {
                    if (auto* question = qobject_cast<QMessageBox*>(&box))
                        question->button(QMessageBox::Yes)->click();
                });
            Settle();
            rebuilt =
                asked && dialog.findChild<QLabel*>(u"lblmsg"_s)->text().startsWith(u"Rebuild Complete"_s);
            stage.tour.Shoot(dialog, u"maintenance"_s);
            dated = stage.tour.During(
                u"The date of a deletion"_s,
                [&] { dialog.findChild<QPushButton*>(u"cmdDeleteByDate"_s)->click(); },
                [&](QWidget& asks) {
                    stage.tour.Shoot(asks, u"delete-by-date"_s);
                    asks.findChild<QPushButton*>(u"cmdCancel"_s)->click();
                });
        });
    stage.tour.Step(u"Recalculated the Databook."_s);
    return shown && rebuilt && dated;
}

bool Archive(const Stage& stage)
{
    // The tour archives a sale of its own, and takes its archive away again: the home stays as it was.
    const files::Disk& disk = stage.main.program.Disk();
    const QString file = common::CkRSlash(stage.main.globals.G_ArchiveDir) + kArchive;
    RemoveIfThere(disk, file);
    AddSale(stage);
    QString moved;
    const bool shown = LookAt(stage, u"Database > Archive Data"_s, u"archive-before"_s, [&](QWidget& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(u"txtFileName"_s);
        name->setText(kArchive);
        Q_EMIT name->textEdited(kArchive);
        dialog.findChild<QLineEdit*>(u"txtstartdate"_s)->insert(u"01/01/1950"_s);
        dialog.findChild<QLineEdit*>(u"txtenddate"_s)->insert(u"12/31/1951"_s);
        dialog.findChild<QPushButton*>(u"cmdarchive"_s)->click();
        Settle();
        moved = dialog.findChild<QLabel*>(u"lblCountMoved"_s)->text();
        stage.tour.Shoot(dialog, u"archive"_s);
    });
    const bool gone = !store::ReadRecord(stage.main.sources.datDatabook, kSale);
    RemoveIfThere(disk, file);
    stage.main.DisplayAllRecords();
    if (moved != u"1"_s || !gone)
        return stage.tour.Fail(u"An old sale was not moved into the archive: moved %1."_s.arg(moved));
    stage.tour.Step(u"Moved an old sale into an archive."_s);
    return shown;
}

} // namespace vasclip::app
