#include "app/vasclip/tour/steps.h"

#include "shell/frm_main.h"

#include <QLabel>
#include <QLineEdit>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kName = u"TOUR.MDB"_s;
const QString kListName = u"TOURLIST.CSV"_s;
/// As a county of another country might send it: nothing in it is written as the Databook has it.
constexpr auto kListText = "Sales of March;;;;;\r\n"
                           "Address;City;Sold Date;Sale Price;Sq. Ft.;Colour\r\n"
                           "2201 Tour Ave;Marlow;31.3.2019;312.500,00;1.640;blue\r\n"
                           "2203 Tour Ave;Marlow;2.4.2019;298.000,00;1.520;\"grey; white\"\r\n"
                           "2205 Tour Ave;Marlow;5.4.2019;on request;1.700;green\r\n"
                           "2207 Tour Ave;Cedar;11.4.2019;355.900,50;2.010;red\r\n";

/// Names the tour's own file, so that none of the user's is touched.
void NameFile(const QWidget& dialog, const QString& file = kName)
{
    if (auto* name = dialog.findChild<QLineEdit*>(u"txtFileName"_s)) {
        name->setText(file);
        Q_EMIT name->textEdited(file);
    }
}

bool Says(const Stage& stage, const QWidget& dialog, const QString& words)
{
    const auto* message = dialog.findChild<QLabel*>(u"lblmsg"_s);
    const QString said = message ? message->text() : QString();
    return said.contains(words) || stage.tour.Fail(u"\"%1\" does not say \"%2\"."_s.arg(said, words));
}

/// A list is shown with what its columns are taken for, and left.
bool LookAtAList(const Stage& stage)
{
    const files::Disk& disk = stage.main.program.Disk();
    const QString file = stage.main.globals.G_ExportDir + kListName;
    disk.WriteWhole(file, kListText);
    bool opened = false;
    bool said = false;
    const bool in = stage.tour.During(
        u"Database > Import Data"_s, [&] { (void)stage.tour.Choose(stage.window, u"Database > Import Data"_s); },
        [&](QWidget& dialog) {
            Click(dialog, u"optLocation_1"_s);
            NameFile(dialog, kListName);
            opened = stage.tour.During(
                u"Import DB"_s, [&] { Click(dialog, u"cmdImport"_s); },
                [&](QWidget& columns) {
                    said = Says(stage, columns, u"Can't be read: 1 of 4 lines."_s);
                    stage.tour.Shoot(columns, u"list-columns"_s);
                });
        });
    stage.tour.Step(u"Looked at a list: its columns, its dates and a line that can't be read."_s);
    disk.Kill(file);
    return in && opened && said;
}

} // namespace

bool ExportAndImport(const Stage& stage)
{
    bool exported = false;
    bool imported = false;
    const bool out = stage.tour.During(
        u"Database > Export Data"_s,
        [&] { (void)stage.tour.Choose(stage.window, u"Database > Export Data"_s); },
        [&](QWidget& dialog) {
            NameFile(dialog);
            Click(dialog, u"ckbCopy"_s);
            Click(dialog, u"cmdExport"_s);
            exported = Says(stage, dialog, u"were exported to table"_s);
            stage.tour.Shoot(dialog, u"export"_s);
        });
    stage.tour.Step(u"Exported the records with their pictures."_s);
    const bool in = stage.tour.During(
        u"Database > Import Data"_s,
        [&] { (void)stage.tour.Choose(stage.window, u"Database > Import Data"_s); },
        [&](QWidget& dialog) {
            Click(dialog, u"optLocation_1"_s);
            NameFile(dialog);
            const bool rehearsed = stage.tour.During(
                u"Rehearse..."_s, [&] { Click(dialog, u"cmdRehearse"_s); },
                [&](QWidget& rehearsal) { stage.tour.Shoot(rehearsal, u"rehearse"_s); });
            Click(dialog, u"cmdImport"_s);
            imported = rehearsed && Says(stage, dialog, u"0 records of"_s);
            stage.tour.Shoot(dialog, u"import"_s);
        });
    stage.tour.Step(u"Imported them again: the Databook has them all."_s);
    const files::Disk& disk = stage.main.program.Disk();
    if (const QString file = stage.main.globals.G_ExportDir + kName; disk.FileExists(file))
        disk.Kill(file);
    return out && in && exported && imported && LookAtAList(stage);
}

} // namespace vasclip::app
