#include "windows/picture_view.h"

#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>

namespace vasclip::windows {
namespace {

/// A sheet on a light ground, as the marks of the program directory are drawn.
QImage Mark(int side)
{
    QImage mark(side, side, QImage::Format_RGB32);
    mark.fill(QColor(246, 247, 249));
    QPainter painter(&mark);
    painter.fillRect(side / 4, side / 8, side / 2, side * 3 / 4, QColor(70, 92, 128));
    painter.fillRect(side / 4 + 2, side / 8 + 2, side / 2 - 4, side * 3 / 4 - 4, QColor(246, 247, 249));
    return mark;
}

QImage Shown(PictureView& view)
{
    view.resize(60, 60);
    return view.grab().toImage();
}

TEST(PictureViews, AMarkStandsOnTheGroundOfItsBoxInEveryTheme)
{
    Theme theme(*qApp, nullptr);
    for (const auto choice : {ThemeChoice::Light, ThemeChoice::Dark}) {
        theme.Choose(choice);
        PictureView view;
        view.SetLamp(true);
        view.SetPicture(Mark(48));
        const QImage shown = Shown(view);
        EXPECT_EQ(shown.pixelColor(10, 30).rgb(), Theme::Colours().well.rgb());
        EXPECT_EQ(shown.pixelColor(49, 12).rgb(), Theme::Colours().well.rgb());
        EXPECT_EQ(shown.pixelColor(30, 30).rgb(), QColor(246, 247, 249).rgb()) << "the sheet itself stays light";
    }
    theme.Choose(ThemeChoice::Light);
}

TEST(PictureViews, APhotoKeepsItsEdges)
{
    for (const bool lamp : {false, true}) {
        PictureView view;
        view.SetLamp(lamp);
        view.SetPicture(Mark(240));
        EXPECT_EQ(Shown(view).pixelColor(10, 30).rgb(), QColor(246, 247, 249).rgb());
    }
}

} // namespace
} // namespace vasclip::windows
