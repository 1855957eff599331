#include "windows/drag_desk.h"

#include "forms/drop_port.h"
#include "windows/binder.h"
#include "windows/guard.h"
#include "windows/record_grid.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCoreApplication>
#include <QDataStream>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QStyle>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

/// How the port knows the files of another program.
const QString kFilesName = u"FILES"_s;

void Mark(QWidget& widget, const char* property, bool on)
{
    if (widget.property(property).toBool() == on)
        return;
    widget.setProperty(property, on);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
    widget.update();
}

/// A picture for other programs: its file, and its pixels once one asks for them.
class PictureData : public QMimeData
{
public:
    explicit PictureData(std::function<QImage()> image)
        : m_image(std::move(image))
    {}
    [[nodiscard]] QStringList formats() const override { return QMimeData::formats() << kPixels; }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override
    {
        return format == kPixels ? QVariant(m_image()) : QMimeData::retrieveData(format, type);
    }

private:
    static inline const QString kPixels = u"application/x-qt-image"_s;
    std::function<QImage()> m_image;
};

} // namespace

DragDesk::DragDesk(Binder& binder, forms::DropPort& port, QObject* parent)
    : QObject(parent)
    , m_binder(binder)
    , m_port(port)
{
    connect(&binder, &Binder::Bound, this, &DragDesk::Adopt);
    connect(&binder, &Binder::DragWanted, this, &DragDesk::Start);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FocusMoved(now); });
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
        area->installEventFilter(this); // the keys come to it
    } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        if (QLineEdit* field = combo->lineEdit()) {
            field->setAcceptDrops(false); // its box takes the drop
            field->installEventFilter(this);
            m_fields.insert(field, &control);
        }
    } else if (qobject_cast<forms::TextBox*>(&control) == nullptr &&
               qobject_cast<forms::PictureBox*>(&control) == nullptr &&
               qobject_cast<forms::Label*>(&control) == nullptr &&
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

QMimeData* DragDesk::DataOf(const forms::Control& source)
{
    QString file;
    m_binder.Guard().Run([&] { file = m_port.FileOf(source); });
    if (file.isEmpty())
        return Payload(source);
    auto* data = new PictureData([this, file, control = QPointer<const forms::Control>(&source)] {
        QImage image;
        m_binder.Guard().Run([&] {
            if (control != nullptr && m_port.FileOf(*control) == file) // else it shows another one by now
                image = m_port.ImageOf(*control);
        });
        return image;
    });
    const std::unique_ptr<QMimeData> own(Payload(source));
    data->setData(QLatin1StringView(kMimeType), own->data(QLatin1StringView(kMimeType)));
    data->setUrls({QUrl::fromLocalFile(file)});
    return data;
}

bool DragDesk::CopyPicture(const forms::Control& source)
{
    QString file;
    QImage image;
    m_binder.Guard().Run([&] {
        file = m_port.FileOf(source);
        if (!file.isEmpty())
            image = m_port.ImageOf(source);
    });
    if (file.isEmpty())
        return false;
    auto* data = new QMimeData; // whole, since the control may show another picture when it is asked for
    data->setUrls({QUrl::fromLocalFile(file)});
    if (!image.isNull())
        data->setImageData(image);
    QApplication::clipboard()->setMimeData(data);
    return true;
}

bool DragDesk::PasteFiles(forms::Control& target)
{
    const QStringList files = FilesOf(QApplication::clipboard()->mimeData());
    bool may = false;
    m_binder.Guard().Run([&] { may = !files.isEmpty() && target.Enabled() && m_port.AcceptsFiles(target); });
    if (may)
        m_binder.Guard().Run([&] { m_port.DropFiles(files, target); });
    return may;
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

/// The paths of local files that another program drags.
QStringList DragDesk::FilesOf(const QMimeData* data)
{
    QStringList files;
    if (data == nullptr || data->hasFormat(QLatin1StringView(kMimeType)))
        return files;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    return files;
}

void DragDesk::Begin(const forms::Control& source)
{
    int shift = 0;
    const Qt::KeyboardModifiers keys = QApplication::keyboardModifiers();
    for (const auto& [modifier, mask] : {std::pair{Qt::ShiftModifier, forms::kShiftMask},
                                         {Qt::ControlModifier, forms::kCtrlMask},
                                         {Qt::AltModifier, forms::kAltMask}})
        if (keys.testFlag(modifier))
            shift += mask;
    m_binder.Guard().Run([&] { m_port.Begin(source, shift); });
}

void DragDesk::Start(forms::Control& source)
{
    bool may = false;
    m_binder.Guard().Run([&] { may = m_port.IsSource(source); });
    QWidget* widget = m_binder.WidgetOf(source);
    if (!may || widget == nullptr || m_drag != nullptr)
        return;
    PutDown();
    Begin(source);
    MarkWanted(source.Name());
    auto* drag = new QDrag(widget);
    m_drag = drag;
    drag->setMimeData(DataOf(source));
    drag->setPixmap(CardPixmap(widget->devicePixelRatioF(), source));
    drag->setHotSpot(QPoint(12, 12));
    ShowDragIcon();
    drag->exec(Qt::CopyAction);
    m_drag = nullptr; // the toolkit deletes it later
    MarkWanted(QString());
    Hover(nullptr);
    TellOver(source.Name(), QString());
    TakePending();
}

bool DragDesk::PickUpOrDrop(forms::Control& control)
{
    bool may = false;
    if (m_held == nullptr) {
        m_binder.Guard().Run([&] { may = m_port.IsSource(control); });
        if (!may)
            return false;
        m_held = &control;
        Begin(control);
        MarkWanted(control.Name());
        Q_EMIT HeldChanged();
        return true;
    }
    forms::Control* held = m_held;
    m_binder.Guard().Run(
        [&] { may = held != &control && control.Enabled() && m_port.Accepts(held->Name(), control); });
    if (!may)
        return false;
    PutDown();
    Drop(*held, control);
    return true;
}

bool DragDesk::MaySend(const forms::Control& source)
{
    bool may = false;
    m_binder.Guard().Run([&] { may = m_port.IsSource(source); });
    return may;
}

void DragDesk::PutDown()
{
    if (m_held == nullptr)
        return;
    const QString source = m_held->Name();
    m_held = nullptr;
    MarkWanted(QString());
    TellOver(source, QString());
    Q_EMIT HeldChanged();
}

/// What is held hovers over the control that has the focus.
void DragDesk::FocusMoved(QWidget* now)
{
    if (m_held == nullptr || now == nullptr)
        return;
    const forms::Control* target = m_binder.ControlAt(now);
    TellOver(m_held->Name(), target != nullptr ? target->Name() : QString());
}

/// The hint follows the drag, and so does its icon.
void DragDesk::TellOver(const QString& source, const QString& target)
{
    m_binder.Guard().Run([&] { m_port.DragOver(source, target); });
    ShowDragIcon();
}

void DragDesk::ShowDragIcon()
{
    if (m_drag == nullptr)
        return;
    QImage icon;
    m_binder.Guard().Run([&] { icon = m_port.DragIcon(); });
    m_drag->setDragCursor(QPixmap::fromImage(icon), Qt::CopyAction);
}

void DragDesk::Drop(forms::Control& source, forms::Control& target)
{
    m_binder.Guard().Run([&] { m_port.Drop(source, target); });
}

void DragDesk::TakePending()
{
    forms::Control* source = m_pendingSource;
    forms::Control* target = m_pendingTarget;
    const QStringList files = std::exchange(m_pendingFiles, {});
    const auto row = std::exchange(m_pendingRow, std::nullopt);
    m_pendingSource = nullptr;
    m_pendingTarget = nullptr;
    if (row) {
        bool there = false;
        m_binder.Guard().Run([&] { there = m_port.TakeRow(row->first, row->second); });
        if (!there)
            return;
    }
    if (source != nullptr && target != nullptr)
        Drop(*source, *target);
    else if (target != nullptr && !files.isEmpty())
        m_binder.Guard().Run([&] { m_port.DropFiles(files, *target); });
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
        TellOver(QString(), QString());
        return true;
    case QEvent::Drop:
        return HandleDrop(*widget, *static_cast<QDropEvent*>(event));
    case QEvent::KeyPress:
        return HandleKey(*widget, *static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return HandlePull(*widget, *event);
    default:
        return false;
    }
}

bool DragDesk::HandleDrop(QWidget& widget, QDropEvent& event)
{
    forms::Control* source = SourceOf(event.mimeData());
    forms::Control* target = m_targets.value(&widget);
    const QStringList files = FilesOf(event.mimeData());
    if (target == nullptr || (source == nullptr && files.isEmpty()))
        return false;
    const QString name = source != nullptr ? source->Name() : kFilesName;
    if (const RecordGrid* grid = AimedGrid(name, *target, widget)) {
        const RecordGrid::Aim aim = grid->AimOf(event.position().toPoint());
        m_pendingRow = {aim.row, aim.key};
    }
    Hover(nullptr);
    event.setDropAction(Qt::CopyAction);
    event.accept();
    m_pendingSource = source;
    m_pendingTarget = target;
    m_pendingFiles = files;
    if (m_drag == nullptr) // a drag of our own takes it when its loop is over
        QTimer::singleShot(0, this, &DragDesk::TakePending);
    return true;
}

/// Fields and lists don't start drags by themselves. A field that is being written in selects its text.
bool DragDesk::HandlePull(QWidget& widget, const QEvent& event)
{
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    forms::Control* control = m_fields.value(&widget, m_targets.value(&widget));
    if (event.type() == QEvent::MouseButtonPress) {
        const bool field = qobject_cast<QLineEdit*>(&widget) != nullptr && control != nullptr && !widget.hasFocus();
        const bool list = qobject_cast<forms::ListBox*>(control) != nullptr &&
                          qobject_cast<QAbstractItemView*>(widget.parentWidget()) != nullptr;
        m_pulled = mouse.button() == Qt::LeftButton && (field || list) ? &widget : nullptr;
        m_pulledAt = mouse.position().toPoint();
        return false;
    }
    if (m_pulled != &widget)
        return false;
    if (event.type() == QEvent::MouseButtonRelease || (mouse.buttons() & Qt::LeftButton) == 0) {
        m_pulled = nullptr;
        return false;
    }
    bool may = false;
    m_binder.Guard().Run([&] { may = control != nullptr && m_port.IsSource(*control); });
    if (!may) {
        m_pulled = nullptr;
        return false;
    }
    if ((mouse.position().toPoint() - m_pulledAt).manhattanLength() >= QApplication::startDragDistance()) {
        m_pulled = nullptr;
        Start(*control);
    }
    return true;
}

/// A picture goes to the clipboard and files come from it. A field keeps these keys for its text.
bool DragDesk::HandleKey(QWidget& widget, QKeyEvent& press)
{
    forms::Control* control = m_binder.ControlOf(&widget);
    if (control == nullptr || qobject_cast<forms::TextBox*>(control) != nullptr ||
        qobject_cast<forms::ComboBox*>(control) != nullptr)
        return false;
    return (press.matches(QKeySequence::Copy) && CopyPicture(*control)) ||
           (press.matches(QKeySequence::Paste) && PasteFiles(*control));
}

/// @return true if the event is one of ours and answered
bool DragDesk::HandleEnter(QWidget& widget, QDropEvent& event)
{
    forms::Control* source = SourceOf(event.mimeData());
    forms::Control* target = m_targets.value(&widget);
    const bool files = source == nullptr && !FilesOf(event.mimeData()).isEmpty();
    if (target == nullptr || (source == nullptr && !files))
        return false;
    const QString name = files ? kFilesName : source->Name();
    bool accepted = false;
    m_binder.Guard().Run([&] {
        accepted = source != target && target->Enabled() &&
                   (files ? m_port.AcceptsFiles(*target) : m_port.Accepts(name, *target));
    });
    if (RecordGrid* grid = accepted ? AimedGrid(name, *target, widget) : nullptr)
        accepted = grid->AimAt(event.position().toPoint());
    if (accepted) {
        if (m_hover != &widget)
            TellOver(name, target->Name());
        Hover(&widget);
        event.setDropAction(Qt::CopyAction);
        event.accept();
    } else {
        event.ignore();
        if (m_hover == &widget) { // from a row to the empty space below the last one
            Hover(nullptr);
            TellOver(name, QString());
        }
    }
    return true;
}

void DragDesk::Hover(QWidget* widget)
{
    if (m_hover == widget)
        return;
    if (m_hover != nullptr) {
        Mark(*m_hover, "dropHover", false);
        if (auto* grid = qobject_cast<RecordGrid*>(m_hover->parentWidget()))
            grid->DropAim();
    }
    m_hover = widget;
    if (m_hover != nullptr)
        Mark(*m_hover, "dropHover", true);
}

/// The grid whose rows a drop of this source goes to; nullptr if the target is none.
RecordGrid* DragDesk::AimedGrid(const QString& source, const forms::Control& target, QWidget& widget)
{
    bool aims = false;
    m_binder.Guard().Run([&] { aims = m_port.AimsAtRow(source, target); });
    return aims ? qobject_cast<RecordGrid*>(widget.parentWidget()) : nullptr;
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

} // namespace vasclip::windows
