#include "windows/columns_dialog.h"

#include "windows/fit_to_screen.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr int kPlace = Qt::UserRole;
constexpr int kWidth = Qt::UserRole + 1;

} // namespace

ColumnsDialog::ColumnsDialog(const QList<forms::GridColumn>& columns, QWidget* parent)
    : QDialog(parent)
    , m_columns(columns)
    , m_list(new QListWidget(this))
    , m_width(new QSpinBox(this))
    , m_up(new QPushButton(tr("Move &Up"), this))
    , m_down(new QPushButton(tr("Move &Down"), this))
{
    setObjectName(u"columnsDialog"_s);
    setWindowTitle(tr("Columns"));
    for (int i = 0; i < columns.size(); ++i) {
        auto* item = new QListWidgetItem(columns.at(i).caption, m_list);
        item->setData(kPlace, i);
        item->setData(kWidth, columns.at(i).width);
        item->setCheckState(columns.at(i).visible ? Qt::Checked : Qt::Unchecked);
        item->setToolTip(columns.at(i).field);
        Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
        if (!columns.at(i).fixed)
            flags |= Qt::ItemIsUserCheckable;
        item->setFlags(flags);
    }
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    m_list->setAccessibleName(tr("Columns in their order"));
    m_width->setRange(forms::Grid::kNarrowest, forms::Grid::kWidest);
    m_width->setSingleStep(8);
    m_width->setSuffix(tr(" px"));

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(8);
    auto* caption = new QLabel(tr("&Ticked columns show, from left to right:"), this);
    caption->setBuddy(m_list);
    rows->addWidget(caption);
    auto* middle = new QHBoxLayout;
    middle->setSpacing(8);
    middle->addWidget(m_list, 1);
    auto* side = new QVBoxLayout;
    side->setSpacing(8);
    side->addWidget(m_up);
    side->addWidget(m_down);
    side->addSpacing(8);
    auto* widthCaption = new QLabel(tr("&Width"), this);
    widthCaption->setBuddy(m_width);
    side->addWidget(widthCaption);
    side->addWidget(m_width);
    side->addStretch(1);
    middle->addLayout(side);
    rows->addLayout(middle, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    rows->addWidget(buttons);
    resize(380, 460);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_up, &QPushButton::clicked, this, [this] { Move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { Move(1); });
    connect(m_list, &QListWidget::currentRowChanged, this, &ColumnsDialog::ShowCurrent);
    connect(m_list, &QListWidget::itemChanged, this, &ColumnsDialog::ShowState);
    connect(m_width, &QSpinBox::valueChanged, this, &ColumnsDialog::TakeWidth);
    m_list->setCurrentRow(0);
    ShowState();
    m_list->setFocus();
    FitToScreen(*this);
}

void ColumnsDialog::Move(int places)
{
    const int row = m_list->currentRow();
    const int target = row + places;
    if (row < 0 || target < 0 || target >= m_list->count())
        return;
    m_list->insertItem(target, m_list->takeItem(row));
    m_list->setCurrentRow(target);
}

void ColumnsDialog::ShowCurrent()
{
    const QListWidgetItem* item = m_list->currentItem();
    m_width->setEnabled(item != nullptr);
    m_up->setEnabled(item != nullptr && m_list->currentRow() > 0);
    m_down->setEnabled(item != nullptr && m_list->currentRow() + 1 < m_list->count());
    if (item != nullptr)
        m_width->setValue(item->data(kWidth).toInt());
}

void ColumnsDialog::TakeWidth(int width)
{
    if (QListWidgetItem* item = m_list->currentItem())
        item->setData(kWidth, width);
}

/// A grid without a column could not be repaired with the mouse.
void ColumnsDialog::ShowState()
{
    bool any = false;
    for (int i = 0; i < m_list->count(); ++i)
        any = any || m_list->item(i)->checkState() == Qt::Checked;
    m_ok->setEnabled(any);
    m_ok->setToolTip(any ? QString() : tr("At least one column has to show"));
}

QList<forms::GridColumn> ColumnsDialog::Columns() const
{
    QList<forms::GridColumn> columns;
    for (int i = 0; i < m_list->count(); ++i) {
        const QListWidgetItem* item = m_list->item(i);
        forms::GridColumn column = m_columns.at(item->data(kPlace).toInt());
        column.visible = item->checkState() == Qt::Checked;
        column.width = item->data(kWidth).toInt();
        columns.append(column);
    }
    return columns;
}

} // namespace vasclip::windows
