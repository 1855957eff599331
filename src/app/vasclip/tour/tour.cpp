#include "app/vasclip/tour/tour.h"

#include "app/vasclip/tour/letters.h"
#include "app/vasclip/tour/reach.h"
#include "app/vasclip/tour/steps.h"
#include "windows/layout_parts.h"
#include "windows/screens.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSaveFile>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <cstdlib>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDialogSeconds = 20;

QString WithoutMarks(QString words)
{
    return words.remove(u'&');
}

QAction* EntryOf(const QList<QAction*>& entries, const QString& words)
{
    for (QAction* entry : entries)
        if (WithoutMarks(entry->text()) == words)
            return entry;
    return nullptr;
}

} // namespace

void Settle(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

Tour::Tour(const QString& directory, const QString& formsProgram)
    : m_directory(directory)
    , m_forms(m_directory, formsProgram)
    , m_strangers([this](QWidget& dialog) { TellOf(dialog); },
                  [this] {
                      Fail(u"One dialog after the other: the tour is given up."_s);
                      m_forms.Stop();
                      std::_Exit(1);
                  })
    , m_playing(u"start-up"_s)
{
    QApplication::setCursorFlashTime(0); // a picture with or without it would be chance
    m_directory.mkpath(u"."_s);
    for (const QString& old :
         m_directory.entryList({u"*.png"_s, u"report.json"_s, u"report.pdf"_s, u"steps.txt"_s}, QDir::Files))
        m_directory.remove(old);
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

bool Tour::Fail(const QString& text)
{
    m_ok = false;
    Step(text);
    return false;
}

void Tour::Shoot(QWidget& window, const QString& name)
{
    Settle();
    const QString file = u"%1-%2.png"_s.arg(++m_pictures, 2, 10, QChar(u'0')).arg(name);
    // Without the alpha channel, which a window has no use for, the file is smaller.
    // A text that has just come gets its room with the next event.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    if (!window.grab().toImage().convertToFormat(QImage::Format_RGB888).save(m_directory.filePath(file)))
        Fail(u"The picture %1 could not be written."_s.arg(file));
    Check(window);
}

void Tour::Check(const QWidget& window)
{
    const QStringList found = OutOfReach(window) + SharedLetters(window);
    for (const QString& line : found)
        Fail(u"In the step \"%1\", %2: %3."_s.arg(m_playing, window.objectName(), line));
}

void Tour::TellOf(QWidget& stranger)
{
    Fail(u"Nobody expected this in the step \"%1\": %2"_s.arg(m_playing, WordsOf(stranger)));
    Shoot(stranger, u"not-expected"_s);
}

void Tour::ShootFormsProgram(const QString& name, const QString& page)
{
    const QString picture = u"%1-%2.png"_s.arg(++m_pictures, 2, 10, QChar(u'0')).arg(name);
    const QString taken = m_forms.TakePicture(page);
    if (taken.isEmpty() || !m_directory.rename(taken, picture))
        Fail(u"The forms program took no picture %1."_s.arg(picture));
}

bool Tour::During(const QString& what, const std::function<void()>& open, const Visit& visit)
{
    QWidget* const below = QApplication::activeModalWidget();
    bool came = false;
    QTimer watch;
    watch.setInterval(20);
    QElapsedTimer since;
    since.start();
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == below || !dialog->isVisible())
            return;
        watch.stop();
        came = true;
        const Strangers::Visited visited(m_strangers, *dialog);
        m_opened.insert(dialog->objectName());
        Settle();
        visit(*dialog);
        if (auto* still = qobject_cast<QDialog*>(dialog.data()); still && still->isVisible())
            still->reject();
    });
    watch.start();
    open();
    while (!came && since.elapsed() < kDialogSeconds * 1000 && QApplication::activeModalWidget() != below)
        Settle(20);
    return came || Fail(u"%1 did not come up."_s.arg(what));
}

bool Tour::Choose(QWidget& window, const QString& words)
{
    const auto* main = qobject_cast<QMainWindow*>(&window);
    QList<QAction*> entries = main ? main->menuBar()->actions() : QList<QAction*>();
    QAction* entry = nullptr;
    for (const QString& word : words.split(u" > "_s)) {
        entry = EntryOf(entries, word);
        entries = entry && entry->menu() ? entry->menu()->actions() : QList<QAction*>();
    }
    if (!entry || !entry->isEnabled())
        return Fail(u"The menu has no entry %1 that can be chosen."_s.arg(words));
    entry->trigger();
    return true;
}

bool Tour::StartFormsProgram(const files::Disk& disk, const QString& socketPath)
{
    const QString failure = m_forms.Start(disk, socketPath);
    if (!failure.isEmpty())
        return Fail(failure);
    Step(u"The forms program has opened %1."_s.arg(m_forms.Report()));
    return true;
}

bool Tour::Play(shell::frm_Main& main, QWidget& window, const LinkRecorder& recorder)
{
    window.resize(QSize(1366, 768).boundedTo(windows::RoomFor(window)));
    const Stage stage{*this, main, window, recorder};
    for (const TourStep& step : TourSteps()) {
        m_playing = step.name;
        if (!step.play(stage))
            Fail(u"The step \"%1\" did not do what it should."_s.arg(step.name));
    }
    for (const windows::ScreenEntry& screen : windows::Screens()) {
        // The frame of the function keys stands in the windows of the entry screens.
        if (screen.name != "frm_FKey"_L1 && !m_opened.contains(QString(screen.name)))
            Fail(u"The screen %1 was not shown."_s.arg(screen.name));
    }
    return m_ok;
}

int Tour::Finish(const LinkRecorder& recorder)
{
    m_playing = u"the end"_s;
    if (!m_forms.Stop()) {
        Fail(u"The forms program did not stop."_s);
        return 1;
    }
    const QStringList differences = m_forms.Differences(recorder);
    for (const QString& line : differences)
        Step(line);
    const bool all =
        m_ok && differences.isEmpty() && !recorder.Cells().isEmpty() && !recorder.Images().isEmpty();
    Step(u"%1 fields and %2 pictures were sent; the saved report holds %3."_s.arg(recorder.Cells().size())
             .arg(recorder.Images().size())
             .arg(differences.isEmpty() ? u"all of them"_s : u"%1 otherwise"_s.arg(differences.size())));
    if (!all)
        Step(u"The tour failed."_s);
    return all ? 0 : 1;
}

} // namespace vasclip::app
