#include "windows/guide.h"

#include "bare_windows.h"
#include "shell/frm_change_db.h"
#include "shell/frm_main.h"
#include "windows/guide_view.h"
#include "windows/guide_window.h"
#include "windows/main_window.h"
#include "windows/record_grid.h"
#include "windows/screens.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include <cmath>

// The guide against the program that it tells about, and its window.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

QStringList FilesOf(const QString& pattern, const QString& below = {})
{
    return QDir(u"" VASCLIP_GUIDE_DIR ""_s + below).entryList({pattern}, QDir::Files, QDir::Name);
}

QStringList Captures(const QString& text, const QString& pattern)
{
    QStringList found;
    auto matches = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    return found;
}

QStringList Pages()
{
    QStringList pages;
    for (const GuideLine& line : GuideContents())
        if (!line.page.isEmpty())
            pages.append(line.page);
    return pages;
}

QStringList AllPages()
{
    return QStringList(QString(kGuideIndex)) + Pages();
}

class GuideOnWindows : public BareWindows
{
protected:
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    MainWindow window{main.controls, port, port, guard, theme, settings};
    GuideKey key;

    void SetUp() override { qApp->installEventFilter(&key); }
    void TearDown() override { qApp->removeEventFilter(&key); }

    /// "Setup > Grid Layout" for every entry of the menu bar.
    void Entries(const QString& above, const QMenu& menu, bool enabledOnly, QStringList& found) const
    {
        for (const QAction* action : menu.actions()) {
            const QString words = above + u" > "_s + QString(action->text()).remove(u'&');
            if (action->isSeparator() || (enabledOnly && !action->isEnabled()))
                continue;
            found.append(words);
            if (action->menu() != nullptr)
                Entries(words, *action->menu(), enabledOnly, found);
        }
    }
    [[nodiscard]] QStringList MenuEntries(bool enabledOnly) const
    {
        QStringList found;
        for (const QAction* bar : window.menuBar()->actions())
            Entries(QString(bar->text()).remove(u'&'), *bar->menu(), enabledOnly, found);
        return found;
    }
    static GuideWindow* GuideOf(const QWidget& owner)
    {
        return owner.findChild<GuideWindow*>({}, Qt::FindDirectChildrenOnly);
    }
};

TEST(Guide, EveryPageStandsInTheIndexAndInTheProgram)
{
    const QStringList files = FilesOf(u"*.md"_s);
    ASSERT_GE(files.size(), 20);
    QStringList listed = AllPages();
    EXPECT_EQ(listed.removeDuplicates(), 0) << "a page stands in the index twice";
    listed.sort();
    EXPECT_EQ(listed, files);
    for (const QString& page : files) {
        QFile file(u"" VASCLIP_GUIDE_DIR ""_s + u'/' + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(GuideText(page), QString::fromUtf8(file.readAll())) << page.toStdString();
        EXPECT_TRUE(GuideText(page).startsWith(u"# "_s)) << page.toStdString() << " has no title";
    }
}

TEST(Guide, NoLinkAndNoPictureIsBroken)
{
    QStringList pictures;
    for (const QString& page : AllPages()) {
        const QStringList targets = Captures(GuideText(page), u"\\]\\(([^)]*)\\)"_s);
        for (const QString& target : targets) {
            if (target.endsWith(u".md"_s)) {
                EXPECT_FALSE(GuideText(target).isEmpty())
                    << page.toStdString() << ": " << target.toStdString();
                continue;
            }
            EXPECT_TRUE(target.startsWith(u"images/"_s))
                << page.toStdString() << ": " << target.toStdString();
            EXPECT_FALSE(QImage(u":/guide/"_s + target).isNull())
                << page.toStdString() << ": " << target.toStdString();
            pictures.append(target.mid(7));
        }
    }
    pictures.sort();
    pictures.removeDuplicates();
    EXPECT_EQ(pictures, FilesOf(u"*"_s, u"/images"_s))
        << "a picture that no page shows, or none that is shown";
    EXPECT_GE(pictures.size(), 15);
}

TEST(Guide, EveryScreenHasAPage)
{
    QStringList topics;
    for (const GuideTopic& topic : GuideTopics()) {
        EXPECT_FALSE(topics.contains(QString(topic.widget))) << topic.widget.data();
        topics.append(QString(topic.widget));
        EXPECT_TRUE(Pages().contains(QString(topic.page))) << topic.page.data();
    }
    for (const ScreenEntry& screen : Screens())
        EXPECT_TRUE(topics.contains(QString(screen.name))) << screen.name.data();
    for (const QString& window : {u"frm_Main"_s, u"frm_Splash"_s, u"frm_About"_s})
        EXPECT_TRUE(topics.contains(window)) << window.toStdString();
    EXPECT_EQ(GuidePageOf(nullptr), u"index.md"_s);
}

TEST(Guide, TheSearchFindsPagesByAllWordsTitlesFirst)
{
    const auto pages = [](const QString& words) {
        QStringList found;
        for (const GuideLine& line : FindInGuide(words))
            found.append(line.page);
        return found;
    };
    EXPECT_EQ(pages(u"  "_s), Pages());
    ASSERT_FALSE(pages(u"calendar"_s).isEmpty());
    EXPECT_EQ(pages(u"calendar"_s).first(), u"calendar.md"_s);
    EXPECT_TRUE(pages(u"pending 1900"_s).contains(u"calendar.md"_s));
    EXPECT_TRUE(pages(u"F3 phrase"_s).contains(u"phrases.md"_s));
    EXPECT_TRUE(pages(u"no such word xyzzy"_s).isEmpty());
}

TEST_F(GuideOnWindows, PartsOfTheMainWindowThatHaveAPageAreThere)
{
    for (const GuideTopic& topic : GuideTopics()) {
        const QString name(topic.widget);
        const bool part =
            !name.startsWith(u"frm_"_s) && name != u"columnsDialog"_s && name != u"sendToSlot"_s;
        if (part) {
            EXPECT_NE(window.findChild<QWidget*>(name), nullptr) << name.toStdString();
        }
    }
}

TEST_F(GuideOnWindows, EveryMenuEntryThatThePagesNameIsThere)
{
    const QStringList entries = MenuEntries(false);
    int named = 0;
    for (const QString& page : AllPages()) {
        // In a paragraph the words may stand on two lines.
        const QString text = GuideText(page).replace(u'\n', u' ');
        for (const QString& words : Captures(text, u"\\*\\*([A-Z][a-z]+ > [^*]+)\\*\\*"_s)) {
            ++named;
            EXPECT_TRUE(entries.contains(words.simplified()))
                << page.toStdString() << ": " << words.toStdString();
        }
    }
    EXPECT_GE(named, 20);
}

TEST_F(GuideOnWindows, EveryEntryThatCanBeChosenIsTold)
{
    main.records.cmdSearch.SetEnabled(true);
    const QString page = GuideText(u"menus.md"_s);
    const QStringList entries = MenuEntries(true);
    ASSERT_GE(entries.size(), 15);
    for (const QString& words : entries) {
        if (!words.startsWith(u"View > Theme > "_s)) {
            EXPECT_TRUE(page.contains(u"**"_s + words + u"**"_s)) << words.toStdString();
        }
    }
}

TEST_F(GuideOnWindows, TheKeysOfTheMainWindowAreThere)
{
    QStringList keys;
    for (const QAction* action : window.findChildren<QAction*>())
        for (const QKeySequence& shortcut : action->shortcuts())
            keys.append(shortcut.toString(QKeySequence::PortableText));
    const QString page = GuideText(u"keyboard.md"_s);
    const qsizetype from = page.indexOf(u"## Main window"_s);
    const QString part = page.mid(from, page.indexOf(u"## In the grid"_s) - from);
    int told = 0;
    for (const QString& row : Captures(part, u"^\\| ([^|]*) \\|"_s)) {
        if (row == u"Keys"_s || row.startsWith(u'-'))
            continue;
        for (QString sequence : row == u"Ctrl+,"_s ? QStringList{row} : row.split(u", "_s)) {
            ++told;
            sequence.replace(u"Enter"_s, u"Return"_s);
            EXPECT_TRUE(keys.contains(sequence)) << sequence.toStdString();
        }
    }
    EXPECT_GE(told, 10);
}

TEST_F(GuideOnWindows, F1OpensThePageOfWhereTheFocusIs)
{
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window.Databook(), Qt::Key_F1);
    QPointer<GuideWindow> guide = GuideOf(window);
    ASSERT_NE(guide, nullptr);
    EXPECT_TRUE(guide->isVisible());
    EXPECT_EQ(guide->Page(), u"grid.md"_s);
    EXPECT_EQ(guide->windowTitle(), u"The grid - Guide"_s);

    QTest::keyClick(window.findChild<QWidget*>(u"txtQuickFind"_s), Qt::Key_F1);
    EXPECT_EQ(guide->Page(), u"quick-find.md"_s) << "the same window shows the other page";
    EXPECT_EQ(window.findChildren<GuideWindow*>().size(), 1);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(guide->Page(), u"main-window.md"_s);
    QTest::keyClick(guide, Qt::Key_F1);
    EXPECT_EQ(guide->Page(), u"index.md"_s);
    QTest::keyClick(guide, Qt::Key_F1, Qt::ShiftModifier);

    QTest::keyClick(guide, Qt::Key_Escape);
    QTest::qWait(0);
    EXPECT_EQ(guide, nullptr) << "Esc closes it";
}

TEST_F(GuideOnWindows, F1OnAModalScreenCanBeReadWhileItStands)
{
    shell::frm_ChangeDB choice(u"C:\\"_s, {u"DATABOOK.MDB"_s}, u"DATABOOK.MDB"_s);
    choice.Open();
    ScreenWindow screen(choice, guard, &window);
    screen.setModal(true);
    screen.show();
    QTest::keyClick(screen.findChild<QListView*>(u"lstdatabases"_s), Qt::Key_F1);
    GuideWindow* guide = GuideOf(screen);
    ASSERT_NE(guide, nullptr);
    EXPECT_EQ(guide->Page(), u"databases.md"_s);
    EXPECT_FALSE(guide->isModal());
    auto* find = guide->findChild<QLineEdit*>(u"guideFind"_s);
    QTest::keyClicks(find, u"trashcan"_s);
    EXPECT_EQ(find->text(), u"trashcan"_s) << "the modal screen does not block it";
    EXPECT_TRUE(choice.IsOpen());
}

TEST_F(GuideOnWindows, ContentsSearchAndTheWayBack)
{
    GuideWindow guide(&window);
    guide.Show({});
    guide.show();
    guide.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&guide));
    EXPECT_EQ(guide.Page(), u"index.md"_s);
    auto* contents = guide.findChild<QListWidget*>(u"guideContents"_s);
    auto* find = guide.findChild<QLineEdit*>(u"guideFind"_s);
    auto* back = guide.findChild<QToolButton*>(u"guideBack"_s);
    auto* forth = guide.findChild<QToolButton*>(u"guideForward"_s);
    EXPECT_EQ(contents->count(), GuideContents().size());
    EXPECT_FALSE(back->isEnabled());

    guide.Show(u"grid.md"_s);
    EXPECT_EQ(contents->currentItem()->text(), u"The grid"_s) << "the contents follow";
    contents->setCurrentRow(1);
    EXPECT_EQ(guide.Page(), Pages().first());
    back->click();
    EXPECT_EQ(guide.Page(), u"grid.md"_s);
    QTest::keyClick(&guide, Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return guide.Page() == u"index.md"_s; }));
    forth->click();
    EXPECT_EQ(guide.Page(), u"grid.md"_s);

    QTest::keyClicks(find, u"calendar"_s);
    EXPECT_EQ(guide.Page(), u"calendar.md"_s) << "the first page found";
    EXPECT_LT(contents->count(), GuideContents().size());
    auto* view = guide.findChild<GuideView*>();
    EXPECT_GE(view->extraSelections().size(), 3) << "its places are marked";
    const int first = view->textCursor().position();
    QTest::keyClick(find, Qt::Key_Return);
    EXPECT_GT(view->textCursor().position(), first);
    QTest::keyClicks(find, u" xyzzy"_s);
    EXPECT_EQ(contents->item(0)->text(), u"No page holds these words."_s);
    EXPECT_FALSE(guide.Page().isEmpty()) << "the page stays";

    guide.setAttribute(Qt::WA_DeleteOnClose, false);
    QTest::keyClick(&guide, Qt::Key_Escape);
    EXPECT_TRUE(find->text().isEmpty());
    EXPECT_EQ(contents->count(), GuideContents().size());
    EXPECT_TRUE(guide.isVisible());
    QTest::keyClick(&guide, Qt::Key_Escape);
    EXPECT_FALSE(guide.isVisible());
    guide.Show(u"no-such-page.md"_s);
    EXPECT_EQ(guide.Page(), u"index.md"_s);
}

TEST_F(GuideOnWindows, PicturesAreNeverWiderThanThePage)
{
    GuideWindow guide(&window);
    guide.Show(u"main-window.md"_s);
    guide.resize(700, 500);
    guide.show();
    QTest::qWait(300);
    auto* view = guide.findChild<GuideView*>();
    EXPECT_LE(view->document()->idealWidth(), view->viewport()->width());
    EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0);
}

TEST_F(GuideOnWindows, TheGuideIsReadableInTheDark)
{
    const auto luminance = [](const QColor& colour) {
        const auto part = [](double v) {
            return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    for (const ThemeChoice choice : {ThemeChoice::Light, ThemeChoice::Dark}) {
        theme.Choose(choice);
        GuideWindow guide(&window);
        guide.Show(u"menus.md"_s);
        const QPalette palette = guide.findChild<GuideView*>()->palette();
        const double ground = luminance(palette.color(QPalette::Base));
        for (const auto role : {QPalette::Text, QPalette::Link}) {
            const double ink = luminance(palette.color(role));
            EXPECT_GE((std::max(ground, ink) + 0.05) / (std::min(ground, ink) + 0.05), 4.5);
        }
    }
    theme.Choose(ThemeChoice::System);
}

} // namespace
} // namespace vasclip::windows
