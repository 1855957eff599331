// The View menu, the menu over the grid, and the keys of the main window.

#include "ui_frm_main.h"
#include "windows/guard.h"
#include "windows/icons.h"
#include "windows/main_window.h"
#include "windows/theme.h"

#include <QAbstractButton>
#include <QAction>
#include <QActionGroup>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>

namespace vasclip::windows {

namespace {

const QString kGridMenuName = QStringLiteral("popGrid_M");

} // namespace

void MainWindow::BuildViewMenu()
{
    QMenu* menu = m_ui->viewMenu;
    const auto add = [&](const QString& words, const QKeySequence& keys, auto handler) {
        QAction* action = menu->addAction(words);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, [this, handler] { m_binder.Guard().Run(handler); });
        return action;
    };
    QAction* send =
        add(tr("&Send to Slot..."), QKeySequence(Qt::CTRL | Qt::Key_Return), [this] { SendToSlot(); });
    send->setIcon(ThemedIcon(QStringLiteral("send")));
    m_send = send;
    QAction* pick = add(tr("Pick &Up"), QKeySequence(Qt::CTRL | Qt::Key_J), [this] { PickUpOrDrop(); });
    const auto focused = [this](auto act) {
        if (forms::Control* control = m_binder.ControlAt(focusWidget()))
            act(*control);
    };
    add(tr("Cop&y Picture"), {}, [this, focused] {
        focused([this](forms::Control& control) { (void)m_drags.CopyPicture(control); });
    });
    add(tr("Past&e Files"), {},
        [this, focused] { focused([this](forms::Control& control) { (void)m_drags.PasteFiles(control); }); });
    auto* putDown = new QShortcut(Qt::Key_Escape, this);
    putDown->setEnabled(false);
    connect(putDown, &QShortcut::activated, this, [this] { m_drags.PutDown(); });
    connect(&m_drags, &DragDesk::HeldChanged, this, [this, pick, putDown] {
        putDown->setEnabled(m_drags.Held() != nullptr);
        pick->setText(m_drags.Held() == nullptr ? tr("Pick &Up") : tr("Dr&op Here"));
    });
    BuildGridMenu(*send);
    BuildRecordKeys();
    QAction* columns = add(tr("C&olumns..."), {}, [this] { m_ui->grddatabook->ChooseColumns(); });
    menu->addSeparator();
    m_gridActions.append(columns);
    add(tr("&Next Pane"), QKeySequence(Qt::Key_F6), [this] { NextPane(1); });
    add(tr("&Previous Pane"), QKeySequence(Qt::SHIFT | Qt::Key_F6), [this] { NextPane(-1); });
    add(tr("&Databook Grid"), QKeySequence(Qt::CTRL | Qt::Key_G),
        [this] { m_ui->grddatabook->setFocus(Qt::ShortcutFocusReason); });
    add(tr("Address of a &Comp"), QKeySequence(Qt::CTRL | Qt::Key_K), [this] {
        m_ui->txtcentralkey->setFocus(Qt::ShortcutFocusReason);
        m_ui->txtcentralkey->selectAll();
    });
    add(tr("&Quick Find"), QKeySequence(Qt::CTRL | Qt::Key_F), [this] {
        m_ui->txtQuickFind->setFocus(Qt::ShortcutFocusReason);
        m_ui->txtQuickFind->selectAll();
    });
    auto* leave = new QAction(m_ui->txtQuickFind);
    leave->setShortcut(Qt::Key_Escape);
    leave->setShortcutContext(Qt::WidgetShortcut);
    m_ui->txtQuickFind->addAction(leave);
    connect(leave, &QAction::triggered, this, [this] {
        if (auto* box = qobject_cast<forms::TextBox*>(m_binder.ControlOf(m_ui->txtQuickFind)))
            m_binder.Guard().Run([box] { box->SetText({}); });
        m_ui->grddatabook->setFocus(Qt::ShortcutFocusReason);
    });
    menu->addSeparator();
    QMenu* themes = menu->addMenu(tr("&Theme"));
    m_themes = new QActionGroup(this);
    const std::pair<QString, ThemeChoice> choices[] = {{tr("&As the Desktop"), ThemeChoice::System},
                                                       {tr("&Light"), ThemeChoice::Light},
                                                       {tr("&Dark"), ThemeChoice::Dark}};
    for (const auto& [words, choice] : choices) {
        QAction* action = themes->addAction(words);
        action->setCheckable(true);
        action->setData(static_cast<int>(choice));
        m_themes->addAction(action);
        connect(action, &QAction::triggered, this, [this, picked = choice] { m_theme.Choose(picked); });
    }
    add(tr("&Reset Layout"), {}, [this] { ResetLayout(); });
}

/// What the right button and the menu key open over the grid: the rules' own entries, then the window's.
void MainWindow::BuildGridMenu(QAction& send)
{
    RecordGrid* grid = m_ui->grddatabook;
    const auto add = [&](const QString& words, const QKeySequence& keys, auto handler) {
        auto* action = new QAction(words, grid);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, handler);
        m_gridActions.append(action);
        return action;
    };
    m_gridActions.append(&send);
    QAction* copy = add(tr("Cop&y Selected Records"), QKeySequence::Copy, [grid] { grid->CopySelection(); });
    copy->setIcon(ThemedIcon(QStringLiteral("copy")));
    QAction* all = add(tr("Select &All Records"), QKeySequence::SelectAll, [grid] { grid->selectAll(); });
    m_rowActions = {copy, all};
    if (m_binder.Controls().Find(kGridMenuName) != nullptr) {
        m_gridMenu = new QMenu(this);
        m_gridMenu->setObjectName(kGridMenuName);
    }
    connect(grid, &RecordGrid::MenuWanted, this, [this](const QPoint& place) {
        QMenu menu(this);
        if (m_gridMenu != nullptr) {
            menu.addActions(m_gridMenu->actions());
            menu.addSeparator();
        }
        menu.addActions(m_gridActions);
        menu.exec(place);
    });
}

/// What the keys of the grid do is what its buttons do, to the row that stands there: an address that was typed
/// in the box meanwhile gives way. A disabled button's key does nothing.
void MainWindow::BuildRecordKeys()
{
    RecordGrid* grid = m_ui->grddatabook;
    const auto key = [&](const QString& words, const QKeySequence& keys, QAbstractButton* button) {
        auto* action = new QAction(words, grid);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, [this, grid, button] {
            m_binder.Guard().Run([grid] {
                if (grid->Control() != nullptr && grid->Control()->Row() >= 0)
                    Q_EMIT grid->Control()->Clicked();
            });
            button->click();
        });
        grid->addAction(action);
        m_gridActions.append(action);
        return action;
    };
    const auto recordKey = [&](const QString& words, const QKeySequence& keys, QAbstractButton* button) {
        m_recordActions.append({key(words, keys, button), button});
        if (const forms::Control* control = m_binder.Controls().Find(button->objectName()))
            connect(control, &forms::Control::Changed, this, &MainWindow::FollowRecord, Qt::QueuedConnection);
    };
    auto* fresh = new QAction(tr("Add a comp"), grid);
    fresh->setShortcut(Qt::Key_Insert);
    fresh->setShortcutContext(Qt::WidgetShortcut);
    connect(fresh, &QAction::triggered, this, [this] {
        m_ui->txtcentralkey->setFocus(Qt::ShortcutFocusReason);
        m_ui->txtcentralkey->selectAll();
    });
    grid->addAction(fresh);
    key(tr("Search by field"), Qt::CTRL | Qt::SHIFT | Qt::Key_F, m_ui->cmdSearch);
    recordKey(tr("Edit the record"), Qt::CTRL | Qt::Key_E, m_ui->cmdEdit);
    recordKey(tr("Copy the record to another address"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, m_ui->cmdCopy);
    recordKey(tr("Give the record another address"), Qt::CTRL | Qt::Key_R, m_ui->cmdRename);
    recordKey(tr("Delete the record and its photos"), Qt::Key_Delete, m_ui->cmdDelete);
    for (QWidget* photo : {static_cast<QWidget*>(m_ui->lstViews), static_cast<QWidget*>(m_ui->geamaintain)})
        for (const auto& [keys, button] : {std::pair(Qt::Key_F2, m_ui->CmdRenamePhotoView),
                                           std::pair(Qt::Key_Delete, m_ui->CmdDeletePhoto)}) {
            auto* shortcut = new QShortcut(keys, photo);
            shortcut->setContext(Qt::WidgetShortcut);
            connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
        }
    for (QLineEdit* box : {m_ui->txtcentralkey, m_ui->cboapprslType->lineEdit()})
        connect(box, &QLineEdit::returnPressed, this, [this] {
            if (m_ui->cmdAdd->isEnabled())
                m_ui->cmdAdd->click();
            else
                m_ui->cmdEdit->click();
        });
}

} // namespace vasclip::windows
