#include "report_home.h"

#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "photos/frm_double.h"
#include "photos/photo_lists.h"
#include "platform/engine/database.h"

#include <QImage>

// What is done to a slot of the main screen - a drop of it on the grid, a drop on it, a click, a double click, an
// entry of its menu - reaches the Databook, the report and the adjust window.

namespace vasclip::shell {
namespace {

enum class Part { Data, Photo, Both };

struct SlotRow
{
    const char* name;
    QString key;
    QString area;                                ///< of the group's first slot in the report
    QString text, photo, data, icon;             ///< controls
    QString view = u"FRONT VIEW"_s;
};

class SlotWiring : public ReportHome
{
protected:
    void SetUp() override
    {
        ReportHome::SetUp();
        for (const QString& name : {u"compfull.jpg"_s, u"LISTfull.jpg"_s, u"RENTfull.jpg"_s})
            Picture(u"C:\\VAS2000\\"_s + name);
        for (const QString& mark : {u"Added"_s, u"Full"_s, u"Empty"_s})
            Picture(u"C:\\VAS2000\\Addendum_"_s + mark + u".bmp"_s);
        home.MakeDirs(u"C:\\KEL\\DATA"_s);
        Picture(u"C:\\KEL\\DATA\\HOUSE.JPG"_s);
        for (int i = 1; i <= 50; ++i) // one stem each
            doubles.random.sequence.push_back(i / 53.0);
        Load();
        main.globals.useSubjCsz = u"NONE"_s;
    }
    template <class T = forms::Control>
    T& Get(const QString& name, int index)
    {
        auto* control = qobject_cast<T*>(main.controls.Find(name, index));
        return *control;
    }
    [[nodiscard]] QString Shows(const forms::Control& box)
    {
        return main.Link().loader.Table().ErrGetPict(box);
    }
    void ShowHouse(const QString& name, int index)
    {
        main.Link().loader.ErrLoadThumb(Get<forms::PictureBox>(name, index), u"C:\\KEL\\DATA\\HOUSE.JPG"_s);
    }
    drops::Outcome DropOnGrid(forms::Control& source)
    {
        return main.drags.Router().End(main.drags.Router().Start(source), main.records.grddatabook);
    }
    /// Views that a record has a file for.
    [[nodiscard]] QStringList Views(const QString& key)
    {
        QStringList views;
        const auto rows =
            engine.OpenDatabase(kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext()) {
            if (rows->Value(u"CENTRALKEY"_s).toString().trimmed() != key)
                continue;
            for (const auto& [view, stem] : photos::ParsePhotos(rows->Value(u"PHOTOS"_s).toString()))
                if (home.disk.FileExists(u"C:\\JPG\\"_s + stem + u".jpg"_s))
                    views << view;
        }
        return views;
    }
    [[nodiscard]] QString OnShow() const
    {
        return main.records.grddatabook.CurrentText(u"CENTRALKEY"_s).trimmed();
    }
    void ChooseOver(const QString& name, int index, int entry)
    {
        forms::Menu* menu = main.MenuOver(Get(name, index));
        ASSERT_NE(menu, nullptr);
        menu->Choose(menu->Name(), entry);
    }
};

const SlotRow kRows[] = {
    {"Comp", u"12 OAK ST"_s, u"1002"_s, u"txtComp"_s, u"imaComp"_s, u"geaComp"_s, u"imaCompIcon"_s},
    {"AltComp", u"3 ALT ST"_s, u"1003"_s, u"txtAltComp"_s, u"imaAltComp"_s, u"geaAltComp"_s,
     u"imaAltCompIcon"_s},
    {"Listing", u"4 LIST ST"_s, u"1004"_s, u"txtListing"_s, u"imaListing"_s, u"geaListing"_s,
     u"imaListingIcon"_s},
    {"Rental", u"5 RENT ST"_s, u"1005"_s, u"txtRental"_s, u"imaRental"_s, u"geaRental"_s, u"imaRentalIcon"_s},
};

class SlotOfGroup : public SlotWiring, public testing::WithParamInterface<SlotRow>
{
protected:
    const SlotRow& row = GetParam();
    void SetUp() override
    {
        SlotWiring::SetUp();
        doubles.prompter.AnswerAlways(forms::Answer::Yes); // the comp's record is there and is replaced
        ShowHouse(row.photo, 1);
    }
};
INSTANTIATE_TEST_SUITE_P(Rows, SlotOfGroup, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST_P(SlotOfGroup, ItsDataBoxOnTheGridStoresTheDataAlone)
{
    EXPECT_TRUE(DropOnGrid(Get(row.data, 1)).done);
    EXPECT_EQ(Records().value(row.key), row.area);
    EXPECT_TRUE(Views(row.key).isEmpty());
    EXPECT_EQ(OnShow(), row.key) << "the record that has changed comes on show";
}

TEST_P(SlotOfGroup, ItsPhotoOnTheGridStoresThePhotoAlone)
{
    EXPECT_TRUE(DropOnGrid(Get(row.photo, 1)).done);
    EXPECT_EQ(Views(row.key), QStringList{u"FRONT VIEW"_s});
    EXPECT_EQ(Records().value(row.key), QString());
    EXPECT_EQ(OnShow(), row.key);
    EXPECT_FALSE(main.slots.geamaintain.Picture().isNull()) << "with its photo";
}

TEST_P(SlotOfGroup, ItsTextOnTheGridStoresBoth)
{
    EXPECT_TRUE(DropOnGrid(Get(row.text, 1)).done);
    EXPECT_EQ(Records().value(row.key), row.area);
    EXPECT_EQ(Views(row.key), QStringList{u"FRONT VIEW"_s});
}

TEST_P(SlotOfGroup, ItsIconStoresThePhoto)
{
    Q_EMIT Get(row.icon, 1).Clicked();
    EXPECT_EQ(Views(row.key), QStringList{u"FRONT VIEW"_s});
    EXPECT_EQ(Records().value(row.key), QString());
}

TEST_P(SlotOfGroup, ItsMenuStoresTheData)
{
    ChooseOver(row.text, 1, 3);
    EXPECT_EQ(Records().value(row.key), row.area);
    EXPECT_TRUE(Views(row.key).isEmpty());
    EXPECT_EQ(OnShow(), row.key) << "the grid follows";
}

TEST_P(SlotOfGroup, ACameraPictureOnItIsSavedWithTheDataIfTheSettingSaysSo)
{
    Picture(u"C:\\SNAP\\A.JPG"_s);
    main.ShowCapture();
    for (const int autoSave : {0, 1}) {
        main.globals.autoSave = autoSave;
        main.globals.autoDelete = 0;
        const bool stored = autoSave == 1;
        EXPECT_TRUE(main.drags.Router().End(main.drags.Router().Start(main.capture.geathumb(0)), Get(row.photo, 1)).done);
        EXPECT_EQ(Records().value(row.key), stored ? row.area : QString());
        EXPECT_EQ(Views(row.key), stored ? QStringList{u"FRONT VIEW"_s} : QStringList());
    }
}

TEST_P(SlotOfGroup, AClickOnItsDataBoxSendsTheRecordOfItsText)
{
    Get<forms::TextBox>(row.text, 1).SetText(u"12 Oak St"_s);
    Q_EMIT Get(row.data, 1).Clicked();
    EXPECT_EQ(main.status.lblmsg.Caption(), u"12 Oak St is in the report now."_s);
    const QString lamp = row.data.endsWith(u"Comp"_s) ? u"comp"_s : row.key.mid(2, 4);
    EXPECT_EQ(Shows(Get(row.data, 1)), u"C:\\VAS2000\\"_s + lamp + u"full.jpg"_s);
    EXPECT_FALSE(conduit.pokes.isEmpty());
}

TEST_P(SlotOfGroup, ItsMenusObtainPhotoAndDataFromTheDatabook)
{
    DropOnGrid(Get(row.photo, 1)); // so that the record has a photo
    const QString stored = u"C:\\JPG\\"_s;
    main.Link().loader.ErrClearPict(Get<forms::PictureBox>(row.photo, 1));
    for (const int entry : {0, 1}) {
        conduit.commands.clear();
        conduit.pokes.clear();
        ChooseOver(row.photo, 1, entry);
        EXPECT_TRUE(Shows(Get(row.photo, 1)).startsWith(stored)) << entry;
        EXPECT_EQ(conduit.commands.size(), 1) << entry;
        EXPECT_TRUE(conduit.pokes.isEmpty()) << entry;
        ChooseOver(row.text, 1, entry);
        EXPECT_FALSE(conduit.pokes.isEmpty()) << entry;
        EXPECT_EQ(conduit.commands.size(), 1) << "the data alone, " << entry;
        conduit.pokes.clear();
        ChooseOver(row.data, 1, entry);
        EXPECT_FALSE(conduit.pokes.isEmpty()) << entry;
        EXPECT_EQ(conduit.commands.size(), 2) << "with the photo, " << entry;
    }
    ChooseOver(row.photo, 1, 3);
    EXPECT_EQ(doubles.prompter.Last().text, u"Clear the photo.  Are you sure?"_s);
    EXPECT_EQ(Shows(Get(row.photo, 1)), QString());
}

// ---- the subject and the general slots -----------------------------------------------------------------

TEST_F(SlotWiring, TheSubjectIsStoredWithTheViewOfTheSlotOrWhole)
{
    for (const int i : {1, 2})
        ShowHouse(u"imaSubject"_s, i);
    const QString key = u"1 SUBJECT WAY"_s;
    EXPECT_TRUE(DropOnGrid(main.slots.imaSubject(2)).done);
    EXPECT_EQ(Views(key), QStringList{u"REAR VIEW"_s});
    EXPECT_EQ(Records().value(key), QString());
    ShowHouse(u"imaSubject"_s, 3);
    Q_EMIT main.slots.imaSubjectIcon(3).Clicked();
    EXPECT_EQ(Views(key), (QStringList{u"REAR VIEW"_s, u"STREET SCENE"_s}));
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    doubles.screens.Play([](forms::Screen&) {}); // the views that are there ask
    doubles.screens.Play([](forms::Screen&) {});
    EXPECT_TRUE(DropOnGrid(main.report.txtSubject).done);
    EXPECT_EQ(Records().value(key), u"1001"_s);
    EXPECT_EQ(Views(key).size(), 3);
}

TEST_F(SlotWiring, ACameraPictureOnTheSubjectIsSavedForTheFirstViewAlone)
{
    Picture(u"C:\\SNAP\\A.JPG"_s);
    main.ShowCapture();
    main.globals.autoSave = 1;
    main.globals.autoDelete = 0;
    EXPECT_TRUE(main.drags.Router().End(main.drags.Router().Start(main.capture.geathumb(0)), main.slots.imaSubject(2)).done);
    EXPECT_FALSE(Records().contains(u"1 SUBJECT WAY"_s));
    EXPECT_TRUE(main.drags.Router().End(main.drags.Router().Start(main.capture.geathumb(0)), main.slots.imaSubject(1)).done);
    EXPECT_EQ(Records().value(u"1 SUBJECT WAY"_s), u"1001"_s);
}

TEST_F(SlotWiring, ASentRecordLeavesThePhotoThatIsChosenInTheRecordOnShow)
{
    ShowHouse(u"imaComp"_s, 1);
    main.report.txtComp(1).SetText(u"9 Two Views"_s);
    DropOnGrid(main.slots.imaComp(1));
    main.ShowRecord(u"12 OAK ST"_s);
    forms::ListBox& views = main.photoLists.lstViews;
    views.AddItem(u"A MARK"_s);
    main.photoLists.lstimages.AddItem(u"MARK"_s);
    views.SetListIndex(views.ListCount() - 1);
    drops::Router& router = main.drags.Router();
    const drops::Outcome outcome =
        router.End({.source = u"grddatabook"_s, .key = u"9 TWO VIEWS"_s}, main.slots.imaComp(2));
    EXPECT_TRUE(outcome.done) << outcome.message.toStdString();
    EXPECT_EQ(views.List(views.ListIndex()), u"A MARK"_s) << "the lists were not read again";
    EXPECT_EQ(main.shown.Key(), u"12 OAK ST"_s);
}

TEST_F(SlotWiring, AGeneralPhotoIsStoredWithTheSubjectUnderItsName)
{
    ShowHouse(u"imaGeneral"_s, 2);
    EXPECT_EQ(main.report.txtgeneraladdr(2).Text(), u"1 Subject Way"_s);
    main.report.txtgeneraladdr(2).SetText({});
    Q_EMIT main.slots.imaGeneralIcon(2).Clicked();
    EXPECT_EQ(main.status.lblmsg.Caption(), u"Blank address"_s);
    main.report.txtgeneraladdr(2).SetText(u"1 Subject Way"_s);
    main.report.cboGeneral(2).SetText(u"KITCHEN"_s);
    Q_EMIT main.slots.imaGeneralIcon(2).Clicked();
    EXPECT_EQ(Views(u"1 SUBJECT WAY"_s), QStringList{u"KITCHEN"_s});
    main.Link().loader.ErrClearPict(main.slots.imaGeneral(2));
    ChooseOver(u"imaGeneral"_s, 2, 0);
    EXPECT_TRUE(Shows(main.slots.imaGeneral(2)).startsWith(u"C:\\JPG\\"_s));
    doubles.prompter.Answer(forms::Answer::Yes);
    ChooseOver(u"imaGeneral"_s, 2, 2);
    EXPECT_EQ(Shows(main.slots.imaGeneral(2)), QString());
    for (forms::Control* source : {static_cast<forms::Control*>(&main.slots.imaGeneral(2)),
                                   static_cast<forms::Control*>(&main.report.cboGeneral(2))}) {
        ShowHouse(u"imaGeneral"_s, 2);
        EXPECT_TRUE(main.drags.Router().IsSource(*source));
        doubles.prompter.Forget();
        DropOnGrid(*source);
        EXPECT_EQ(doubles.prompter.Last().title, u"How To: Saving General Views"_s);
    }
}

// ---- the adjust window ---------------------------------------------------------------------------------

/// Compresses and leaves.
void Compress(forms::Screen& shown)
{
    auto& screen = dynamic_cast<photos::frm_Double&>(shown);
    Q_EMIT screen.cmdCompress.Clicked();
    Q_EMIT screen.cmdExit.Clicked();
}

TEST_F(SlotWiring, ADoubleClickOnAPhotoOpensTheAdjustWindowAndShowsItsResult)
{
    main.globals.writeProtectPhotos = true;
    const QString bmp = u"C:\\KEL\\DATA\\PORCH.BMP"_s;
    const QString jpg = u"C:\\KEL\\DATA\\PORCH.jpg"_s;
    for (const QString& name : {u"imaSubject"_s, u"imaComp"_s, u"imaAltComp"_s, u"imaListing"_s, u"imaRental"_s,
                                u"imaGeneral"_s}) {
        Picture(bmp);
        auto& slot = Get<forms::PictureBox>(name, 2);
        main.Link().loader.ErrLoadThumb(slot, bmp);
        doubles.screens.Play(Compress);
        Q_EMIT slot.DoubleClicked();
        EXPECT_EQ(Shows(slot), jpg) << name.toStdString();
        EXPECT_FALSE(slot.Picture().isNull());
        EXPECT_FALSE(home.disk.FileExists(bmp));
        EXPECT_NE(home.disk.GetAttr(jpg) & files::ReadOnly, 0U) << "a report slot shows it again";
        home.disk.SetAttr(jpg, files::Normal);
        home.disk.Kill(jpg);
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(SlotWiring, CancelledChangesLeaveTheSlotAsItWas)
{
    ShowHouse(u"imaComp"_s, 1);
    const QByteArray before = home.disk.ReadWhole(u"C:\\KEL\\DATA\\HOUSE.JPG"_s);
    doubles.screens.Play([](forms::Screen& shown) {
        auto& screen = dynamic_cast<photos::frm_Double&>(shown);
        screen.hsbquality.SetValue(3);
        Q_EMIT screen.cmdCompress.Clicked();
        Q_EMIT screen.cmdCancel.Clicked();
    });
    Q_EMIT main.slots.imaComp(1).DoubleClicked();
    EXPECT_EQ(Shows(main.slots.imaComp(1)), u"C:\\KEL\\DATA\\HOUSE.JPG"_s);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\KEL\\DATA\\HOUSE.JPG"_s), before);
}

TEST_F(SlotWiring, ThumbnailsThePhotoOnShowAndTheMenuOpenTheAdjustWindowToo)
{
    Picture(u"C:\\SNAP\\A.BMP"_s);
    Picture(u"C:\\SNAP\\B.JPG"_s);
    main.ShowCapture();
    ASSERT_EQ(main.capture.lbltag(0).Caption(), u"A.BMP"_s);
    doubles.screens.Play(Compress);
    Q_EMIT main.capture.geathumb(0).DoubleClicked();
    EXPECT_EQ(main.capture.lbltag(0).Caption().toUpper(), u"A.JPG"_s) << "the page is read again";
    EXPECT_EQ(main.capture.filCapture.ListCount(), 2);
    doubles.screens.Play([](forms::Screen& shown) {
        EXPECT_EQ(dynamic_cast<photos::frm_Double&>(shown).lblFilename(0).Caption(), u"B.JPG"_s);
    });
    ChooseOver(u"geathumb"_s, 1, 3);
    main.Link().loader.ErrLoadThumb(main.slots.geamaintain, u"C:\\KEL\\DATA\\HOUSE.JPG"_s);
    doubles.screens.Play([](forms::Screen& shown) {
        EXPECT_EQ(dynamic_cast<photos::frm_Double&>(shown).lblFilename(0).Caption(), u"HOUSE.JPG"_s);
    });
    Q_EMIT main.slots.geamaintain.DoubleClicked();
    EXPECT_EQ(doubles.screens.Shown(), QStringList(3, u"frm_Double"_s));
    EXPECT_EQ(home.disk.GetAttr(u"C:\\KEL\\DATA\\HOUSE.JPG"_s) & files::ReadOnly, 0U)
        << "only what a report slot shows is protected";
}

TEST_F(SlotWiring, ASalesCompIsSwappedByItsMenuWithWhatItShowedWhenItOpened)
{
    main.report.txtComp(2).SetText(u"Ash & Elm"_s);
    main.report.TabComp.SetTabCaption(1, u"N/A"_s);
    main.report.txtComp(4).SetEnabled(true);
    forms::Menu* menu = main.MenuOver(Get(u"txtComp"_s, 1));
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->Entry(menu->Name(), 5)->enabled);
    const auto entry = [&](int comp) { return *menu->Entry(u"popTextData_MSubSwap"_s, comp); };
    EXPECT_FALSE(entry(1).enabled) << "not with itself";
    EXPECT_EQ(entry(2).caption, u"Comp &2: Ash && Elm"_s);
    EXPECT_TRUE(entry(2).enabled);
    EXPECT_EQ(entry(3).caption, u"Comp &3: (empty)"_s);
    EXPECT_FALSE(entry(4).enabled) << "no such page";

    main.MenuOver(Get(u"txtComp"_s, 4));
    EXPECT_FALSE(menu->Entry(menu->Name(), 5)->enabled) << "nor with any other";
    main.report.txtComp(3).SetEnabled(false);
    main.MenuOver(Get(u"txtComp"_s, 1));
    EXPECT_FALSE(entry(3).enabled) << "the form has no such comp";

    const QString swap = u"SWAPCOMPS 3,2\r\n"_s;
    main.report.txtComp(2).SetText(u"99 Other St"_s); // the menu is open and the slot has changed
    menu->Choose(u"popTextData_MSubSwap"_s, 2);
    EXPECT_TRUE(conduit.commands.filter(swap).isEmpty());
    EXPECT_EQ(main.status.lblmsg.Caption(),
              u"The slots show other comps than when the menu opened. Nothing was swapped."_s);

    main.MenuOver(Get(u"txtComp"_s, 1));
    main.MenuOver(Get(u"imaListing"_s, 3)); // another menu between
    conduit.Answer(kReport, u"CMP|1|1"_s, u"99 Other St"_s);
    menu->Choose(u"popTextData_MSubSwap"_s, 2);
    EXPECT_EQ(conduit.commands.filter(swap).size(), 1);
    EXPECT_EQ(main.report.txtComp(1).Text(), u"99 Other St"_s);
    EXPECT_TRUE(main.status.lblmsg.Caption().startsWith(u"Swapped: comp 1 is 99 Other St now"_s))
        << main.status.lblmsg.Caption().toStdString();

    for (const QString& other : {u"txtAltComp"_s, u"txtListing"_s, u"txtRental"_s}) {
        main.MenuOver(Get(other, 1));
        EXPECT_FALSE(menu->Entry(menu->Name(), 5)->enabled) << other.toStdString();
        menu->Choose(u"popTextData_MSubSwap"_s, 2);
    }
    EXPECT_EQ(conduit.commands.filter(u"SWAPCOMPS"_s).size(), 1);
    main.MenuOver(main.report.txtSubject);
    EXPECT_FALSE(menu->Entry(menu->Name(), 5)->enabled);
}

} // namespace
} // namespace vasclip::shell
