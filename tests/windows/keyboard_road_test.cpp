#include "common/paths.h"
#include "keys.h"
#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "photos/photo_lists.h"
#include "platform/engine/database.h"
#include "report_windows.h"
#include "shell/map_parts.h"
#include "support/map_home.h"
#include "windows/drag_desk.h"
#include "windows/picture_view.h"
#include "windows/record_grid.h"
#include "windows/send_to_slot.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

#include <map>
#include <set>

// Somebody works without a mouse: from the card to the record to the report, and every drag that there is.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The real rules, and a note of what is dropped on what. With `quiet` it is noted alone.
class NotedDrops : public drops::Router
{
public:
    using Router::Router;
    QStringList dropped;
    bool quiet = false;
    void Drop(forms::Control& source, forms::Control& target) override
    {
        dropped << source.Name() + u" > "_s + target.Name();
        if (!quiet)
            Router::Drop(source, target);
    }
};

drops::DropDesk OnScreen(shell::frm_Main& main)
{
    drops::DropDesk desk = main.program.Drops();
    desk.show = &main.drags;
    return desk;
}

/// The program on a report, with its real windows in place of the scripted ones.
class ByKeys : protected OwnScreens, public ReportWindows
{
protected:
    ByKeys()
        : ReportWindows(Own{&screens})
    {}

    NotedDrops drops{OnScreen(main)};

    void SetUp() override
    {
        ReportWindows::SetUp();
        home.MakeDirs(u"C:\\CARD"_s);
        for (const QString& name : {u"DSC1.JPG"_s, u"DSC2.JPG"_s, u"DSC3.JPG"_s})
            Picture(u"C:\\CARD\\"_s + name);
        for (const QString& mark : {u"Added"_s, u"Full"_s, u"Empty"_s})
            Picture(u"C:\\VAS2000\\Addendum_"_s + mark + u".bmp"_s);
        for (int i = 1; i <= 50; ++i) // one stem each
            doubles.random.sequence.push_back(i / 53.0);
        StartProgram();
        ASSERT_TRUE(main.linkState.linkActive);
        main.globals.useSubjCsz = u"NONE"_s;
        main.globals.lastCopy = u"C:\\CARD\\"_s;
        main.globals.imageListBox = u"OFF"_s;
        screens.SetGuard(&guard);
        MakeMainWindow(drops);
        MakeMaps(home.disk.ToNative(common::CkRSlash(main.globals.cellData)));
        mainWindow->ShowMap(main.map);
        screens.SetOwner(&*mainWindow);
        mainWindow->show();
        mainWindow->BuildAllPages();
        main.ShowCapture();
        ASSERT_TRUE(Activate(*mainWindow));
    }
    void ExpectLettersOfTheirOwn(const QWidget& without);
    template <class T = QWidget>
    T* Find(const QString& name)
    {
        return mainWindow->findChild<T*>(name);
    }
    [[nodiscard]] static QString Focused()
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? QString() : focus->objectName();
    }
    /// Presses F6 until the focus is where it should be.
    void PaneWith(const QString& name)
    {
        for (int i = 0; i < 8 && Focused() != name; ++i)
            Keys(Qt::Key_F6);
        ASSERT_EQ(Focused(), name);
    }
    /// Chooses an entry by the letters that are underlined.
    void Menu(const QString& menu, const QString& entry)
    {
        auto* bar = Find<QMenu>(menu);
        ASSERT_NE(bar, nullptr);
        Keys(Letter(bar->title()), Qt::AltModifier);
        ASSERT_EQ(QApplication::activePopupWidget(), bar);
        for (const QAction* action : bar->actions())
            if (action->text().remove(u'&') == entry)
                return Press(*bar, *action);
        ADD_FAILURE() << entry.toStdString() << " is not there";
    }
    void Press(QMenu& menu, const QAction& action)
    {
        QTest::keyClick(&menu, Qt::Key(Letter(action.text())));
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }));
        EXPECT_TRUE(Activate(*mainWindow));
    }
    static int Letter(const QString& text)
    {
        return text.at(text.indexOf(u'&') + 1).toUpper().unicode();
    }
    /// Sends what has the focus to the first place that fits the words.
    void SendTo(const QString& words)
    {
        OnScreen(
            *mainWindow, u"sendToSlot"_s, [] { Keys(Qt::Key_Return, Qt::ControlModifier); },
            [&](QWidget&) {
                Type(words);
                Keys(Qt::Key_Return);
            });
    }
    [[nodiscard]] QStringList Views(const QString& key)
    {
        QStringList views;
        const auto rows =
            engine.OpenDatabase(shell::kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext())
            if (rows->Value(u"CENTRALKEY"_s).toString().trimmed() == key)
                for (const auto& [view, stem] : photos::ParsePhotos(rows->Value(u"PHOTOS"_s).toString()))
                    if (home.disk.FileExists(u"C:\\JPG\\"_s + stem + u".jpg"_s))
                        views << view;
        return views;
    }
    [[nodiscard]] QString Shows(const forms::Control& box) { return main.drags.Router().FileOf(box); }
};

TEST_F(ByKeys, TheWholeRoadFromTheCardToTheReport)
{
    // The card.
    mainWindow->Databook().setFocus();
    OnScreen(
        *mainWindow, u"frm_CopyPics"_s, [this] { Menu(u"mnuFileItem"_s, u"Copy Photos - From Reader"_s); },
        [](QWidget& screen) {
            const QPointer<QWidget> open = &screen;
            Keys(Letter(screen.findChild<QPushButton*>(u"cmdCopy"_s)->text()), Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !open || !open->isVisible(); }));
        });
    EXPECT_EQ(main.capture.filCapture.ListCount(), 3);
    EXPECT_EQ(home.disk.Dir(u"C:\\SNAP\\*.JPG"_s).size(), 3);

    // A picture to the record of the grid.
    PaneWith(u"geathumb_0"_s);
    Keys(Qt::Key_Right);
    ASSERT_EQ(Focused(), u"geathumb_1"_s);
    EXPECT_EQ(main.capture.filCapture.ListIndex(), 1) << "the keys select what they come to";
    Keys(Qt::Key_J, Qt::ControlModifier);
    ASSERT_EQ(mainWindow->Drags().Held(), &main.capture.geathumb(1));
    Keys(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(Find<QLabel>(u"lblmsg"_s)->text(),
              u"Drop here to add a photo to the currently highlighted data entry"_s);
    OnScreen(
        *mainWindow, u"frm_GenView"_s, [] { Keys(Qt::Key_J, Qt::ControlModifier); },
        [](QWidget& screen) {
            EXPECT_EQ(screen.findChild<QLineEdit*>(u"txtView"_s)->text(), u"FRONT VIEW"_s);
            Keys(Qt::Key_Return);
        });
    EXPECT_EQ(mainWindow->Drags().Held(), nullptr);
    EXPECT_EQ(Views(u"12 OAK ST"_s), QStringList{u"FRONT VIEW"_s});
    EXPECT_FALSE(home.disk.FileExists(u"C:\\SNAP\\DSC2.JPG"_s)) << "it went to the trash";

    // The record to the report: its data and that photo.
    mainWindow->Databook().setFocus();
    conduit.pokes.clear();
    conduit.commands.clear();
    SendTo(u"listing 2 data front"_s);
    EXPECT_EQ(main.report.txtListing(2).Text(), u"12 Oak St"_s);
    EXPECT_FALSE(Shows(main.slots.imaListing(2)).isEmpty());
    ASSERT_EQ(conduit.commands.size(), 1);
    EXPECT_TRUE(conduit.commands.first().contains(u"LCMP_2_"_s)) << conduit.commands.first().toStdString();

    // The next picture straight to a slot of the report.
    PaneWith(u"geathumb_0"_s);
    conduit.commands.clear();
    SendTo(u"rental 3 photo"_s);
    ASSERT_EQ(conduit.commands.size(), 1);
    EXPECT_TRUE(conduit.commands.first().contains(u"RCMP_3_"_s));
    EXPECT_TRUE(Shows(main.slots.imaRental(3)).contains(u"/JPG/"_s)) << "it was filed";

    // And back: the slot's photo to its record, by the menu key's entries and by a drag.
    main.report.txtRental(3).SetText(u"12 Oak St"_s);
    main.report.TabData.SetTab(4);
    Find(u"imaRental_3"_s)->setFocus();
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    OnScreen(
        *mainWindow, u"frm_Overwrite"_s,
        [this] {
            Keys(Qt::Key_J, Qt::ControlModifier);
            Keys(Qt::Key_G, Qt::ControlModifier);
            QTest::keyClick(&mainWindow->Databook(), Qt::Key_J, Qt::ControlModifier);
        },
        [](QWidget&) { Keys(Qt::Key_Escape); });
    EXPECT_EQ(Views(u"12 OAK ST"_s), QStringList{u"FRONT VIEW"_s});
    EXPECT_EQ(drops.dropped, (QStringList{u"geathumb > grddatabook"_s, u"grddatabook > txtListing"_s,
                                          u"geathumb > imaRental"_s, u"imaRental > grddatabook"_s}));
}

TEST_F(ByKeys, NoTwoPlacesOfTheWindowShareALetter)
{
    // The two pages are never seen together.
    for (const QString& hidden : {u"atlasPage"_s, u"reportPage"_s}) {
        SCOPED_TRACE("without " + hidden.toStdString());
        const QWidget* other = mainWindow->findChild<QWidget*>(hidden);
        ASSERT_NE(other, nullptr);
        ExpectLettersOfTheirOwn(*other);
    }
}

void ByKeys::ExpectLettersOfTheirOwn(const QWidget& without)
{
    std::map<int, QStringList> taken;
    const auto take = [&taken](const QString& text) {
        if (const qsizetype mark = text.indexOf(u'&'); mark >= 0 && mark + 1 < text.size() && text[mark + 1] != u'&')
            taken[Letter(text)] << text;
    };
    for (const QAction* action : mainWindow->menuBar()->actions())
        take(action->text());
    for (const auto* button : mainWindow->findChildren<QAbstractButton*>())
        if (!without.isAncestorOf(button))
            take(button->text());
    for (const auto* label : mainWindow->findChildren<QLabel*>())
        if (label->buddy() != nullptr && !without.isAncestorOf(label))
            take(label->text());
    ASSERT_GE(taken.size(), 10U);
    for (const auto& [letter, texts] : taken)
        EXPECT_EQ(texts.size(), 1) << texts.join(u", "_s).toStdString();
}

TEST_F(ByKeys, AMenuOverASlotOpensByItsKey)
{
    main.report.TabData.SetTab(1);
    auto* slot = Find(u"imaComp_1"_s);
    slot->setFocus();
    bool seen = false;
    QTimer::singleShot(0, mainWindow.get(), [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        seen = true;
        EXPECT_EQ(menu->actions().first()->text().remove(u'&'), u"Obtain Selected Photo (from databook)"_s);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), slot->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(slot, &asked);
    EXPECT_TRUE(seen);
    EXPECT_EQ(Find<QLabel>(u"lblmsg"_s)->text(), u"12 OAK ST has no FRONT VIEW."_s);
}

// ---- every row of the matrix ---------------------------------------------------------------------------

class EveryDrag : public ByKeys
{
protected:
    /// Every page is there, every slot has a photo and a record.
    void Fill()
    {
        Picture(u"C:\\JPG\\HOUSE.jpg"_s);
        for (const QString& name : {u"A.JPG"_s, u"B.JPG"_s})
            Picture(u"C:\\SNAP\\"_s + name);
        main.Capture().RefreshCapture();
        for (forms::Control* control : main.controls.All()) {
            const QString name = control->Name().toUpper();
            if (auto* tabs = qobject_cast<forms::TabControl*>(control)) {
                tabs->SetEnabled(true);
                for (int page = 0; page < tabs->Tabs(); ++page) {
                    tabs->SetTabEnabled(page, true);
                    if (tabs->TabCaption(page) == u"N/A"_s)
                        tabs->SetTabCaption(page, u"There"_s);
                }
            }
            if (name.startsWith(u"IMA"_s) && control->Index() >= 1 && !name.endsWith(u"ICON"_s) &&
                !name.endsWith(u"ANCHOR"_s) && !name.startsWith(u"IMASCROLL"_s))
                main.Link().loader.ErrLoadThumb(*qobject_cast<forms::PictureBox*>(control),
                                                u"C:\\JPG\\HOUSE.jpg"_s);
            const bool slot = control->Index() >= 1 && name.startsWith(u"TXT"_s);
            if (auto* text = qobject_cast<forms::TextBox*>(control); text != nullptr && slot) {
                text->SetEnabled(true);
                text->SetText(u"12 Oak St"_s);
            }
            if (name == u"CBOGENERAL"_s)
                control->SetEnabled(true);
        }
        main.Link().loader.ErrLoadThumb(main.slots.geamaintain, u"C:\\JPG\\HOUSE.jpg"_s);
        main.program.Map().tab.txtMapAddress.SetText(u"12 Oak St"_s);
        main.program.Map().tab.txtMapProximity.SetText(u"1.2 Mi. NW"_s);
        main.report.cboGeneral(1).SetText(u"KITCHEN"_s);
        main.records.grddatabook.SetRow(0);
        drops.quiet = true;
    }
    forms::Control* Control(const QString& upperName)
    {
        const QString name = upperName == u"CBOADDRESS"_s ? u"TXTCENTRALKEY"_s : upperName;
        for (forms::Control* control : main.controls.All())
            if (control->Name().toUpper() == name && control->Index() <= 1 &&
                (control->Index() != 0 || name == u"GEATHUMB"_s))
                return control;
        return nullptr;
    }
    /// Turns to the page where a control stands and goes there. @return false for one that takes no focus
    bool Go(forms::Control& control)
    {
        QWidget* widget = mainWindow->Bindings().WidgetOf(control);
        if (widget == nullptr || (widget->focusPolicy() & Qt::TabFocus) == 0)
            return false;
        const bool onMap = control.Name().startsWith(u"txtMap"_s) || control.Name() == u"mapview"_s || control.Name() == u"geaMapPhoto"_s;
        main.tabSource.SetTab(onMap ? 1 : 0);
        const std::pair<QString, std::pair<int, int>> pages[] = {
            {u"Subject"_s, {0, 0}}, {u"AltComp"_s, {1, 3}}, {u"Comp"_s, {1, 0}},
            {u"eneral"_s, {2, 0}},  {u"Listing"_s, {3, 0}}, {u"Rental"_s, {4, 0}}};
        for (const auto& [word, page] : pages)
            if (control.Name().endsWith(word)) {
                main.report.TabData.SetTab(page.first);
                main.report.TabComp.SetTab(page.second);
                break;
            }
        if (control.Name() == u"filCapture"_s || control.Name() == u"geaListBox"_s ||
            control.Name() == u"geathumb"_s) {
            const bool list = control.Name() != u"geathumb"_s;
            if (main.Capture().ListMode() != list)
                main.Capture().ToggleListBox();
            if (list) {
                main.capture.filCapture.SetListIndex(0);
                main.Capture().filCapture_Click();
            }
        }
        QApplication::processEvents();
        widget->setFocus(Qt::TabFocusReason);
        return mainWindow->Bindings().ControlAt(mainWindow->focusWidget()) == &control;
    }
    /// Another target with the same effect.
    bool HasTwinInTheList(const drops::DropRule& rule, const QList<SlotChoice>& choices)
    {
        return std::any_of(choices.begin(), choices.end(), [&](const SlotChoice& choice) {
            const drops::DropRule* twin = drops::RuleFor(QString(rule.source), choice.target->Name());
            return twin != nullptr && twin->action == rule.action && twin->group == rule.group;
        });
    }
};

TEST_F(EveryDrag, IsMadeByPickingUpAndDroppingOrByTheListOfPlaces)
{
    Fill();
    std::set<QString> notHere; // names that no control bears: the map's, and old ones that are still compared
    int byKeys = 0, byList = 0;
    for (const drops::DropRule& rule : drops::Matrix()) {
        const std::string pair = (QString(rule.source) + u" on "_s + QString(rule.target)).toStdString();
        SCOPED_TRACE(pair);
        if (rule.source == drops::kFiles)
            continue; // the next test
        forms::Control* source = Control(QString(rule.source));
        forms::Control* target = Control(QString(rule.target));
        if (source == nullptr)
            notHere.insert(QString(rule.source));
        if (target == nullptr)
            notHere.insert(QString(rule.target));
        if (source == nullptr || target == nullptr)
            continue;
        ASSERT_TRUE(Go(*source)) << "the keys don't come to the source";
        ASSERT_TRUE(drops.IsSource(*source));
        drops.dropped.clear();
        const QList<SlotChoice> choices = SlotChoices(main.controls, drops, source->Name());
        Keys(Qt::Key_J, Qt::ControlModifier);
        ASSERT_EQ(mainWindow->Drags().Held(), source);
        if (Go(*target)) {
            Keys(Qt::Key_J, Qt::ControlModifier);
            EXPECT_EQ(drops.dropped, QStringList{source->Name() + u" > "_s + target->Name()});
            ++byKeys;
        } else {
            mainWindow->Drags().PutDown();
            EXPECT_TRUE(HasTwinInTheList(rule, choices)) << "neither the keys come to the target nor the list";
            ++byList;
        }
        ASSERT_EQ(mainWindow->Drags().Held(), nullptr);
    }
    EXPECT_EQ(notHere,
              (std::set<QString>{u"TXTADDACOMP"_s, u"TXTGENERAL"_s}));
    EXPECT_GT(byKeys, 80);
    EXPECT_LT(byList, 25);
}

TEST_F(EveryDrag, OfFilesIsMadeOverTheClipboard)
{
    Fill();
    const auto onClipboard = [this](const QString& path) {
        auto* data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(home.disk.ToNative(path))});
        QApplication::clipboard()->setMimeData(data);
    };
    home.MakeDirs(u"C:\\DESKTOP"_s);
    Picture(u"C:\\DESKTOP\\X.JPG"_s);
    onClipboard(u"C:\\DESKTOP\\X.JPG"_s);
    // Into the browser, and onto a slot.
    ASSERT_TRUE(Go(main.capture.geathumb(0)));
    Keys(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Find<QLabel>(u"lblmsg"_s)->text(), u"1 picture is in C:\\SNAP\\ now."_s);
    doubles.prompter.AnswerAlways(forms::Answer::No); // the record's data stay
    doubles.prompter.Answer(forms::Answer::Yes);      // the slot's photo is overwritten
    ASSERT_TRUE(Go(main.slots.imaRental(1)));
    Keys(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Find<QLabel>(u"lblmsg"_s)->text(), u"X.JPG is in the report now."_s);
    onClipboard(u"C:\\DESKTOP"_s);
    ASSERT_TRUE(Go(main.slots.imaRental(1)));
    Keys(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Find<QLabel>(u"lblmsg"_s)->text(), u"Only picture files can be dropped here, no folders."_s);
    onClipboard(u"C:\\DESKTOP\\X.JPG"_s);
    // A field keeps the key for its text; the menu pastes there too.
    ASSERT_TRUE(Go(main.report.txtSubject));
    Menu(u"viewMenu"_s, u"Paste Files"_s);
    EXPECT_EQ(Find<QLabel>(u"lblmsg"_s)->text(), u"The picture is on show; it has not gone to the report."_s);
    // Every other place of files takes them.
    for (const drops::DropRule& rule : drops::Matrix()) {
        forms::Control* target = Control(QString(rule.target));
        if (rule.source == drops::kFiles && target != nullptr) {
            EXPECT_TRUE(drops.AcceptsFiles(*target)) << rule.target.data();
        }
    }
}

TEST_F(EveryDrag, TakesItsPictureToOtherPrograms)
{
    Fill();
    const QUrl file = QUrl::fromLocalFile(home.disk.ToNative(u"C:\\JPG\\HOUSE.jpg"_s));
    const std::unique_ptr<QMimeData> data(mainWindow->Drags().DataOf(main.slots.imaComp(1)));
    EXPECT_EQ(data->urls(), QList<QUrl>{file});
    EXPECT_TRUE(data->hasImage());
    EXPECT_EQ(qvariant_cast<QImage>(data->imageData()).size(), QSize(16, 12));
    EXPECT_TRUE(data->hasFormat(QLatin1StringView(DragDesk::kMimeType)));
    const std::unique_ptr<QMimeData> lamp(mainWindow->Drags().DataOf(main.slots.geaComp(1)));
    EXPECT_FALSE(lamp->hasUrls());
    EXPECT_FALSE(lamp->hasImage());
    QApplication::clipboard()->clear();
    ASSERT_TRUE(Go(main.slots.imaComp(1)));
    Keys(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* copied = QApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->urls(), QList<QUrl>{file});
    EXPECT_EQ(qvariant_cast<QImage>(copied->imageData()).size(), QSize(16, 12));
    EXPECT_FALSE(copied->hasFormat(QLatin1StringView(DragDesk::kMimeType)));
}

} // namespace
} // namespace vasclip::windows
