#include "windows/binder.h"

#include "link/slot_table.h"
#include "windows/chip_bar.h"
#include "windows/guard.h"
#include "windows/lines_model.h"
#include "windows/record_grid.h"
#include "windows/theme.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStringListModel>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

// Lists, combo boxes, tabs and grids.

namespace vasclip::windows {

namespace {

using link::kNotAvailable;

/// The lines of a source, without holding them; what a box did with all its lines it does no more.
void ShowSource(QComboBox& combo, const forms::ListBox& control)
{
    if (auto* lines = qobject_cast<LinesModel*>(combo.model())) {
        lines->Reset();
        return;
    }
    combo.setCompleter(nullptr);
    if (auto* view = qobject_cast<QListView*>(combo.view()))
        view->setUniformItemSizes(true);
    combo.setModel(new LinesModel(control, &combo));
}

void ShowLines(QListView& view, const forms::ListBox& control)
{
    const QStringList& lines = control.Items();
    if (control.Source() != nullptr) {
        if (auto* asked = qobject_cast<LinesModel*>(view.model())) {
            asked->Reset();
            return;
        }
        view.setUniformItemSizes(true);
        view.setModel(new LinesModel(control, &view, LinesModel::Offer::All));
        return;
    }
    if (auto* list = qobject_cast<QListWidget*>(&view)) {
        list->clear();
        list->addItems(lines);
        return;
    }
    auto* model = qobject_cast<QStringListModel*>(view.model());
    if (model == nullptr) {
        model = new QStringListModel(&view);
        view.setModel(model);
    }
    if (model->stringList() != lines)
        model->setStringList(lines);
}

/// A press moves the focus before it reaches the list, and whoever loses that may fill the list anew. What would be
/// pressed then stands where the user saw another line, so that such a press takes none.
class StalePress : public QObject
{
public:
    explicit StalePress(QAbstractItemView& view)
        : QObject(&view)
        , m_view(view)
    {
        view.viewport()->installEventFilter(this);
        connect(view.model(), &QAbstractItemModel::modelReset, this, [this] {
            if ((QApplication::mouseButtons() & Qt::LeftButton) == 0 || !m_view.underMouse())
                return;
            m_stale = true;
            QTimer::singleShot(0, this, [this] { m_stale = false; }); // the press comes in this turn of the queue or never
        });
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            m_taken = std::exchange(m_stale, false);
            return m_taken;
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick: // whose second press comes before anybody can have looked
            return m_taken;
        default:
            return false;
        }
    }

private:
    QAbstractItemView& m_view;
    bool m_stale = false; ///< the lines are others than when the button went down
    bool m_taken = false; ///< the last press takes nothing
};

} // namespace

bool Binder::BindList(forms::ListBox& control, QWidget& widget)
{
    auto* view = qobject_cast<QListView*>(&widget);
    if (view == nullptr)
        return false;
    view->ensurePolished(); // the sheet decides how high a line is
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ShowLines(*view, control);
    const auto showing = std::make_shared<bool>(false); // the control writes the view, not the user
    const auto showCurrent = [&control, view, showing] {
        *showing = true;
        view->setCurrentIndex(control.ListIndex() < 0 ? QModelIndex()
                                                      : view->model()->index(control.ListIndex(), 0));
        if (control.ListIndex() >= 0)
            view->scrollTo(view->currentIndex());
        *showing = false;
    };
    const auto follow = [this, &control, view, showing](const QModelIndex& current) {
        if (*showing || !current.isValid())
            return;
        const bool byMouse = (QApplication::mouseButtons() & Qt::LeftButton) != 0 && view->underMouse();
        m_guard.Run([&] {
            control.SetListIndex(current.row());
            if (!byMouse) // the mouse raises its click when it is let go
                Q_EMIT control.Clicked();
        });
    };
    const auto watch = [&control, view, follow] { // another model brings another selection
        connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, &control, follow);
        if (qobject_cast<QStringListModel*>(view->model()) != nullptr) // which is reset for other lines alone
            new StalePress(*view);
    };
    watch();
    connect(&control, &forms::ListBox::ItemsChanged, view, [&control, view, showing, showCurrent, watch] {
        *showing = true;
        const QItemSelectionModel* before = view->selectionModel();
        ShowLines(*view, control);
        *showing = false;
        if (view->selectionModel() != before)
            watch();
        showCurrent();
    });
    connect(&control, &forms::ListBox::Changed, view, showCurrent);
    connect(&control, &forms::ListBox::TopWanted, view, [&control, view] {
        view->scrollTo(view->model()->index(control.TopIndex(), 0), QAbstractItemView::PositionAtTop);
    });
    connect(view, &QListView::clicked, &control,
            [this, &control] { m_guard.Run([&control] { Q_EMIT control.Clicked(); }); });
    connect(view, &QListView::activated, &control,
            [this, &control] { m_guard.Run([&control] { Q_EMIT control.DoubleClicked(); }); });
    showCurrent();
    return true;
}

bool Binder::BindCombo(forms::ComboBox& control, QWidget& widget)
{
    auto* combo = qobject_cast<QComboBox*>(&widget);
    if (combo == nullptr)
        return false;
    combo->setInsertPolicy(QComboBox::NoInsert);
    const auto showCurrent = [&control, combo] {
        const QSignalBlocker quiet(combo);
        const QString before = combo->currentText();
        const int cursor = combo->isEditable() ? combo->lineEdit()->cursorPosition() : 0;
        if (combo->currentIndex() != control.ListIndex())
            combo->setCurrentIndex(control.ListIndex());
        if (!combo->isEditable())
            return;
        if (combo->currentText() != control.Text())
            combo->setEditText(control.Text());
        if (combo->currentText() != before) // the head of a text is what tells
            combo->lineEdit()->setCursorPosition(combo->lineEdit()->hasFocus() ? cursor : 0);
    };
    const auto showItems = [&control, combo, showCurrent] {
        {
            const QSignalBlocker quiet(combo);
            if (control.Source() != nullptr) {
                ShowSource(*combo, control);
                combo->setCurrentIndex(-1);
            } else {
                combo->clear();
                combo->addItems(control.Items());
            }
            if (combo->isEditable()) {
                combo->setEditText(control.Text());
                combo->lineEdit()->setCursorPosition(0);
            }
        }
        showCurrent();
    };
    connect(&control, &forms::ListBox::ItemsChanged, combo, showItems);
    connect(&control, &forms::Control::Changed, combo, showCurrent);
    connect(combo, &QComboBox::activated, &control, [this, &control, showCurrent](int index) {
        m_guard.Run([&] {
            control.SetListIndex(index);
            Q_EMIT control.Clicked();
        });
        showCurrent();
    });
    if (combo->isEditable()) {
        connect(combo->lineEdit(), &QLineEdit::textEdited, &control,
                [this, &control, showCurrent](const QString& text) {
                    m_guard.Run([&] { control.SetText(text); });
                    showCurrent();
                });
    }
    showItems();
    return true;
}

/// A list beside the pages stands for tabs; a page that is not enabled leaves the list.
void Binder::BindPageList(forms::TabControl& control, QListWidget& list)
{
    const auto showing = std::make_shared<bool>(false); // the control writes the list, not the user
    const auto show = [&control, &list, showing] {
        *showing = true;
        while (list.count() < control.Tabs())
            list.addItem(QString());
        for (int page = 0; page < control.Tabs(); ++page) {
            list.item(page)->setText(control.TabCaption(page));
            list.item(page)->setHidden(!control.TabEnabled(page));
        }
        list.setCurrentRow(control.Tab());
        *showing = false;
    };
    connect(&control, &forms::Control::Changed, &list, show);
    connect(&list, &QListWidget::currentRowChanged, &control, [this, &control, showing, show](int page) {
        if (*showing || page < 0)
            return;
        m_guard.Run([&] { control.SetTab(page); });
        show();
    });
    show();
}

bool Binder::BindTabs(forms::TabControl& control, QWidget& widget)
{
    if (auto* list = qobject_cast<QListWidget*>(&widget)) {
        BindPageList(control, *list);
        return true;
    }
    auto* book = qobject_cast<QTabWidget*>(&widget);
    QTabBar* bar = book != nullptr ? book->tabBar() : qobject_cast<QTabBar*>(&widget);
    if (bar == nullptr)
        return false;
    if (book != nullptr && book->count() != control.Tabs())
        throw RuntimeError(error::kSubscript, u"%1 has %2 pages, its widget %3"_s.arg(control.ObjectName())
                                                  .arg(control.Tabs())
                                                  .arg(book->count()));
    while (bar->count() < control.Tabs())
        bar->addTab(QString());
    const auto show = [&control, bar] {
        const QSignalBlocker quiet(bar);
        for (int page = 0; page < control.Tabs(); ++page) {
            // A page that the report does not have looks disabled but can be clicked: the rules then ask
            // anew.
            const QString caption = control.TabCaption(page);
            const bool dim = caption == kNotAvailable || !control.TabEnabled(page);
            if (bar->tabText(page) != caption)
                bar->setTabText(page, caption);
            const QColor colour = dim ? Theme::Colours().absent : QColor();
            if (bar->tabTextColor(page) != colour)
                bar->setTabTextColor(page, colour);
            if (bar->isTabEnabled(page) != control.TabEnabled(page))
                bar->setTabEnabled(page, control.TabEnabled(page));
        }
    };
    const auto showPage = [&control, book, bar] {
        if (bar->currentIndex() == control.Tab())
            return;
        if (book != nullptr)
            book->setCurrentIndex(control.Tab());
        else
            bar->setCurrentIndex(control.Tab());
    };
    connect(&control, &forms::Control::Changed, bar, [show, showPage] {
        show();
        showPage();
    });
    connect(bar, &QTabBar::currentChanged, &control, [this, &control, showPage](int page) {
        if (page < 0)
            return;
        m_guard.Run([&] { control.SetTab(page); });
        showPage();
    });
    show();
    showPage();
    return true;
}

bool Binder::BindChips(forms::ChipList& control, QWidget& widget)
{
    auto* bar = qobject_cast<ChipBar*>(&widget);
    if (bar == nullptr)
        return false;
    const auto show = [&control, bar] { bar->SetChips(control.Chips()); };
    connect(&control, &forms::Control::Changed, bar, show);
    connect(bar, &ChipBar::CloseWanted, &control,
            [this, &control](const QString& id) { m_guard.Run([&] { control.Close(id); }); });
    show();
    return true;
}

bool Binder::BindGrid(forms::Grid& control, QWidget& widget)
{
    auto* grid = qobject_cast<RecordGrid*>(&widget);
    if (grid == nullptr)
        return false;
    grid->Attach(control, m_guard);
    connect(grid, &RecordGrid::DragWanted, &control, [this, &control] { Q_EMIT DragWanted(control); });
    return true;
}

} // namespace vasclip::windows
