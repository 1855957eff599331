#pragma once

#include "forms/grid.h"

#include <QDialog>

class QListWidget;
class QListWidgetItem;
class QPushButton;
class QSpinBox;

namespace vasclip::windows {

/// Which columns a grid shows, in which order and how wide: by keys as well as with the mouse.
class ColumnsDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ColumnsDialog(const QList<forms::GridColumn>& columns, QWidget* parent = nullptr);
    [[nodiscard]] QList<forms::GridColumn> Columns() const; ///< as chosen

private:
    void Move(int places);
    void ShowCurrent();
    void TakeWidth(int width);
    void ShowState();

    QList<forms::GridColumn> m_columns; ///< as they came; an item knows its place here
    QListWidget* m_list;
    QSpinBox* m_width;
    QPushButton* m_up;
    QPushButton* m_down;
    QPushButton* m_ok;
};

} // namespace vasclip::windows
