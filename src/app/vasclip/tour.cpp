#include "app/vasclip/tour.h"

#include "databook/records.h"
#include "platform/text/text.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QTextStream>
#include <QThread>
#include <QTimer>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kStartSeconds = 20;
constexpr int kStopSeconds = 10;

/// Lets the window paint and the pictures settle before they are taken.
void Settle(int milliseconds = 120)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

} // namespace

Tour::Tour(const QString& directory, const QString& formsProgram)
    : m_directory(directory)
    , m_formsPath(formsProgram)
{
    m_directory.mkpath(u"."_s);
    for (const QString& old :
         m_directory.entryList({u"*.png"_s, u"report.json"_s, u"steps.txt"_s}, QDir::Files))
        m_directory.remove(old);
}

Tour::~Tour()
{
    if (m_forms.state() == QProcess::NotRunning)
        return;
    m_forms.terminate();
    if (!m_forms.waitForFinished(kStopSeconds * 1000))
        m_forms.kill();
}

void Tour::Step(const QString& text)
{
    m_steps.append(text);
    QTextStream(stdout) << text << Qt::endl;
    QSaveFile file(m_directory.filePath(u"steps.txt"_s));
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write((m_steps.join(u'\n') + u'\n').toUtf8());
    file.commit();
}

void Tour::Shoot(QWidget& window, const QString& name)
{
    Settle();
    const QString file = u"%1-%2.png"_s.arg(++m_pictures, 2, 10, QChar(u'0')).arg(name);
    if (!window.grab().save(m_directory.filePath(file))) {
        m_ok = false;
        Step(u"The picture %1 could not be written."_s.arg(file));
    }
}

bool Tour::StartFormsProgram(const files::Disk& disk, const QString& socketPath)
{
    const QString reports = u"C:\\KEL\\DATA\\"_s;
    QString largest;
    qint64 size = 0;
    for (const QString& name : disk.Dir(reports + u"*.RPT"_s)) {
        if (const qint64 length = disk.FileLen(reports + name); length > size) {
            size = length;
            largest = name;
        }
    }
    if (largest.isEmpty()) {
        Step(u"There is no report in %1 to play the tour on."_s.arg(reports));
        return false;
    }
    // The demo's own report stays as it is: the tour works on a copy.
    const QString copy = m_directory.absoluteFilePath(u"report.json"_s);
    QFile file(copy);
    if (!file.open(QIODevice::WriteOnly) || file.write(disk.ReadWhole(reports + largest)) < 0) {
        Step(u"%1 could not be written: %2"_s.arg(copy, file.errorString()));
        return false;
    }
    file.close();

    m_forms.setProcessChannelMode(QProcess::ForwardedChannels);
    m_forms.start(m_formsPath, {u"--home"_s, disk.Home(), u"--socket"_s, socketPath, u"--save-on-exit"_s,
                                u"--tour-dir"_s, m_directory.absolutePath(), copy});
    if (!m_forms.waitForStarted(kStartSeconds * 1000)) {
        Step(u"The forms program %1 could not be started: %2"_s.arg(m_formsPath, m_forms.errorString()));
        return false;
    }
    QElapsedTimer timer;
    timer.start();
    while (!QFileInfo::exists(socketPath)) {
        if (timer.hasExpired(kStartSeconds * 1000) || m_forms.waitForFinished(20)) {
            Step(u"The forms program did not open its link within %1 seconds."_s.arg(kStartSeconds));
            return false;
        }
    }
    Step(u"The forms program has opened %1."_s.arg(largest));
    return true;
}

void Tour::ShootFormsProgram(const QString& name)
{
    // The forms program takes a picture of its window when it finds a file "shoot" here, and takes that away.
    const auto taken = [this] {
        return m_directory.entryList({u"kelforms-*.png"_s}, QDir::Files, QDir::Name);
    };
    const QStringList before = taken();
    QFile request(m_directory.filePath(u"shoot"_s));
    if (request.open(QIODevice::WriteOnly))
        request.close();
    QElapsedTimer timer;
    timer.start();
    while (taken().size() == before.size() && !timer.hasExpired(kStopSeconds * 1000))
        Settle(50);
    Settle(200);
    const QStringList after = taken();
    const QString picture = u"%1-%2.png"_s.arg(++m_pictures, 2, 10, QChar(u'0')).arg(name);
    if (after.isEmpty() || !m_directory.rename(after.last(), picture)) {
        m_ok = false;
        Step(u"The forms program took no picture %1."_s.arg(picture));
    }
}

QStringList Tour::Candidates(shell::frm_Main& main) const
{
    // Single-family comps with a front photo that do not stand in the report yet.
    const auto rows = main.sources.datDatabook.Database().OpenRecordset(
        u"SELECT CENTRALKEY FROM ["_s + main.globals.G_Table +
            u"] WHERE FRONT = '1' AND APPRSLTYPE = 'F' ORDER BY CENTRALKEY"_s,
        engine::RecordsetType::Dynaset);
    QStringList keys;
    for (; !rows->Eof() && keys.size() < 3; rows->MoveNext()) {
        const QString key = text::Folded(rows->Value(0).toString());
        bool there = text::Folded(main.report.txtSubject.Text()) == key;
        for (int i = 1; i <= 9; ++i)
            there = there || text::Folded(main.report.txtComp(i).Text()) == key;
        if (!there)
            keys.append(key);
    }
    return keys;
}

void Tour::AnswerNextQuestion()
{
    auto* timer = new QTimer(qApp);
    timer->setInterval(50);
    QObject::connect(timer, &QTimer::timeout, qApp, [this, timer] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        timer->stop();
        timer->deleteLater();
        ++m_questions;
        Step(u"Asked: \"%1\" - answered Yes."_s.arg(box->text()));
        Shoot(*box, u"question"_s);
        if (auto* yes = box->button(QMessageBox::Yes))
            yes->click();
        else
            box->accept();
    });
    timer->start();
}

bool Tour::DropOne(shell::frm_Main& main, QWidget& window, const LinkRecorder& recorder, const Stop& stop)
{
    forms::Control* target = main.controls.Find(stop.slotName, stop.index);
    const qint64 row = main.sources.datsql.Recordset().PositionOf([&] {
        auto& databook = main.sources.datDatabook;
        if (!store::FindRecord(main.Base().ports, databook, stop.key, u"Centralkey"_s))
            return engine::Bookmark(-1);
        return databook.Recordset().GetBookmark();
    }());
    if (!target || row < 0) {
        Step(u"%1 or the slot %2(%3) is not there."_s.arg(stop.key, stop.slotName).arg(stop.index));
        return false;
    }
    main.report.TabData.SetTab(1);
    main.report.TabComp.SetTab((stop.index - 1) / 3);
    main.records.grddatabook.SetRow(row);
    const QString before = main.report.txtComp(stop.index).Text();
    const int pokes = recorder.Pokes();
    const drops::Outcome outcome = main.Drop(main.grddatabook_dragCell(), *target);
    const int sent = recorder.Pokes() - pokes;
    Step(u"Dropped %1 on comp %2%3: %4 fields sent."_s.arg(stop.key)
             .arg(stop.index)
             .arg(before.isEmpty() ? QString() : u", which held "_s + before)
             .arg(sent));
    Shoot(window, u"drop-on-comp-%1"_s.arg(stop.index));
    return outcome.done && sent > 0;
}

bool Tour::Play(shell::frm_Main& main, QWidget& window, const LinkRecorder& recorder)
{
    window.resize(1366, 768);
    Shoot(window, u"started"_s);
    main.RefreshAppraisal();
    Step(u"Refreshed: report %1, forms %2, subject %3."_s.arg(
        main.addr.txtKelReport.Text(), main.addr.txtKelListForms.Text(), main.report.txtSubject.Text()));
    m_ok = m_ok && !main.addr.txtKelReport.Text().isEmpty();
    main.report.TabData.SetTab(1);
    Shoot(window, u"refreshed"_s);

    const QStringList keys = Candidates(main);
    int filled = 0;
    int empty = 0;
    for (int i = 1; i <= 9; ++i) {
        const bool blank = text::Trim(main.report.txtComp(i).Text()).isEmpty();
        if (!blank && filled == 0)
            filled = i;
        if (blank && empty == 0)
            empty = i;
    }
    if (keys.size() < 3 || filled == 0 || empty == 0) {
        Step(u"The home has no three comps to drop, or the report no filled and no empty slot."_s);
        return m_ok = false;
    }
    m_ok = DropOne(main, window, recorder, {keys[0], u"txtComp"_s, empty}) && m_ok;
    m_ok = DropOne(main, window, recorder, {keys[1], u"txtComp"_s, empty < 4 ? 4 : empty + 1}) && m_ok;
    AnswerNextQuestion();
    m_ok = DropOne(main, window, recorder, {keys[2], u"txtComp"_s, filled}) && m_ok;
    if (m_questions != 1) {
        Step(u"Replacing a comp should have asked once; it asked %1 times."_s.arg(m_questions));
        m_ok = false;
    }
    ShootFormsProgram(u"report"_s);
    return m_ok;
}

int Tour::Finish(const LinkRecorder& recorder)
{
    m_forms.terminate();
    if (!m_forms.waitForFinished(kStopSeconds * 1000)) {
        Step(u"The forms program did not stop."_s);
        return 1;
    }
    QFile file(m_directory.filePath(u"report.json"_s));
    const QJsonObject saved =
        file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    const QJsonObject cells = saved.value(u"cells"_s).toObject();
    const QJsonObject images = saved.value(u"images"_s).toObject();
    int wrong = 0;
    const auto compare = [&](const QMap<QString, QString>& sent, const QJsonObject& held,
                             const QString& what) {
        for (auto it = sent.cbegin(); it != sent.cend(); ++it) {
            if (held.value(it.key()).toString() == it.value())
                continue;
            ++wrong;
            Step(u"%1 %2: sent '%3', the report holds '%4'."_s.arg(what, it.key(), it.value(),
                                                                   held.value(it.key()).toString()));
        }
    };
    compare(recorder.Cells(), cells, u"Field"_s);
    compare(recorder.Images(), images, u"Picture"_s);
    const bool all = m_ok && wrong == 0 && !recorder.Cells().isEmpty() && !recorder.Images().isEmpty();
    Step(u"%1 fields and %2 pictures were sent; the saved report holds %3."_s.arg(recorder.Cells().size())
             .arg(recorder.Images().size())
             .arg(wrong == 0 ? u"all of them"_s : u"%1 otherwise"_s.arg(wrong)));
    if (!all)
        Step(u"The tour failed."_s);
    return all ? 0 : 1;
}

} // namespace vasclip::app
