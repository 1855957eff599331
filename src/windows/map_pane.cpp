#include "windows/map_pane.h"

#include "map/map_port.h"
#include "windows/guard.h"
#include "windows/icons.h"
#include "windows/map_view.h"
#include "windows/picture_view.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr int kPanelWidth = 268;
constexpr int kListRows = 4;
constexpr int kLineGap = 5;

/// A line of the circle's list with its distance.
class DistanceLines : public QStyledItemDelegate
{
public:
    DistanceLines(map::MapPort& port, QObject* parent)
        : QStyledItemDelegate(parent)
        , m_port(port)
    {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (const QString distance = m_port.DistanceOfLine(index.row()); !distance.isEmpty())
            option->text = distance + u"  "_s + option->text;
    }

private:
    map::MapPort& m_port;
};

template <class Widget>
Widget* Make(const QString& name, QWidget* parent)
{
    auto* widget = new Widget(parent);
    widget->setObjectName(name);
    return widget;
}

/// Low, so that what is sent to the report is in sight on a small screen too.
QPushButton* MakeDense(const QString& name, QWidget* parent)
{
    auto* button = Make<QPushButton>(name, parent);
    button->setProperty("dense", true);
    return button;
}

void AddPair(QVBoxLayout& lines, const QString& left, const QString& right, QWidget* parent)
{
    auto* line = new QHBoxLayout;
    line->setSpacing(6);
    line->addWidget(MakeDense(left, parent), 1);
    line->addWidget(MakeDense(right, parent), 1);
    lines.addLayout(line);
}

} // namespace

MapPane::MapPane(map::MapPort& port, EventGuard& guard, QWidget* parent)
    : QFrame(parent)
    , m_port(port)
    , m_guard(guard)
{
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(12);
    m_view = new MapView(port, guard, this);
    m_view->setObjectName(u"mapview"_s);
    auto* drawn = new QVBoxLayout;
    drawn->setSpacing(4);
    drawn->addWidget(m_view, 1);
    auto* note = Make<QLabel>(u"lblMapNote"_s, this);
    note->setWordWrap(true);
    note->setProperty("collapses", true);
    drawn->addWidget(note);
    columns->addLayout(drawn, 1);
    columns->addWidget(MakePanel());
}

QVBoxLayout* MapPane::AddGroup(QVBoxLayout& rows, const QString& title)
{
    auto* group = new QGroupBox(title, this);
    auto* lines = new QVBoxLayout(group);
    lines->setSpacing(kLineGap);
    lines->setContentsMargins(8, 4, 8, 8);
    rows.addWidget(group);
    return lines;
}

QWidget* MapPane::MakeSpinner(const QString& name)
{
    auto* spinner = Make<QWidget>(name, this);
    auto* line = new QHBoxLayout(spinner);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2);
    for (const int step : {-1, 1}) {
        auto* button = new QToolButton(spinner);
        button->setText(step > 0 ? u"+"_s : u"\u2212"_s);
        button->setAccessibleName(step > 0 ? tr("+ more") : tr("\u2212 less"));
        button->setAutoRepeat(true);
        connect(button, &QToolButton::clicked, this,
                [this, name, step] { m_guard.Run([&] { m_port.Step(name, step); }); });
        line->addWidget(button);
    }
    return spinner;
}

void MapPane::AddSized(QVBoxLayout& rows, const QString& words, const QString& box, const QString& spinner)
{
    auto* line = new QHBoxLayout;
    auto* caption = new QLabel(words, this);
    auto* edit = Make<QLineEdit>(box, this);
    edit->setMaximumWidth(64);
    edit->setAlignment(Qt::AlignRight);
    caption->setBuddy(edit);
    line->addWidget(caption, 1);
    line->addWidget(edit);
    line->addWidget(MakeSpinner(spinner));
    rows.addLayout(line);
}

QWidget* MapPane::MakePanel()
{
    auto* area = new QScrollArea(this);
    area->setObjectName(u"mapPanel"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    auto* panel = new QWidget(area);
    auto* rows = new QVBoxLayout(panel);
    rows->setContentsMargins(0, 0, 4, 0);
    rows->setSpacing(6);

    const auto pair = [this](QVBoxLayout& lines, const QString& left, const QString& right) {
        AddPair(lines, left, right, this);
    };

    rows->addWidget(MakeDetails());
    auto* sureness = Make<QLabel>(u"lblSureness"_s, this);
    sureness->setProperty("role", u"quiet"_s);
    sureness->setWordWrap(true);
    sureness->setProperty("collapses", true);
    rows->addWidget(sureness);

    QVBoxLayout* place = AddGroup(*rows, tr("Place"));
    pair(*place, u"cmdSubjectOnly"_s, u"cmdSubjectAnd"_s);
    place->addWidget(MakeDense(u"cmdGeoComp"_s, this));
    place->addWidget(Make<QCheckBox>(u"ckbFreeze"_s, this));
    place->addWidget(Make<QCheckBox>(u"ckbArrange"_s, this));
    pair(*place, u"cmdLabelPosition"_s, u"cmdmanual"_s);
    findChild<QPushButton*>(u"cmdLabelPosition"_s)->setProperty("noAccessKey", true); // Alt+F opens the File menu

    QVBoxLayout* arrows = AddGroup(*rows, tr("Arrows and pushpins"));
    pair(*arrows, u"cmdRotate"_s, u"cmdArrange"_s);
    pair(*arrows, u"cmdAnchorOne"_s, u"cmdAnchor"_s);
    pair(*arrows, u"cmdClearPoint"_s, u"cmdClear"_s);
    auto* anchorAll = findChild<QPushButton*>(u"cmdAnchor"_s);
    anchorAll->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* off = new QAction(tr("Take all anchors off"), anchorAll);
    connect(off, &QAction::triggered, this, [this] { m_guard.Run([this] { m_port.AnchorAllOff(); }); });
    anchorAll->addAction(off);

    QVBoxLayout* send = AddGroup(*rows, u"Send Map To:"_s);
    auto* where = new QGridLayout;
    where->setSpacing(kLineGap);
    for (int i = 0; i < 3; ++i)
        where->addWidget(Make<QRadioButton>(u"optMapAddendum_%1"_s.arg(i), this), i / 2, i % 2);
    send->addLayout(where);
    pair(*send, u"cmdPreviewMap"_s, u"cmdCopyMap"_s);
    send->addWidget(MakeDense(u"cmdProx"_s, this));

    QVBoxLayout* circle = AddGroup(*rows, u"Draw Circle"_s);
    circle->addWidget(Make<QCheckBox>(u"ckbRadius"_s, this));
    AddSized(*circle, tr("Miles"), u"txtradius"_s, u"spnradius"_s);
    auto* inside = Make<QListWidget>(u"lstaddresses"_s, this);
    inside->setAccessibleName(tr("Comps inside the circle"));
    inside->setFixedHeight(kListRows * (inside->fontMetrics().height() + 6) + 2 * inside->frameWidth());
    inside->setItemDelegate(new DistanceLines(m_port, inside));
    circle->addWidget(inside);
    auto* outside = Make<QLabel>(u"lblJustOutside"_s, this);
    outside->setProperty("role", u"quiet"_s);
    outside->setWordWrap(true);
    circle->addWidget(outside);

    QVBoxLayout* drawn = AddGroup(*rows, u"Map Configuration"_s);
    pair(*drawn, u"cmdin"_s, u"cmdout"_s);
    findChild<QPushButton*>(u"cmdout"_s)->setProperty("noAccessKey", true); // Alt+O sends to a slot
    pair(*drawn, u"cmdDetail"_s, u"cmdRefreshMap"_s);
    drawn->addWidget(Make<QCheckBox>(u"ckbLabelStreets"_s, this));

    QVBoxLayout* fonts = AddGroup(*rows, u"Map Font Sizes"_s);
    AddSized(*fonts, tr("Street names"), u"txtfontsize"_s, u"spnFontSize"_s);
    AddSized(*fonts, tr("Street width"), u"txtwidth"_s, u"spnWidth"_s);
    rows->addStretch(1);

    area->setWidget(panel);
    area->setFixedWidth(kPanelWidth + area->verticalScrollBar()->sizeHint().width());
    return area;
}

QWidget* MapPane::MakeDetails()
{
    auto* details = new QWidget(this);
    auto* columns = new QHBoxLayout(details);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(8);
    auto* photo = Make<PictureView>(u"geaMapPhoto"_s, details);
    photo->SetEmptyIcon(u"photo"_s);
    photo->SetEmptyText(tr("No photo"));
    photo->setAccessibleName(tr("Front view of the selected point"));
    photo->setFixedSize(112, 84);
    columns->addWidget(photo);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    auto* about = new QHBoxLayout;
    auto* proximity = Make<QLabel>(u"lblProximity"_s, details);
    proximity->setProperty("role", u"quiet"_s);
    proximity->setWordWrap(true);
    about->addWidget(proximity, 1);
    auto* anchor = Make<QToolButton>(u"imaanchor"_s, details);
    anchor->setIcon(ThemedIcon(u"pin"_s));
    anchor->setAutoRaise(true);
    about->addWidget(anchor);
    words->addLayout(about);
    for (const auto& [name, says] : {std::pair{u"txtGLA"_s, tr("Living area")}, std::pair{u"txtSellingPr"_s, tr("Price")},
                                     std::pair{u"txtSaleDate"_s, tr("Date")}}) {
        auto* box = Make<QLineEdit>(name, details);
        box->setReadOnly(true);
        box->setStyleSheet(u"border: none; background: transparent; padding: 0"_s);
        box->setAccessibleName(says);
        box->setFocusPolicy(Qt::ClickFocus);
        words->addWidget(box);
    }
    words->addStretch(1);
    columns->addLayout(words, 1);
    return details;
}

} // namespace vasclip::windows
