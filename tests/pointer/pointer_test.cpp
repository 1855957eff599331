// Drives the real programs with a real pointer on a virtual display: a row of the grid is dragged to a slot,
// and the report in the forms program fills; columns are arranged by their headings.

#include "support/processes.h"

#include <gtest/gtest.h>

#include <QPoint>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

class Pointer : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const QString& needed : {u"Xvfb"_s, u"openbox"_s, u"xdotool"_s}) {
            if (QStandardPaths::findExecutable(needed).isEmpty())
                GTEST_SKIP() << needed.toStdString() << " is not installed, so no pointer can be moved";
        }
        ASSERT_TRUE(m_home.Make());
        ASSERT_TRUE(StartDisplay());
        ASSERT_TRUE(m_home.StartForms()) << "the forms program does not answer";
        Start(m_vasclip, ProgramHome::Program(u"vasclip"_s),
              {u"--home"_s, m_home.Path(), u"--places"_s, Geometry()});
        ASSERT_TRUE(WaitFor([this] { return !Places().value(u"rows"_s).toArray().isEmpty(); }))
            << "the grid does not come up";
    }

    void TearDown() override
    {
        for (QProcess* process : {&m_vasclip, &m_openbox, &m_xvfb})
            ProgramHome::Stop(*process);
    }

    bool StartDisplay()
    {
        m_xvfb.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_xvfb.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1366x768x24"_s,
                                 u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
        if (!m_xvfb.waitForStarted() || !m_xvfb.waitForReadyRead(kPatienceMs))
            return false;
        m_environment.insert(u"DISPLAY"_s, u":"_s + QString::fromLatin1(m_xvfb.readLine()).trimmed());
        m_environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        m_environment.remove(u"WAYLAND_DISPLAY"_s);
        Start(m_openbox, u"openbox"_s, {});
        return m_openbox.waitForStarted();
    }

    void Start(QProcess& process, const QString& program, const QStringList& arguments)
    {
        process.setProcessEnvironment(m_environment);
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(program, arguments);
    }

    [[nodiscard]] QString Geometry() const { return m_home.Path() + u"/places.json"_s; }

    [[nodiscard]] QJsonObject Places() const
    {
        QFile file(Geometry());
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                              : QJsonObject();
    }

    [[nodiscard]] static QPoint Middle(const QJsonArray& place, qsizetype from = 0)
    {
        return {place[from].toInt() + place[from + 2].toInt() / 2,
                place[from + 1].toInt() + place[from + 3].toInt() / 2};
    }

    [[nodiscard]] QPoint MiddleOf(const QString& control) const
    {
        return Middle(Places().value(control).toArray());
    }

    [[nodiscard]] QPoint RowPoint(int row) const
    {
        // Not in the middle: the cell that is grabbed should be one that can be seen.
        const QJsonArray line = Places().value(u"rows"_s).toArray()[row].toArray();
        return {line[1].toInt() + 120, line[2].toInt() + line[4].toInt() / 2};
    }

    void Xdotool(const QStringList& arguments)
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.start(u"xdotool"_s, arguments);
        ASSERT_TRUE(process.waitForFinished(kPatienceMs));
        ASSERT_EQ(process.exitCode(), 0);
    }

    void MoveTo(QPoint point)
    {
        Xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y())});
    }

    void Click(QPoint point, const QString& button = u"1"_s)
    {
        MoveTo(point);
        Xdotool({u"click"_s, button});
        QThread::msleep(300);
    }

    /// Of a column's heading; empty while it is not on the screen.
    [[nodiscard]] QJsonArray Head(const QString& field) const
    {
        return Places().value(u"heads"_s).toObject().value(field).toArray();
    }

    void Drag(QPoint from, QPoint to)
    {
        MoveTo(from);
        QThread::msleep(150);
        Xdotool({u"mousedown"_s, u"1"_s});
        QThread::msleep(100);
        for (const QString& step : {u"4"_s, u"10"_s, u"10"_s}) {
            Xdotool({u"mousemove_relative"_s, u"--"_s, step, u"0"_s});
            QThread::msleep(60);
        }
        constexpr int kSteps = 12;
        for (int i = 1; i <= kSteps; ++i) {
            MoveTo(from + (to - from) * i / kSteps);
            QThread::msleep(50);
        }
        QThread::msleep(150);
        Xdotool({u"mouseup"_s, u"1"_s});
    }

    /// Names in the photo directory.
    [[nodiscard]] QStringList Stored() const
    {
        return QDir(m_home.Native(u"VASCLIPS/JPG"_s)).entryList({u"*.jpg"_s}, QDir::Files);
    }
    /// What the report shows, as the forms program says.
    [[nodiscard]] QString Images() const
    {
        return QString::fromUtf8(m_home.Vasctl({u"--plain"_s, u"report"_s, u"images"_s}).out);
    }
    void OpenComps()
    {
        Click(MiddleOf(u"TabData#1"_s));
        ASSERT_TRUE(WaitFor([this] {
            return Places().contains(u"imaComp_3"_s) && Places().contains(u"geathumb_1"_s);
        })) << "slots or thumbnails do not show";
        QThread::msleep(1500); // the pictures of the page
    }

    /// Record number `row` of the grid, which is sorted by address.
    QJsonObject Record(int row)
    {
        const QJsonArray list = m_home.Vasctl({u"records"_s, u"list"_s, u"--sort"_s, u"ADDRESS"_s}).Array();
        const QString key = list[row].toObject()[u"CENTRALKEY"_s].toString();
        return m_home.Vasctl({u"records"_s, u"show"_s, key}).Object();
    }

    ProgramHome m_home;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QProcess m_xvfb, m_openbox, m_vasclip;
};

TEST_F(Pointer, ARowDraggedToASlotFillsTheReport)
{
    Click(MiddleOf(u"TabData#1"_s));
    ASSERT_TRUE(WaitFor([this] { return Places().contains(u"txtComp_3"_s); }))
        << "the comparables do not show";
    const QJsonObject record = Record(0);
    ASSERT_FALSE(record.isEmpty());
    ASSERT_NE(m_home.Cell(3, u"ADDRESS"_s), record[u"ADDRESS"_s].toString());

    Drag(RowPoint(0), MiddleOf(u"txtComp_3"_s));

    EXPECT_TRUE(
        WaitFor([&] { return m_home.Cell(3, u"ADDRESS"_s) == record[u"ADDRESS"_s].toString(); }, 20000))
        << "sent " << m_home.Cell(3, u"ADDRESS"_s).toStdString() << ", wanted "
        << record[u"ADDRESS"_s].toString().toStdString();
    EXPECT_EQ(m_home.Cell(3, u"GLA"_s), record[u"GLA"_s].toVariant().toString());
}

TEST_F(Pointer, ADropMeantForAnotherReportSendsNothingUntilTheTabsAreRefreshed)
{
    Click(MiddleOf(u"TabData#1"_s));
    ASSERT_TRUE(WaitFor([this] { return Places().contains(u"txtComp_2"_s); }));
    EXPECT_FALSE(Places().contains(u"cmdLink"_s)) << "linked: nothing to help with";
    // The other report comes to the front of the forms program.
    ProgramHome::Stop(m_home.forms);
    EXPECT_TRUE(WaitFor([this] { return Places().contains(u"cmdLink"_s); }, 10000)) << "it has gone, and is offered";
    Start(m_home.forms, ProgramHome::Program(u"kelforms"_s),
          {u"--home"_s, m_home.Path(), u"--headless"_s, u"C:\\KEL\\DATA\\FERRY22.RPT"_s,
           u"C:\\KEL\\DATA\\OAKST114.RPT"_s});
    ASSERT_TRUE(WaitFor([this] { return m_home.Vasctl({u"report"_s, u"status"_s}).code == 0; }, 20000));
    const QString before = m_home.Cell(2, u"ADDRESS"_s);
    const QJsonObject record = Record(0);
    ASSERT_NE(before, record[u"ADDRESS"_s].toString());

    Drag(RowPoint(0), MiddleOf(u"txtComp_2"_s));
    QThread::msleep(1500);
    Xdotool({u"key"_s, u"Escape"_s}); // the question; no question: nothing
    QThread::msleep(1000);
    EXPECT_EQ(m_home.Cell(2, u"ADDRESS"_s), before) << "the tabs showed the other report's comp";

    ASSERT_TRUE(WaitFor([this] { return Places().contains(u"cmdLink"_s); }));
    Click(MiddleOf(u"cmdLink"_s));
    ASSERT_TRUE(WaitFor([this] { return !Places().contains(u"cmdLink"_s); }, 10000)) << "the tabs are refreshed";
    Click(MiddleOf(u"TabData#1"_s));
    QThread::msleep(500);
    Drag(RowPoint(0), MiddleOf(u"txtComp_2"_s));
    QThread::msleep(1500);
    Xdotool({u"key"_s, u"alt+y"_s}); // a comp that is replaced asks
    EXPECT_TRUE(
        WaitFor([&] { return m_home.Cell(2, u"ADDRESS"_s) == record[u"ADDRESS"_s].toString(); }, 20000));
}

TEST_F(Pointer, ReplacingACompAsksAndTheKeyboardAnswers)
{
    Click(MiddleOf(u"TabData#1"_s));
    ASSERT_TRUE(WaitFor([this] { return Places().contains(u"txtComp_1"_s); }));
    const QString before = m_home.Cell(1, u"ADDRESS"_s);
    ASSERT_FALSE(before.isEmpty());
    const QJsonObject record = Record(1);

    Drag(RowPoint(1), MiddleOf(u"txtComp_1"_s));
    QThread::msleep(1500);
    Xdotool({u"key"_s, u"alt+n"_s});
    QThread::msleep(1000);
    EXPECT_EQ(m_home.Cell(1, u"ADDRESS"_s), before) << "No must leave the comp";

    Drag(RowPoint(1), MiddleOf(u"txtComp_1"_s));
    QThread::msleep(1500);
    Xdotool({u"key"_s, u"alt+y"_s});
    EXPECT_TRUE(
        WaitFor([&] { return m_home.Cell(1, u"ADDRESS"_s) == record[u"ADDRESS"_s].toString(); }, 20000));
}

TEST_F(Pointer, ColumnsAreHiddenSizedAndMovedByTheirHeadingsAndTheEndKeepsThem)
{
    ASSERT_TRUE(WaitFor([this] { return !Head(u"CITY"_s).isEmpty(); }));
    Click(Middle(Head(u"CITY"_s)), u"3"_s);
    Xdotool({u"key"_s, u"h"_s});
    ASSERT_TRUE(WaitFor([this] { return Head(u"CITY"_s).isEmpty(); })) << "Hide This Column";

    const QJsonArray address = Head(u"ADDRESS"_s);
    ASSERT_FALSE(address.isEmpty());
    const QPoint border(address[0].toInt() + address[2].toInt() - 1, Middle(address).y());
    Drag(border, border + QPoint(60, 0));
    EXPECT_TRUE(WaitFor([&] { return Head(u"ADDRESS"_s)[2].toInt() == address[2].toInt() + 60; }));

    Drag(Middle(Head(u"ADDRESS"_s)), Middle(Head(u"CENTRALKEY"_s)) - QPoint(40, 0));
    EXPECT_TRUE(WaitFor(
        [this] { return Head(u"ADDRESS"_s)[0].toInt() < Head(u"CENTRALKEY"_s)[0].toInt(); }));

    Xdotool({u"key"_s, u"ctrl+q"_s});
    ASSERT_TRUE(m_vasclip.waitForFinished(kPatienceMs)) << "File, Exit";
    EXPECT_EQ(m_vasclip.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_vasclip.exitCode(), 0);
    QStringList order;
    for (const QJsonValue& value : m_home.Vasctl({u"layouts"_s, u"show"_s, u"Current (User)"_s}).Array()) {
        const QJsonObject column = value.toObject();
        const QString field = column[u"field"_s].toString();
        order.append(field);
        EXPECT_EQ(column[u"visible"_s].toString(), field == u"CITY"_s ? u"no"_s : u"yes"_s)
            << field.toStdString();
        if (field == u"ADDRESS"_s) {
            EXPECT_EQ(column[u"width"_s].toInt(), address[2].toInt() + 60);
        }
    }
    EXPECT_EQ(order.mid(0, 3), (QStringList{u"FRONT"_s, u"ADDRESS"_s, u"CENTRALKEY"_s}));
}

TEST_F(Pointer, AThumbnailDraggedToAPhotoIsFiledAndSent)
{
    OpenComps();
    const QStringList before = Stored();

    Drag(MiddleOf(u"geathumb_1"_s), MiddleOf(u"imaComp_3"_s));
    QThread::msleep(1000);
    Xdotool({u"key"_s, u"alt+y"_s}); // a slot with a photo asks; on an empty one the key does nothing

    EXPECT_TRUE(WaitFor([&] { return Stored().size() == before.size() + 1; }, 20000)) << "nothing was stored";
    QStringList fresh = Stored();
    for (const QString& name : before)
        fresh.removeOne(name);
    ASSERT_EQ(fresh.size(), 1);
    EXPECT_TRUE(WaitFor([&] { return Images().contains(fresh.first()); }, 20000))
        << "the report does not show " << fresh.first().toStdString();
}

TEST_F(Pointer, AThumbnailDraggedToARecordIsFiledThereUnderTheViewThatIsTyped)
{
    OpenComps();
    Click(RowPoint(3)); // the highlight goes with the pointer
    const QJsonObject highlighted = Record(3);
    const QJsonObject record = Record(1);
    const QString view = u"WOODSHED"_s;
    ASSERT_FALSE(record[u"PHOTOS"_s].toString().contains(view));
    const QString images = Images();

    Drag(MiddleOf(u"geathumb_0"_s), RowPoint(1));
    QThread::msleep(1500);
    Xdotool({u"key"_s, u"ctrl+a"_s}); // the dialog proposes a view
    Xdotool({u"type"_s, view});
    Xdotool({u"key"_s, u"Return"_s});

    EXPECT_TRUE(WaitFor([&] { return Record(1)[u"PHOTOS"_s].toString().contains(view + u'|'); }, 20000))
        << Record(1)[u"PHOTOS"_s].toString().toStdString();
    EXPECT_EQ(Record(3)[u"PHOTOS"_s].toString(), highlighted[u"PHOTOS"_s].toString()) << "the row that was clicked";
    EXPECT_EQ(Images(), images) << "nothing goes to the report";
}

TEST_F(Pointer, ThePhotoOnShowIsDraggedToASlotAndClearedByTheRightButton)
{
    OpenComps();
    int row = 0;
    while (row < 5 && !Record(row)[u"PHOTOS"_s].toString().contains(u"FRONT VIEW|"_s))
        ++row;
    ASSERT_LT(row, 5) << "no record on view has a photo";
    const QString photos = Record(row)[u"PHOTOS"_s].toString();
    const QString stem = photos.section(u"FRONT VIEW|"_s, 1).section(u'\r', 0, 0).section(u'\n', 0, 0).trimmed();
    Click(RowPoint(row));
    QThread::msleep(500);

    Drag(MiddleOf(u"geamaintain"_s), MiddleOf(u"imaComp_3"_s));
    QThread::msleep(1000);
    Xdotool({u"key"_s, u"alt+y"_s});
    const auto shown = [this] { return Images().split(u'\n').filter(u"CMP_3_"_s).join(u' '); };
    EXPECT_TRUE(WaitFor([&] { return shown().contains(stem + u".jpg"_s, Qt::CaseInsensitive); }, 20000))
        << stem.toStdString() << " is not in " << shown().toStdString();

    MoveTo(MiddleOf(u"imaComp_3"_s));
    Xdotool({u"click"_s, u"3"_s});
    QThread::msleep(500);
    Xdotool({u"key"_s, u"Up"_s}); // the last entry
    Xdotool({u"key"_s, u"Return"_s});
    QThread::msleep(1000);
    Xdotool({u"key"_s, u"alt+y"_s});
    EXPECT_TRUE(WaitFor([&] { return !shown().contains(stem, Qt::CaseInsensitive); }, 20000))
        << shown().toStdString();
}

/// A forms program that takes its time for each answer, from the start on.
class SlowStart : public Pointer
{
protected:
    void SetUp() override
    {
        for (const QString& needed : {u"Xvfb"_s, u"openbox"_s, u"xdotool"_s}) {
            if (QStandardPaths::findExecutable(needed).isEmpty())
                GTEST_SKIP() << needed.toStdString() << " is not installed, so no pointer can be moved";
        }
        ASSERT_TRUE(m_home.Make());
        ASSERT_TRUE(StartDisplay());
        Start(m_home.forms, ProgramHome::Program(u"kelforms"_s),
              {u"--home"_s, m_home.Path(), u"--headless"_s, u"--delay"_s, u"400"_s,
               u"C:\\KEL\\DATA\\OAKST114.RPT"_s});
        QThread::msleep(1500);
        Start(m_vasclip, ProgramHome::Program(u"vasclip"_s),
              {u"--home"_s, m_home.Path(), u"--places"_s, Geometry()});
    }
    /// Windows of the program that can be seen.
    [[nodiscard]] QStringList Seen() const
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.start(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--pid"_s,
                                     QString::number(m_vasclip.processId())});
        process.waitForFinished(kPatienceMs);
        return QString::fromLatin1(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }
};

TEST_F(SlowStart, HasTheSplashOnTheScreenAndEscGoesOnWithoutTheReport)
{
    ASSERT_TRUE(WaitFor([this] { return !Seen().isEmpty(); }, 20000)) << "nothing on the screen";
    EXPECT_TRUE(Places().isEmpty()) << "the main window came first";
    QThread::msleep(500);
    Xdotool({u"key"_s, u"--window"_s, Seen().value(0), u"Escape"_s});
    // A refresh takes some sixty answers, which is half a minute here.
    ASSERT_TRUE(WaitFor([this] { return Places().contains(u"cmdLink"_s); }, 10000))
        << "the main window, which offers to read the report";
}

} // namespace

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
