#include "windows/chip_bar.h"

#include "windows/theme.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr int kGap = 6;
constexpr int kPadding = 10;
constexpr int kCross = 8;
constexpr int kCrossRoom = 22;
constexpr int kWidest = 280;
constexpr int kNarrowest = 60;
constexpr int kRestRoom = 56;

} // namespace

class ChipButton : public QAbstractButton
{
public:
    explicit ChipButton(QWidget* parent)
        : QAbstractButton(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // its words give way
        setMouseTracking(true);
    }
    void Show(const forms::Chip& chip)
    {
        m_id = chip.id;
        setText(chip.words);
        setAccessibleName(ChipBar::tr("%1, a condition of the records shown; Enter ends it").arg(chip.words));
    }
    [[nodiscard]] const QString& Id() const { return m_id; }
    [[nodiscard]] QSize sizeHint() const override
    {
        const int width = fontMetrics().horizontalAdvance(text()) + 2 * kPadding + kCrossRoom;
        return {std::min(width, kWidest), fontMetrics().height() + 8};
    }
    /// Words that are cut off stand whole in the tip.
    void SetTip() { setToolTip(fontMetrics().horizontalAdvance(text()) > Room().width() ? text() : QString()); }
    [[nodiscard]] QRect Room() const { return rect().adjusted(kPadding, 0, -kCrossRoom, 0); }
    [[nodiscard]] QRect Cross() const { return rect().adjusted(width() - kCrossRoom - 4, 0, 0, 0); }

protected:
    /// The words of a chip may be clicked without losing it.
    [[nodiscard]] bool hitButton(const QPoint& place) const override { return Cross().contains(place); }
    /// The second click on a cross falls on the chip that has moved there.
    void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        QAbstractButton::mouseMoveEvent(event);
        update();
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        const int key = event->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Delete || key == Qt::Key_Backspace)
            click();
        else
            QAbstractButton::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent*) override
    {
        const ThemeColours& colours = Theme::Colours();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF box = QRectF(rect()).adjusted(1, 1, -1, -1);
        painter.setPen(QPen(colours.accent, hasFocus() ? 2 : 1));
        painter.setBrush(colours.accentSoft);
        painter.drawRoundedRect(box, box.height() / 2, box.height() / 2);
        const QRect room = Room();
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
        painter.setPen(colours.text);
        painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine, shown);
        const bool over = underMouse() && Cross().contains(mapFromGlobal(QCursor::pos()));
        const QPointF middle = QRectF(Cross()).center() - QPointF(1, 0);
        painter.setPen(QPen(over ? colours.accent : colours.text, over ? 2.2 : 1.5, Qt::SolidLine, Qt::RoundCap));
        const qreal arm = kCross / 2.0;
        painter.drawLine(middle - QPointF(arm, arm), middle + QPointF(arm, arm));
        painter.drawLine(middle - QPointF(arm, -arm), middle + QPointF(arm, -arm));
    }

private:
    QString m_id;
};

ChipBar::ChipBar(QWidget* parent)
    : QWidget(parent)
    , m_rest(new QToolButton(this))
{
    m_rest->hide();
    m_rest->setFocusPolicy(Qt::StrongFocus);
    m_rest->setToolTip(tr("More conditions; the one that is chosen ends"));
    connect(m_rest, &QToolButton::clicked, this, &ChipBar::OpenRest);
}

QSize ChipBar::sizeHint() const
{
    return {200, fontMetrics().height() + 8};
}

QSize ChipBar::minimumSizeHint() const
{
    return {kNarrowest + kGap + kRestRoom, sizeHint().height()};
}

ChipButton& ChipBar::ButtonAt(qsizetype place)
{
    while (m_buttons.size() <= place) {
        auto* made = new ChipButton(this);
        made->setObjectName(u"condition_%1"_s.arg(m_buttons.size()));
        QWidget* before = m_buttons.isEmpty() ? m_before : m_buttons.last();
        if (before != nullptr && before->window() == window())
            setTabOrder(before, made);
        setTabOrder(made, m_rest);
        connect(made, &QAbstractButton::clicked, this, [this, made] { Q_EMIT CloseWanted(made->Id()); },
                Qt::QueuedConnection); // the chips come anew while the button is at work
        m_buttons.append(made);
    }
    return *m_buttons.at(place);
}

void ChipBar::SetChips(const QList<forms::Chip>& chips)
{
    if (m_chips == chips)
        return;
    const bool filled = !m_chips.isEmpty();
    m_chips = chips;
    for (qsizetype i = 0; i < m_chips.size(); ++i)
        ButtonAt(i).Show(m_chips.at(i));
    Arrange();
    if (filled && m_chips.isEmpty())
        QTimer::singleShot(QApplication::doubleClickInterval(), this, [this] {
            if (m_chips.isEmpty())
                Q_EMIT Filled(false);
        });
    else if (!m_chips.isEmpty())
        Q_EMIT Filled(true);
}

void ChipBar::Arrange()
{
    const int height = sizeHint().height();
    const auto widthOf = [this](qsizetype i) { return m_buttons.at(i)->sizeHint().width(); };
    int whole = 0;
    for (qsizetype i = 0; i < m_chips.size(); ++i)
        whole += widthOf(i) + (i > 0 ? kGap : 0);
    const int room = whole <= width() ? width() : width() - kRestRoom - kGap;
    int left = 0;
    m_shown = 0;
    for (qsizetype i = 0; i < m_chips.size(); ++i) {
        int wide = widthOf(i);
        if (i == 0)
            wide = std::max(kNarrowest, std::min(wide, room));
        if (left + wide > room)
            break;
        m_buttons.at(i)->setGeometry(left, (this->height() - height) / 2, wide, height);
        m_buttons.at(i)->SetTip();
        left += wide + kGap;
        ++m_shown;
    }
    for (qsizetype i = 0; i < m_buttons.size(); ++i)
        m_buttons.at(i)->setVisible(i < m_shown);
    const qsizetype more = m_chips.size() - m_shown;
    m_rest->setVisible(more > 0);
    m_rest->setText(u"+%1"_s.arg(more));
    m_rest->setAccessibleName(tr("%1 more conditions").arg(more));
    m_rest->setGeometry(left, (this->height() - height) / 2, kRestRoom, height);
}

void ChipBar::OpenRest()
{
    QMenu menu(this);
    for (const forms::Chip& chip : m_chips.mid(m_shown))
        menu.addAction(tr("End: %1").arg(QString(chip.words).replace(QLatin1Char('&'), u"&&"_s)))
            ->setData(chip.id);
    if (const QAction* chosen = menu.exec(m_rest->mapToGlobal(QPoint(0, m_rest->height()))))
        Q_EMIT CloseWanted(chosen->data().toString());
}

void ChipBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Arrange();
}

void ChipBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        Arrange();
    }
}

} // namespace vasclip::windows
