#pragma once

#include "forms/grid.h"

#include <QPoint>
#include <QTableView>

class QMenu;

namespace vasclip::windows {

class EventGuard;
class RecordModel;

/// Shows a forms::Grid: rows on demand, columns that the user may move and resize, one current row.
class RecordGrid : public QTableView
{
    Q_OBJECT
public:
    explicit RecordGrid(QWidget* parent = nullptr);

    /// Shows this grid from now on. Both outlive the widget.
    void Attach(forms::Grid& grid, EventGuard& guard);
    [[nodiscard]] forms::Grid* Control() const { return m_grid; }
    /// Text of a field in the current row as the grid's source has it.
    [[nodiscard]] QString CurrentText(const QString& field) const;

    /// A drag is over this place of the viewport: while it is, the row there has the highlight instead of the
    /// current one. The current row stays what it is.
    /// @return false if there is no row
    bool AimAt(QPoint place);
    void DropAim(); ///< the highlight goes back to the current row
    /// The row that was aimed at, -1 for none, and the key of the record that it showed.
    struct Aim
    {
        int row = -1;
        QString key = {};
    };
    /// What a drop at this place is for; no row if that is not the row with the highlight.
    [[nodiscard]] Aim AimOf(QPoint place) const;

    void CopySelection(); ///< to the clipboard as text and as a table; what goes wrong is shown
    void MoveCurrentColumn(int places);
    void WidenCurrentColumn(int pixels);
    void ChooseColumns(); ///< asks which columns to show, in which order and how wide
    /// The menu of a heading: sort, hide, and a tick for every column.
    void FillColumnMenu(QMenu& menu, int column);
    /// Only shows columns: they are neither moved, hidden nor sized here.
    void FixColumns();

Q_SIGNALS:
    void MenuWanted(const QPoint& place); ///< by the right button or the menu key; in global places
    void DragWanted();                    ///< the user pulls at the current row
    void FirstPainted();

protected:
    void startDrag(Qt::DropActions actions) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool ColumnKey(int key);
    void ColumnMenu(const QPoint& place);
    int CurrentColumn() const;
    void ShowColumns();
    void FillFrame();
    void ShowRow();
    void TakeColumns();
    void TakeSelection();
    void Settle();
    void Rebind();
    forms::Grid* m_grid = nullptr;
    EventGuard* m_guard = nullptr;
    RecordModel* m_model = nullptr;
    Aim m_aim;
    QPoint m_aimPlace;
    bool m_showing = false; ///< the control writes the view, not the user
    bool m_settling = false; ///< Settle is on its way
    bool m_painted = false;
    bool m_fixed = false;
};

} // namespace vasclip::windows
