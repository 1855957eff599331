#include "databook/entry_screen.h"
#include "store/fields.h"
#include "store/schema.h"
#include "windows/fkey_bar.h"
#include "windows/icons.h"
#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

// One window for all entry screens, made from the same description as the screen itself.

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kShortField = 20; ///< characters; two short fields share a line
constexpr int kShortWidth = 76;
constexpr int kDateWidth = 96;
constexpr int kLongWidth = 150; ///< three columns fit a screen of 1280
constexpr int kNarrowest = 1120; ///< the phrases of the keys can be read
constexpr int kWidest = 1300;    ///< boxes become no better to read beyond

QLabel* Words(const QString& text, const char* role, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setProperty("role", QString::fromLatin1(role));
    return label;
}

QPushButton* Button(const QString& name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->setMinimumWidth(88);
    return button;
}

/// Lays the boxes of one form out, group by group in the order of the paper; the widgets are made in that
/// order too, which is the order of the Tab key.
class Builder
{
public:
    Builder(QWidget* parent, const databook::EntryScreen& screen)
        : m_parent(parent)
        , m_screen(screen)
    {}

    QFrame* Group(const databook::EntryGroup& group)
    {
        auto* card = new QFrame(m_parent);
        card->setProperty("card", true);
        auto* rows = new QVBoxLayout(card);
        rows->setContentsMargins(10, 8, 10, 12);
        rows->setSpacing(8);
        auto* head = new QHBoxLayout;
        head->addWidget(Words(QString(group.title), "title", card));
        head->addStretch(1);
        const bool prices = Holds(group, fields::SELLINGPR) && m_screen.lblPriceGla.Visible();
        if (prices) {
            head->addWidget(Words(QDialog::tr("Price/GLA"), "quiet", card));
            auto* perArea = new QLabel(card);
            perArea->setObjectName(u"lblPriceGla"_s);
            perArea->setProperty("role", u"title"_s);
            head->addWidget(perArea);
        }
        rows->addLayout(head);
        auto* grid = new QGridLayout;
        grid->setHorizontalSpacing(8);
        grid->setVerticalSpacing(4);
        rows->addLayout(grid);
        if (group.heads.empty())
            Lines(group, *grid, card);
        else
            Table(group, *grid, card);
        return card;
    }

private:
    static bool Holds(const databook::EntryGroup& group, QLatin1StringView field)
    {
        for (const databook::EntryField& row : group.fields)
            if (row.field == field)
                return true;
        return false;
    }

    static bool IsShort(const databook::EntryField& row)
    {
        const store::CompsColumn* column = store::FindCompsColumn(QString(row.field));
        return row.kind != databook::EntryKind::Note && column != nullptr && column->size <= kShortField;
    }

    void Lines(const databook::EntryGroup& group, QGridLayout& grid, QWidget* card)
    {
        int line = 0;
        for (std::size_t i = 0; i < group.fields.size(); ++i, ++line) {
            const bool pair =
                i + 1 < group.fields.size() && IsShort(group.fields[i]) && IsShort(group.fields[i + 1]);
            Cell(group, i, grid, line, 0, pair ? 1 : 3, card);
            const std::size_t first = i;
            if (pair)
                Cell(group, ++i, grid, line, 2, 1, card);
            for (std::size_t at = first; at <= i; ++at)
                if (databook::HasNote(group.fields[at]))
                    grid.addLayout(MakeNote(*card, QString(group.fields[at].control)), ++line, 0, 1, 4);
        }
        grid.setColumnStretch(1, 1);
        grid.setColumnStretch(3, 1);
    }

    void Cell(const databook::EntryGroup& group, std::size_t index, QGridLayout& grid, int line, int column,
              int span, QWidget* card)
    {
        const databook::EntryField& row = group.fields[index];
        const QString words = databook::EntryLabel(group, index);
        QLabel* label = Words(words, "quiet", card);
        grid.addWidget(label, line, column,
                       row.kind == databook::EntryKind::Note ? Qt::AlignTop : Qt::AlignVCenter);
        QWidget* box = Box(row, words, span == 1, card);
        label->setBuddy(box);
        QWidget* beside = Beside(row, card);
        if (beside == nullptr) {
            grid.addWidget(box, line, column + 1, 1, span);
            return;
        }
        auto* both = new QHBoxLayout;
        both->setSpacing(4);
        both->addWidget(box, 1);
        both->addWidget(beside);
        grid.addLayout(both, line, column + 1, 1, span);
    }

    void Table(const databook::EntryGroup& group, QGridLayout& grid, QWidget* card)
    {
        const int across = static_cast<int>(group.heads.size());
        for (int i = 0; i < across; ++i) {
            grid.addWidget(Words(QString(group.heads[static_cast<std::size_t>(i)]), "quiet", card), 0, i + 1);
            grid.setColumnStretch(i + 1, 1);
        }
        for (std::size_t i = 0; i < group.fields.size(); ++i) {
            const int at = static_cast<int>(i);
            const int line = at / across + 1;
            if (at % across == 0)
                grid.addWidget(Words(u"%1 %2"_s.arg(group.lineName).arg(line), "quiet", card), line, 0);
            QWidget* box = Box(group.fields[i], databook::EntryLabel(group, i), true, card);
            box->setMinimumWidth(48);
            grid.addWidget(box, line, at % across + 1);
        }
    }

    QWidget* Box(const databook::EntryField& row, const QString& words, bool narrow, QWidget* card)
    {
        QWidget* box = nullptr;
        if (row.kind == databook::EntryKind::Note) {
            auto* note = new QPlainTextEdit(card);
            note->setTabChangesFocus(true);
            note->setMinimumHeight(96);
            box = note;
        } else {
            box = new QLineEdit(card);
        }
        box->setObjectName(QString(row.control));
        box->setAccessibleName(words);
        const bool date = row.kind == databook::EntryKind::Date || row.field == fields::CONTRKDATE;
        box->setMinimumWidth(date ? kDateWidth : narrow ? kShortWidth : kLongWidth);
        return box;
    }

    /// What stands beside a box: the calendar icon of a date, the list of cities.
    QWidget* Beside(const databook::EntryField& row, QWidget* card)
    {
        if (!row.calendar.isEmpty()) {
            auto* icon = new QToolButton(card);
            icon->setObjectName(QString(row.calendar));
            icon->setIcon(ThemedIcon(u"calendar"_s));
            icon->setToolTip(QDialog::tr("Choose from the calendar (Alt+Down)"));
            icon->setAccessibleName(QDialog::tr("Calendar of the %1").arg(row.calendarTitle));
            icon->setFocusPolicy(Qt::NoFocus);
            return icon;
        }
        if (row.field != fields::CITY || !m_screen.cboCity)
            return nullptr;
        auto* cities = new QComboBox(card);
        cities->setObjectName(u"cboCity"_s);
        cities->setFixedWidth(36);
        cities->view()->setMinimumWidth(280);
        cities->setToolTip(QDialog::tr("Choose from the city list: fills city, state, ZIP and county"));
        cities->setAccessibleName(QDialog::tr("City list"));
        cities->setFocusPolicy(Qt::ClickFocus);
        return cities;
    }

    QWidget* m_parent;
    const databook::EntryScreen& m_screen;
};

} // namespace

void Layout_EntryScreen(QDialog& window, forms::Screen& screen)
{
    const auto& entry = dynamic_cast<const databook::EntryScreen&>(screen);
    const databook::EntryForm& form = entry.Form();
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 12, 16, 12);
    rows->setSpacing(12);

    auto* head = new QHBoxLayout;
    head->setSpacing(12);
    auto* key = new QLabel(&window);
    key->setObjectName(u"lblCentralKey"_s);
    key->setProperty("role", u"heading"_s);
    head->addWidget(key);
    head->addWidget(Words(QString(form.caption), "quiet", &window), 0, Qt::AlignBottom);
    head->addStretch(1);
    rows->addLayout(head);

    auto* scroller = new QScrollArea(&window);
    scroller->setWidgetResizable(true);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setFocusPolicy(Qt::NoFocus);
    auto* desk = new QWidget(scroller);
    auto* columns = new QHBoxLayout(desk);
    columns->setContentsMargins(0, 0, 4, 0);
    columns->setSpacing(8);
    QList<QVBoxLayout*> stacks;
    Builder builder(desk, entry);
    for (const databook::EntryGroup& group : form.groups) {
        while (stacks.size() <= group.column) {
            stacks.append(new QVBoxLayout);
            stacks.back()->setSpacing(8);
            columns->addLayout(stacks.back(), 1);
        }
        stacks.at(group.column)->addWidget(builder.Group(group));
    }
    for (QVBoxLayout* stack : std::as_const(stacks))
        stack->addStretch(1);
    scroller->setWidget(desk);
    rows->addWidget(scroller, 1);

    if (screen.Companion() != nullptr)
        rows->addWidget(MakeFKeyBar(&window));

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = new QLabel(&window);
    message->setObjectName(u"lblmsg"_s);
    foot->addWidget(message, 1);
    foot->addWidget(Button(form.secondPage ? u"cmdPage1"_s : u"cmdPage2"_s, &window));
    foot->addSpacing(16);
    foot->addWidget(Button(u"cmdSave"_s, &window));
    auto* leave = Button(u"cmdExit"_s, &window);
    leave->setDefault(true);
    foot->addWidget(leave);
    foot->addWidget(Button(u"cmdCancel"_s, &window));
    rows->addLayout(foot);
    if (!entry.lblPriceGla.Visible()) { // the control stays, the form has no price per area
        auto* unseen = new QLabel(&window);
        unseen->setObjectName(u"lblPriceGla"_s);
        unseen->hide();
    }

    PolishAll(window);
    const QMargins margins = rows->contentsMargins();
    const int around =
        margins.left() + margins.right() + scroller->verticalScrollBar()->sizeHint().width();
    const QSize wanted(std::clamp(desk->sizeHint().width() + around, kNarrowest,
                                  std::max(kWidest, desk->minimumSizeHint().width() + around)),
                       rows->sizeHint().height() - scroller->sizeHint().height() +
                           desk->sizeHint().height() + 4);
    window.resize(wanted.boundedTo(RoomFor(window)));
    if (!entry.Boxes().empty())
        if (auto* first = desk->findChild<QWidget*>(entry.Boxes().front()->box.ObjectName()))
            first->setFocus();
}

} // namespace vasclip::windows
