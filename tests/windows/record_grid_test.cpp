#include "windows/record_grid.h"

#include "support/scripted_ports.h"
#include "windows/binder.h"
#include "windows/columns_dialog.h"
#include "windows/guard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class Rows : public forms::GridSource
{
public:
    qint64 count = 1000;
    mutable qint64 asked = 0;
    qint64 badRow = -1;
    [[nodiscard]] qint64 RowCount() const override { return count; }
    [[nodiscard]] QStringList FieldNames() const override
    {
        return {u"CENTRALKEY"_s, u"SALEDATE"_s, u"SELLINGPR"_s};
    }
    [[nodiscard]] QStringList Row(qint64 row) const override
    {
        ++asked;
        if (row == badRow)
            throw RuntimeError(error::kCorruptDatabase, u"The page is damaged"_s);
        return {u"%1 OAK ST"_s.arg(row), u"3/7/2004"_s, QString::number(row * 1000)};
    }
};

class RecordGridTest : public testing::Test
{
protected:
    tests::ScriptedPrompter prompter;
    EventGuard guard{prompter, {}};
    forms::ControlSet controls;
    forms::Grid grid{controls, u"grddatabook"_s};
    Rows rows;
    QWidget root;
    Binder binder{controls, guard};
    RecordGrid* view = new RecordGrid(&root);

    void SetUp() override
    {
        view->setObjectName(u"grddatabook"_s);
        view->resize(600, 300);
        grid.SetColumns({{.field = u"SELLINGPR"_s, .caption = u"Price"_s, .width = 80, .rightAligned = true},
                         {.field = u"CENTRALKEY"_s, .caption = u"Key"_s, .width = 200},
                         {.field = u"SALEDATE"_s, .caption = u"Sold"_s, .numberFormat = u"Short Date"_s},
                         {.field = u"NOSUCH"_s, .caption = u"None"_s, .visible = false}});
        grid.Rebind(&rows);
        binder.Bind(root);
    }
    QString Cell(int row, int column) { return view->model()->index(row, column).data().toString(); }
};

TEST_F(RecordGridTest, ShowsColumnsInTheirOrderAndFormats)
{
    EXPECT_EQ(view->model()->headerData(0, Qt::Horizontal).toString(), u"Price"_s);
    EXPECT_EQ(view->columnWidth(1), 200);
    EXPECT_TRUE(view->isColumnHidden(3));
    EXPECT_EQ(Cell(4, 0), u"4000"_s);
    EXPECT_EQ(Cell(4, 1), u"4 OAK ST"_s);
    EXPECT_EQ(Cell(4, 2), u"3/7/2004"_s);
    EXPECT_EQ(Cell(4, 3), QString()) << "a column without its field is blank";
}

TEST_F(RecordGridTest, ColumnsThatNobodySizesFillTheirFrame)
{
    const auto whole = [this] { return view->columnWidth(0) + view->columnWidth(1) + view->columnWidth(2); };
    const QList<forms::GridColumn> before = grid.Columns();
    view->FixColumns();
    root.resize(640, 320);
    root.show();
    for (const int wide : {600, 503}) {
        view->resize(wide, 300);
        QApplication::processEvents();
        EXPECT_EQ(whole(), view->viewport()->width()) << wide;
        EXPECT_GT(view->columnWidth(1), 2 * view->columnWidth(0)) << "by their own widths";
    }
    EXPECT_EQ(grid.Columns(), before) << "the control keeps what it was given";
    view->resize(300, 300);
    QApplication::processEvents();
    EXPECT_EQ(view->columnWidth(1), 200) << "what has no room is scrolled to";
}

TEST_F(RecordGridTest, RowFollowsBothWays)
{
    EXPECT_EQ(view->currentIndex().row(), 0);
    grid.SetRow(12);
    EXPECT_EQ(view->currentIndex().row(), 12);
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 13);
    QTest::keyClick(view, Qt::Key_End);
    EXPECT_EQ(grid.Row(), 999);
    QTest::keyClick(view, Qt::Key_Home);
    EXPECT_EQ(grid.Row(), 0);
    int opened = 0;
    QObject::connect(&grid, &forms::Control::DoubleClicked, &grid, [&] { ++opened; });
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(opened, 1);
}

TEST_F(RecordGridTest, AMovedColumnIsWrittenBack)
{
    view->horizontalHeader()->moveSection(1, 0);
    QTest::qWait(10);
    ASSERT_EQ(grid.Columns().size(), 4);
    EXPECT_EQ(grid.Columns().at(0).field, u"CENTRALKEY"_s);
    EXPECT_EQ(grid.Columns().at(0).width, 200);
    EXPECT_EQ(Cell(4, 0), u"4 OAK ST"_s);
    EXPECT_EQ(view->horizontalHeader()->visualIndex(0), 0);
    EXPECT_TRUE(view->isColumnHidden(3));
}

TEST_F(RecordGridTest, AResizedColumnIsWrittenBack)
{
    view->setColumnWidth(0, 123);
    EXPECT_EQ(grid.Columns().at(0).width, 123);
    EXPECT_EQ(grid.Columns().at(3).width, 90) << "a hidden column keeps its width";
}

TEST_F(RecordGridTest, TheMouseMovesAndSizesColumnsByTheirHeadings)
{
    root.resize(640, 320);
    root.show();
    QWidget* head = view->horizontalHeader()->viewport();
    const auto drag = [&](QPoint from, QPoint to) {
        QTest::mousePress(head, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 8; ++step) {
            const QPoint at = from + (to - from) * step / 8;
            QMouseEvent move(QEvent::MouseMove, at, head->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(head, &move);
        }
        QTest::mouseRelease(head, Qt::LeftButton, {}, to);
        QTest::qWait(10);
    };
    const int border = view->columnViewportPosition(0) + view->columnWidth(0) - 1;
    drag({border, 8}, {border + 40, 8});
    EXPECT_EQ(grid.Columns().at(0).width, 120) << "by the border to its right";
    EXPECT_EQ(grid.Columns().at(1).width, 200);
    QStringList sorted;
    QObject::connect(&grid, &forms::Grid::HeadClick, &grid, [&](const QString& field) { sorted += field; });
    drag({60, 8}, {300, 8});
    EXPECT_EQ(grid.Columns().at(0).field, u"CENTRALKEY"_s);
    EXPECT_EQ(grid.Columns().at(1).field, u"SELLINGPR"_s);
    EXPECT_EQ(grid.Columns().at(1).width, 120) << "a moved column keeps its width";
    EXPECT_EQ(Cell(4, 1), u"4000"_s) << "and its texts";
    EXPECT_TRUE(sorted.isEmpty()) << "a drag is no click";
    view->FixColumns();
    drag({60, 8}, {300, 8});
    EXPECT_EQ(grid.Columns().at(0).field, u"CENTRALKEY"_s);
}

TEST_F(RecordGridTest, AMillionRowsAskForOneScreen)
{
    rows.count = 1'000'000;
    root.resize(640, 320);
    root.show();
    rows.asked = 0;
    grid.Rebind(&rows);
    view->grab();
    EXPECT_LT(rows.asked, 60);
    rows.asked = 0;
    grid.SetRow(765'432);
    view->grab();
    EXPECT_EQ(view->currentIndex().row(), 765'432);
    EXPECT_LT(rows.asked, 60);
}

TEST_F(RecordGridTest, ARowThatCannotBeReadIsReportedOnce)
{
    rows.badRow = 3;
    grid.Refresh();
    view->grab();
    grid.Refresh();
    QTest::qWait(10);
    ASSERT_FALSE(prompter.Boxes().empty());
    EXPECT_TRUE(prompter.Last().text.contains(u"The page is damaged"_s));
    EXPECT_EQ(Cell(4, 1), u"4 OAK ST"_s) << "the other rows stay readable";
}

TEST_F(RecordGridTest, NoSourceIsAnEmptyGrid)
{
    grid.Rebind(nullptr);
    EXPECT_EQ(view->model()->rowCount(), 0);
    EXPECT_FALSE(view->currentIndex().isValid());
    view->grab();
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(grid.Row(), -1);
}

TEST_F(RecordGridTest, KeysMoveAndSizeTheCurrentColumn)
{
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(view, key, Qt::ControlModifier | Qt::ShiftModifier);
    };
    EXPECT_EQ(view->currentIndex().column(), 0);
    press(Qt::Key_Right);
    EXPECT_EQ(grid.Columns().at(1).field, u"SELLINGPR"_s);
    EXPECT_EQ(view->currentIndex().column(), 1) << "the mark goes with its column";
    EXPECT_EQ(Cell(4, 1), u"4000"_s);
    press(Qt::Key_Up);
    EXPECT_EQ(grid.Columns().at(1).width, 88);
    EXPECT_EQ(view->columnWidth(1), 88);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(grid.Columns().at(1).width, 72);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(grid.Columns().at(0).field, u"SELLINGPR"_s);
    EXPECT_EQ(grid.Row(), 0) << "the record stays";
}

TEST_F(RecordGridTest, TheHeadingsMenuTicksSortsAndHides)
{
    QList<forms::GridColumn> columns = grid.Columns();
    columns[0].sortable = true;
    columns[1].fixed = true;
    grid.SetColumns(columns);
    QStringList sorted;
    QObject::connect(&grid, &forms::Grid::HeadClick, &grid, [&](const QString& field) { sorted += field; });
    QMenu menu;
    view->FillColumnMenu(menu, 0);
    const auto entry = [&menu](const QString& words) -> QAction& {
        for (QAction* action : menu.actions())
            if (action->text() == words)
                return *action;
        throw std::out_of_range(words.toStdString());
    };
    entry(u"&Sort by This Column"_s).trigger();
    EXPECT_EQ(sorted, QStringList{u"SELLINGPR"_s});
    EXPECT_FALSE(entry(u"None"_s).isChecked());
    entry(u"None"_s).trigger();
    EXPECT_FALSE(view->isColumnHidden(3));
    EXPECT_FALSE(entry(u"Key"_s).isEnabled()) << "rows are known by it";
    entry(u"&Hide This Column"_s).trigger();
    EXPECT_TRUE(view->isColumnHidden(0));
    EXPECT_FALSE(grid.Columns().at(0).visible);
    QMenu other;
    view->FillColumnMenu(other, 1);
    EXPECT_FALSE(other.actions().at(0)->isEnabled()) << "no order of the six";
    EXPECT_FALSE(other.actions().at(1)->isEnabled());
}

TEST_F(RecordGridTest, TheRightButtonOnAHeadingHidesItsColumn)
{
    QList<forms::GridColumn> columns = grid.Columns();
    columns[0].sortable = true;
    grid.SetColumns(columns);
    root.resize(640, 320);
    root.show();
    QStringList sorted;
    QObject::connect(&grid, &forms::Grid::HeadClick, &grid, [&](const QString& field) { sorted += field; });
    QWidget* head = view->horizontalHeader()->viewport();
    // As the system does it: the button goes down and up, and asks for the menu.
    const auto rightClick = [&](QPoint at) {
        QTest::mousePress(head, Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, head->mapToGlobal(at));
        QApplication::sendEvent(head, &event);
        QTest::mouseRelease(head, Qt::RightButton, {}, at);
    };
    // The menu holds the click until an entry is chosen.
    const auto choose = [&](const QString& words, QPoint at) {
        bool chosen = false;
        QTimer::singleShot(0, view, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr)
                return;
            EXPECT_TRUE(menu->geometry().contains(head->mapToGlobal(at)));
            for (QAction* action : menu->actions()) {
                if (action->text() != words)
                    continue;
                chosen = true;
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            }
            menu->close();
        });
        rightClick(at);
        return chosen;
    };
    const QPoint onSold(view->columnViewportPosition(2) + 20, 8);
    EXPECT_TRUE(choose(u"&Hide This Column"_s, onSold));
    EXPECT_FALSE(grid.Columns().at(2).visible);
    EXPECT_TRUE(view->isColumnHidden(2));
    EXPECT_TRUE(grid.Columns().at(0).visible && grid.Columns().at(1).visible) << "no other";
    EXPECT_TRUE(choose(u"Sold"_s, QPoint(20, 8)));
    EXPECT_TRUE(grid.Columns().at(2).visible) << "its tick brings it back";
    EXPECT_FALSE(view->isColumnHidden(2));
    EXPECT_TRUE(sorted.isEmpty()) << "the right button sorts nothing";

    view->FixColumns();
    bool opened = false;
    QTimer::singleShot(50, view, [&] {
        opened = QApplication::activePopupWidget() != nullptr;
        if (opened)
            QApplication::activePopupWidget()->close();
    });
    rightClick(onSold);
    QTest::qWait(80);
    EXPECT_FALSE(opened) << "a preview has no menu";
}

TEST_F(RecordGridTest, AClickOnAHeadingSorts)
{
    QList<forms::GridColumn> columns = grid.Columns();
    columns[0].sortable = true;
    grid.SetColumns(columns);
    root.resize(640, 320);
    root.show();
    QStringList sorted;
    QObject::connect(&grid, &forms::Grid::HeadClick, &grid, [&](const QString& field) { sorted += field; });
    QWidget* head = view->horizontalHeader()->viewport();
    QTest::mouseClick(head, Qt::LeftButton, {}, QPoint(30, 8));
    QTest::mouseClick(head, Qt::LeftButton, {}, QPoint(150, 8));
    EXPECT_EQ(sorted, QStringList{u"SELLINGPR"_s});
}

TEST_F(RecordGridTest, SelectedRowsAreCopiedAsTextAndAsATable)
{
    QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_EQ(data->text(), u"Price\tKey\tSold\r\n0\t0 OAK ST\t3/7/2004\r\n1000\t1 OAK ST\t3/7/2004\r\n"_s);
    EXPECT_TRUE(data->html().contains(u"<td>1 OAK ST</td>"_s));
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(RecordGridTest, SelectingAMillionIsSafeAndCopyingThemIsRefusedInWords)
{
    rows.count = 1'000'000;
    grid.Rebind(&rows);
    QApplication::clipboard()->setText(u"kept"_s);
    rows.asked = 0;
    QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_LT(rows.asked, 100);
    EXPECT_TRUE(prompter.Last().text.contains(u"Nothing was copied"_s));
    EXPECT_EQ(QApplication::clipboard()->text(), u"kept"_s);
}

TEST_F(RecordGridTest, TheMenuKeyAndTheRightButtonAskForTheMenu)
{
    root.resize(640, 320);
    root.show();
    int wanted = 0;
    QObject::connect(view, &RecordGrid::MenuWanted, view, [&] { ++wanted; });
    for (const auto reason : {QContextMenuEvent::Keyboard, QContextMenuEvent::Mouse}) {
        QContextMenuEvent event(reason, QPoint(20, 20), view->viewport()->mapToGlobal(QPoint(20, 20)));
        QApplication::sendEvent(view->viewport(), &event);
    }
    EXPECT_EQ(wanted, 2);
}

TEST_F(RecordGridTest, APreviewCannotBeRearranged)
{
    const QList<forms::GridColumn> before = grid.Columns();
    view->FixColumns();
    QTest::keyClick(view, Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(view->horizontalHeader()->sectionsMovable());
    EXPECT_EQ(grid.Columns(), before);
}

TEST_F(RecordGridTest, TheColumnsDialogOrdersHidesAndSizes)
{
    QList<forms::GridColumn> columns = grid.Columns();
    columns[1].fixed = true;
    ColumnsDialog dialog(columns);
    EXPECT_EQ(dialog.Columns(), columns);
    auto* list = dialog.findChild<QListWidget*>();
    auto* width = dialog.findChild<QSpinBox*>();
    ASSERT_TRUE(list && width);
    EXPECT_FALSE(list->item(1)->flags().testFlag(Qt::ItemIsUserCheckable));
    list->setCurrentRow(2);
    width->setValue(144);
    list->item(2)->setCheckState(Qt::Unchecked);
    QPushButton* up = nullptr;
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->text() == u"Move &Up"_s)
            up = button;
    ASSERT_NE(up, nullptr);
    up->click();
    up->click();
    EXPECT_FALSE(up->isEnabled()) << "it is the first now";
    const QList<forms::GridColumn> chosen = dialog.Columns();
    EXPECT_EQ(chosen.at(0).field, u"SALEDATE"_s);
    EXPECT_EQ(chosen.at(0).width, 144);
    EXPECT_FALSE(chosen.at(0).visible);
    EXPECT_EQ(chosen.at(1).field, u"SELLINGPR"_s);
    EXPECT_EQ(chosen.size(), 4);
    for (int i = 0; i < list->count(); ++i)
        list->item(i)->setCheckState(Qt::Unchecked);
    EXPECT_FALSE(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
}

} // namespace
} // namespace vasclip::windows
