#include "windows/announce.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

namespace vasclip::windows {

namespace {

constexpr const char* kAnnounces = "announces";

/// The toolkit takes every label for words that stand still, which no reader speaks unasked.
class MessageLine : public QAccessibleWidget
{
public:
    explicit MessageLine(QLabel* label)
        : QAccessibleWidget(label, QAccessible::AlertMessage)
    {}
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? qobject_cast<QLabel*>(object())->text() : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* MakeMessageLine(const QString&, QObject* object)
{
    auto* label = qobject_cast<QLabel*>(object);
    return label != nullptr && label->property(kAnnounces).toBool() ? new MessageLine(label) : nullptr;
}

} // namespace

void MakeAnnouncing(QLabel& label)
{
    static const bool installed = [] {
        QAccessible::installFactory(MakeMessageLine);
        return true;
    }();
    Q_UNUSED(installed)
    label.setProperty(kAnnounces, true);
}

void Announce(QLabel& label)
{
    if (label.text().isEmpty() || !label.isVisible())
        return;
    QAccessibleEvent spoken(&label, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
}

} // namespace vasclip::windows
