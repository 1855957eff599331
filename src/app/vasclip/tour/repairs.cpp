// The steps of the tour that work on the whole Databook.

#include "app/vasclip/tour/steps.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

bool Repairs(const Stage& stage)
{
    bool listed = false, dated = false;
    const bool shown = LookAt(stage, u"Maintenance > Data Correction"_s, u"maintenance-before"_s, [&](QWidget& dialog) {
        const bool asked = stage.tour.During(
            u"The question of the recalculation"_s, [&] { dialog.findChild<QPushButton*>(u"cmdRecalc"_s)->click(); },
            [](QWidget& box) {
                if (auto* question = qobject_cast<QMessageBox*>(&box))
                    question->button(QMessageBox::Yes)->click();
            });
        Settle();
        auto* list = dialog.findChild<QListView*>(u"lstaccount"_s);
        listed = asked && list && list->model()->rowCount() > 0;
        stage.tour.Shoot(dialog, u"maintenance"_s);
        dated = stage.tour.During(
            u"The date of a deletion"_s, [&] { dialog.findChild<QPushButton*>(u"cmdDeleteByDate"_s)->click(); },
            [&](QWidget& asks) {
                stage.tour.Shoot(asks, u"delete-by-date"_s);
                asks.findChild<QPushButton*>(u"cmdCancel"_s)->click();
            });
    });
    stage.tour.Step(u"Recalculated the Databook."_s);
    return shown && listed && dated;
}

bool Archive(const Stage& stage)
{
    bool moved = false;
    const bool shown = LookAt(stage, u"Database > Archive Data"_s, u"archive-before"_s, [&](QWidget& dialog) {
        dialog.findChild<QLineEdit*>(u"txtstartdate"_s)->insert(u"01/01/1990"_s);
        dialog.findChild<QLineEdit*>(u"txtenddate"_s)->insert(u"12/31/2023"_s);
        dialog.findChild<QPushButton*>(u"cmdarchive"_s)->click();
        Settle();
        moved = dialog.findChild<QLabel*>(u"lblCountMoved"_s)->text() != u"0"_s;
        stage.tour.Shoot(dialog, u"archive"_s);
    });
    stage.tour.Step(u"Moved old records into an archive."_s);
    return shown && moved;
}

} // namespace vasclip::app
