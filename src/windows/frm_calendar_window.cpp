#include "windows/screen_layouts.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QPushButton* Button(const QString& name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

void Layout_frm_Calendar(QDialog& window, forms::Screen&)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);

    auto* month = new QCalendarWidget(&window);
    month->setObjectName(u"calCalendar"_s);
    month->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    month->setFirstDayOfWeek(Qt::Sunday);
    month->setMinimumSize(320, 240);
    month->setAccessibleName(QDialog::tr("Days of the month"));
    const QTextCharFormat plain; // weekends in the theme's own colour
    month->setWeekdayTextFormat(Qt::Saturday, plain);
    month->setWeekdayTextFormat(Qt::Sunday, plain);
    // The arrows of the style have colours of their own.
    const std::pair<QString, QString> arrows[] = {{u"qt_calendar_prevmonth"_s, u"\u2039"_s},
                                                  {u"qt_calendar_nextmonth"_s, u"\u203a"_s}};
    for (const auto& [name, arrow] : arrows)
        if (auto* button = month->findChild<QToolButton*>(name)) {
            button->setIcon({});
            button->setText(arrow);
            button->setStyleSheet(u"QToolButton { font-size: 14pt; padding: 0 6px; }"_s);
        }
    rows->addWidget(month, 1);

    auto* steps = new QGridLayout;
    steps->setSpacing(8);
    steps->addWidget(Button(u"cmdYesterDay"_s, &window), 0, 0);
    steps->addWidget(Button(u"cmdToday"_s, &window), 0, 1);
    steps->addWidget(Button(u"cmdTomorrow"_s, &window), 0, 2);
    const QString aside[2][2] = {{u"cmdLastWeek"_s, u"cmdNextWeek"_s},
                                 {u"cmdLastMonth"_s, u"cmdNextMonth"_s}};
    for (int row = 0; row < 2; ++row) {
        steps->addWidget(Button(aside[row][0], &window), row + 1, 0);
        steps->addWidget(Button(aside[row][1], &window), row + 1, 2);
    }
    for (int column = 0; column < 3; ++column)
        steps->setColumnStretch(column, 1);
    rows->addLayout(steps);
    rows->addWidget(Button(u"cmdPending"_s, &window));

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* quick = new QCheckBox(&window);
    quick->setObjectName(u"ckbQuickExit"_s);
    quick->setToolTip(QDialog::tr("A click on a day takes it and closes the calendar"));
    foot->addWidget(quick);
    foot->addStretch(1);
    auto* ok = Button(u"cmdOk"_s, &window);
    ok->setDefault(true);
    foot->addWidget(ok);
    foot->addWidget(Button(u"cmdCancel"_s, &window));
    rows->addLayout(foot);
    month->setFocus();
}

} // namespace vasclip::windows
