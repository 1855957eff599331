#include "windows/layout_parts.h"
#include "windows/picture_view.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QToolButton>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Shows a row of a name and its time in two columns. What stands on the bar between them is for the rules.
class NameAndTime : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale&) const override
    {
        return value.toString().section(u'|', 0, 0);
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QString time = TimeOf(index);
        const int width = option.fontMetrics.horizontalAdvance(time) + 2 * kGap;
        QStyledItemDelegate::paint(painter, option, index);
        QStyleOptionViewItem cell(option);
        initStyleOption(&cell, index);
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        QRect rest = option.rect;
        rest.setLeft(rest.right() - width);
        painter->save();
        if (option.fontMetrics.horizontalAdvance(cell.text) + width + kGap > option.rect.width())
            painter->fillRect(rest, selected ? option.palette.highlight() : option.palette.base());
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::PlaceholderText));
        painter->drawText(rest.adjusted(0, 0, -kGap, 0), Qt::AlignRight | Qt::AlignVCenter, time);
        painter->restore();
    }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QSize name = QStyledItemDelegate::sizeHint(option, index);
        return {name.width() + option.fontMetrics.horizontalAdvance(TimeOf(index)) + 3 * kGap, name.height()};
    }

private:
    static constexpr int kGap = 8;
    static QString TimeOf(const QModelIndex& index)
    {
        return index.data().toString().section(u'|', 1);
    }
};

/// The photos with what selects them.
QLayout* PhotoColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* list = MakeList(window, u"lstfiles"_s, QDialog::tr("Photos in the trash directory"));
    list->setMinimumWidth(300);
    list->setItemDelegate(new NameAndTime(list));
    auto* hidden = MakeList(window, u"filFilename"_s, {});
    hidden->hide();
    auto* head = new QHBoxLayout;
    head->addWidget(MakeWords(window, QDialog::tr("&Photos"), "title", list), 1);
    head->addWidget(MakeLabel(window, u"lblCount"_s, "quiet"));
    column->addLayout(head);
    column->addWidget(list, 1);

    column->addLayout(MakeButtonRow(window, {u"cmdSelectAll"_s, u"cmdClearAll"_s}));

    auto* byDate = new QHBoxLayout;
    byDate->setSpacing(8);
    auto* date = new QLineEdit(&window);
    date->setObjectName(u"txtDeleteDate"_s);
    date->setPlaceholderText(QDialog::tr("mm/dd/yyyy"));
    date->setMinimumWidth(110);
    auto* caption = MakeLabel(window, u"lblDeleteDate"_s, "quiet");
    caption->setBuddy(date);
    auto* calendar = MakeIconButton(window, u"imaDeleteCal"_s, u"calendar"_s);
    calendar->setFocusPolicy(Qt::StrongFocus); // nothing else opens the calendar
    calendar->setAccessibleName(QDialog::tr("Calendar"));
    byDate->addWidget(caption);
    byDate->addWidget(date, 1);
    byDate->addWidget(calendar);
    byDate->addWidget(MakeButton(window, u"cmdSelectDate"_s));
    column->addLayout(byDate);
    return column;
}

} // namespace

void Layout_frm_Trash(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(MakeFolders(window, u"DrvCapture"_s, u"dirCapture"_s), 2);
    panes->addLayout(PhotoColumn(window), 4);
    panes->addWidget(MakePicture(window, u"geatrashcan"_s, QDialog::tr("Select a photo to see it")), 4);
    rows->addLayout(panes, 1);

    auto* foot = MakeFoot(window);
    foot->addWidget(MakeGauge(window, u"gauTrash"_s));
    foot->addWidget(MakeButton(window, u"cmdRestore"_s));
    foot->addWidget(MakeButton(window, u"cmdDelete"_s));
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(1040, 560);
}

} // namespace vasclip::windows
