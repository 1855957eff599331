// The steps of the tour that work on files from elsewhere: of another office, of an older version.

#include "app/vasclip/tour/steps.h"

#include "common/paths.h"
#include "shell/frm_main.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/record.h"
#include "store/upgrade.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSet>
#include <QTimer>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kOffice = u"HARBOR.MDB"_s;
const QString kOldBook = u"OLDBOOK.MDB"_s;
const QString kCopy = u"TOUROLD.MDB"_s;

QSet<QString> Keys(const Stage& stage)
{
    const store::Rows rows = store::ReadRows(
        stage.main.sources.datDatabook, u"SELECT CENTRALKEY FROM ["_s + stage.main.globals.G_Table + u']');
    QSet<QString> keys;
    for (qint64 at = 0; at < rows.Count(); ++at)
        if (const auto record = rows.At(at))
            keys.insert(record->Text(fields::CENTRALKEY));
    return keys;
}

/// The records and pictures that came in go again: the next tour plays on the same home.
bool TakeOut(const Stage& stage, const QSet<QString>& before, const QStringList& pictures)
{
    const files::Disk& disk = stage.main.program.Disk();
    const QString directory = common::CkRSlash(stage.main.globals.G_PhotoDir);
    for (const QString& picture : disk.Dir(directory + u"*.jpg"_s, files::ReadOnly)) {
        if (pictures.contains(picture))
            continue;
        disk.SetAttr(directory + picture, 0);
        disk.Kill(directory + picture);
    }
    int gone = 0;
    for (const QString& key : Keys(stage) - before)
        gone += store::Change::DeleteKey(stage.main.sources.datDatabook, key, u"Delete %1"_s.arg(key)) ? 1 : 0;
    stage.main.DisplayAllRecords();
    return gone > 0 && Keys(stage) == before;
}

/// The box that comes behind the one at work: its button is pressed as soon as it stands.
void AnswerNext(QWidget& now)
{
    auto* watch = new QTimer(QApplication::instance());
    watch->setInterval(20);
    QObject::connect(watch, &QTimer::timeout, watch, [watch, &now] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || box == &now)
            return;
        watch->deleteLater();
        box->button(QMessageBox::Ok)->click();
    });
    watch->start();
}

} // namespace

bool OtherOffice(const Stage& stage)
{
    const files::Disk& disk = stage.main.program.Disk();
    if (!disk.FileExists(common::CkRSlash(stage.main.globals.G_ImportDir) + kOffice))
        return stage.tour.Fail(u"The home has no file of another office."_s);
    const QSet<QString> before = Keys(stage);
    const QStringList pictures =
        disk.Dir(common::CkRSlash(stage.main.globals.G_PhotoDir) + u"*.jpg"_s, files::ReadOnly);
    bool rehearsed = false;
    QString said;
    const bool shown = stage.tour.During(
        u"Database > Import Data"_s, [&] { (void)stage.tour.Choose(stage.window, u"Database > Import Data"_s); },
        [&](QWidget& dialog) {
            Click(dialog, u"optLocation_0"_s);
            if (auto* name = dialog.findChild<QLineEdit*>(u"txtFileName"_s)) {
                name->setText(kOffice);
                Q_EMIT name->textEdited(kOffice);
            }
            Click(dialog, u"ckbCopy"_s);
            rehearsed = stage.tour.During(
                u"Rehearse..."_s, [&] { Click(dialog, u"cmdRehearse"_s); },
                [&](QWidget& rehearsal) { stage.tour.Shoot(rehearsal, u"rehearse-office"_s); });
            Click(dialog, u"cmdImport"_s);
            if (const auto* message = dialog.findChild<QLabel*>(u"lblmsg"_s))
                said = message->text();
            stage.tour.Shoot(dialog, u"import-office"_s);
        });
    const qsizetype came = (Keys(stage) - before).size();
    const bool back = TakeOut(stage, before, pictures);
    if (came < 46 || !back)
        return stage.tour.Fail(u"The other office's comps came in as %1 (\"%2\") and were%3 taken out again."_s.arg(
            QString::number(came), said, back ? QString() : u" not"_s));
    stage.tour.Step(u"Rehearsed and imported %1 comps of another office's Access file."_s.arg(came));
    return shown && rehearsed;
}

bool OlderDatabook(const Stage& stage)
{
    auto& main = stage.main;
    const files::Disk& disk = main.program.Disk();
    const QString directory = common::CkRSlash(main.globals.G_DataDir);
    const QString present = main.globals.G_DataFile;
    if (disk.FileExists(directory + kCopy))
        disk.Kill(directory + kCopy);
    main.program.Engine().CopyDatabase(directory + kOldBook, directory + kCopy);
    const qsizetype lacking = store::FieldCount(main.program.Engine(), directory + kCopy);
    const bool asked = stage.tour.During(
        u"The question of an older Databook"_s,
        [&] { static_cast<void>(main.databookInUse.SwitchDatabook(directory, kCopy)); },
        [&](QWidget& box) {
            stage.tour.Shoot(box, u"upgrade"_s);
            AnswerNext(box);
            if (auto* question = qobject_cast<QMessageBox*>(&box))
                question->button(QMessageBox::Yes)->click();
        });
    Settle();
    stage.tour.Shoot(stage.window, u"upgraded"_s);
    const qsizetype whole = main.sources.datDatabook.Fields().size();
    const bool back = main.databookInUse.SwitchDatabook(directory, present);
    disk.Kill(directory + kCopy);
    if (!asked || whole != lacking + 11 || !back)
        return stage.tour.Fail(u"A Databook of %1 fields was updated to %2."_s.arg(lacking).arg(whole));
    stage.tour.Step(u"Updated a Databook of an older version, and went back to the present one."_s);
    return true;
}

} // namespace vasclip::app
