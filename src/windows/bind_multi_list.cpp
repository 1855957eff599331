#include "windows/binder.h"

#include "windows/guard.h"

#include <QItemSelection>
#include <QItemSelectionModel>
#include <QListView>
#include <QSlider>
#include <QStringListModel>

#include <utility>

// Lists with several selected lines, and bars.

namespace vasclip::windows {

namespace {

/// As few ranges as the lines make: a selection of single lines takes long to apply.
QItemSelection RangesOf(const QList<int>& lines, const QAbstractItemModel& model)
{
    QItemSelection ranges;
    for (qsizetype first = 0; first < lines.size();) {
        qsizetype last = first;
        while (last + 1 < lines.size() && lines[last + 1] == lines[last] + 1)
            ++last;
        ranges.append(QItemSelectionRange(model.index(lines[first], 0), model.index(lines[last], 0)));
        first = last + 1;
    }
    return ranges;
}

} // namespace

bool Binder::BindMultiList(forms::MultiListBox& control, QWidget& widget)
{
    auto* view = qobject_cast<QListView*>(&widget);
    if (view == nullptr)
        return false;
    view->ensurePolished();
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setUniformItemSizes(true);
    auto* lines = new QStringListModel(control.Items(), view);
    view->setModel(lines);
    const auto showing = std::make_shared<bool>(false); // the control writes the view, not the user
    const auto show = [&control, view, lines, showing] {
        if (*showing)
            return;
        *showing = true;
        const QItemSelection wanted = RangesOf(control.SelectedLines(), *lines);
        view->selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect);
        const QModelIndex current =
            control.ListIndex() < 0 ? QModelIndex() : lines->index(control.ListIndex(), 0);
        if (view->currentIndex() != current)
            view->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        if (current.isValid())
            view->scrollTo(current);
        *showing = false;
    };
    connect(&control, &forms::ListBox::ItemsChanged, view, [&control, lines, showing, show] {
        const bool before = std::exchange(*showing, true);
        lines->setStringList(control.Items());
        *showing = before;
        show();
    });
    connect(&control, &forms::Control::Changed, view, show);
    connect(&control, &forms::MultiListBox::SelectionChanged, view, show);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, &control,
            [this, &control, view, showing, show] {
                if (*showing)
                    return;
                QSet<int> chosen;
                for (const QItemSelectionRange& range : view->selectionModel()->selection())
                    for (int line = range.top(); line <= range.bottom(); ++line)
                        chosen.insert(line);
                *showing = true; // the view has it already, unless a rule decides otherwise
                m_guard.Run([&] { control.Select(chosen); });
                *showing = false;
                if (control.SelCount() != chosen.size())
                    show();
            });
    connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, &control,
            [this, &control, showing, show](const QModelIndex& current) {
                if (*showing || !current.isValid())
                    return;
                const int line = current.row();
                *showing = true; // with Shift the view selects only after this
                m_guard.Run([&] {
                    control.SetListIndex(line);
                    Q_EMIT control.Clicked();
                });
                *showing = false;
                if (control.ListIndex() != line)
                    show();
            });
    connect(view, &QListView::activated, &control,
            [this, &control] { m_guard.Run([&control] { Q_EMIT control.DoubleClicked(); }); });
    show();
    return true;
}

bool Binder::BindScroll(forms::ScrollBar& control, QWidget& widget)
{
    auto* slider = qobject_cast<QSlider*>(&widget);
    if (slider == nullptr)
        return false;
    slider->setRange(control.Min(), control.Max());
    const auto show = [&control, slider] { slider->setValue(control.Value()); };
    connect(&control, &forms::Control::Changed, slider, show);
    connect(slider, &QSlider::valueChanged, &control,
            [this, &control](int value) { m_guard.Run([&] { control.SetValue(value); }); });
    show();
    return true;
}

} // namespace vasclip::windows
