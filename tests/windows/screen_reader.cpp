#include "screen_reader.h"

#include <QAccessible>
#include <QAccessibleBridgePlugin>
#include <QLabel>
#include <QtPlugin>

namespace vasclip::tests {

QStringList& Spoken()
{
    static QStringList spoken;
    return spoken;
}

namespace {

class Reader : public QAccessibleBridge
{
public:
    void setRootObject(QAccessibleInterface*) override {}
    void notifyAccessibilityUpdate(QAccessibleEvent* event) override
    {
        const auto* label = qobject_cast<const QLabel*>(event->object());
        if (event->type() == QAccessible::Alert && label != nullptr)
            Spoken().append(label->text());
    }
};

} // namespace
} // namespace vasclip::tests

class ScreenReaderPlugin : public QAccessibleBridgePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QAccessibleBridgeFactoryInterface_iid FILE "screen_reader.json")

public:
    QAccessibleBridge* create(const QString&) override { return new vasclip::tests::Reader; }
};

#include "screen_reader.moc"

Q_IMPORT_PLUGIN(ScreenReaderPlugin)
