#pragma once

#include <QList>
#include <QObject>

#include <utility>

class QAbstractButton;
class QAction;
class QWidget;

namespace Ui {
class frm_Main;
}

namespace vasclip::windows {

class Binder;

/// What the right button and the menu key open over the grid: the rules' own entries, then the window's; and the keys of
/// the grid.
class GridMenu : public QObject
{
    Q_OBJECT
public:
    /// @param send  sends the current record to a slot
    GridMenu(Ui::frm_Main& ui, Binder& binder, QAction& send, QWidget& window);

    void Append(QAction& action) { m_actions.append(&action); }
    /// What acts on rows or on the current record is off while there is none.
    void Follow();

Q_SIGNALS:
    void ButtonsChanged(); ///< what can be done with the record may have changed

private:
    void BuildRecordKeys();

    Ui::frm_Main& m_ui;
    Binder& m_binder;
    QList<QAction*> m_actions;
    QList<QAction*> m_rowActions;                                 ///< of rows, whichever
    QList<std::pair<QAction*, QAbstractButton*>> m_recordActions; ///< of the current record
};

} // namespace vasclip::windows
