#include "windows/binder.h"

#include "forms/keys.h"
#include "windows/guard.h"
#include "windows/picture_view.h"
#include "windows/record_grid.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

/// On a widget: which binder shows one of its controls on it. One window may have several.
constexpr const char* kBoundBy = "boundBy";

QVariant Mark(const Binder* binder)
{
    return QVariant::fromValue(reinterpret_cast<quintptr>(binder));
}

} // namespace

Binder::Binder(forms::ControlSet& controls, EventGuard& guard, QObject* parent)
    : QObject(parent)
    , m_controls(controls)
    , m_guard(guard)
{}

bool Binder::IsControlName(const QString& objectName)
{
    static const QRegularExpression prefixes(
        u"^((cmd|txt|lbl|lst|cbo|ckb|opt|ima|img|gea|dat|fil|fra|tab|Tab|mnu|pop|spn|grd|gau|hsb)["
        "A-Za-z0-9]|cal[A-Z])"_s);
    return prefixes.match(objectName).hasMatch();
}

void Binder::DeclareUnseen(const QStringList& names)
{
    for (const QString& name : names)
        m_unseen.insert(name);
}

void Binder::Bind(QWidget& root)
{
    QHash<QString, QWidget*> named;
    const auto take = [&named](QWidget* widget) {
        if (!widget->objectName().isEmpty())
            named.insert(widget->objectName().toUpper(), widget);
    };
    take(&root);
    for (QWidget* widget : root.findChildren<QWidget*>())
        take(widget);
    for (forms::Control* control : m_controls.All()) {
        if (m_widgets.value(control) != nullptr)
            continue;
        if (QWidget* widget = named.value(control->ObjectName().toUpper()))
            BindOne(*control, *widget);
    }
}

void Binder::BindOne(forms::Control& control, QWidget& widget)
{
    if (!BindKind(control, widget))
        throw RuntimeError(error::kTypeMismatch,
                           u"%1: a %2 cannot show this control"_s.arg(
                               control.ObjectName(), QLatin1StringView(widget.metaObject()->className())));
    m_widgets.insert(&control, &widget);
    widget.setProperty(kBoundBy, Mark(this));
    m_watched.insert(&widget, &control);
    Watch(control, widget);
    connect(&control, &forms::Control::Changed, &widget,
            [this, &control, &widget] { ShowCommon(control, widget); });
    connect(&control, &forms::Control::FocusWanted, &widget,
            [&widget] { widget.setFocus(Qt::OtherFocusReason); });
    connect(&control, &forms::Control::TabWanted, &widget, [&widget](bool back) {
        QKeyEvent press(QEvent::KeyPress, back ? Qt::Key_Backtab : Qt::Key_Tab,
                        back ? Qt::ShiftModifier : Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &press);
    });
    ShowCommon(control, widget);
    Q_EMIT Bound(control, widget);
}

bool Binder::BindKind(forms::Control& control, QWidget& widget)
{
    if (auto* check = qobject_cast<forms::CheckBox*>(&control))
        return BindCheck(*check, widget);
    if (auto* button = qobject_cast<forms::Button*>(&control))
        return BindButton(*button, widget);
    if (auto* combo = qobject_cast<forms::ComboBox*>(&control))
        return BindCombo(*combo, widget);
    if (auto* list = qobject_cast<forms::MultiListBox*>(&control))
        return BindMultiList(*list, widget);
    if (auto* bar = qobject_cast<forms::ScrollBar*>(&control))
        return BindScroll(*bar, widget);
    if (auto* list = qobject_cast<forms::ListBox*>(&control))
        return BindList(*list, widget);
    if (auto* box = qobject_cast<forms::TextBox*>(&control))
        return BindText(*box, widget);
    if (auto* label = qobject_cast<forms::Label*>(&control))
        return BindLabel(*label, widget);
    if (auto* picture = qobject_cast<forms::PictureBox*>(&control))
        return BindPicture(*picture, widget);
    if (auto* tabs = qobject_cast<forms::TabControl*>(&control))
        return BindTabs(*tabs, widget);
    if (auto* month = qobject_cast<forms::MonthView*>(&control))
        return BindMonth(*month, widget);
    if (auto* gauge = qobject_cast<forms::Gauge*>(&control))
        return BindGauge(*gauge, widget);
    if (auto* menu = qobject_cast<forms::Menu*>(&control))
        return BindMenu(*menu, widget);
    if (auto* grid = qobject_cast<forms::Grid*>(&control))
        return BindGrid(*grid, widget);
    if (auto* chips = qobject_cast<forms::ChipList*>(&control))
        return BindChips(*chips, widget);
    return true; // a plain control is a frame of any kind
}

/// Visible, enabled and the tip: the same for all kinds.
void Binder::ShowCommon(forms::Control& control, QWidget& widget)
{
    widget.setEnabled(control.Enabled());
    if (!control.ToolTipText().isEmpty())
        widget.setToolTip(control.ToolTipText());
    // A picture to click on is called by its tip, unless the window has a name for it.
    if (auto* sign = qobject_cast<QToolButton*>(&widget); sign != nullptr && sign->text().isEmpty() &&
                                                          sign->accessibleName().isEmpty())
        sign->setAccessibleName(control.ToolTipText());
    if (auto* view = qobject_cast<PictureView*>(&widget)) {
        view->SetShown(control.Visible());
    } else if (auto* menu = qobject_cast<QMenu*>(&widget)) {
        menu->menuAction()->setVisible(control.Visible());
    } else if (qobject_cast<forms::Gauge*>(&control) == nullptr && widget.parentWidget() != nullptr &&
               widget.isHidden() == control.Visible()) {
        widget.setVisible(control.Visible());
    }
}

/// The events that every control knows: click, double click, loss of the focus.
void Binder::Watch(forms::Control& control, QWidget& widget)
{
    if (qobject_cast<QMenu*>(&widget) != nullptr)
        return;
    widget.installEventFilter(this);
    QWidget* inner = nullptr;
    if (auto* view = qobject_cast<QAbstractItemView*>(&widget))
        inner = view->viewport();
    else if (auto* text = qobject_cast<QPlainTextEdit*>(&widget))
        inner = text->viewport();
    else if (auto* combo = qobject_cast<QComboBox*>(&widget))
        inner = combo->lineEdit();
    if (inner == nullptr)
        return;
    inner->installEventFilter(this);
    m_watched.insert(inner, &control);
}

/// The key code that rules know; 0 for keys that they are not told of.
int Binder::KeyCodeOf(int key, bool ctrl)
{
    if (key == Qt::Key_Z)
        return ctrl ? forms::kKeyZ : 0;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return forms::kKeyF1 + key - Qt::Key_F1;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return forms::kKeyReturn;
    return key == Qt::Key_Down ? forms::kKeyDown : 0;
}

bool Binder::TellKey(forms::Control& control, const QKeyEvent& press)
{
    const int keyCode = KeyCodeOf(press.key(), press.modifiers().testFlag(Qt::ControlModifier));
    if (keyCode == 0)
        return false;
    int shift = 0;
    for (const auto& [modifier, mask] : {std::pair{Qt::ShiftModifier, forms::kShiftMask},
                                         {Qt::ControlModifier, forms::kCtrlMask},
                                         {Qt::AltModifier, forms::kAltMask}})
        if (press.modifiers().testFlag(modifier))
            shift += mask;
    bool handled = false;
    const QPointer<forms::Control> told(&control); // a rule may close the screen
    m_guard.Run([&] { Q_EMIT told->KeyPressed(keyCode, shift, handled); });
    return handled;
}

bool Binder::eventFilter(QObject* watched, QEvent* event)
{
    forms::Control* control = nullptr;
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
            reason == Qt::MenuBarFocusReason)
            break;
        control = ControlOf(watched);
        if (control == nullptr)
            break;
        if (event->type() == QEvent::FocusOut) {
            m_guard.Run([control] { Q_EMIT control->LostFocus(); });
            // The rule has given the focus back: the widget never lost it, and keeps its selection.
            if (const auto* widget = qobject_cast<QWidget*>(watched); widget != nullptr && widget->hasFocus())
                return true;
        } else // after the widget's own handling, which may set the selection anew; not after the window
            QMetaObject::invokeMethod(
                this, [this, control] { m_guard.Run([control] { Q_EMIT control->GotFocus(); }); },
                Qt::QueuedConnection);
        break;
    }
    case QEvent::KeyPress:
        control = ControlOf(watched);
        if (control != nullptr && TellKey(*control, *static_cast<QKeyEvent*>(event)))
            return true;
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
        // Buttons, pictures, lists and grids raise these themselves.
        if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
            break;
        control = ControlOf(watched);
        const bool simple = qobject_cast<forms::TextBox*>(control) != nullptr ||
                            qobject_cast<forms::Label*>(control) != nullptr;
        if (!simple)
            break;
        if (event->type() == QEvent::MouseButtonRelease)
            m_guard.Run([control] { Q_EMIT control->Clicked(); });
        else
            m_guard.Run([control] { Q_EMIT control->DoubleClicked(); });
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

QStringList Binder::Leftovers(const QWidget& root) const
{
    QStringList left;
    QSet<QString> controlNames, seenNames;
    for (const forms::Control* control : m_controls.All()) {
        controlNames.insert(control->ObjectName().toUpper());
        seenNames.insert(control->Name());
        seenNames.insert(control->ObjectName());
        const bool unseen = m_unseen.contains(control->Name()) || m_unseen.contains(control->ObjectName());
        if (!unseen && m_widgets.value(control) == nullptr)
            left.append(u"control without a widget: %1"_s.arg(control->ObjectName()));
        if (unseen && m_widgets.value(control) != nullptr)
            left.append(u"shown although declared unseen: %1"_s.arg(control->ObjectName()));
    }
    for (const QString& name : m_unseen) {
        if (!seenNames.contains(name))
            left.append(u"declared unseen, but there is no such control: %1"_s.arg(name));
    }
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        const QString& name = widget->objectName();
        const QVariant boundBy = widget->property(kBoundBy);
        const bool ofAnother = boundBy.isValid() && boundBy != Mark(this);
        if (IsControlName(name) && !ofAnother && !controlNames.contains(name.toUpper()))
            left.append(u"widget without a control: %1"_s.arg(name));
    }
    left.sort();
    return left;
}

void Binder::Check(const QWidget& root) const
{
    const QStringList left = Leftovers(root);
    if (!left.isEmpty())
        throw RuntimeError(error::kNoObject, u"Window and screen disagree: %1"_s.arg(left.join(u"; ")));
}

QWidget* Binder::WidgetOf(const forms::Control& control) const
{
    return m_widgets.value(&control);
}

forms::Control* Binder::ControlOf(const QObject* widget) const
{
    return m_watched.value(widget);
}

forms::Control* Binder::ControlAt(const QWidget* widget) const
{
    forms::Control* control = ControlOf(widget);
    if (control == nullptr && widget != nullptr && qobject_cast<const QComboBox*>(widget->parentWidget()) != nullptr)
        control = ControlOf(widget->parentWidget());
    return control;
}

} // namespace vasclip::windows
