#include "windows/fit_to_screen.h"

#include "windows/layout_parts.h"

#include <QDialog>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

/// What the window has to be at the width it gets: words that wrap need their height.
QSize Least(const QDialog& window, int width)
{
    QLayout* rows = window.layout();
    QSize least = rows->totalMinimumSize().expandedTo(window.minimumSize());
    if (rows->hasHeightForWidth())
        least.setHeight(std::max(least.height(), rows->totalMinimumHeightForWidth(std::max(width, least.width()))));
    return least;
}

/// What the window would be if nothing in it had to be scrolled.
QSize WithoutScrolling(const QDialog& window, QSize size)
{
    for (const QScrollArea* area : window.findChildren<QScrollArea*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (area->widget() == nullptr)
            continue;
        const QSize more = area->widget()->minimumSizeHint() - area->minimumSizeHint();
        size = size.expandedTo(window.layout()->totalMinimumSize() + more);
    }
    return size;
}

/// The rows that there are move into a scroll area, all but the last.
void PutIntoScroller(QDialog& window, QVBoxLayout& rows)
{
    QWidget* focus = window.focusWidget();
    const QMargins margins = rows.contentsMargins();
    QLayoutItem* foot = rows.takeAt(rows.count() - 1);
    auto* scroller = new QScrollArea(&window);
    scroller->setObjectName(u"fitScroller"_s);
    scroller->setWidgetResizable(true);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setFocusPolicy(Qt::NoFocus);
    auto* ground = new QWidget(scroller);
    ground->setLayout(&rows); // with its widgets
    rows.setContentsMargins(0, 0, 4, 0);
    scroller->setWidget(ground);
    auto* whole = new QVBoxLayout(&window);
    whole->setContentsMargins(margins);
    whole->setSpacing(rows.spacing());
    whole->addWidget(scroller, 1);
    if (foot->layout() != nullptr)
        whole->addLayout(foot->layout());
    else
        whole->addItem(foot);
    if (focus != nullptr)
        focus->setFocus();
}

} // namespace

void FitToScreen(QDialog& window)
{
    auto* rows = qobject_cast<QVBoxLayout*>(window.layout());
    if (rows == nullptr || rows->count() < 2)
        return;
    PolishAll(window);
    const QSize room = RoomFor(window);
    // A width that was asked for is where the window begins; its rows say how narrow it may become.
    const QSize asked(window.minimumWidth(), 0);
    window.setMinimumWidth(0);
    const bool sized = window.testAttribute(Qt::WA_Resized) || asked.width() > 0;
    const QSize wanted =
        (window.testAttribute(Qt::WA_Resized) ? window.size() : rows->totalSizeHint()).expandedTo(asked);
    const QSize least = Least(window, std::min(wanted.width(), room.width()));
    if (least.width() > room.width() || least.height() > room.height()) {
        PutIntoScroller(window, *rows);
        window.setMinimumSize(window.minimumSize().boundedTo(room));
        const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        window.resize(wanted.expandedTo(least + QSize(bar, bar)).boundedTo(room));
    } else if (sized) { // else the toolkit keeps it well within
        window.resize(WithoutScrolling(window, wanted.expandedTo(least)).boundedTo(room));
    }
}

} // namespace vasclip::windows
