#include "windows/binder.h"

#include "windows/guard.h"

#include <QAction>
#include <QMenu>
#include <QSet>

// Menus are built from the entries of their controls.

namespace vasclip::windows {

namespace {

/// Gives a caption without an access key one that is still free in its menu.
QString WithAccessKey(const QString& caption, QSet<QChar>& taken)
{
    const qsizetype mark = caption.indexOf(QLatin1Char('&'));
    if (mark >= 0 && mark + 1 < caption.size()) {
        taken.insert(caption.at(mark + 1).toUpper());
        return caption;
    }
    const auto marked = [&](qsizetype at) {
        taken.insert(caption.at(at).toUpper());
        return QString(caption).insert(at, QLatin1Char('&'));
    };
    for (const bool headsOnly : {true, false}) {
        for (qsizetype i = 0; i < caption.size(); ++i) {
            const bool head = i == 0 || caption.at(i - 1) == QLatin1Char(' ');
            if (caption.at(i).isLetterOrNumber() && (head || !headsOnly) &&
                !taken.contains(caption.at(i).toUpper()))
                return marked(i);
        }
    }
    return caption;
}

QString Shape(const QList<forms::MenuEntry>& entries)
{
    QString shape;
    for (const forms::MenuEntry& entry : entries) {
        shape += entry.caption == QLatin1StringView("-") ? QLatin1Char('-') : QLatin1Char('e');
        shape += QString::number(entry.index);
        if (!entry.subEntries.isEmpty())
            shape += QLatin1Char('(') + Shape(entry.subEntries) + QLatin1Char(')');
    }
    return shape;
}

void ShowEntry(QAction& action, const forms::MenuEntry& entry, QSet<QChar>& taken)
{
    action.setText(WithAccessKey(entry.caption, taken));
    action.setEnabled(entry.enabled);
    action.setCheckable(entry.checked || action.isCheckable());
    action.setChecked(entry.checked);
    action.setToolTip(entry.toolTip);
    action.setShortcut(QKeySequence::fromString(entry.shortcut, QKeySequence::PortableText));
}

/// The same entries as before: texts, ticks and states only.
void Update(const QMenu& menu, const QList<forms::MenuEntry>& entries)
{
    QSet<QChar> taken;
    const QList<QAction*> actions = menu.actions();
    for (qsizetype i = 0; i < entries.size() && i < actions.size(); ++i) {
        if (actions.at(i)->isSeparator())
            continue;
        ShowEntry(*actions.at(i), entries.at(i), taken);
        if (const QMenu* sub = actions.at(i)->menu())
            Update(*sub, entries.at(i).subEntries);
    }
}

void Build(QMenu& menu, forms::Menu& control, const QString& array, const QList<forms::MenuEntry>& entries,
           EventGuard& guard)
{
    QSet<QChar> taken;
    for (const forms::MenuEntry& entry : entries) {
        if (entry.caption == QLatin1StringView("-")) {
            menu.addSeparator();
            continue;
        }
        QAction* action = nullptr;
        if (!entry.subEntries.isEmpty()) {
            QMenu* sub = menu.addMenu(QString());
            Build(*sub, control, entry.subName, entry.subEntries, guard);
            action = sub->menuAction();
        } else {
            action = menu.addAction(QString());
            QObject::connect(
                action, &QAction::triggered, &control, [&guard, &control, array, index = entry.index] {
                    guard.Run([&] { control.Choose(array, index); });
                    Q_EMIT control.Changed(); // the toolkit flips a tick by itself; the control decides
                });
        }
        ShowEntry(*action, entry, taken);
    }
}

} // namespace

bool Binder::BindMenu(forms::Menu& control, QWidget& widget)
{
    auto* menu = qobject_cast<QMenu*>(&widget);
    if (menu == nullptr)
        return false;
    const auto shape = std::make_shared<QString>();
    const auto show = [this, &control, menu, shape] {
        const QString now = Shape(control.Entries());
        if (*shape != now) {
            // An entry that is being chosen may be among those that go.
            const QList<QAction*> before = menu->actions();
            for (QAction* action : before) {
                menu->removeAction(action);
                action->deleteLater();
            }
            *shape = now;
            Build(*menu, control, control.Name(), control.Entries(), m_guard);
        }
        Update(*menu, control.Entries());
    };
    menu->setToolTipsVisible(true);
    if (!control.Caption().isEmpty())
        menu->setTitle(control.Caption().contains(QLatin1Char('&')) ? control.Caption()
                                                                    : QLatin1Char('&') + control.Caption());
    connect(&control, &forms::Control::Changed, menu, show);
    show();
    return true;
}

} // namespace vasclip::windows
