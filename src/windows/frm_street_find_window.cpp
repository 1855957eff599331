#include "forms/screen.h"
#include "windows/layout_parts.h"
#include "windows/picture_view.h"
#include "windows/screen_layouts.h"

#include <QButtonGroup>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kIconSide = 40;

QLineEdit* MakeBox(QDialog& window, const QString& name)
{
    auto* box = new QLineEdit(&window);
    box->setObjectName(name);
    return box;
}

/// One of several; those of a group exclude each other.
QRadioButton* MakeOption(QDialog& window, const QString& name, QButtonGroup& group)
{
    auto* option = windows::MakeOption(window, name);
    group.addButton(option);
    return option;
}

/// A bitmap and the option beside it.
void AddGraphic(QBoxLayout& row, QDialog& window, int index, QButtonGroup& group)
{
    auto* icon = MakePicture(window, u"imaicon_%1"_s.arg(index), {});
    icon->SetBare(true);
    icon->setFixedSize(kIconSide, kIconSide);
    icon->setFocusPolicy(Qt::NoFocus);
    row.addWidget(icon);
    row.addWidget(MakeOption(window, u"optwhichdot_%1"_s.arg(index), group));
}

QFrame* MakeRule(QDialog& window, const QString& name)
{
    auto* line = new QFrame(&window);
    line->setObjectName(name);
    line->setProperty("rule", true);
    line->setFixedHeight(1);
    return line;
}

} // namespace

void Layout_frm_StreetFind(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* modes = new QHBoxLayout;
    modes->setSpacing(16);
    auto* how = new QButtonGroup(&window);
    for (int i = 0; i < 2; ++i)
        modes->addWidget(MakeOption(window, u"optfind_%1"_s.arg(i), *how));
    modes->addStretch(1);
    rows->addLayout(modes);
    rows->addWidget(MakeRule(window, u"linStreets"_s));

    auto* left = new QGridLayout;
    left->setHorizontalSpacing(12);
    left->setVerticalSpacing(8);
    left->setColumnStretch(1, 1);
    const std::pair<QString, QString> fields[] = {{u"lbladdress"_s, u"txtStreet"_s},
                                                  {u"lblCity"_s, u"txtCity"_s},
                                                  {u"lblstate"_s, u"txtState"_s},
                                                  {u"lblzip"_s, u"txtZip"_s},
                                                  {u"lblcounty"_s, u"txtCounty"_s},
                                                  {u"lblMapLabel"_s, u"txtlabel"_s}};
    auto* byLabel = window.findChild<QRadioButton*>(u"optfind_1"_s);
    int row = 0;
    for (const auto& [label, box] : fields) {
        auto* caption = MakeLabel(window, label);
        auto* edit = MakeBox(window, box);
        caption->setBuddy(edit);
        left->addWidget(caption, row, 0);
        left->addWidget(edit, row++, 1);
        if (label == "lblMapLabel"_L1) // what is looked for stands out
            QObject::connect(byLabel, &QAbstractButton::toggled, caption, [caption](bool on) {
                QFont font = caption->font();
                font.setBold(on);
                caption->setFont(font);
            });
    }
    auto* graphics = new QHBoxLayout;
    graphics->setSpacing(8);
    auto* which = new QButtonGroup(&window);
    for (int i = 0; i < 2; ++i)
        AddGraphic(*graphics, window, i, *which);
    graphics->addStretch(1);
    left->addLayout(graphics, row, 1);
    left->setRowStretch(row + 1, 1);

    auto* right = new QGridLayout;
    right->setHorizontalSpacing(8);
    right->setVerticalSpacing(4);
    const auto list = [&](const QString& name, const QString& words, int at, int column) {
        auto* view = MakeList(window, name, words);
        if (at == 0) // the two below come and go with what is looked for
            right->addWidget(MakeWords(window, words, "quiet", view), at, column);
        right->addWidget(view, at + 1, column);
    };
    list(u"lstaddress"_s, QDialog::tr("Databook"), 0, 0);
    list(u"lstCity"_s, QDialog::tr("Cities"), 0, 1);
    list(u"lstLabel"_s, QDialog::tr("Of the report"), 2, 0);
    list(u"lstcandidates"_s, QDialog::tr("Places it may mean"), 2, 1);
    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(left, 2);
    panes->addLayout(right, 3);
    rows->addLayout(panes, 1);

    auto* foot = MakeFoot(window);
    auto* find = MakeButton(window, u"cmdFind"_s);
    find->setDefault(true);
    find->setProperty("noAccessKey", true); // Return presses it; Alt+F looks for an address
    find->setProperty("primary", true);
    foot->addWidget(find);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.resize(820, 520);
}

void Layout_frm_Manual(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* list = MakeList(window, u"lstLabel"_s, QDialog::tr("Subject and comps"));
    rows->addWidget(list, 1);
    auto* hidden = MakeList(window, u"lstAssoc"_s, {});
    hidden->hide();
    auto* chosen = new QHBoxLayout;
    chosen->setSpacing(8);
    auto* caption = MakeLabel(window, u"lblMapLabel"_s);
    auto* label = MakeBox(window, u"txtlabel"_s);
    caption->setBuddy(label);
    chosen->addWidget(caption);
    chosen->addWidget(label, 1);
    rows->addLayout(chosen);
    rows->addWidget(MakeRule(window, u"linManual"_s));

    rows->addWidget(MakeLabel(window, u"lblGraphic"_s, "quiet"));
    auto* graphics = new QHBoxLayout;
    graphics->setSpacing(8);
    auto* which = new QButtonGroup(&window);
    for (int i = 0; i < 3; ++i)
        AddGraphic(*graphics, window, i, *which);
    graphics->addStretch(1);
    rows->addLayout(graphics);
    auto* colours = new QHBoxLayout;
    colours->setSpacing(16);
    auto* colour = new QButtonGroup(&window);
    for (int i = 0; i < 3; ++i)
        colours->addWidget(MakeOption(window, u"optcolor_%1"_s.arg(i), *colour));
    colours->addStretch(1);
    rows->addLayout(colours);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addStretch(1);
    auto* ok = MakeButton(window, u"cmdOk"_s);
    ok->setDefault(true);
    ok->setProperty("primary", true);
    foot->addWidget(ok);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.resize(420, 520);
    list->setFocus();
}

} // namespace vasclip::windows
