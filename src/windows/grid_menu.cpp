#include "windows/grid_menu.h"

#include "ui_frm_main.h"
#include "windows/binder.h"
#include "windows/guard.h"
#include "windows/icons.h"
#include "windows/record_grid.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

const QString kGridMenuName = u"popGrid_M"_s;

} // namespace

GridMenu::GridMenu(Ui::frm_Main& ui, Binder& binder, QAction& send, QWidget& window)
    : QObject(&window)
    , m_ui(ui)
    , m_binder(binder)
{
    RecordGrid* grid = ui.grddatabook;
    const auto add = [&](const QString& words, const QKeySequence& keys, auto handler) {
        auto* action = new QAction(words, grid);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, handler);
        m_actions.append(action);
        return action;
    };
    m_actions.append(&send);
    QAction* copy = add(tr("Cop&y Selected Records"), QKeySequence::Copy, [grid] { grid->CopySelection(); });
    copy->setIcon(ThemedIcon(u"copy"_s));
    QAction* all = add(tr("Select &All Records"), QKeySequence::SelectAll, [grid] { grid->selectAll(); });
    m_rowActions = {copy, all};
    QMenu* rules = nullptr;
    if (binder.Controls().Find(kGridMenuName) != nullptr) {
        rules = new QMenu(&window);
        rules->setObjectName(kGridMenuName);
    }
    connect(grid, &RecordGrid::MenuWanted, this, [this, rules, &window](const QPoint& place) {
        QMenu menu(&window);
        if (rules != nullptr) {
            menu.addActions(rules->actions());
            menu.addSeparator();
        }
        menu.addActions(m_actions);
        menu.exec(place);
    });
    BuildRecordKeys();
}

void GridMenu::Follow()
{
    const forms::Grid* grid = m_ui.grddatabook->Control();
    for (QAction* action : std::as_const(m_rowActions))
        action->setEnabled(grid->RowCount() > 0);
    for (const auto& [action, button] : std::as_const(m_recordActions))
        action->setEnabled(grid->Row() >= 0 || button->isEnabled());
}

/// What the keys of the grid do is what its buttons do, to the row that stands there: an address that was
/// typed in the box meanwhile gives way. A disabled button's key does nothing.
void GridMenu::BuildRecordKeys()
{
    RecordGrid* grid = m_ui.grddatabook;
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
        m_actions.append(action);
        return action;
    };
    const auto recordKey = [&](const QString& words, const QKeySequence& keys, QAbstractButton* button) {
        m_recordActions.append({key(words, keys, button), button});
        if (const forms::Control* control = m_binder.Controls().Find(button->objectName()))
            connect(control, &forms::Control::Changed, this, &GridMenu::ButtonsChanged, Qt::QueuedConnection);
    };
    auto* fresh = new QAction(tr("Add a comp"), grid);
    fresh->setShortcut(Qt::Key_Insert);
    fresh->setShortcutContext(Qt::WidgetShortcut);
    connect(fresh, &QAction::triggered, this, [this] {
        m_ui.txtcentralkey->setFocus(Qt::ShortcutFocusReason);
        m_ui.txtcentralkey->selectAll();
    });
    grid->addAction(fresh);
    key(tr("Search by field"), Qt::CTRL | Qt::SHIFT | Qt::Key_F, m_ui.cmdSearch);
    recordKey(tr("Edit the record"), Qt::CTRL | Qt::Key_E, m_ui.cmdEdit);
    recordKey(tr("Copy the record to another address"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, m_ui.cmdCopy);
    recordKey(tr("Give the record another address"), Qt::CTRL | Qt::Key_R, m_ui.cmdRename);
    recordKey(tr("Delete the record and its photos"), Qt::Key_Delete, m_ui.cmdDelete);
    for (QWidget* photo : {static_cast<QWidget*>(m_ui.lstViews), static_cast<QWidget*>(m_ui.geamaintain)})
        for (const auto& [keys, button] : {std::pair(Qt::Key_F2, m_ui.CmdRenamePhotoView),
                                           std::pair(Qt::Key_Delete, m_ui.CmdDeletePhoto)}) {
            auto* shortcut = new QShortcut(keys, photo);
            shortcut->setContext(Qt::WidgetShortcut);
            connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
        }
    for (QLineEdit* box : {m_ui.txtcentralkey, m_ui.cboapprslType->lineEdit()})
        connect(box, &QLineEdit::returnPressed, this, [this] {
            if (m_ui.cmdAdd->isEnabled())
                m_ui.cmdAdd->click();
            else
                m_ui.cmdEdit->click();
        });
}

} // namespace vasclip::windows
