#include "windows/fit_to_screen.h"

#include "windows/layout_parts.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vasclip::windows {
namespace {

/// Words that wrap, lists that would be tall but need not, and a row of buttons.
class Fit : public testing::Test
{
protected:
    QDialog window;
    QVBoxLayout* rows = new QVBoxLayout(&window);
    QLabel* words = new QLabel(u"The pictures that are not inside stay where they are, and the records name them. "_s.repeated(4));

    Fit()
    {
        words->setWordWrap(true);
        rows->addWidget(words);
        for (int i = 0; i < 4; ++i) {
            auto* list = new QListWidget;
            list->setMinimumHeight(60);
            rows->addWidget(list, 1);
        }
        rows->addWidget(new QPushButton(u"Exit"_s));
    }
    [[nodiscard]] QScrollArea* Scroller() const { return window.findChild<QScrollArea*>(u"fitScroller"_s); }
};

TEST_F(Fit, AWindowIsAsHighAsItAskedWhereItsListsMayBeLow)
{
    window.resize(500, 480);
    FitToScreen(window);
    EXPECT_EQ(Scroller(), nullptr);
    EXPECT_EQ(window.size(), QSize(500, 480));
    rows->activate();
    EXPECT_GE(words->height(), words->heightForWidth(words->width())) << "all of the words are seen";
}

TEST_F(Fit, WordsThatNeedMoreThanWasAskedMakeItHigher)
{
    words->setText(words->text().repeated(3));
    window.resize(500, 300);
    FitToScreen(window);
    EXPECT_GT(window.height(), 300);
    rows->activate();
    EXPECT_GE(words->height(), words->heightForWidth(words->width()));
}

TEST_F(Fit, WhatIsHigherThanTheScreenIsScrolledAboveItsLastRow)
{
    for (QListWidget* list : window.findChildren<QListWidget*>())
        list->setMinimumHeight(RoomFor(window).height() / 3);
    window.resize(500, 480);
    FitToScreen(window);
    ASSERT_NE(Scroller(), nullptr);
    EXPECT_LE(window.height(), RoomFor(window).height());
    EXPECT_FALSE(Scroller()->isAncestorOf(window.findChild<QPushButton*>()));
}

} // namespace
} // namespace vasclip::windows
