#include "app/vasclip/tour/steps.h"

#include "shell/frm_main.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kName = u"TOUR.MDB"_s;

void Click(const QWidget& dialog, const QString& button)
{
    if (auto* found = dialog.findChild<QAbstractButton*>(button))
        found->click();
}

/// Names the tour's own file, so that none of the user's is touched.
void NameFile(const QWidget& dialog)
{
    if (auto* name = dialog.findChild<QLineEdit*>(u"txtFileName"_s)) {
        name->setText(kName);
        Q_EMIT name->textEdited(kName);
    }
}

bool Says(const Stage& stage, const QWidget& dialog, const QString& words)
{
    const auto* message = dialog.findChild<QLabel*>(u"lblmsg"_s);
    const QString said = message ? message->text() : QString();
    return said.contains(words) || stage.tour.Fail(u"\"%1\" does not say \"%2\"."_s.arg(said, words));
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
    return out && in && exported && imported;
}

} // namespace vasclip::app
