#include "windows/icons.h"
#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWide = 4; ///< columns of a card: label, box, label of the range, range

QFrame* Card(const QString& heading, QWidget* parent, QGridLayout*& fields)
{
    auto* card = new QFrame(parent);
    card->setProperty("card", true);
    auto* rows = new QVBoxLayout(card);
    rows->setContentsMargins(12, 8, 12, 12);
    rows->setSpacing(8);
    auto* title = new QLabel(heading, card);
    title->setProperty("role", u"title"_s);
    rows->addWidget(title);
    fields = new QGridLayout;
    fields->setHorizontalSpacing(8);
    fields->setVerticalSpacing(8);
    fields->setColumnStretch(1, 2);
    fields->setColumnStretch(3, 1);
    rows->addLayout(fields);
    rows->addStretch(1);
    return card;
}

QLabel* LabelFor(QWidget* box, const QString& name, QGridLayout* fields, int row, int column = 0)
{
    auto* label = new QLabel(box->parentWidget());
    label->setObjectName(name);
    label->setBuddy(box);
    label->setToolTip(QDialog::tr("Click to empty the field"));
    fields->addWidget(label, row, column);
    return label;
}

QString LabelName(const QString& box)
{
    return u"lbl"_s + box.mid(3);
}

/// A line with a label and a box over the rest of it.
template <class Box>
Box* Field(const QString& name, QGridLayout* fields, QWidget* parent, int span = kWide - 1)
{
    const int row = fields->rowCount();
    auto* box = new Box(parent);
    box->setObjectName(name);
    LabelFor(box, LabelName(name), fields, row);
    fields->addWidget(box, row, 1, 1, span);
    return box;
}

QComboBox* Editable(QComboBox* combo)
{
    combo->setEditable(true);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // asks for no line
    combo->setMinimumContentsLength(8);
    return combo;
}

/// A list that fills fields; the words on it say which.
QComboBox* Picker(const QString& name, const QString& words, QGridLayout* fields, QWidget* parent)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setPlaceholderText(words);
    combo->setAccessibleName(words);
    fields->addWidget(combo, fields->rowCount(), 1, 1, kWide - 1);
    return combo;
}

void Range(const QString& value, const QString& range, QGridLayout* fields, QWidget* parent)
{
    auto* box = Field<QLineEdit>(value, fields, parent, 1);
    auto* around = new QLineEdit(parent);
    around->setObjectName(range);
    const int row = fields->rowCount() - 1;
    box->setMinimumWidth(90);
    around->setMinimumWidth(80);
    fields->addWidget(around, row, 3);
    QLabel* label = LabelFor(around, LabelName(range), fields, row, 2);
    label->setProperty("role", u"quiet"_s);
    // The boxes come and go; the values beside them stay where they are.
    for (QWidget* widget : {static_cast<QWidget*>(around), static_cast<QWidget*>(label)}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
    }
}

void Date(const QString& value, const QString& range, const QString& calendar, const QString& words,
          QGridLayout* fields, QWidget* parent)
{
    auto* box = Field<QLineEdit>(value, fields, parent, 1);
    box->setPlaceholderText(QDialog::tr("m/d/yyyy"));
    const int row = fields->rowCount() - 1;
    auto* pick = new QToolButton(parent);
    pick->setObjectName(calendar);
    pick->setIcon(ThemedIcon(u"calendar"_s));
    pick->setAccessibleName(words);
    fields->addWidget(pick, row, 2, Qt::AlignLeft);
    auto* combo = new QComboBox(parent);
    combo->setObjectName(range);
    combo->setPlaceholderText(QDialog::tr("On or After"));
    combo->setAccessibleName(words);
    fields->addWidget(combo, row, 3);
    fields->addLayout(MakeNote(*parent, value), row + 1, 0, 1, kWide);
}

} // namespace

void Layout_frm_SearchSQL(QDialog& window, forms::Screen&)
{
    auto* page = new QVBoxLayout(&window);
    page->setContentsMargins(16, 16, 16, 16);
    page->setSpacing(12);
    auto* scroll = new QScrollArea(&window); // at 200 % on a small screen
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* ground = new QWidget(scroll);
    auto* columns = new QHBoxLayout(ground);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(12);
    scroll->setWidget(ground);
    page->addWidget(scroll, 1);

    QGridLayout* fields = nullptr;
    QFrame* place = Card(QDialog::tr("Where it stands"), ground, fields);
    for (const QString& name : {u"cboSearchKey"_s, u"cboAddr"_s})
        Editable(Field<QComboBox>(name, fields, place));
    Picker(u"cboCity"_s, QDialog::tr("Choose from the city list"), fields, place);
    for (const QString& name : {u"txtCity"_s, u"txtState"_s, u"txtZip"_s, u"txtCounty"_s, u"txtNeighbor"_s,
                                u"txtTaxMap"_s, u"txtCensus"_s})
        Field<QLineEdit>(name, fields, place);
    columns->addWidget(place, 1);

    QFrame* building = Card(QDialog::tr("What it is"), ground, fields);
    Picker(u"cboapprslType"_s, QDialog::tr("Choose a comp type"), fields, building);
    for (const QString& name : {u"txtType"_s, u"txtBedRoom"_s, u"txtBath"_s, u"txtStories"_s, u"txtCTS"_s,
                                u"txtPorchPati2"_s, u"txtdesignappl"_s, u"txtNotes"_s})
        Field<QLineEdit>(name, fields, building);
    columns->addWidget(building, 1);

    auto* last = new QVBoxLayout;
    last->setSpacing(12);
    QFrame* numbers = Card(QDialog::tr("Size, price and date"), ground, fields);
    Range(u"txtSQFt"_s, u"txtSQftRange"_s, fields, numbers);
    Range(u"txtPrice"_s, u"txtPriceRange"_s, fields, numbers);
    Range(u"txtPriceGLA"_s, u"txtPriceGLARange"_s, fields, numbers);
    Range(u"txtage"_s, u"txtAgeRange"_s, fields, numbers);
    Range(u"txtLandSize"_s, u"txtLandSizeRange"_s, fields, numbers);
    Date(u"txtSaleDate"_s, u"cboSaleRange"_s, u"imaSaleCal"_s, QDialog::tr("Sale date"), fields, numbers);
    Date(u"txtLoadDate"_s, u"cboLoadRange"_s, u"imaLoadCal"_s, QDialog::tr("Load date"), fields, numbers);
    last->addWidget(numbers, 1); // has room for the words about its dates: what stands below keeps its place

    QFrame* order = Card(QDialog::tr("Order"), ground, fields);
    fields->setColumnStretch(0, 1);
    fields->setColumnStretch(1, 1);
    fields->setColumnStretch(3, 0);
    for (int i = 0; i < 7; ++i) {
        auto* option = new QRadioButton(order);
        option->setObjectName(u"optSort_%1"_s.arg(i));
        fields->addWidget(option, i % 4, i / 4);
    }
    auto* pending = new QCheckBox(order);
    pending->setObjectName(u"ckbIgnorePending"_s);
    fields->addWidget(pending, 4, 0, 1, 2);
    last->addWidget(order);
    columns->addLayout(last, 1);

    auto* statement = new QLabel(&window);
    statement->setObjectName(u"lblSQL"_s);
    statement->setProperty("role", u"quiet"_s);
    statement->setProperty("collapses", true);
    statement->setWordWrap(true);
    statement->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    statement->setFocusPolicy(Qt::ClickFocus);
    statement->setAccessibleName(QDialog::tr("Statement of the search"));
    page->addWidget(statement);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = new QLabel(&window);
    message->setObjectName(u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    for (const QString& name : {u"cmdSearch"_s, u"cmdClear"_s, u"cmdExit"_s}) {
        auto* button = new QPushButton(&window);
        button->setObjectName(name);
        button->setAutoDefault(false);
        button->setDefault(name == u"cmdSearch"_s);
        foot->addWidget(button);
    }
    page->addLayout(foot);
    window.resize(1180, 690);
    ground->setFocusProxy(ground->findChild<QWidget*>(u"cboSearchKey"_s));
    ground->findChild<QWidget*>(u"cboSearchKey"_s)->setFocus();
}

} // namespace vasclip::windows
