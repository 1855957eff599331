#include "windows/paper_view.h"

#include "platform/paper/painter.h"
#include "upkeep/frm_report_preview.h"
#include "windows/guard.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kRim = 14; ///< desk around the paper
constexpr double kScreenDots = 96;
constexpr int kMark = 90; ///< of what was found: how dense, of 255

/// The desk with the sheet on it.
class SheetOnDesk : public QWidget
{
public:
    SheetOnDesk(const QImage& image, QWidget* parent)
        : QWidget(parent)
        , m_image(image)
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const QColor ground = palette().color(QPalette::Window);
        painter.fillRect(rect(), ground.lightness() > 127 ? ground.darker(112) : ground.lighter(125));
        if (m_image.isNull())
            return;
        QRect sheet(QPoint(0, 0), m_image.size() / m_image.devicePixelRatioF());
        sheet.moveLeft((width() - sheet.width()) / 2);
        sheet.moveTop(std::max(kRim, (height() - sheet.height()) / 2));
        painter.fillRect(sheet.translated(2, 2).adjusted(0, 0, 1, 1), QColor(0, 0, 0, 60));
        painter.drawImage(sheet.topLeft(), m_image);
    }

private:
    const QImage& m_image;
};

} // namespace

PaperView::PaperView(upkeep::frm_ReportPreview& screen, EventGuard& guard, QWidget* parent)
    : QScrollArea(parent)
    , m_screen(screen)
    , m_guard(guard)
    , m_sheet(new SheetOnDesk(m_image, this))
{
    setObjectName(u"paperView"_s);
    setAccessibleName(tr("Page of the report"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setWidget(m_sheet);
    setMinimumSize(320, 240);
    connect(&screen, &upkeep::frm_ReportPreview::PageChanged, this, &PaperView::Draw);
}

double PaperView::Dots() const
{
    if (m_screen.Zoom() > 0)
        return kScreenDots * m_screen.Zoom() / 100;
    const QSizeF paper = QSizeF(m_screen.Sheet().Size()) / paper::kInch;
    const QSize room = maximumViewportSize() - QSize(2 * kRim, 2 * kRim);
    const double wide =
        (room.width() - (m_screen.Zoom() < 0 ? verticalScrollBar()->sizeHint().width() : 0)) / paper.width();
    return std::max(10.0, m_screen.Zoom() < 0 ? wide : std::min(wide, room.height() / paper.height()));
}

void PaperView::Draw()
{
    const double ratio = devicePixelRatioF();
    m_image = paper::Picture(m_screen.Sheet(), m_screen.Shown(), Dots() * ratio, m_screen.Pictures());
    if (!m_screen.Found().isEmpty()) {
        QPainter painter(&m_image);
        const double scale = Dots() * ratio / paper::kInch;
        for (const QRect& place : m_screen.Found())
            painter.fillRect(QRectF(place.topLeft() * scale, QSizeF(place.size()) * scale),
                             QColor(255, 200, 0, kMark));
    }
    m_image.setDevicePixelRatio(ratio);
    setHorizontalScrollBarPolicy(m_screen.Zoom() > 0 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    const QSize sheet = m_image.size() / ratio + QSize(2 * kRim, 2 * kRim);
    m_sheet->resize(sheet.expandedTo(maximumViewportSize()));
    m_sheet->update();
    setAccessibleDescription(m_screen.txtPage.Text() + u' ' + m_screen.lblPages.Caption());
}

void PaperView::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    Draw();
}

void PaperView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QScrollArea::wheelEvent(event);
        return;
    }
    m_screen.ZoomBy(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

bool PaperView::Turn(int key)
{
    const int page = m_screen.txtPage.Text().toInt();
    switch (key) {
    case Qt::Key_PageDown:
        m_screen.ShowPage(page + 1);
        break;
    case Qt::Key_PageUp:
        m_screen.ShowPage(page - 1);
        break;
    case Qt::Key_Home:
        m_screen.ShowPage(1);
        break;
    case Qt::Key_End:
        Q_EMIT m_screen.cmdLast.Clicked();
        break;
    case Qt::Key_Plus:
        m_screen.ZoomBy(1);
        break;
    case Qt::Key_Minus:
        m_screen.ZoomBy(-1);
        break;
    default:
        return false;
    }
    return true;
}

void PaperView::keyPressEvent(QKeyEvent* event)
{
    bool turned = true; // also where the page can't be read
    m_guard.Run([&] { turned = Turn(event->key()); });
    if (turned)
        event->accept();
    else
        QScrollArea::keyPressEvent(event);
}

} // namespace vasclip::windows
