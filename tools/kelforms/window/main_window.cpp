#include "kelforms/window/main_window.h"

#include "kelforms/window/icons.h"
#include "platform/text/runtime_error.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace conduit = vasclip::conduit;

namespace {

constexpr int kListWidth = 252;
constexpr int kStripWidth = 246;

QScrollArea* Scrolled(QWidget* widget)
{
    auto* area = new QScrollArea;
    area->setWidget(widget);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setFrameShape(QFrame::NoFrame);
    return area;
}

} // namespace

template <class Step>
bool MainWindow::Guarded(Step&& step)
{
    try {
        step();
        return true;
    } catch (const vasclip::RuntimeError& failure) {
        QMessageBox::warning(this, u"kelforms"_s, failure.Description() + u'.');
        return false;
    }
}

MainWindow::MainWindow(Service& service, bool dark, bool askBeforeLoss)
    : m_service(service)
    , m_reports(service.OpenReports())
    , m_pictures(service.Disk())
    , m_dark(dark)
    , m_askBeforeLoss(askBeforeLoss)
{
    resize(1280, 720);
    MakePanes();
    MakeActions();
    UseTheme();
    m_reports.SetObserver(this);
    m_service.onClients = [this](int clients) { TellLink(clients); };
    m_service.onExchange = [this](const conduit::LinkMessage& message, const conduit::LinkAnswer& answer) {
        TellExchange(message, answer);
    };
    m_service.onRefused = [this](const QString& words) { m_lastLabel->setText(words); };
    TellLink(0);
    Refresh();
    ShowPage({});
}

MainWindow::~MainWindow()
{
    m_reports.SetObserver(nullptr);
    m_service.onClients = {};
    m_service.onExchange = {};
    m_service.onRefused = {};
}

void MainWindow::MakePanes()
{
    m_list = new ReportList(m_reports);
    m_list->onChosen = [this](const QString& report, const QString& page) { Show(report, page); };
    m_view = new PageView(m_pictures);
    m_strip = new PictureStrip(m_pictures);
    m_viewArea = Scrolled(m_view);
    m_stripArea = Scrolled(m_strip);
    m_list->setMinimumWidth(170);
    m_stripArea->setMinimumWidth(160);

    auto* panes = new QSplitter(Qt::Horizontal);
    panes->setHandleWidth(1);
    panes->addWidget(m_list);
    panes->addWidget(m_viewArea);
    panes->addWidget(m_stripArea);
    panes->setStretchFactor(1, 1);
    panes->setSizes({kListWidth, width() - kListWidth - kStripWidth, kStripWidth});
    panes->setCollapsible(1, false);
    setCentralWidget(panes);

    m_linkLabel = new QLabel;
    m_lastLabel = new QLabel;
    m_lastLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_linkLabel->setContentsMargins(10, 3, 16, 3);
    statusBar()->addWidget(m_linkLabel);
    statusBar()->addWidget(m_lastLabel, 1);
    statusBar()->setSizeGripEnabled(false);
}

void MainWindow::MakeActions()
{
    auto* bar = addToolBar(u"Tools"_s);
    bar->setMovable(false);
    bar->setIconSize({18, 18});
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    setContextMenuPolicy(Qt::NoContextMenu);

    const auto make = [this](const QString& text, const QKeySequence& keys, const QString& hint,
                             const auto& run) {
        auto* action = new QAction(text, this);
        action->setShortcut(keys);
        action->setToolTip(keys.isEmpty() ? hint
                                          : u"%1 (%2)"_s.arg(hint, keys.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, run);
        return action;
    };
    m_open = make(u"&Open"_s, QKeySequence::Open, u"Open a report"_s, [this] { AskOpen(); });
    m_save = make(u"&Save"_s, QKeySequence::Save, u"Save the shown report"_s, [this] { SaveShown(); });
    m_close = make(u"&Close"_s, QKeySequence::Close, u"Close the shown report"_s, [this] { CloseShown(); });
    m_activate = make(u"Make &active"_s, QKeySequence(Qt::CTRL | Qt::Key_T),
                      u"Make the shown report the one that other programs write to"_s,
                      [this] { m_reports.Activate(m_report); });
    m_follow = make(u"&Follow the link"_s, QKeySequence(Qt::CTRL | Qt::Key_L),
                    u"Turn to the page that is being written"_s, [] {});
    m_follow->setCheckable(true);
    m_follow->setChecked(true);
    m_darkSwitch = make(u"&Dark"_s, QKeySequence(Qt::CTRL | Qt::Key_D), u"Light or dark"_s, [this] {
        m_dark = !m_dark;
        UseTheme();
    });

    auto* file = menuBar()->addMenu(u"&File"_s);
    file->addActions({m_open, m_save, m_close});
    file->addSeparator();
    file->addAction(u"&Quit"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), this, [this] { close(); });
    auto* view = menuBar()->addMenu(u"&View"_s);
    view->addActions({m_activate, m_follow, m_darkSwitch});

    bar->addActions({m_open, m_save, m_close, m_activate});
    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    bar->addActions({m_follow, m_darkSwitch});
}

void MainWindow::UseTheme()
{
    const Theme& theme = m_dark ? DarkTheme() : LightTheme();
    Apply(*qApp, theme);
    m_view->SetTheme(theme);
    m_strip->SetTheme(theme);
    m_open->setIcon(DrawIcon(IconKind::Open, theme.text));
    m_save->setIcon(DrawIcon(IconKind::Save, theme.text));
    m_close->setIcon(DrawIcon(IconKind::Close, theme.text));
    m_activate->setIcon(DrawIcon(IconKind::Activate, theme.text));
    m_follow->setIcon(DrawIcon(IconKind::Follow, theme.accent));
    m_darkSwitch->setIcon(DrawIcon(m_dark ? IconKind::Light : IconKind::Dark, theme.text));
    m_darkSwitch->setText(m_dark ? u"&Light"_s : u"&Dark"_s);
    TellLink(m_clients);
}

void MainWindow::ShowPage(const QString& page)
{
    if (const Report* report = m_reports.Active())
        Show(report->Name(), page.isEmpty() || !report->HasForm(page) ? report->MainForm() : page.toUpper());
    else
        Show({}, {});
}

void MainWindow::KeepGlow()
{
    m_view->KeepFlashes();
    m_strip->KeepFlashes();
}

void MainWindow::Show(const QString& name, const QString& page)
{
    const Report* report = m_reports.Find(name);
    const bool turned = m_report != name || m_page != page;
    m_report = report == nullptr ? QString() : report->Name();
    m_page = report == nullptr ? QString() : page;
    m_view->Show(report, m_page);
    m_stripArea->setVisible(m_strip->Show(report, m_page));
    m_list->Choose(m_report, m_page);
    if (turned) {
        m_sinceWrite.invalidate();
        m_viewArea->ensureVisible(0, 0);
    }
    m_save->setEnabled(report != nullptr);
    m_close->setEnabled(report != nullptr);
    m_activate->setEnabled(report != nullptr && report != m_reports.Active());
    setWindowTitle(report == nullptr ? u"kelforms"_s : u"%1[*] - kelforms"_s.arg(report->Name()));
    setWindowModified(report != nullptr && report->Modified());
}

void MainWindow::ReportsChanged()
{
    // The views must let go of a closed report before anything is painted.
    if (!m_report.isEmpty() && m_reports.Find(m_report) == nullptr)
        ShowPage({});
    if (m_refreshDue)
        return;
    m_refreshDue = true;
    QTimer::singleShot(0, this, [this] { Refresh(); });
}

void MainWindow::Refresh()
{
    m_refreshDue = false;
    m_list->Fill();
    if (m_report.isEmpty())
        ShowPage({});
    else
        Show(m_report, m_page);
}

void MainWindow::CellChanged(const Report& report, const QString& key)
{
    const QString page = key.section(u'|', 0, 0);
    if (m_follow->isChecked() && (report.Name() != m_report || page != m_page) &&
        m_view->PlaceOf(key).isNull())
        Show(report.Name(), page);
    if (report.Name() != m_report)
        return;
    m_view->FlashCell(key);
    m_strip->update(); // its captions are addresses
    if (m_follow->isChecked())
        ScrollTo(key);
}

void MainWindow::ImageChanged(const Report& report, const QString& object)
{
    if (report.Name() != m_report)
        return;
    const bool beside = !m_strip->PlaceOf(object).isNull();
    if (m_follow->isChecked() && !beside && m_view->PlaceOf(object).isNull()) {
        for (const QString& form : report.Forms()) {
            const auto* page = report.Layout(form);
            if (page != nullptr && page->objects.contains(object))
                Show(report.Name(), form);
        }
    }
    m_view->FlashImage(object);
    m_strip->Flash(object);
    if (!m_follow->isChecked())
        return;
    if (const QRect place = m_view->PlaceOf(object); !place.isNull())
        m_viewArea->ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2);
    if (const QRect place = m_strip->PlaceOf(object); !place.isNull())
        m_stripArea->ensureVisible(place.center().x(), place.center().y(), 0, place.height());
}

void MainWindow::ScrollTo(const QString& key)
{
    // A comp comes as forty writes in a row: the page stays where the first of them stands.
    constexpr qint64 kBurstMs = 700;
    const bool running = m_sinceWrite.isValid() && m_sinceWrite.elapsed() < kBurstMs;
    m_sinceWrite.start();
    if (running)
        return;
    m_scrollKey = key;
    QTimer::singleShot(0, this, [this] {
        const QString target = std::exchange(m_scrollKey, {});
        if (const QRect place = m_view->PlaceOf(target); !place.isNull())
            m_viewArea->ensureVisible(place.center().x(), place.center().y(), 60, m_viewArea->height() / 3);
    });
}

void MainWindow::RepaintAsked()
{
    m_view->update();
    m_strip->update();
}

QString MainWindow::LinkWords() const
{
    return m_linkLabel->text();
}

void MainWindow::TellLink(int clients)
{
    m_clients = clients;
    const Theme& theme = m_dark ? DarkTheme() : LightTheme();
    const QString words = clients == 0   ? u"Waiting for a program"_s
                          : clients == 1 ? u"Linked to 1 program"_s
                                         : u"Linked to %1 programs"_s.arg(clients);
    m_linkLabel->setText(u"<span style='color:%1'>\u25CF</span>&nbsp; %2"_s.arg(
        (clients == 0 ? theme.muted : theme.good).name(), words));
    m_linkLabel->setToolTip(u"Listening at "_s + m_service.SocketPath());
}

void MainWindow::TellExchange(const conduit::LinkMessage& message, const conduit::LinkAnswer& answer)
{
    ++m_exchanges;
    QString words;
    switch (message.verb) {
    case conduit::Verb::Request:
        words = u"asked for %1"_s.arg(message.item);
        break;
    case conduit::Verb::Poke:
        words = u"wrote %1"_s.arg(message.item);
        break;
    case conduit::Verb::Execute:
        words = u"ran %1"_s.arg(message.text.simplified());
        break;
    }
    if (answer.kind == conduit::LinkAnswer::Kind::Error)
        words += u" (refused: %1)"_s.arg(answer.text);
    m_lastLabel->setText(m_lastLabel->fontMetrics().elidedText(
        u"%L1 exchanges, last: %2"_s.arg(m_exchanges).arg(words), Qt::ElideRight, width() - 260));
}

void MainWindow::AskOpen()
{
    const Report* shown = m_reports.Find(m_report);
    const QStringList files = QFileDialog::getOpenFileNames(
        this, u"Open reports"_s,
        shown == nullptr ? m_service.Disk().Home() : QFileInfo(shown->Path()).absolutePath(),
        u"Reports (*.json *.rpt);;All files (*)"_s);
    for (const QString& file : files) {
        if (Guarded([&] { m_reports.Open(file); }))
            ShowPage({});
    }
}

void MainWindow::SaveShown()
{
    if (Report* report = m_reports.Find(m_report))
        Guarded([&] { m_reports.Save(*report); });
}

void MainWindow::CloseShown()
{
    const Report* report = m_reports.Find(m_report);
    if (report != nullptr && MayLose(*report))
        m_reports.Close(m_report);
}

bool MainWindow::MayLose(const Report& report)
{
    if (!report.Modified())
        return true;
    const auto answer =
        QMessageBox::question(this, u"kelforms"_s, u"Save the changes of %1?"_s.arg(report.Name()),
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        return Guarded([&] { m_reports.Save(*m_reports.Find(report.Name())); });
    return answer == QMessageBox::Discard;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    for (const auto& report : m_reports.All()) {
        if (m_askBeforeLoss && !MayLose(*report)) {
            event->ignore();
            return;
        }
    }
    event->accept();
}

} // namespace kelforms
