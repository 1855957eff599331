#include "windows/main_window.h"

#include "forms/drop_port.h"
#include "forms/menu_port.h"
#include "store/fields.h"
#include "ui_frm_main.h"
#include "windows/capture_pane.h"
#include "windows/chip_bar.h"
#include "windows/focus_chain.h"
#include "windows/grid_menu.h"
#include "windows/guard.h"
#include "windows/guide_window.h"
#include "windows/icons.h"
#include "windows/main_looks.h"
#include "windows/map_page.h"
#include "windows/send_to_slot.h"
#include "windows/slot_page.h"
#include "windows/theme.h"

#include <QAbstractButton>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

const QString kGridName = u"grddatabook"_s;

} // namespace

MainWindow::MainWindow(forms::ControlSet& controls, forms::DropPort& port, forms::MenuPort& menus, EventGuard& guard, Theme& theme,
                       QSettings& settings)
    : m_ui(std::make_unique<Ui::frm_Main>())
    , m_theme(theme)
    , m_port(port)
    , m_menuPort(menus)
    , m_binder(controls, guard)
    , m_drags(m_binder, port)
    , m_menus(m_binder, menus)
    , m_places(*this, *m_ui, settings)
{
    m_ui->setupUi(this);
    setWindowIcon(ApplicationIcon());
    BuildHeader();
    BuildPages();
    BuildViewMenu();
    BuildPopups();
    Decorate(*m_ui);
    m_ui->browserPane->setVisible(controls.Find(u"fraPics"_s) != nullptr);
    NamesForReaders(*m_ui);
    m_ui->conditionRow->hide();
    m_ui->lstConditions->FollowInTabOrder(m_ui->cmdPrint);
    // The stems run beside lstViews, line for line, and people look at the views; anchor 0 only holds the
    // picture that the others take.
    m_binder.DeclareUnseen(
        {u"lstimages"_s, u"txtimage"_s, u"lblLabelTag"_s, u"lstGenViews"_s, u"imaSubjectAnchor_0"_s});
    m_binder.Bind(*this);
    for (QTabWidget* book : {m_ui->TabSubject})
        book->tabBar()->setAutoHide(true);
    if (auto* grid = qobject_cast<forms::Grid*>(controls.Find(kGridName))) {
        connect(grid, &forms::Grid::Rebound, this, &MainWindow::ShowRecordCount);
        connect(grid, &forms::Grid::RowColChange, this, &MainWindow::ShowRecordCount);
        connect(grid, &forms::Grid::SelectionChanged, this, &MainWindow::ShowRecordCount);
        connect(qApp, &QApplication::focusChanged, this, &MainWindow::FollowRecord);
        ShowRecordCount();
    }
    connect(m_ui->grddatabook, &RecordGrid::FirstPainted, this, &MainWindow::FirstPainted);
    connect(m_ui->grddatabook, &RecordGrid::FirstPainted, this, &MainWindow::BuildCapture, Qt::QueuedConnection);
    connect(m_ui->lstConditions, &ChipBar::Filled, m_ui->conditionRow, &QWidget::setVisible);
    m_ui->recordsPane->installEventFilter(this);
    connect(&theme, &Theme::Changed, this, &MainWindow::MarkTheme);
    MarkTheme();
    m_places.Restore();
    m_ui->grddatabook->setFocus();
}

MainWindow::~MainWindow()
{
    disconnect(qApp, nullptr, this, nullptr); // the focus moves once more while the widgets go
}

RecordGrid& MainWindow::Databook() const
{
    return *m_ui->grddatabook;
}

/// Beside the source tabs: refresh the report, send the record, change the theme.
void MainWindow::BuildHeader()
{
    auto* corner = new QWidget(m_ui->tabSource);
    auto* line = new QHBoxLayout(corner);
    line->setContentsMargins(0, 2, 0, 2);
    line->setSpacing(4);
    const auto button = [&](const QString& name, const char* icon, const QString& words, const QString& tip) {
        auto* made = new QToolButton(corner);
        made->setObjectName(name);
        made->setIcon(ThemedIcon(QLatin1StringView(icon)));
        made->setText(words);
        made->setToolTip(tip);
        made->setToolButtonStyle(words.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
        made->setFocusPolicy(Qt::TabFocus);
        if (words.isEmpty())
            made->setAccessibleName(tip);
        else
            made->setAccessibleDescription(tip);
        line->addWidget(made);
        return made;
    };
    button(u"imaKel"_s, "house", tr("Refresh re&port"), tr("Read the open report and fill the tabs from it"));
    auto* send = button(u"sendButton"_s, "send", tr("Send to sl&ot"),
                        tr("Drop the current record on a slot (Ctrl+Enter)"));
    connect(send, &QToolButton::clicked, this, &MainWindow::SendToSlot);
    m_sendButton = send;
    m_themeButton = button(u"themeButton"_s, "moon", QString(), tr("Light or dark"));
    connect(m_themeButton, &QToolButton::clicked, this,
            [this] { m_theme.Choose(m_theme.IsDark() ? ThemeChoice::Light : ThemeChoice::Dark); });
    auto* help = button(u"helpButton"_s, "question", QString(), tr("The guide, at the page about this (F1)"));
    connect(help, &QToolButton::clicked, this, [this] { OpenGuide(focusWidget(), *this); });
    m_ui->tabSource->setCornerWidget(corner, Qt::TopRightCorner);
}

/// Gives every tab widget the pages that its control has; the slot pages are filled when they are shown.
void MainWindow::BuildPages()
{
    const auto pagesOf = [this](const QString& name) {
        const auto* tab = qobject_cast<const forms::TabControl*>(m_binder.Controls().Find(name));
        return tab == nullptr ? 0 : tab->Tabs();
    };
    QHash<QString, QTabWidget*> books;
    for (QTabWidget* book :
         {m_ui->TabSubject, m_ui->TabComp, m_ui->TabGeneral, m_ui->TabListing, m_ui->TabRental}) {
        books.insert(book->objectName(), book);
        book->setDocumentMode(true);
        book->tabBar()->setProperty("pills", true);
    }
    for (QTabWidget* book : findChildren<QTabWidget*>()) {
        book->tabBar()->setDrawBase(false);
        book->tabBar()->setExpanding(false);
        book->tabBar()->setUsesScrollButtons(true);
        book->tabBar()->setChangeCurrentOnDrag(true); // a drag opens the page it rests on
        book->setFocusProxy(nullptr);                 // the bar takes the focus itself, unless it is hidden
        book->setFocusPolicy(Qt::NoFocus);
        book->tabBar()->setFocusPolicy(Qt::StrongFocus);
    }
    for (const SlotGroup& group : SlotGroups()) {
        QTabWidget* book = books.value(group.row.tab);
        for (int page = 0; page < group.row.pages; ++page) {
            const auto built = [this, bar = book->tabBar()](QWidget& whole) {
                ChainFocus(bar, whole);
                m_binder.Bind(whole);
            };
            auto* made = new SlotPage(group, page, built, book);
            book->addTab(made, QString());
            m_pages.append(made);
        }
    }
    for (QTabWidget* book : std::as_const(books)) {
        while (book->count() < pagesOf(book->objectName()))
            book->addTab(new QWidget(book), QString());
    }
    while (m_ui->tabSource->count() < pagesOf(u"tabSource"_s))
        m_ui->tabSource->addTab(new QWidget, QString());
}

void MainWindow::BuildAllPages()
{
    for (SlotPage* page : std::as_const(m_pages))
        page->Build();
    BuildCapture();
    if (m_map)
        m_map->Build();
}

void MainWindow::ShowMap(map::MapPort& port)
{
    m_map = std::make_unique<MapPage>(port, m_binder, *m_ui);
}

void MainWindow::BuildCapture()
{
    if (m_ui->browserRows->count() > 0 || m_binder.Controls().Find(u"fraPics"_s) == nullptr)
        return;
    auto* pane = new CapturePane(m_ui->browserPane);
    m_ui->browserRows->addWidget(pane);
    connect(pane, &CapturePane::DeleteWanted, this, &MainWindow::DeleteThumb);
    ChainFocus(m_ui->grddatabook, *pane);
    m_binder.Bind(*pane);
    pane->show();
}

/// Where the menus of the rules over slots and pictures are built; each is shown by MenuDesk.
void MainWindow::BuildPopups()
{
    for (const char* name : {"popPhoto_M", "popThumb_M", "popPicture_M", "popGeneral_M", "popTextData_M", "popPicAndData_M"}) {
        if (m_binder.Controls().Find(QLatin1StringView(name)) == nullptr)
            continue;
        auto* menu = new QMenu(this);
        menu->setObjectName(QLatin1StringView(name));
    }
}

void MainWindow::DeleteThumb(int index)
{
    if (const forms::Control* thumb = m_binder.Controls().Find(u"geathumb"_s, index))
        m_binder.Guard().Run([&] { m_menuPort.DeleteKeyOn(*thumb); });
}

/// In a narrow pane the buttons of the grid do without their words; narrower than that it does not get.
void MainWindow::ShowWords()
{
    const auto leastWith = [this](Qt::ToolButtonStyle style) {
        for (QToolButton* button :
             {m_ui->cmdCopy, m_ui->cmdRename, m_ui->cmdEdit, m_ui->cmdDelete, m_ui->cmdSearch})
            button->setToolButtonStyle(style);
        const QMargins margins = m_ui->databookRows->contentsMargins();
        return m_ui->addRow->minimumSize().width() + margins.left() + margins.right();
    };
    const int least = leastWith(Qt::ToolButtonIconOnly);
    m_ui->recordsPane->setMinimumWidth(least);
    if (leastWith(Qt::ToolButtonTextBesideIcon) > m_ui->recordsPane->width())
        static_cast<void>(leastWith(Qt::ToolButtonIconOnly));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->recordsPane && event->type() == QEvent::Resize)
        ShowWords();
    return QMainWindow::eventFilter(watched, event);
}

/// The control that has the focus, if a drag may begin on it.
forms::Control* MainWindow::FocusSource() const
{
    forms::Control* control = m_binder.ControlAt(focusWidget());
    bool source = false;
    if (control != nullptr)
        m_binder.Guard().Run([&] { source = m_port.IsSource(*control); });
    return source ? control : nullptr;
}

void MainWindow::PickUpOrDrop()
{
    if (forms::Control* control = m_binder.ControlAt(focusWidget()))
        m_drags.PickUpOrDrop(*control);
}

QStringList MainWindow::Leftovers()
{
    BuildAllPages();
    return m_binder.Leftovers(*this);
}

/// From pane to pane: source tabs, map, report, record, add row, grid.
void MainWindow::NextPane(int step)
{
    QWidget* report = m_ui->TabData->tabBar();
    QWidget* pictures = nullptr;
    for (const char* name : {"geathumb_0", "filCapture", "imaFolder"})
        if (auto* widget = findChild<QWidget*>(QLatin1StringView(name)); pictures == nullptr && widget != nullptr &&
                                                                         widget->isVisible())
            pictures = widget;
    QList<QWidget*> panes = {m_ui->tabSource->tabBar(), report, m_ui->lstViews, m_ui->txtcentralkey,
                             m_ui->grddatabook};
    QList<QWidget*> grounds = {m_ui->tabSource->tabBar(), m_ui->reportPane, m_ui->recordPane,
                               m_ui->txtcentralkey, m_ui->grddatabook};
    if (pictures != nullptr) {
        panes.append(pictures);
        grounds.append(m_ui->browserPane);
    }
    if (auto* map = findChild<QWidget*>(u"mapview"_s)) {
        panes.insert(1, map);
        grounds.insert(1, map->parentWidget());
    }
    qsizetype at = -1;
    for (qsizetype i = 0; i < grounds.size(); ++i) {
        if (QWidget* focus = focusWidget();
            focus != nullptr && (focus == grounds.at(i) || grounds.at(i)->isAncestorOf(focus)))
            at = i;
    }
    for (qsizetype tries = 0; tries < panes.size(); ++tries) {
        at = at < 0 ? (step > 0 ? 0 : panes.size() - 1) : (at + step + panes.size()) % panes.size();
        if (panes.at(at)->isVisible() && panes.at(at)->isEnabled()) {
            panes.at(at)->setFocus(Qt::ShortcutFocusReason);
            return;
        }
    }
}

void MainWindow::SendToSlot()
{
    forms::Control* source = FocusSource();
    auto* grid = qobject_cast<forms::Grid*>(m_binder.Controls().Find(kGridName));
    if (source == nullptr && grid != nullptr && grid->Row() >= 0)
        source = grid;
    if (source == nullptr)
        return;
    QList<SlotChoice> choices;
    QString title;
    m_drags.PutDown();
    if (!m_binder.Guard().Run([&] {
            m_port.Begin(*source, 0); // what is chosen now is sent, whatever stands there when a slot is chosen
            choices = SlotChoices(m_binder.Controls(), m_port, source->Name());
            title = source == grid ? grid->CurrentText(fields::CENTRALKEY).trimmed()
                                   : QFileInfo(m_port.FileOf(*source)).fileName();
            if (const auto* text = qobject_cast<forms::TextBox*>(source))
                title = text->Text().trimmed();
        }))
        return;
    SendToSlotDialog dialog(title, choices, this);
    if (dialog.exec() != QDialog::Accepted || dialog.Target() == nullptr)
        return;
    m_drags.Drop(*source, *dialog.Target());
}

void MainWindow::ShowRecordCount()
{
    const auto* grid = m_ui->grddatabook->Control();
    if (grid == nullptr)
        return;
    m_binder.Guard().Run([&] {
        const QLocale locale;
        const qint64 rows = grid->RowCount();
        QString count = rows == 0        ? tr("No records")
                        : grid->Row() < 0 ? tr("%1 records").arg(locale.toString(rows))
                                          : tr("Record %1 of %2").arg(locale.toString(grid->Row() + 1),
                                                                      locale.toString(rows));
        if (grid->SelectedCount() > 1)
            count += tr(", %1 selected").arg(locale.toString(grid->SelectedCount()));
        m_ui->recordCount->setText(count);
        m_drags.SetCardText(
            grid->CurrentText(fields::CENTRALKEY).trimmed(),
            u"%1 %2"_s.arg(grid->CurrentText(fields::CITY).trimmed(), grid->CurrentText(fields::ST).trimmed())
                .trimmed());
    });
    FollowRecord();
}

/// What acts on the current record is off while there is none. Sending takes what has the focus, too.
void MainWindow::FollowRecord()
{
    const auto* grid = m_ui->grddatabook->Control();
    if (grid == nullptr || m_send == nullptr)
        return;
    m_gridMenu->Follow();
    const bool record = grid->Row() >= 0;
    const forms::Control* focus = m_binder.ControlAt(focusWidget());
    const bool other = focus != nullptr && focus != grid && m_drags.MaySend(*focus);
    m_send->setEnabled(record || other);
    m_sendButton->setEnabled(record || other);
}

void MainWindow::ShowTabColours(bool themed)
{
    for (QWidget* ground : {m_ui->desk, m_ui->central, static_cast<QWidget*>(m_ui->statusRow)}) {
        ground->setAutoFillBackground(!themed);
        ground->setBackgroundRole(themed ? QPalette::NoRole : QPalette::Base);
    }
}

void MainWindow::MarkTheme()
{
    m_themeButton->setIcon(ThemedIcon(m_theme.IsDark() ? u"sun"_s : u"moon"_s));
    for (QAction* action : m_themes->actions())
        action->setChecked(action->data().toInt() == static_cast<int>(m_theme.Choice()));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (std::exchange(m_unloaded, true))
        return;
    m_places.Save();
    m_binder.Guard().Run([this] { Q_EMIT Unload(); });
}

} // namespace vasclip::windows
