#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <cmath>

// What stands out from what, in both themes: words 4.5, edges and marks 3, counted as WCAG does.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr double kWords = 4.5;
constexpr double kEdges = 3;

double Luminance(const QColor& colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other)
{
    const double a = Luminance(one) + 0.05;
    const double b = Luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

TEST(Contrast, IsCountedAsTheRuleHasIt)
{
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(Contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
    EXPECT_NEAR(Contrast(Qt::white, Qt::white), 1, 0.01);
}

TEST(Contrast, WordsAndEdgesStandOutFromTheirGrounds)
{
    for (const bool dark : {false, true}) {
        const ThemeColours& c = Theme::ColoursOf(dark);
        struct Row
        {
            const char* what;
            QColor front;
            QList<QColor> grounds;
            double least;
        };
        const Row rows[] = {
            {"text", c.text, {c.window, c.surface, c.well, c.alternate, c.accentSoft, c.tint}, kWords},
            {"quiet words", c.muted, {c.window, c.surface, c.well, c.alternate, c.photoGround}, kWords},
            {"N/A", c.absent, {c.surface}, kWords},
            {"links and current tabs", c.accent, {c.window, c.surface, c.accentSoft}, kWords},
            {"words on the accent", c.accentText, {c.accent}, kWords},
            {"blue message", c.blue, {c.window, c.surface}, kWords},
            {"red message", c.red, {c.window, c.surface}, kWords},
            {"green message", c.green, {c.window, c.surface}, kWords},
            {"a selected row's words", c.selectionText, {c.selection}, kWords},
            {"a selected row", c.selection, {c.surface, c.alternate}, kEdges},
            {"the edge of a field", c.field, {c.window, c.surface, c.well}, kEdges},
            {"the mark of the focus", c.accent, {c.window, c.surface, c.well}, kEdges},
            {"icons", c.icon, {c.window, c.surface, c.accentSoft}, kEdges},
        };
        for (const Row& row : rows)
            for (const QColor& ground : row.grounds)
                EXPECT_GE(Contrast(row.front, ground), row.least)
                    << row.what << (dark ? ", dark: " : ", light: ") << row.front.name().toStdString() << " on "
                    << ground.name().toStdString();
    }
}

/// Of the pixels in a part of a picture, how far the one that stands out most does.
double Most(const QImage& picture, const QRect& part, const QColor& ground)
{
    double most = 1;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            most = std::max(most, Contrast(picture.pixelColor(x, y), ground));
    return most;
}

TEST(Contrast, FieldsRowsAndTabsAreDrawnSo)
{
    Theme theme(*qApp, nullptr);
    for (const ThemeChoice choice : {ThemeChoice::Light, ThemeChoice::Dark}) {
        theme.Choose(choice);
        const char* name = choice == ThemeChoice::Dark ? "dark" : "light";
        QDialog window;
        QVBoxLayout rows(&window);
        QList<QWidget*> fields{new QLineEdit, new QPlainTextEdit, new QComboBox, new QSpinBox, new QListWidget};
        for (QWidget* field : std::as_const(fields))
            rows.addWidget(field);
        auto* table = new QTableWidget(2, 1);
        table->setSelectionBehavior(QAbstractItemView::SelectRows);
        rows.addWidget(table);
        auto* tabs = new QTabBar;
        tabs->addTab(u"Comps 1-3"_s);
        tabs->addTab(u"N/A"_s);
        rows.addWidget(tabs);
        auto* elsewhere = new QLineEdit;
        rows.addWidget(elsewhere);
        for (const int row : {0, 1})
            table->setItem(row, 0, new QTableWidgetItem);
        table->selectRow(1);
        window.show();
        elsewhere->setFocus();
        QTest::qWait(20);
        const QImage picture = window.grab().toImage();
        const QColor around = picture.pixelColor(1, 1);
        for (const QWidget* field : std::as_const(fields)) {
            const QRect place = field->geometry();
            const QPoint middle = place.center();
            EXPECT_GE(Most(picture, {place.left(), middle.y(), 2, 1}, around), kEdges)
                << name << ": the left edge of a " << field->metaObject()->className();
        }
        const auto at = [&](int row) {
            return table->viewport()->mapTo(&window, table->visualItemRect(table->item(row, 0)).center());
        };
        EXPECT_GE(Contrast(picture.pixelColor(at(1)), picture.pixelColor(at(0))), kEdges) << name << ": a selected row";
        const QRect absent(tabs->mapTo(&window, tabs->tabRect(1).topLeft()), tabs->tabRect(1).size());
        EXPECT_GE(Most(picture, absent.adjusted(4, 4, -4, -4), around), kEdges) << name << ": N/A";
    }
    theme.Choose(ThemeChoice::System);
}

} // namespace
} // namespace vasclip::windows
