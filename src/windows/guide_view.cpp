#include "windows/guide_view.h"

#include "windows/guide.h"
#include "windows/theme.h"

#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMargin = 24;
constexpr int kRestMilliseconds = 120;

} // namespace

GuideView::GuideView(QWidget* parent)
    : QTextBrowser(parent)
{
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(true);
    setVerticalScrollBarPolicy(
        Qt::ScrollBarAlwaysOn); // a page is laid out for the width that is left beside it
    document()->setDocumentMargin(kMargin);
    m_fit.setSingleShot(true);
    m_fit.setInterval(kRestMilliseconds);
    connect(&m_fit, &QTimer::timeout, this, &GuideView::Again);
    connect(this, &QTextBrowser::sourceChanged, this, &GuideView::Dress);
}

void GuideView::Show(const QString& page)
{
    const bool there = !page.isEmpty() && !GuideText(page).isEmpty();
    setSource(GuideUrl(there ? page : QString(kGuideIndex)), QTextDocument::MarkdownResource);
}

QString GuideView::Page() const
{
    return QFileInfo(source().path()).fileName();
}

QVariant GuideView::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource)
        return QTextBrowser::loadResource(type, name);
    QImage image(u':' + GuideUrl({}).resolved(name).path());
    const int room = viewport()->width() - 2 * kMargin;
    if (image.isNull() || room < 1)
        return image;
    const qreal ratio = devicePixelRatioF();
    const int width = qRound(std::min(image.width(), room) * ratio);
    image = image.scaledToWidth(width, Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    return image;
}

/// What a Markdown document leaves plain: the air in tables and between paragraphs, and code.
void GuideView::Dress()
{
    const ThemeColours& colours = Theme::Colours();
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr)
            continue;
        QTextTableFormat format = table->format();
        format.setCellPadding(6);
        format.setCellSpacing(0);
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderBrush(colours.border);
        table->setFormat(format);
        for (int column = 0; column < table->columns(); ++column) {
            QTextTableCellFormat head = table->cellAt(0, column).format().toTableCellFormat();
            head.setBackground(colours.well);
            table->cellAt(0, column).setFormat(head);
        }
    }
    QTextCursor cursor(document());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setLineHeight(120, QTextBlockFormat::ProportionalHeight);
        if (block.blockFormat().headingLevel() > 0) {
            format.setTopMargin(block.blockFormat().headingLevel() == 1 ? 0 : 18);
            format.setBottomMargin(6);
        }
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
    m_width = viewport()->width();
    setDocumentTitle(document()->begin().text());
}

void GuideView::Mark(const QString& words, bool next)
{
    QList<ExtraSelection> marks;
    const ThemeColours& colours = Theme::Colours();
    for (const QString& word : words.simplified().split(u' ', Qt::SkipEmptyParts)) {
        for (QTextCursor found = document()->find(word); !found.isNull();
             found = document()->find(word, found)) {
            ExtraSelection mark;
            mark.cursor = found;
            mark.format.setBackground(colours.tint);
            mark.format.setForeground(colours.text);
            marks.append(mark);
        }
    }
    std::sort(marks.begin(), marks.end(), [](const ExtraSelection& a, const ExtraSelection& b) {
        return a.cursor.position() < b.cursor.position();
    });
    setExtraSelections(marks);
    if (marks.isEmpty())
        return;
    const int from = next ? textCursor().position() : -1;
    const auto behind = std::find_if(marks.begin(), marks.end(), [&](const ExtraSelection& mark) {
        return mark.cursor.selectionStart() > from;
    });
    QTextCursor stand = (behind == marks.end() ? marks.first() : *behind).cursor;
    stand.setPosition(stand.selectionStart());
    setTextCursor(stand);
    ensureCursorVisible();
}

/// The page anew, at the place where the reader is.
void GuideView::Again()
{
    if (source().isEmpty())
        return;
    const QScrollBar* bar = verticalScrollBar();
    const double place = bar->maximum() > 0 ? double(bar->value()) / bar->maximum() : 0;
    reload();
    Dress();
    verticalScrollBar()->setValue(qRound(place * verticalScrollBar()->maximum()));
}

void GuideView::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    if (viewport()->width() != m_width)
        m_fit.start();
}

void GuideView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        m_fit.start();
}

} // namespace vasclip::windows
