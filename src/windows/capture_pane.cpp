#include "windows/capture_pane.h"

#include "windows/icons.h"
#include "windows/layout_parts.h"
#include "windows/picture_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kGap = 6;
constexpr int kSmallGap = 4;

/// The name below a picture. The style shows a tip of the whole.
class NameTag : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawFrame(&painter);
        const QRect room = contentsRect();
        style()->drawItemText(&painter, room, static_cast<int>(alignment()) | Qt::TextSingleLine, palette(), isEnabled(),
                              ShortenedName(text(), fontMetrics(), room.width()), foregroundRole());
    }
};

} // namespace

QString ShortenedName(const QString& name, const QFontMetrics& letters, int room)
{
    if (letters.horizontalAdvance(name) <= room)
        return name;
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString stem = name.left(std::max<qsizetype>(dot, 0)) + u'\u2026';
    return dot > 0 && letters.horizontalAdvance(stem) <= room ? stem : letters.elidedText(name, Qt::ElideMiddle, room);
}

ThumbGrid::ThumbGrid(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(u"fraPics"_s);
    for (int i = 0; i < kThumbs; ++i) {
        const auto at = static_cast<std::size_t>(i);
        auto* thumb = m_thumbs[at] = new PictureView(this);
        thumb->setObjectName(u"geathumb_%1"_s.arg(i));
        thumb->SetEmptyIcon(u"photo"_s);
        thumb->SetVanishes(true);
        thumb->setAccessibleName(tr("Picture %1 of the page").arg(i + 1));
        thumb->installEventFilter(this);
        auto* label = m_labels[at] = new NameTag(this);
        label->setObjectName(u"lbltag_%1"_s.arg(i));
        label->setAlignment(Qt::AlignCenter);
        label->setProperty("role", u"tag"_s);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        label->installEventFilter(this);
    }
}

ThumbGrid::Shape ThumbGrid::ShapeFor(QSize room, int label)
{
    Shape best;
    for (const int columns : {1, 2, 3, 4, 6, 12}) {
        const int rows = kThumbs / columns;
        const int width = (room.width() - (columns - 1) * kGap) / columns;
        const int height = (room.height() - (rows - 1) * kGap) / rows - label;
        const QSize picture =
            QSize(4, 3).scaled(std::max(width, 8), std::max(height, 6), Qt::KeepAspectRatio);
        if (picture.width() > best.picture.width())
            best = {columns, picture};
    }
    return best;
}

void ThumbGrid::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    Arrange();
}

/// Pictures and labels stand in the middle of their cells, which share the whole room.
void ThumbGrid::Arrange()
{
    bool names = false;
    for (const QLabel* label : m_labels)
        names = names || !label->isHidden();
    const QRect room = contentsRect();
    const int line = names ? m_labels[0]->fontMetrics().height() + 4 : 0;
    const Shape shape = ShapeFor(room.size(), line);
    m_columns = shape.columns;
    const int rows = kThumbs / m_columns;
    const int cellWidth = (room.width() - (m_columns - 1) * kGap) / m_columns;
    const int cellHeight = (room.height() - (rows - 1) * kGap) / rows;
    for (int i = 0; i < kThumbs; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const QRect cell(room.left() + (i % m_columns) * (cellWidth + kGap),
                         room.top() + (i / m_columns) * (cellHeight + kGap), cellWidth, cellHeight);
        m_thumbs[at]->setGeometry(cell.left(), cell.top(), cell.width(), cell.height() - line);
        m_labels[at]->setGeometry(cell.left(), cell.bottom() - line + 2, cell.width(), std::max(0, line - 1));
    }
}

bool ThumbGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
        if (qobject_cast<QLabel*>(watched) != nullptr)
            Arrange();
    } else if (event->type() == QEvent::KeyPress) {
        for (int i = 0; i < kThumbs; ++i)
            if (watched == Thumb(i) && HandleKey(i, static_cast<QKeyEvent*>(event)->key()))
                return true;
    }
    return QFrame::eventFilter(watched, event);
}

void ThumbGrid::FocusThumb(int index)
{
    if (index >= 0 && index < kThumbs && !Thumb(index)->isHidden())
        Thumb(index)->setFocus(Qt::ShortcutFocusReason); // which selects it
}

bool ThumbGrid::HandleKey(int index, int key)
{
    switch (key) {
    case Qt::Key_Left:
        FocusThumb(index - 1);
        return true;
    case Qt::Key_Right:
        FocusThumb(index + 1);
        return true;
    case Qt::Key_Up:
        FocusThumb(index - m_columns);
        return true;
    case Qt::Key_Down:
        FocusThumb(index + m_columns);
        return true;
    case Qt::Key_Home:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_End:
        Q_EMIT PageWanted(key == Qt::Key_Home       ? 0
                          : key == Qt::Key_PageUp   ? 1
                          : key == Qt::Key_PageDown ? 2
                                                    : 3);
        return true;
    case Qt::Key_Delete:
        Q_EMIT DeleteWanted(index);
        return true;
    default:
        return false;
    }
}

CapturePane::CapturePane(QWidget* parent)
    : QFrame(parent)
{
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 8, 12, 8);
    rows->setSpacing(kGap);
    rows->addWidget(Head());
    auto* thumbs = new ThumbGrid(this);
    rows->addWidget(thumbs, 1);
    rows->addWidget(ListFrame(), 1);
    rows->addWidget(Foot());
    connect(thumbs, &ThumbGrid::DeleteWanted, this, &CapturePane::DeleteWanted);
    connect(thumbs, &ThumbGrid::PageWanted, this, [this](int button) {
        if (QToolButton* scroll = m_scroll[static_cast<std::size_t>(button)]; scroll->isEnabled())
            scroll->click();
    });
}

QToolButton* CapturePane::IconButton(const QString& name, const char* icon)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(ThemedIcon(QLatin1StringView(icon)));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

/// What the pictures are, where they lie, and what can be done with the directory.
QWidget* CapturePane::Head()
{
    auto* head = new QWidget(this);
    auto* line = new QHBoxLayout(head);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(kSmallGap);
    auto* title = MakeLabel(*head, u"lblCapture"_s, "title");
    line->addWidget(title);
    auto* directory = MakeLabel(*head, u"lblTab"_s, "link");
    directory->setCursor(Qt::PointingHandCursor);
    directory->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    line->addWidget(directory, 1);
    auto* folder = IconButton(u"imaFolder"_s, "folder");
    folder->setAccessibleName(tr("Choose the camera folder"));
    auto* copy = IconButton(u"imaGetPics"_s, "camera");
    copy->setAccessibleName(tr("Copy pictures from a card or drive"));
    auto* trash = IconButton(u"imaTrashcan"_s, "trash");
    trash->setAccessibleName(tr("Trashcan"));
    for (QToolButton* button : {folder, copy, trash})
        line->addWidget(button);
    return head;
}

QWidget* CapturePane::Foot()
{
    auto* foot = new QWidget(this);
    auto* line = new QHBoxLayout(foot);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(kSmallGap);
    auto* place = MakeLabel(*foot, u"lblDirectory"_s, "quiet");
    line->addWidget(place);
    auto* refreshing = MakeLabel(*foot, u"lblRefreshing"_s, "quiet");
    refreshing->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QSizePolicy kept = refreshing->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    refreshing->setSizePolicy(kept);
    refreshing->setAlignment(Qt::AlignCenter);
    line->addWidget(refreshing, 1);
    auto* turns = new QHBoxLayout; // side by side, so that the count has room beside them in large text
    turns->setSpacing(0);
    line->addLayout(turns);
    const char* icons[] = {"page-first", "page-up", "page-down", "page-last"};
    const QString names[] = {tr("First pictures"), tr("Pictures before"), tr("Pictures behind"),
                             tr("Last pictures")};
    for (int i = 0; i < 4; ++i) {
        auto* button = m_scroll[static_cast<std::size_t>(i)] = IconButton(u"imaScroll_%1"_s.arg(i), icons[i]);
        button->setAccessibleName(names[i]);
        turns->addWidget(button);
    }
    return foot;
}

QFrame* CapturePane::ListFrame()
{
    auto* frame = new QFrame(this);
    frame->setObjectName(u"fraCapture"_s);
    auto* columns = new QHBoxLayout(frame);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(kGap);
    auto* list = new QListView(frame);
    list->setObjectName(u"filCapture"_s);
    list->setAccessibleName(tr("Pictures of the camera folder"));
    columns->addWidget(list, 1);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(kSmallGap);
    auto* caption = MakeLabel(*frame, u"lblListBox"_s, "quiet");
    rows->addWidget(caption);
    auto* preview = new PictureView(frame);
    preview->setObjectName(u"geaListBox"_s);
    preview->SetEmptyIcon(u"photo"_s);
    preview->setAccessibleName(tr("Selected picture"));
    rows->addWidget(preview, 1);
    columns->addLayout(rows, 1);
    return frame;
}

} // namespace vasclip::windows
