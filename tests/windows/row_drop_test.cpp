#include "keys.h"
#include "photos/capture_desk.h"
#include "photos/photo_lists.h"
#include "platform/engine/database.h"
#include "report_windows.h"
#include "windows/drag_desk.h"
#include "windows/record_grid.h"

#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QUrl>

// Pictures that are dropped on a row of the grid while another one is current.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class RowDrop : protected OwnScreens, public ReportWindows
{
protected:
    RowDrop()
        : ReportWindows(Own{&screens})
    {}

    forms::DropPort& drops{main.drags.Router()};

    void SetUp() override
    {
        ReportWindows::SetUp();
        for (int i = 0; i < 40; ++i)
            Add(shell::kDatabook, u"COMPS"_s,
                {{u"CENTRALKEY"_s, u"%1 ROW RD"_s.arg(100 + i).leftJustified(35)},
                 {u"ADDRESS"_s, u"%1 Row Rd"_s.arg(100 + i)}});
        for (const QString& name : {u"A.JPG"_s, u"B.JPG"_s})
            Picture(u"C:\\SNAP\\"_s + name);
        for (int i = 1; i <= 50; ++i) // one stem each
            doubles.random.sequence.push_back(i / 53.0);
        StartProgram();
        main.globals.imageListBox = u"OFF"_s;
        screens.SetGuard(&guard);
        MakeMainWindow(drops);
        screens.SetOwner(&*mainWindow);
        mainWindow->show();
        main.ShowCapture();
        ASSERT_TRUE(Activate(*mainWindow));
        main.records.grddatabook.SetRow(0);
        current = KeyAt(0);
        ASSERT_FALSE(KeyAt(5).isEmpty());
    }
    [[nodiscard]] RecordGrid& Grid() { return mainWindow->Databook(); }
    /// Key that the grid shows in a row.
    [[nodiscard]] QString KeyAt(int row)
    {
        const auto& columns = main.records.grddatabook.Columns();
        for (int i = 0; i < columns.size(); ++i)
            if (columns.at(i).field == u"CENTRALKEY"_s)
                return Grid().model()->index(row, i).data().toString().trimmed();
        return {};
    }
    [[nodiscard]] QPoint Place(int row) { return {40, Grid().rowViewportPosition(row) + Grid().rowHeight(row) / 2}; }
    [[nodiscard]] QString Photos(const QString& key)
    {
        const auto rows =
            engine.OpenDatabase(shell::kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, key);
        return rows->NoMatch() ? u"(no record)"_s : rows->Value(u"PHOTOS"_s).toString().trimmed();
    }
    /// Is the row painted with the highlight?
    [[nodiscard]] bool Highlighted(int row)
    {
        const QImage seen = Grid().viewport()->grab().toImage();
        const QPoint place(seen.width() - 4, Place(row).y() * seen.height() / Grid().viewport()->height());
        return seen.pixelColor(place) == Grid().palette().color(QPalette::Highlight);
    }

    // The events that the toolkit sends while something is dragged over the grid.
    bool Enter(const QMimeData& data, QPoint place)
    {
        QDragEnterEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Grid().viewport(), &event);
        return event.isAccepted();
    }
    bool Move(const QMimeData& data, QPoint place)
    {
        QDragMoveEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Grid().viewport(), &event);
        return event.isAccepted();
    }
    void LetGo(const QMimeData& data, QPoint place)
    {
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Grid().viewport(), &event);
        QApplication::processEvents();
    }
    /// Lets go, and takes the view that the dialogue proposes. @return what the dialogue names
    QString File(const QMimeData& data, QPoint place)
    {
        QString named;
        OnScreen(*mainWindow, u"frm_GenView"_s, [&] { LetGo(data, place); },
                 [&](QWidget& shown) {
                     auto* label = shown.findChild<QLabel*>(u"lblWhose"_s);
                     named = label->isVisible() ? label->text() : QString();
                     shown.findChild<QPushButton*>(u"cmdOK"_s)->click();
                 });
        return named;
    }
    /// The first thumbnail, picked up.
    [[nodiscard]] std::unique_ptr<QMimeData> Thumb()
    {
        drops.Begin(main.capture.geathumb(0), 0);
        return std::unique_ptr<QMimeData>(DragDesk::Payload(main.capture.geathumb(0)));
    }
    [[nodiscard]] QString Said() { return main.status.lblmsg.Caption(); }

    QString current;
};

TEST_F(RowDrop, TheRowUnderThePointerHasTheHighlightAndGetsThePicture)
{
    const QString wanted = KeyAt(5);
    const auto data = Thumb();
    EXPECT_TRUE(Enter(*data, Place(2)));
    EXPECT_TRUE(Highlighted(2));
    EXPECT_FALSE(Highlighted(0)) << "one record, not two";
    EXPECT_TRUE(Move(*data, Place(5)));
    EXPECT_TRUE(Highlighted(5));
    EXPECT_FALSE(Highlighted(2));
    EXPECT_EQ(main.records.txtcentralkey.Text(), current) << "nothing else follows while it hovers";
    EXPECT_EQ(File(*data, Place(5)), wanted);
    EXPECT_TRUE(Photos(wanted).startsWith(u"FRONT VIEW|"_s)) << Photos(wanted).toStdString();
    EXPECT_EQ(Photos(current), QString());
    EXPECT_EQ(Said(), u"FRONT VIEW is filed with %1 now."_s.arg(wanted));
    EXPECT_EQ(main.records.txtcentralkey.Text(), wanted) << "the record that changed is on show";
}

TEST_F(RowDrop, LeavingTheGridGivesTheHighlightBack)
{
    const auto data = Thumb();
    EXPECT_TRUE(Enter(*data, Place(3)));
    QDragLeaveEvent leave;
    QApplication::sendEvent(Grid().viewport(), &leave);
    EXPECT_TRUE(Highlighted(0));
    EXPECT_FALSE(Highlighted(3));
    EXPECT_EQ(main.records.grddatabook.Row(), 0);
}

TEST_F(RowDrop, FilesOfAnotherProgramGoToTheRowUnderThePointer)
{
    const QString wanted = KeyAt(4);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(home.disk.ToNative(u"C:\\SNAP\\B.JPG"_s))});
    EXPECT_TRUE(Enter(data, Place(1)));
    EXPECT_TRUE(Move(data, Place(4)));
    EXPECT_TRUE(Highlighted(4));
    EXPECT_EQ(File(data, Place(4)), wanted);
    EXPECT_TRUE(Photos(wanted).startsWith(u"FRONT VIEW|"_s));
    EXPECT_EQ(Photos(current), QString());
}

TEST_F(RowDrop, ScrolledRowsAreAimedAtAnew)
{
    const auto data = Thumb();
    EXPECT_TRUE(Enter(*data, Place(2)));
    Grid().verticalScrollBar()->setValue(10);
    const QPoint place(40, Grid().rowHeight(0) * 2 + Grid().rowHeight(0) / 2);
    const int row = Grid().rowAt(place.y());
    ASSERT_EQ(row, 12);
    const QString wanted = KeyAt(row);
    EXPECT_TRUE(Highlighted(row));
    EXPECT_EQ(File(*data, place), wanted);
    EXPECT_TRUE(Photos(wanted).startsWith(u"FRONT VIEW|"_s));
}

TEST_F(RowDrop, RowsThatChangeUnderThePointerTakeNothing)
{
    const QString before = KeyAt(3);
    const auto data = Thumb();
    EXPECT_TRUE(Enter(*data, Place(3)));
    Q_EMIT main.records.grddatabook.HeadClick(u"CENTRALKEY"_s); // sorted the other way
    Q_EMIT main.records.grddatabook.HeadClick(u"CENTRALKEY"_s);
    main.DisplayAllRecords();
    LetGo(*data, Place(3)); // without another move of the pointer
    EXPECT_EQ(Said(), u"The records have changed under the pointer; nothing was done. Drop it again."_s);
    EXPECT_EQ(Photos(before), QString());
    EXPECT_EQ(Photos(KeyAt(3)), QString());
    // Once the pointer moves it is as good as ever.
    EXPECT_TRUE(Enter(*data, Place(3)));
    EXPECT_EQ(File(*data, Place(3)), KeyAt(3));
}

TEST_F(RowDrop, ARowThatIsReadAnewUnderThePointerIsAimedAtByItsNewName)
{
    const auto data = Thumb();
    EXPECT_TRUE(Enter(*data, Place(3)));
    {
        const auto rows =
            program.Engine().OpenDatabase(shell::kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, KeyAt(3));
        ASSERT_FALSE(rows->NoMatch());
        rows->Edit();
        rows->SetValue(u"CENTRALKEY"_s, u"9 NEW NAME RD"_s);
        rows->Update();
    }
    main.records.grddatabook.Refresh();
    ASSERT_EQ(KeyAt(3), u"9 NEW NAME RD"_s);
    EXPECT_TRUE(Move(*data, Place(3)));
    EXPECT_EQ(File(*data, Place(3)), u"9 NEW NAME RD"_s) << Said().toStdString();
}

TEST_F(RowDrop, ARecordThatIsDeletedBetweenTheReleaseAndTheDropTakesNothing)
{
    const auto data = Thumb();
    EXPECT_TRUE(Enter(*data, Place(3)));
    const QString gone = KeyAt(3);
    QDropEvent event(Place(3), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Grid().viewport(), &event);
    {
        const auto rows =
            engine.OpenDatabase(shell::kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, gone);
        rows->Delete();
    }
    main.DisplayAllRecords();
    QApplication::processEvents();
    EXPECT_EQ(Said(), u"The records have changed under the pointer; nothing was done. Drop it again."_s);
    EXPECT_EQ(Photos(gone), u"(no record)"_s);
    EXPECT_EQ(Photos(KeyAt(3)), QString());
}

TEST_F(RowDrop, TheSpaceBelowTheLastRowTakesNothing)
{
    Grid().verticalScrollBar()->setValue(0);
    main.records.txtcentralkey.SetText(current);
    while (main.records.grddatabook.Source()->RowCount() > 3) {
        const auto rows =
            engine.OpenDatabase(shell::kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (int i = 0; i < 3; ++i)
            rows->MoveNext();
        for (; !rows->Eof(); rows->MoveNext())
            rows->Delete();
        main.DisplayAllRecords();
    }
    const auto data = Thumb();
    const QPoint below(40, Grid().viewport()->height() - 3);
    ASSERT_LT(Grid().rowAt(below.y()), 0);
    EXPECT_TRUE(Enter(*data, Place(1)));
    EXPECT_FALSE(Move(*data, below)) << "there is no record";
    EXPECT_TRUE(Highlighted(0));
    EXPECT_EQ(Said(), QString()) << "no hint either";
}

} // namespace
} // namespace vasclip::windows
