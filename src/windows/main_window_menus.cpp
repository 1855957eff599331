// The View menu and the keys of the main window.

#include "ui_frm_main.h"
#include "windows/grid_menu.h"
#include "windows/guard.h"
#include "windows/icons.h"
#include "windows/main_window.h"
#include "windows/theme.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

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
    send->setIcon(ThemedIcon(u"send"_s));
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
    m_gridMenu = new GridMenu(*m_ui, m_binder, *send, *this);
    connect(m_gridMenu, &GridMenu::ButtonsChanged, this, &MainWindow::FollowRecord);
    QAction* columns = add(tr("C&olumns..."), {}, [this] { m_ui->grddatabook->ChooseColumns(); });
    menu->addSeparator();
    m_gridMenu->Append(*columns);
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
    add(tr("&Reset Layout"), {}, [this] { m_places.ResetLayout(); });
}

} // namespace vasclip::windows
