#include "windows/record_grid.h"

#include "databook/copy_rows.h"
#include "store/fields.h"
#include "windows/columns_dialog.h"
#include "windows/guard.h"
#include "windows/record_model.h"
#include "windows/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr int kRowPadding = 10;
constexpr int kWidthStep = 8;
constexpr int kCellMargin = 9;

/// A cell is one line of plain text: drawn as such, since a screen has hundreds of them.
class CellPainter : public QStyledItemDelegate
{
public:
    CellPainter(const RecordGrid::Aim& aim, QObject* parent)
        : QStyledItemDelegate(parent)
        , m_aim(aim)
    {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool aimed = m_aim.row >= 0;
        const bool selected = aimed ? index.row() == m_aim.row : bool(option.state & QStyle::State_Selected);
        if (selected)
            painter->fillRect(option.rect, option.palette.highlight());
        else if (aimed && option.state & QStyle::State_Selected)
            painter->fillRect(option.rect, index.row() % 2 ? option.palette.alternateBase() : option.palette.base());
        const QString text = index.data(Qt::DisplayRole).toString();
        if (text.isEmpty())
            return;
        const QRect room = option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
        const int alignment = index.data(Qt::TextAlignmentRole).toInt();
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(room, alignment | Qt::TextSingleLine,
                          option.fontMetrics.elidedText(text, Qt::ElideRight, room.width()));
    }

private:
    const RecordGrid::Aim& m_aim;
};

} // namespace

RecordGrid::RecordGrid(QWidget* parent)
    : QTableView(parent)
{
    setItemDelegate(new CellPainter(m_aim, this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragEnabled(true);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(forms::Grid::kNarrowest);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setFixedHeight(fontMetrics().height() + kRowPadding + 4);
}

void RecordGrid::Attach(forms::Grid& grid, EventGuard& guard)
{
    m_grid = &grid;
    m_guard = &guard;
    m_model = new RecordModel(grid, guard, this);
    setModel(m_model);
    connect(&grid, &forms::Grid::Rebound, this, &RecordGrid::Rebind);
    connect(&grid, &forms::Grid::ColumnsChanged, this, &RecordGrid::Rebind);
    connect(&grid, &forms::Grid::Repaint, this, [this] {
        DropAim(); // another record may stand there now; the next move of the pointer tells
        m_guard->Run([this] {
            const QScopedValueRollback<bool> showing(m_showing, true);
            m_model->Forget();
        });
        ShowRow();
        TakeSelection();
    });
    connect(&grid, &forms::Grid::RowColChange, this, &RecordGrid::ShowRow);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (m_aim.row >= 0)
            AimAt(m_aimPlace);
    });
    connect(horizontalHeader(), &QHeaderView::sectionMoved, this, [this] { TakeColumns(); });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { TakeColumns(); });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        if (!m_fixed)
            m_guard->Run([&] { m_grid->ClickHead(column); });
    });
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(horizontalHeader(), &QWidget::customContextMenuRequested, this, &RecordGrid::ColumnMenu);
    connect(this, &QTableView::clicked, this, [this] { m_guard->Run([this] { Q_EMIT m_grid->Clicked(); }); });
    ShowColumns();
    ShowRow();
}

void RecordGrid::Rebind()
{
    if (m_showing)
        return;
    DropAim();
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        m_model->Reset();
    }
    ShowColumns();
    ShowRow();
    TakeSelection();
}

void RecordGrid::ShowColumns()
{
    const QScopedValueRollback<bool> showing(m_showing, true);
    QHeaderView* header = horizontalHeader();
    const QList<forms::GridColumn>& columns = m_grid->Columns();
    for (int i = 0; i < columns.size() && i < header->count(); ++i) {
        if (header->visualIndex(i) != i)
            header->moveSection(header->visualIndex(i), i);
        setColumnHidden(i, !columns.at(i).visible);
        if (columns.at(i).visible)
            setColumnWidth(i, columns.at(i).width);
    }
    FillFrame();
}

/// Columns that nobody can size share what the frame has left.
void RecordGrid::FillFrame()
{
    if (!m_fixed || m_grid == nullptr)
        return;
    const QScopedValueRollback<bool> showing(m_showing, true);
    const QList<forms::GridColumn>& columns = m_grid->Columns();
    int before = 0; // the widths of those on show
    for (const forms::GridColumn& column : columns)
        before += column.visible ? column.width : 0;
    const int whole = std::max(before, viewport()->width());
    int asked = 0;
    for (int i = 0; i < columns.size() && i < horizontalHeader()->count() && before > 0; ++i) {
        if (!columns.at(i).visible)
            continue;
        const int left = asked * whole / before;
        asked += columns.at(i).width;
        setColumnWidth(i, asked * whole / before - left);
    }
}

void RecordGrid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    FillFrame();
}

/// The user moved or resized a column: the control learns the columns in their shown order.
void RecordGrid::TakeColumns()
{
    if (m_showing || m_grid == nullptr)
        return;
    m_guard->Run([this] {
        const QHeaderView* header = horizontalHeader();
        const QList<forms::GridColumn> before = m_grid->Columns();
        QList<forms::GridColumn> columns;
        bool moved = false;
        for (int visual = 0; visual < header->count() && visual < before.size(); ++visual) {
            const int logical = header->logicalIndex(visual);
            moved = moved || logical != visual;
            forms::GridColumn column = before.at(logical);
            if (column.visible)
                column.width = header->sectionSize(logical);
            columns.append(column);
        }
        {
            const QScopedValueRollback<bool> showing(m_showing, true);
            m_grid->SetColumns(columns);
        }
        if (moved) // the header is still at work with its sections
            QTimer::singleShot(0, this, &RecordGrid::Rebind);
    });
}

void RecordGrid::ShowRow()
{
    if (m_grid == nullptr)
        return;
    const QScopedValueRollback<bool> showing(m_showing, true);
    const int row = static_cast<int>(m_grid->Row());
    if (row < 0 || row >= m_model->rowCount()) {
        clearSelection();
        setCurrentIndex({});
        return;
    }
    if (currentIndex().row() == row)
        return;
    int column = std::max(0, currentIndex().column());
    while (column < m_model->columnCount() && isColumnHidden(column))
        ++column;
    if (column >= m_model->columnCount())
        return;
    const int sideways = horizontalScrollBar()->value();
    setCurrentIndex(m_model->index(row, column));
    horizontalScrollBar()->setValue(sideways);
}

void RecordGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (m_showing || m_grid == nullptr || !current.isValid())
        return;
    m_guard->Run([&] { m_grid->SetRow(current.row()); });
}

void RecordGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    TakeSelection();
}

/// The control knows which rows are selected.
void RecordGrid::TakeSelection()
{
    if (m_grid == nullptr || selectionModel() == nullptr)
        return;
    QList<forms::RowSpan> spans;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        spans.append({range.top(), range.bottom()});
    std::ranges::sort(spans, {}, &forms::RowSpan::first);
    m_guard->Run([&] { m_grid->SetSelected(spans); });
    const bool apart = spans.isEmpty() || (m_grid->SelectedCount() == 1 && spans.first().first != m_grid->Row());
    if (apart && m_grid->Row() >= 0 && !std::exchange(m_settling, true))
        QTimer::singleShot(0, this, &RecordGrid::Settle);
}

/// Ctrl and a click may leave the current row out of what is selected. A single selected row is the current one,
/// and with none selected the current row is.
void RecordGrid::Settle()
{
    m_settling = false;
    if (m_grid->Row() < 0 || !currentIndex().isValid())
        return;
    using Flag = QItemSelectionModel;
    if (m_grid->SelectedCount() == 0)
        selectionModel()->select(currentIndex(), Flag::Select | Flag::Rows);
    else if (const qint64 row = m_grid->Selected().first().first; m_grid->SelectedCount() == 1 && row != m_grid->Row())
        selectionModel()->setCurrentIndex(m_model->index(static_cast<int>(row), currentIndex().column()),
                                          Flag::NoUpdate);
}

QString RecordGrid::CurrentText(const QString& field) const
{
    return m_model == nullptr ? QString() : m_model->Text(currentIndex().row(), field);
}

bool RecordGrid::AimAt(QPoint place)
{
    const int row = rowAt(place.y());
    m_aimPlace = place;
    if (row == m_aim.row)
        return row >= 0;
    if (row < 0 || m_model == nullptr) {
        DropAim();
        return false;
    }
    m_aim = {row, {}};
    m_guard->Run([&] { m_aim.key = m_model->Text(row, fields::CENTRALKEY); });
    viewport()->update();
    return true;
}

void RecordGrid::DropAim()
{
    if (m_aim.row < 0)
        return;
    m_aim = {};
    viewport()->update();
}

RecordGrid::Aim RecordGrid::AimOf(QPoint place) const
{
    return rowAt(place.y()) == m_aim.row ? m_aim : Aim();
}

void RecordGrid::startDrag(Qt::DropActions)
{
    if (currentIndex().isValid())
        Q_EMIT DragWanted();
}

void RecordGrid::keyPressEvent(QKeyEvent* event)
{
    const bool plain = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (plain && m_model != nullptr && m_model->rowCount() > 0) {
        const int column = std::max(0, currentIndex().column());
        switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            m_guard->Run([this] { Q_EMIT m_grid->DoubleClicked(); });
            return;
        case Qt::Key_Home:
            setCurrentIndex(m_model->index(0, column));
            return;
        case Qt::Key_End:
            setCurrentIndex(m_model->index(m_model->rowCount() - 1, column));
            return;
        default:
            break;
        }
    }
    if (event->matches(QKeySequence::Copy)) {
        CopySelection();
        return;
    }
    const bool columns = event->modifiers().testFlags(Qt::ControlModifier | Qt::ShiftModifier);
    if (columns && !m_fixed && ColumnKey(event->key()))
        return;
    // Looking for a typed letter would read every row of the Databook.
    if (!event->text().isEmpty() && event->text().at(0).isPrint() && plain && event->key() != Qt::Key_Space) {
        event->ignore();
        return;
    }
    QTableView::keyPressEvent(event);
}

int RecordGrid::CurrentColumn() const
{
    return m_grid != nullptr && currentIndex().isValid() && !isColumnHidden(currentIndex().column())
               ? currentIndex().column()
               : -1;
}

bool RecordGrid::ColumnKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
        MoveCurrentColumn(-1);
        return true;
    case Qt::Key_Right:
        MoveCurrentColumn(1);
        return true;
    case Qt::Key_Up:
        WidenCurrentColumn(kWidthStep);
        return true;
    case Qt::Key_Down:
        WidenCurrentColumn(-kWidthStep);
        return true;
    default:
        return false;
    }
}

/// The current cell goes with its column.
void RecordGrid::MoveCurrentColumn(int places)
{
    const int column = CurrentColumn();
    if (column < 0)
        return;
    const int row = currentIndex().row();
    int target = column;
    m_guard->Run([&] { target = m_grid->MoveColumn(column, places); });
    const QScopedValueRollback<bool> showing(m_showing, true);
    setCurrentIndex(m_model->index(row, target));
}

void RecordGrid::WidenCurrentColumn(int pixels)
{
    const QModelIndex current = currentIndex();
    const int column = CurrentColumn();
    if (column < 0)
        return;
    m_guard->Run([&] { m_grid->ResizeColumn(column, m_grid->Columns().at(column).width + pixels); });
    const QScopedValueRollback<bool> showing(m_showing, true);
    setCurrentIndex(m_model->index(current.row(), column));
}

void RecordGrid::ChooseColumns()
{
    if (m_grid == nullptr)
        return;
    ColumnsDialog dialog(m_grid->Columns(), this);
    if (dialog.exec() == QDialog::Accepted)
        m_guard->Run([&] { m_grid->SetColumns(dialog.Columns()); });
}

void RecordGrid::FixColumns()
{
    m_fixed = true;
    horizontalHeader()->setSectionsMovable(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(false);
    setDragEnabled(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
}

void RecordGrid::FillColumnMenu(QMenu& menu, int column)
{
    const QList<forms::GridColumn> columns = m_grid->Columns();
    const auto change = [this](auto step) { return [this, step] { m_guard->Run(step); }; };
    if (column >= 0 && column < columns.size()) {
        QAction* sort = menu.addAction(tr("&Sort by This Column"));
        sort->setEnabled(columns.at(column).sortable);
        connect(sort, &QAction::triggered, m_grid, change([this, column] { m_grid->ClickHead(column); }));
        QAction* hide = menu.addAction(tr("&Hide This Column"));
        hide->setEnabled(!columns.at(column).fixed);
        connect(hide, &QAction::triggered, m_grid,
                change([this, column] { m_grid->ShowColumn(column, false); }));
    }
    connect(menu.addAction(tr("&Columns...")), &QAction::triggered, this, &RecordGrid::ChooseColumns);
    menu.addSeparator();
    for (int i = 0; i < columns.size(); ++i) {
        QAction* tick = menu.addAction(columns.at(i).caption);
        tick->setCheckable(true);
        tick->setChecked(columns.at(i).visible);
        tick->setEnabled(!columns.at(i).fixed);
        connect(tick, &QAction::triggered, m_grid,
                [this, i](bool shown) { m_guard->Run([&] { m_grid->ShowColumn(i, shown); }); });
    }
}

void RecordGrid::ColumnMenu(const QPoint& place)
{
    if (m_fixed || m_grid == nullptr)
        return;
    QMenu menu(this);
    FillColumnMenu(menu, horizontalHeader()->logicalIndexAt(place));
    menu.exec(horizontalHeader()->viewport()->mapToGlobal(place));
}

void RecordGrid::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_fixed)
        return;
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard)
        place = viewport()->mapToGlobal(currentIndex().isValid() ? visualRect(currentIndex()).bottomLeft()
                                                                 : QPoint(8, 8));
    Q_EMIT MenuWanted(place);
}

void RecordGrid::CopySelection()
{
    if (m_grid == nullptr || selectionModel() == nullptr)
        return;
    m_guard->Run([this] {
        QList<databook::RowRange> rows;
        const QItemSelection selection = selectionModel()->selection();
        for (const QItemSelectionRange& range : selection)
            rows.append({range.top(), range.bottom()});
        const databook::CopiedRows copied = databook::CopyRows(*m_grid, rows);
        if (copied.text.isEmpty())
            return;
        auto* data = new QMimeData;
        data->setText(copied.text);
        data->setHtml(copied.html);
        QApplication::clipboard()->setMimeData(data);
    });
}

void RecordGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (m_grid != nullptr && indexAt(event->position().toPoint()).isValid())
        m_guard->Run([this] { Q_EMIT m_grid->DoubleClicked(); });
}

void RecordGrid::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (m_model != nullptr && m_model->rowCount() == 0) {
        QPainter painter(viewport());
        painter.setPen(Theme::Colours().muted);
        const QString& words = m_grid->EmptyWords();
        painter.drawText(viewport()->rect(), Qt::AlignCenter, words.isEmpty() ? tr("No records to show") : words);
    }
    if (hasFocus()) {
        QPainter painter(viewport());
        painter.setPen(QPen(Theme::Colours().accent, 2));
        painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
        // The column that the keys move and size.
        painter.setPen(QPen(Theme::Colours().selectionText, 2));
        if (currentIndex().isValid())
            painter.drawRoundedRect(visualRect(currentIndex()).adjusted(1, 2, -2, -2), 3, 3);
    }
    if (!m_painted) {
        m_painted = true;
        Q_EMIT FirstPainted();
    }
}

} // namespace vasclip::windows
