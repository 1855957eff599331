#pragma once

#include "forms/chips.h"
#include "forms/controls.h"
#include "forms/grid.h"
#include "forms/multi_list.h"
#include "forms/scroll_bar.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

class QComboBox;
class QKeyEvent;
class QLabel;
class QListView;
class QListWidget;
class QMenu;
class QProgressBar;
class QToolButton;
class QWidget;

namespace vasclip::windows {

class EventGuard;

/// Ties the controls of a screen to the widgets of the same name, both ways.
///
/// A control's widget is the one whose objectName is the control's ObjectName(): "txtComp_4". The control is
/// the truth: a widget shows what its control says, and the user's events change the control, whose rules may
/// answer by changing it again. Every event enters through the guard.
class Binder : public QObject
{
    Q_OBJECT
public:
    /// Controls and guard outlive the binder.
    Binder(forms::ControlSet& controls, EventGuard& guard, QObject* parent = nullptr);

    /// Binds every control that has a widget at or under `root` and is not bound yet. Pages that are built
    /// later are bound by a call of their own. @throws RuntimeError if a widget cannot show its control
    void Bind(QWidget& root);
    /// Controls that this window does not show on purpose, by name or by object name.
    void DeclareUnseen(const QStringList& names);

    /// Controls without a widget, named widgets under `root` without a control, and unseen names that no
    /// control bears; empty when window and screen agree. Each line says which it is.
    [[nodiscard]] QStringList Leftovers(const QWidget& root) const;
    /// @throws RuntimeError that lists all leftovers, if there are any
    void Check(const QWidget& root) const;

    [[nodiscard]] QWidget* WidgetOf(const forms::Control& control) const; ///< nullptr if it is not bound
    [[nodiscard]] forms::Control*
    ControlOf(const QObject* widget) const; ///< nullptr for a widget of no control
    /// The same for a widget that may be the field of a combo box.
    [[nodiscard]] forms::Control* ControlAt(const QWidget* widget) const;
    [[nodiscard]] forms::ControlSet& Controls() const { return m_controls; }
    [[nodiscard]] EventGuard& Guard() const { return m_guard; }

    /// Is this an objectName that a control would bear ("cmdAdd", "TabComp")? The window's own widgets have
    /// names without a control's prefix, or none.
    [[nodiscard]] static bool IsControlName(const QString& objectName);

Q_SIGNALS:
    void Bound(forms::Control& control, QWidget& widget);
    void DragWanted(forms::Control& source); ///< the user pulls at a control's widget

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BindOne(forms::Control& control, QWidget& widget);
    bool BindKind(forms::Control& control, QWidget& widget);
    bool BindText(forms::TextBox& control, QWidget& widget);
    bool BindLabel(forms::Label& control, QWidget& widget);
    bool BindButton(forms::Button& control, QWidget& widget);
    bool BindCheck(forms::CheckBox& control, QWidget& widget);
    bool BindCombo(forms::ComboBox& control, QWidget& widget);
    bool BindList(forms::ListBox& control, QWidget& widget);
    bool BindMultiList(forms::MultiListBox& control, QWidget& widget);
    bool BindScroll(forms::ScrollBar& control, QWidget& widget);
    bool BindPicture(forms::PictureBox& control, QWidget& widget);
    bool BindTabs(forms::TabControl& control, QWidget& widget);
    void BindPageList(forms::TabControl& control, QListWidget& list);
    bool BindMonth(forms::MonthView& control, QWidget& widget);
    bool BindGauge(forms::Gauge& control, QWidget& widget);
    bool BindMenu(forms::Menu& control, QWidget& widget);
    bool BindGrid(forms::Grid& control, QWidget& widget);
    bool BindChips(forms::ChipList& control, QWidget& widget);
    void ShowCommon(forms::Control& control, QWidget& widget);
    void Watch(forms::Control& control, QWidget& widget);
    [[nodiscard]] static int KeyCodeOf(int key, bool ctrl);
    bool TellKey(forms::Control& control, const QKeyEvent& press); ///< @return true if a rule took it

    forms::ControlSet& m_controls;
    EventGuard& m_guard;
    QHash<const forms::Control*, QPointer<QWidget>> m_widgets;
    QHash<const QObject*, QPointer<forms::Control>>
        m_watched; ///< the widget and the part of it that takes events
    QSet<QString> m_unseen;
};

} // namespace vasclip::windows
