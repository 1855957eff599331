#include "windows/drag_desk.h"

#include "windows/binder.h"
#include "windows/drop_port.h"
#include "windows/guard.h"
#include "windows/theme.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QCoreApplication>
#include <QDataStream>
#include <QDrag>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QTimer>

namespace vasclip::windows {

namespace {

void Mark(QWidget& widget, const char* property, bool on)
{
    if (widget.property(property).toBool() == on)
        return;
    widget.setProperty(property, on);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
    widget.update();
}

} // namespace

DragDesk::DragDesk(Binder& binder, DropPort& port, QObject* parent)
    : QObject(parent)
    , m_binder(binder)
    , m_port(port)
{
    connect(&binder, &Binder::Bound, this, &DragDesk::Adopt);
    connect(&binder, &Binder::DragWanted, this, &DragDesk::Start);
}

void DragDesk::SetCardText(const QString& title, const QString& line)
{
    m_cardTitle = title;
    m_cardLine = line;
}

/// Every field, picture, list and frame may be a target; the port decides when something hovers over it.
void DragDesk::Adopt(forms::Control& control, QWidget& widget)
{
    QWidget* taker = &widget;
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&widget)) {
        taker = area->viewport();
    } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        if (combo->lineEdit() != nullptr)
            combo->lineEdit()->setAcceptDrops(false); // its box takes the drop
    } else if (qobject_cast<forms::TextBox*>(&control) == nullptr &&
               qobject_cast<forms::PictureBox*>(&control) == nullptr &&
               control.metaObject() != &forms::Control::staticMetaObject) {
        return;
    }
    taker->setAcceptDrops(true);
    taker->installEventFilter(this);
    m_targets.insert(taker, &control);
}

QMimeData* DragDesk::Payload(const forms::Control& source)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << QCoreApplication::applicationPid() << source.Name() << static_cast<qint32>(source.Index());
    auto* data = new QMimeData;
    data->setData(QLatin1StringView(kMimeType), bytes);
    return data;
}

/// The control that a drag began on; nullptr for a drag of another program.
forms::Control* DragDesk::SourceOf(const QMimeData* data) const
{
    if (data == nullptr || !data->hasFormat(QLatin1StringView(kMimeType)))
        return nullptr;
    QDataStream stream(data->data(QLatin1StringView(kMimeType)));
    stream.setVersion(QDataStream::Qt_6_0);
    qint64 process = 0;
    QString name;
    qint32 index = -1;
    stream >> process >> name >> index;
    if (stream.status() != QDataStream::Ok || process != QCoreApplication::applicationPid())
        return nullptr;
    return m_binder.Controls().Find(name, index);
}

void DragDesk::Start(forms::Control& source)
{
    bool may = false;
    m_binder.Guard().Run([&] { may = m_port.IsSource(source); });
    QWidget* widget = m_binder.WidgetOf(source);
    if (!may || widget == nullptr || m_dragging)
        return;
    m_dragging = true;
    MarkWanted(source.Name());
    auto* drag = new QDrag(widget);
    drag->setMimeData(Payload(source));
    const QPixmap card = CardPixmap(widget->devicePixelRatioF());
    drag->setPixmap(card);
    drag->setHotSpot(QPoint(12, 12));
    drag->exec(Qt::CopyAction);
    m_dragging = false;
    MarkWanted(QString());
    Hover(nullptr);
    m_binder.Guard().Run([&] { m_port.DragOver(source.Name(), QString()); });
    TakePending();
}

void DragDesk::Drop(forms::Control& source, forms::Control& target)
{
    m_binder.Guard().Run([&] { m_port.Drop(source, target); });
}

void DragDesk::TakePending()
{
    forms::Control* source = m_pendingSource;
    forms::Control* target = m_pendingTarget;
    m_pendingSource = nullptr;
    m_pendingTarget = nullptr;
    if (source != nullptr && target != nullptr)
        Drop(*source, *target);
}

bool DragDesk::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr)
        return false;
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        return HandleEnter(*widget, *static_cast<QDropEvent*>(event));
    case QEvent::DragLeave:
        if (m_hover != widget)
            return false;
        Hover(nullptr);
        m_binder.Guard().Run([&] { m_port.DragOver(QString(), QString()); });
        return true;
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        forms::Control* source = SourceOf(drop->mimeData());
        forms::Control* target = m_targets.value(watched);
        if (source == nullptr || target == nullptr)
            return false;
        Hover(nullptr);
        drop->setDropAction(Qt::CopyAction);
        drop->accept();
        m_pendingSource = source;
        m_pendingTarget = target;
        if (!m_dragging) // a drag of our own takes it when its loop is over
            QTimer::singleShot(0, this, &DragDesk::TakePending);
        return true;
    }
    default:
        return false;
    }
}

/// @return true if the event is one of ours and answered
bool DragDesk::HandleEnter(QWidget& widget, QDropEvent& event)
{
    forms::Control* source = SourceOf(event.mimeData());
    forms::Control* target = m_targets.value(&widget);
    if (source == nullptr || target == nullptr)
        return false;
    bool accepted = false;
    m_binder.Guard().Run([&] {
        accepted = source != target && target->Enabled() && m_port.Accepts(source->Name(), *target);
        if (accepted && m_hover != &widget)
            m_port.DragOver(source->Name(), target->Name());
    });
    if (accepted) {
        Hover(&widget);
        event.setDropAction(Qt::CopyAction);
        event.accept();
    } else {
        event.ignore();
    }
    return true;
}

void DragDesk::Hover(QWidget* widget)
{
    if (m_hover == widget)
        return;
    if (m_hover != nullptr)
        Mark(*m_hover, "dropHover", false);
    m_hover = widget;
    if (m_hover != nullptr)
        Mark(*m_hover, "dropHover", true);
}

/// While a drag lasts, the targets on view that would take it are marked; an empty source takes the marks
/// off.
void DragDesk::MarkWanted(const QString& source)
{
    for (auto it = m_targets.cbegin(); it != m_targets.cend(); ++it) {
        auto* widget = qobject_cast<QWidget*>(const_cast<QObject*>(it.key()));
        if (widget == nullptr || it.value() == nullptr)
            continue;
        bool wanted = false;
        if (!source.isEmpty() && widget->isVisible() && it.value()->Enabled())
            m_binder.Guard().Run([&] { wanted = m_port.Accepts(source, *it.value()); });
        Mark(*widget, "dropWanted", wanted);
    }
}

QPixmap DragDesk::CardPixmap(qreal ratio) const
{
    const QSize size(220, m_cardLine.isEmpty() ? 36 : 52);
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    const ThemeColours& colours = Theme::Colours();
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(1, 1), QSizeF(size) - QSizeF(2, 2)), 8, 8);
    painter.fillPath(shape, colours.surface);
    painter.strokePath(shape, QPen(colours.accent, 2));
    const QRect text(14, 8, size.width() - 28, size.height() - 16);
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(colours.text);
    const QString title = painter.fontMetrics().elidedText(m_cardTitle, Qt::ElideRight, text.width());
    painter.drawText(text, (m_cardLine.isEmpty() ? Qt::AlignVCenter : Qt::AlignTop) | Qt::AlignLeft, title);
    bold.setBold(false);
    painter.setFont(bold);
    painter.setPen(colours.muted);
    painter.drawText(text, Qt::AlignBottom | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(m_cardLine, Qt::ElideRight, text.width()));
    return pixmap;
}

} // namespace vasclip::windows
