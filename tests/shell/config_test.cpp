#include "platform/files/profile.h"
#include "shell/config_fields.h"
#include "shell/frm_config.h"
#include "store/schema.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QSet>

// The settings screen: what it loads, checks, asks and writes.

namespace vasclip::shell {
namespace {

using namespace Qt::Literals::StringLiterals;
using common::Globals;
using forms::Answer;

const QString kIni = u"C:\\APPRAISE\\VAS2000.INI"_s;

class Config : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const QString& path :
             {u"C:\\VAS2000"_s, u"C:\\USER"_s, u"C:\\VASCLIPS\\JPG"_s, u"C:\\VASSNAP"_s, u"C:\\DATABOOK"_s,
              u"C:\\DATABOOK\\ARCHIVE"_s, u"C:\\DATABOOK\\EXPORT"_s, u"C:\\DATABOOK\\IMPORT"_s, u"C:\\VAM"_s})
            home.MakeDirs(path);
        home.Put(kIni, "; mine\r\n[DIRECTORIES]\r\nUSERDIR=C:\\USER\r\n[PREFERENCES]\r\nSTRANGER=7\r\n");
        Read();
        screen.emplace(engine, doubles.Get(), globals);
        screen->Open();
    }

    void Read()
    {
        globals.applicationIni = kIni;
        const auto reader = common::ProfileReader(home.disk, globals);
        common::ReadNames(globals, reader);
        common::ReadGlobals(globals, reader);
        common::ReadiniSettings(globals, reader);
    }

    QString Ini(const QString& section, const QString& key)
    {
        return files::GetPrivateProfileString(home.disk, section, key, u"(absent)"_s, kIni);
    }
    forms::TextBox& Text(const QString& name)
    {
        return dynamic_cast<forms::TextBox&>(*screen->controls.Find(name));
    }
    forms::CheckBox& Check(const QString& name, int index = -1)
    {
        return dynamic_cast<forms::CheckBox&>(*screen->controls.Find(name, index));
    }
    const frm_Config::Field& FieldOf(const QString& name)
    {
        for (const auto& field : screen->Fields()) {
            if (name == field.about.control)
                return field;
        }
        throw std::out_of_range(name.toStdString());
    }
    QString Note(const QString& name) { return FieldOf(name).note->Caption(); }
    void Choose(const QString& name, int index) { Q_EMIT Check(name, index).Clicked(); }
    void Type(const QString& name, const QString& text)
    {
        Text(name).SetText(text);
        Q_EMIT Text(name).LostFocus();
    }
    void ClickSave() { Q_EMIT screen->cmdSave.Clicked(); }

    tests::TempHome home;
    engine::Engine engine{home.disk, tests::SomeTime()};
    tests::TestPorts doubles;
    Globals globals;
    std::optional<frm_Config> screen;
};

TEST(ConfigFields, EachTiesOneControlToOneSetting)
{
    QSet<QString> controls, keys;
    for (const ConfigField& field : ConfigFields()) {
        ASSERT_NE(common::FindSetting(field.setting), nullptr) << field.control.data();
        EXPECT_EQ(field.Row().file, common::IniFile::Application);
        EXPECT_FALSE(controls.contains(field.control)) << field.control.data();
        EXPECT_FALSE(keys.contains(field.Row().key)) << field.control.data();
        EXPECT_FALSE(field.label.isEmpty()) << field.control.data();
        EXPECT_EQ(field.kind == ConfigKind::Number, !field.refusal.isEmpty()) << field.control.data();
        EXPECT_EQ(field.kind == ConfigKind::Options, !field.options.empty()) << field.control.data();
        EXPECT_EQ(FieldOf(field.Row()), &field);
        controls.insert(field.control);
        keys.insert(field.Row().key);
        if (!field.options.empty()) {
            EXPECT_EQ(field.Row().range.highest, static_cast<double>(field.options.size() - 1));
        }
    }
    EXPECT_EQ(controls.size(), 45);
}

TEST(ConfigFields, WritesEverySettingThatTheScreenMayWriteAndNoOther)
{
    QSet<QString> written;
    for (const auto& target : ConfigWritingOrder()) {
        const auto* row = common::FindSetting(target);
        ASSERT_NE(row, nullptr);
        EXPECT_TRUE(row->writtenBy & common::SettingsScreen) << row->key.data();
        EXPECT_FALSE(written.contains(row->key)) << row->key.data();
        written.insert(row->key);
    }
    for (const auto& row : common::Settings()) {
        if (row.file != common::IniFile::Application)
            continue;
        EXPECT_EQ(bool(row.writtenBy & common::SettingsScreen), written.contains(row.key)) << row.key.data();
    }
    for (const auto& field : ConfigFields())
        EXPECT_EQ(field.kind == ConfigKind::ShownOnly, !written.contains(field.Row().key))
            << field.control.data();
}

TEST_F(Config, LabelsStandLetterForLetter)
{
    const std::pair<QString, QString> labels[] = {
        {u"ckbTabMask"_s, u"Use Default Windows Tab colors"_s},
        {u"txtQuality"_s, u"Photo Quality (1-100)"_s},
        {u"ckbRedux"_s, u"Auto Reduce Image Resolution"_s},
        {u"txtPixelX"_s, u"Pixels (width)"_s},
        {u"txtPixelY"_s, u"Pixels (height)"_s},
        {u"txtPicDelay"_s, u"Picture Format Delay (seconds)"_s},
        {u"ckbTrashcan"_s, u"Use Trashcan (Copy of photos is saved)"_s},
        {u"ckbAutoSave"_s, u"&AutoSave Front Views to the Database"_s},
        {u"ckbWrightProtectPhotos"_s, u"Write Protect Photos"_s},
        {u"ckbAutoDelete"_s, u"Auto Delete Thumbnails"_s},
        {u"ckbImageListbox"_s, u"View Image File Name ListBox"_s},
        {u"ckbImageFilenames"_s, u"View Image File Names with Thumbnails"_s},
        {u"ckbPreviewCopyPics"_s, u"Preview Pictures when Copying"_s},
        {u"optSort"_s, u"Database Sort Method"_s},
        {u"ckbIgnorePending"_s, u"Ignore Pending Sales"_s},
        {u"optAddressCase"_s, u"Address Case Sensitivity"_s},
        {u"ckbLockAddr"_s, u"Lock Text Addresses (Upper Right Tab control)"_s},
        {u"ckbShare"_s, u"Share comments with other users"_s},
        {u"ckbCaps"_s, u"Function keys  - Return comments in CAPS"_s},
        {u"ckbTransparent"_s, u"&Transparent Arrows"_s},
        {u"ckbIgnoreZipCodes"_s, u"Ignore Zip Codes (use only City, St)"_s},
        {u"txtmapquality"_s, u"Map Quality (1-100)"_s},
        {u"optArrowColor"_s, u"Default Map Arrow Color"_s},
        {u"txtMapFilename"_s, u"Map Data Export File"_s},
        {u"txtMapFiledir"_s, u"Map Data Export Path"_s},
        {u"ckbMapCase"_s, u"Upper Case Transfer To External Map Program"_s},
        {u"txtDataDir"_s, u"Data Path"_s},
        {u"txtDataFile"_s, u"Database"_s},
        {u"txtTable"_s, u"Table Name"_s},
        {u"txtPhotoDir"_s, u"Database Photo Dir"_s},
        {u"txtCaptureDir"_s, u"Camera (Capture) Dir"_s},
        {u"txtProgramDir"_s, u"Program Path"_s},
        {u"txtUserDir"_s, u"User Directory"_s},
        {u"txtArchiveDir"_s, u"Achive Directory"_s},
        {u"txtArchiveFile"_s, u"Archive Database"_s},
        {u"txtArchiveTable"_s, u"Archive Table Name"_s},
        {u"txtImportDir"_s, u"Import Directory"_s},
        {u"txtImportFile"_s, u"Import Database"_s},
        {u"txtImportTable"_s, u"Import Table Name"_s},
        {u"txtExportDir"_s, u"Export Directory"_s},
        {u"txtExportFile"_s, u"Export Database"_s},
        {u"txtExportTable"_s, u"Export Table Name"_s},
        {u"txtCopyFromFloppy"_s, u"Copy From Floppy"_s},
        {u"txtCopyFromReader"_s, u"Copy From Reader"_s},
        {u"txtCopyFromRom"_s, u"Copy From ROM"_s},
    };
    EXPECT_EQ(std::size(labels), ConfigFields().size());
    for (const auto& [name, label] : labels) {
        const frm_Config::Field& field = FieldOf(name);
        EXPECT_EQ(QString(field.about.label), label) << name.toStdString();
        if (field.check) {
            EXPECT_EQ(field.check->Caption(), label) << name.toStdString();
        }
    }
    EXPECT_EQ(FieldOf(u"ckbIgnorePending"_s).about.hint, "( SaleDate = 1/1/1900 )"_L1);
    const std::pair<QString, QStringList> options[] = {
        {u"optSort"_s,
         {u"Non-Sorted"_s, u"Sort by Address"_s, u"Sort by Sale Date"_s, u"Sort by Sale Price"_s,
          u"Sort by GLA"_s, u"Sort by Price GLA"_s, u"Sort by Load Date"_s}},
        {u"optAddressCase"_s,
         {u"USE UPPER CASE FOR ADDRESSES"_s, u"Use Proper Case For Addresses"_s,
          u"Use address data 'AS IS'"_s}},
        {u"optArrowColor"_s, {u"&Blue"_s, u"&Red"_s, u"Blac&k"_s}},
    };
    for (const auto& [name, captions] : options) {
        ASSERT_EQ(static_cast<qsizetype>(FieldOf(name).options.size()), captions.size());
        for (int i = 0; i < captions.size(); ++i)
            EXPECT_EQ(Check(name, i).Caption(), captions.at(i));
    }
    EXPECT_EQ(screen->cmdResetSize.Caption(), u"Reset Form Size"_s);
    EXPECT_EQ(screen->CmdOK.Caption(), u"&Exit"_s);
    EXPECT_EQ(screen->cmdCancel.Caption(), u"&Cancel"_s);
    EXPECT_EQ(screen->cmdSave.Caption(), u"&Save"_s);
}

TEST_F(Config, AnythingTouchedCountsAsAChange)
{
    const std::pair<const char*, std::function<void()>> touches[] = {
        {"a text", [this] { Text(u"txtMapFilename"_s).SetText(u"OTHER.MDB"_s); }},
        {"a check box", [this] { Check(u"ckbMapCase"_s).SetValue(!Check(u"ckbMapCase"_s).Value()); }},
        {"an option", [this] { Choose(u"optSort"_s, 5); }},
        {"a number", [this] { Text(u"txtQuality"_s).SetText(u"80"_s); }},
    };
    for (const auto& [name, touch] : touches) {
        screen->Open();
        ASSERT_FALSE(screen->HasChanged()) << name;
        touch();
        EXPECT_TRUE(screen->HasChanged()) << name;
    }
}

TEST_F(Config, OpensOnItsFirstPageWithTheGlobals)
{
    screen->SSConfig.SetTab(3);
    screen->Open();
    EXPECT_EQ(screen->SSConfig.Tab(), 0);
    EXPECT_FALSE(screen->HasChanged());
    EXPECT_EQ(Text(u"txtQuality"_s).Text(), u"90"_s);
    EXPECT_EQ(Text(u"txtPixelX"_s).Text(), u"800"_s);
    EXPECT_EQ(Text(u"txtUserDir"_s).Text(), u"C:\\USER\\"_s);
    EXPECT_TRUE(Check(u"ckbImageFilenames"_s).Value());
    EXPECT_FALSE(Check(u"ckbImageListbox"_s).Value());
    EXPECT_TRUE(Check(u"optSort"_s, 1).Value());
    EXPECT_FALSE(Check(u"optSort"_s, 0).Value());
    for (const QString& shown : {u"txtDataFile"_s, u"txtTable"_s, u"txtArchiveFile"_s, u"txtArchiveTable"_s,
                                 u"txtImportFile"_s, u"txtImportTable"_s, u"txtExportFile"_s,
                                 u"txtExportTable"_s})
        EXPECT_TRUE(Text(shown).Locked()) << shown.toStdString();
    EXPECT_FALSE(Text(u"txtMapFilename"_s).Locked());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Config, ValuesOfAnIniThatNobodyCheckedAreShownWithoutABox)
{
    globals.resolX = 4000;
    globals.sortGrid = 9;
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_EQ(Text(u"txtPixelX"_s).Text(), u"4000"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    ClickSave();
    EXPECT_EQ(globals.sortGrid, 9) << "no option was chosen";
    EXPECT_EQ(globals.resolX, 4000);
}

struct RangeRow
{
    const char* name;
    QString control, text, box;
};

class ConfigRange : public Config, public testing::WithParamInterface<RangeRow>
{};

TEST_P(ConfigRange, IsCheckedOnLeavingAndAgainOnSaving)
{
    const RangeRow& row = GetParam();
    const QString before = Text(row.control).Text();
    int focus = 0, selected = 0;
    QObject::connect(&Text(row.control), &forms::Control::FocusWanted, [&] { ++focus; });
    QObject::connect(&Text(row.control), &forms::TextBox::SelectAllWanted, [&] { ++selected; });
    Text(row.control).SetText(row.text);
    doubles.prompter.Forget();
    Q_EMIT Text(row.control).LostFocus();
    if (row.box.isEmpty()) {
        EXPECT_TRUE(doubles.prompter.Boxes().empty());
        EXPECT_EQ(Note(row.control), QString());
        EXPECT_EQ(focus, 0);
        return;
    }
    EXPECT_EQ(doubles.prompter.Texts(), QStringList{row.box});
    EXPECT_EQ(doubles.prompter.Last().icon, forms::Icon::None);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::Ok);
    EXPECT_EQ(Note(row.control), row.box);
    EXPECT_EQ(focus, 1);
    EXPECT_EQ(selected, 1);

    Check(u"ckbMapCase"_s).SetValue(true);
    doubles.prompter.Forget();
    ClickSave();
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "the old value stays silently";
    EXPECT_TRUE(globals.mapCase) << "the rest is saved";
    EXPECT_EQ(common::SettingText(FieldOf(row.control).about.Row(), globals), before);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, FieldOf(row.control).about.Row().key), before);
}

const QString kPercentText = u"Enter a number between 1 and 100"_s;
const QString kPixelText = u"Enter a number between 1000 and 50"_s;
const QString kDelayText = u"Enter a number between 0 and 10"_s;

INSTANTIATE_TEST_SUITE_P(Rows, ConfigRange,
                         testing::Values(RangeRow{"delay_0", u"txtPicDelay"_s, u"0"_s, {}},
                                         RangeRow{"delay_10", u"txtPicDelay"_s, u"10"_s, {}},
                                         RangeRow{"delay_above", u"txtPicDelay"_s, u"10.5"_s, kDelayText},
                                         RangeRow{"delay_below", u"txtPicDelay"_s, u"-1"_s, kDelayText},
                                         RangeRow{"width_50", u"txtPixelX"_s, u"50"_s, {}},
                                         RangeRow{"width_1000", u"txtPixelX"_s, u"1000"_s, {}},
                                         RangeRow{"width_below", u"txtPixelX"_s, u"49"_s, kPixelText},
                                         RangeRow{"height_above", u"txtPixelY"_s, u"1001"_s, kPixelText},
                                         RangeRow{"height_words", u"txtPixelY"_s, u"wide"_s, kPixelText},
                                         RangeRow{"quality_1", u"txtQuality"_s, u"1"_s, {}},
                                         RangeRow{"quality_100", u"txtQuality"_s, u"100"_s, {}},
                                         RangeRow{"quality_0", u"txtQuality"_s, u"0"_s, kPercentText},
                                         RangeRow{"quality_empty", u"txtQuality"_s, {}, kPercentText},
                                         RangeRow{"map_above", u"txtmapquality"_s, u"101"_s, kPercentText}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Config, PixelsAreCheckedAtEachChangeToo)
{
    Text(u"txtPixelX"_s).SetText(u"8"_s);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList{kPixelText});
    Text(u"txtPixelX"_s).SetText(u"80"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_EQ(Note(u"txtPixelX"_s), QString());
    Text(u"txtQuality"_s).SetText(u"0"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u) << "the others wait until the user leaves";
}

TEST_F(Config, LeavingForAnotherWrongFieldShowsOneBox)
{
    Text(u"txtQuality"_s).SetText(u"0"_s);
    Text(u"txtmapquality"_s).SetText(u"0"_s);
    // The focus has gone to the other field; giving it back makes that one lose it.
    QObject::connect(&Text(u"txtQuality"_s), &forms::Control::FocusWanted,
                     [&] { Q_EMIT Text(u"txtmapquality"_s).LostFocus(); });
    Q_EMIT Text(u"txtQuality"_s).LostFocus();
    EXPECT_EQ(doubles.prompter.Texts(), QStringList{kPercentText});
}

TEST_F(Config, AnotherProgramDirectoryIsAskedFor)
{
    Type(u"txtProgramDir"_s, u"c:\\vas2000"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "the same directory";
    doubles.prompter.Answer(Answer::No);
    Type(u"txtProgramDir"_s, u"C:\\NEW"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_EQ(doubles.prompter.Last().text, u"Chaning the Program Directory could cause Vasclip to stop "
                                            u"functioning. Do you wish to change?"_s);
    EXPECT_EQ(Text(u"txtProgramDir"_s).Text(), u"C:\\VAS2000\\"_s);

    doubles.prompter.Answer(Answer::Yes);
    Type(u"txtProgramDir"_s, u"C:\\NEW"_s);
    ClickSave();
    EXPECT_EQ(globals.G_ProgramDir, u"C:\\NEW\\"_s);
    EXPECT_EQ(globals.arrowsDir, u"C:\\NEW\\arrows\\"_s);
    EXPECT_EQ(doubles.prompter.Last().title, u"Creating Directory"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"Creating directory C:\\NEW."_s);
    EXPECT_TRUE(home.disk.DirExists(u"C:\\NEW"_s));
}

TEST_F(Config, SavingWritesEveryKeyInItsOrderAndKeepsWhatElseStandsThere)
{
    Choose(u"optSort"_s, 4);
    Choose(u"optAddressCase"_s, 0);
    Choose(u"optArrowColor"_s, 2);
    Check(u"ckbCaps"_s).SetValue(false);
    Check(u"ckbImageListbox"_s).SetValue(true);
    Check(u"ckbIgnorePending"_s).SetValue(true);
    Text(u"txtPicDelay"_s).SetText(u"2.5"_s);
    Text(u"txtMapFilename"_s).SetText(u"MAP.MDB"_s);
    EXPECT_TRUE(screen->HasChanged());
    bool saveWas = true, cancelWas = true;
    QObject::connect(&screen->cmdSave, &forms::Control::Changed,
                     [&] { saveWas = saveWas && screen->cmdSave.Enabled(); });
    QObject::connect(&screen->cmdCancel, &forms::Control::Changed,
                     [&] { cancelWas = cancelWas && screen->cmdCancel.Enabled(); });
    ClickSave();
    EXPECT_FALSE(saveWas || cancelWas) << "neither can be pressed meanwhile";
    EXPECT_FALSE(screen->HasChanged());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(screen->cmdSave.Enabled() && screen->cmdCancel.Enabled());

    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"SORTGRID"_s), u"4"_s);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"ADDRESSCASE"_s), u"0"_s);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"ARROWCOLOR"_s), u"2"_s);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"CAPS"_s), u"0"_s);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"IMAGELISTBOX"_s), u"ON"_s);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"PICDELAY"_s), u"2.5"_s);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"STRANGER"_s), u"7"_s);
    EXPECT_EQ(Ini(u"DIRECTORIES"_s, u"MAPFILE"_s), u"MAP.MDB"_s);
    for (const QString& key : {u"DATAFILE"_s, u"TABLE"_s, u"ARCHIVEFILENAME"_s, u"EXPORTTABLE"_s})
        EXPECT_EQ(Ini(u"DIRECTORIES"_s, key), u"(absent)"_s);
    const QStringList preferences = files::ProfileKeys(home.disk, u"PREFERENCES"_s, kIni);
    EXPECT_EQ(preferences, (QStringList{u"STRANGER"_s,      u"AUTOSAVE"_s,        u"WRITEPROTECTPHOTOS"_s,
                                        u"TRASHCAN"_s,      u"AUTODELETE"_s,      u"IMAGEFILENAMES"_s,
                                        u"IMAGELISTBOX"_s,  u"PREVIEWCOPYPICS"_s, u"REDUX"_s,
                                        u"RESOLX"_s,        u"RESOLY"_s,          u"QUALITY"_s,
                                        u"PICDELAY"_s,      u"ADDRESSCASE"_s,     u"CAPS"_s,
                                        u"SHARE"_s,         u"LOCKADDR"_s,        u"SORTGRID"_s,
                                        u"IGNOREPENDING"_s, u"IGNOREZIPCODES"_s,  u"TRANSPARENT"_s,
                                        u"MAPQUALITY"_s,    u"MAPCASE"_s,         u"ARROWCOLOR"_s,
                                        u"TABMASK"_s,       u"IMAGE TYPE"_s,      u"USESUBJCSZ"_s,
                                        u"CONTRAST"_s,      u"BRIGHTNESS"_s,      u"MAPDETAIL"_s}));
    EXPECT_EQ(files::ProfileKeys(home.disk, u"DIRECTORIES"_s, kIni),
              (QStringList{u"USERDIR"_s, u"APPDIR"_s, u"CAPTUREDIR"_s, u"PHOTODIR"_s, u"DATADIR"_s,
                           u"ARCHIVEDIR"_s, u"EXPORTDIR"_s, u"IMPORTDIR"_s, u"MAPDIR"_s, u"MAPFILE"_s}))
        << "USERDIR stood there before";
    EXPECT_EQ(files::ProfileKeys(home.disk, u"COPY DEVICE"_s, kIni),
              (QStringList{u"FLOPPY"_s, u"ROM"_s, u"READER"_s}));
    EXPECT_TRUE(home.disk.ReadWhole(kIni).startsWith("; mine"));

    Globals again = globals;
    Read();
    EXPECT_EQ(globals.sortGrid, again.sortGrid);
    EXPECT_EQ(globals.picDelay, 2.5);
}

TEST_F(Config, EachDirectoryThatIsNotThereIsAnnouncedAndMade)
{
    const QStringList boxes = {u"txtProgramDir"_s, u"txtUserDir"_s,   u"txtCaptureDir"_s,
                               u"txtPhotoDir"_s,   u"txtDataDir"_s,   u"txtImportDir"_s,
                               u"txtExportDir"_s,  u"txtArchiveDir"_s, u"txtMapFiledir"_s};
    QStringList told;
    for (const QString& box : boxes) {
        const QString path = u"C:\\NEW\\"_s + box.toUpper();
        Text(box).SetText(path);
        told.append(u"Creating directory "_s + path + u"."_s);
    }
    Text(u"txtCopyFromFloppy"_s).SetText(u"C:\\NO CARD"_s);
    ClickSave();
    EXPECT_EQ(doubles.prompter.Texts(), told) << "in this order";
    for (const auto& box : doubles.prompter.Boxes()) {
        EXPECT_EQ(box.title, u"Creating Directory"_s);
        EXPECT_EQ(box.icon, forms::Icon::None);
        EXPECT_EQ(box.buttons, forms::Buttons::Ok);
    }
    for (const QString& box : boxes)
        EXPECT_TRUE(home.disk.DirExists(u"C:\\NEW\\"_s + box.toUpper())) << box.toStdString();
    EXPECT_FALSE(home.disk.DirExists(u"C:\\NO CARD"_s)) << "a card comes by itself";
    EXPECT_EQ(globals.G_DataDir, u"C:\\NEW\\TXTDATADIR\\"_s);
    EXPECT_EQ(globals.mapExportDir, u"C:\\NEW\\TXTMAPFILEDIR\\"_s);
}

TEST_F(Config, ADirectoryThatCannotBeStopsTheSaveWholly)
{
    const QByteArray before = home.disk.ReadWhole(kIni);
    Check(u"ckbMapCase"_s).SetValue(true);
    for (const QString& wrong : {u"nowhere"_s, QString(), u"Q:\\NOT\\MAPPED"_s}) {
        doubles.prompter.Forget();
        doubles.prompter.AnswerAlways(Answer::Cancel);
        Text(u"txtExportDir"_s).SetText(wrong);
        ClickSave();
        EXPECT_FALSE(doubles.prompter.Boxes().empty()) << wrong.toStdString();
        EXPECT_EQ(home.disk.ReadWhole(kIni), before) << wrong.toStdString();
        EXPECT_FALSE(globals.mapCase);
        EXPECT_TRUE(screen->HasChanged());
        EXPECT_TRUE(screen->cmdSave.Enabled() && screen->cmdCancel.Enabled());
    }
    EXPECT_EQ(globals.G_ExportDir, u"C:\\DATABOOK\\EXPORT\\"_s);
    EXPECT_TRUE(screen->IsOpen());
}

TEST_F(Config, ASaveThatCannotBeWrittenIsToldAndKeepsTheGlobals)
{
    home.disk.Kill(kIni);
    home.disk.MkDir(kIni); // a directory stands in the way of the file
    Check(u"ckbMapCase"_s).SetValue(true);
    ClickSave();
    EXPECT_TRUE(doubles.prompter.Last().text.contains(kIni)) << doubles.prompter.Last().text.toStdString();
    EXPECT_FALSE(globals.mapCase);
    EXPECT_TRUE(screen->HasChanged());
}

TEST_F(Config, WhileTheTrashIsOnShowTheRememberedDirectoryIsEdited)
{
    globals.G_CaptureDir = u"C:\\VASCLIPS\\TRASHCAN\\"_s;
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_EQ(Text(u"txtCaptureDir"_s).Text(), u"C:\\VASSNAP\\"_s);
    ClickSave();
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\VASCLIPS\\TRASHCAN\\"_s);
    EXPECT_EQ(Ini(u"DIRECTORIES"_s, u"CAPTUREDIR"_s), u"C:\\VASSNAP\\"_s);
    Text(u"txtCaptureDir"_s).SetText(u"C:\\CARD"_s);
    ClickSave();
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\CARD\\"_s);
    EXPECT_EQ(globals.captureDirBeforeTrash, u"C:\\CARD\\"_s);
    EXPECT_EQ(Ini(u"DIRECTORIES"_s, u"CAPTUREDIR"_s), u"C:\\CARD\\"_s);
}

TEST_F(Config, ADirectoryIsChosenWithItsButton)
{
    doubles.prompter.AnswerDialog(u"C:\\DATABOOK\\NEW"_s);
    Q_EMIT FieldOf(u"txtImportDir"_s).browse->Clicked();
    EXPECT_EQ(doubles.prompter.Dialogs().front(),
              (tests::FileDialog{{}, u"Import Directory"_s, u"C:\\DATABOOK\\IMPORT\\"_s}));
    EXPECT_EQ(Text(u"txtImportDir"_s).Text(), u"C:\\DATABOOK\\NEW\\"_s);
    doubles.prompter.AnswerDialog({});
    Q_EMIT FieldOf(u"txtImportDir"_s).browse->Clicked();
    EXPECT_EQ(Text(u"txtImportDir"_s).Text(), u"C:\\DATABOOK\\NEW\\"_s) << "cancelled";
}

TEST_F(Config, CancelLoadsTheGlobalsAgain)
{
    Text(u"txtQuality"_s).SetText(u"0"_s);
    Q_EMIT Text(u"txtQuality"_s).LostFocus();
    Choose(u"optSort"_s, 6);
    bool saveWas = true, exitWas = true;
    QObject::connect(&Text(u"txtQuality"_s), &forms::TextBox::TextChanged, [&] {
        saveWas = screen->cmdSave.Enabled();
        exitWas = screen->CmdOK.Enabled();
    });
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_FALSE(saveWas || exitWas);
    EXPECT_TRUE(screen->cmdSave.Enabled() && screen->CmdOK.Enabled());
    EXPECT_EQ(Text(u"txtQuality"_s).Text(), u"90"_s);
    EXPECT_EQ(Note(u"txtQuality"_s), QString());
    EXPECT_TRUE(Check(u"optSort"_s, 1).Value());
    EXPECT_FALSE(Check(u"optSort"_s, 6).Value());
    EXPECT_FALSE(screen->HasChanged());
    EXPECT_TRUE(screen->IsOpen());
}

TEST_F(Config, ClosingUnchangedAsksNothing)
{
    Q_EMIT screen->CmdOK.Clicked();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Config, ClosingChangedAsksAndYesSaves)
{
    Check(u"ckbTabMask"_s).SetValue(true);
    doubles.prompter.Answer(Answer::Yes);
    Q_EMIT screen->CmdOK.Clicked();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNoCancel);
    EXPECT_EQ(doubles.prompter.Last().icon, forms::Icon::Information) << "No loses what was set, so it stands on Yes";
    EXPECT_EQ(doubles.prompter.Last().title, u"Save Configuration Changes?"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"Changes have been made to configuration. Save Changes?"_s);
    EXPECT_TRUE(globals.tabMask);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"TABMASK"_s), u"1"_s);
}

TEST_F(Config, AnyOtherAnswerRestores)
{
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        screen->Open();
        Check(u"ckbTabMask"_s).SetValue(true);
        doubles.prompter.Answer(answer);
        Q_EMIT screen->CmdOK.Clicked();
        EXPECT_FALSE(screen->IsOpen());
        EXPECT_EQ(doubles.prompter.Last().title, u"Configuration restored"_s);
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"Configuration has been restored to pre-existing settings"_s);
        EXPECT_FALSE(globals.tabMask);
        EXPECT_EQ(Ini(u"PREFERENCES"_s, u"TABMASK"_s), u"(absent)"_s);
    }
}

TEST_F(Config, ASaveThatFailsOnClosingKeepsTheScreenOpen)
{
    Text(u"txtPhotoDir"_s).SetText(u"photos"_s);
    doubles.prompter.Answer(Answer::Yes);
    Q_EMIT screen->CmdOK.Clicked();
    EXPECT_TRUE(screen->IsOpen());
    EXPECT_EQ(Text(u"txtPhotoDir"_s).Text(), u"photos"_s);
}

TEST_F(Config, TheResetOfTheSizeIsAnnounced)
{
    EXPECT_FALSE(screen->ResetWanted());
    Q_EMIT screen->cmdResetSize.Clicked();
    EXPECT_EQ(doubles.prompter.Last().icon, forms::Icon::Information);
    EXPECT_EQ(doubles.prompter.Last().title, u"Reset Form Size"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The main form will reset upon exiting the configuration screen"_s);
    EXPECT_TRUE(screen->ResetWanted());
}

class ConfigShare : public Config
{
protected:
    const QString own = u"C:\\USER\\comments.mdb"_s;
    const QString shared = u"C:\\DATABOOK\\comments.mdb"_s;
    void Share(bool on) { Check(u"ckbShare"_s).SetValue(on); }
    /// As if it had been on since the start.
    void Shared()
    {
        globals.share = 1;
        Q_EMIT screen->cmdCancel.Clicked();
    }
};

TEST_F(ConfigShare, TurnedOnWhereAFileIsSharedAlreadyAsksNothing)
{
    home.Put(shared, "theirs");
    Share(true);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(Check(u"ckbShare"_s).Value());
    EXPECT_TRUE(screen->HasChanged());
    EXPECT_EQ(globals.share, 0) << "the setting waits for the save";
}

TEST_F(ConfigShare, TurnedOnOffersTheUsersOwnFile)
{
    store::MakeDatabase(engine, own);
    home.disk.SetAttr(own, files::ReadOnly);
    doubles.prompter.Answer(Answer::Yes);
    Share(true);
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"A comment file in which to share is not available.  Do you wish to share your "
                          u"comment file at this time."_s});
    EXPECT_TRUE(home.disk.FileExists(shared));
    EXPECT_FALSE(home.disk.GetAttr(shared) & files::ReadOnly);
    EXPECT_TRUE(home.disk.FileExists(own));
    EXPECT_TRUE(Check(u"ckbShare"_s).Value());
}

TEST_F(ConfigShare, DeclinedTheBoxIsUntickedAgainWithoutAnotherQuestion)
{
    store::MakeDatabase(engine, own);
    doubles.prompter.Answer(Answer::No);
    Share(true);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Share the best comment file available among the other users and then try again."_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2u);
    EXPECT_FALSE(Check(u"ckbShare"_s).Value());
    EXPECT_FALSE(home.disk.FileExists(shared));
}

TEST_F(ConfigShare, AFileThatCannotBeCopiedIsToldAndTheBoxGoesBack)
{
    home.Put(own, "no database");
    doubles.prompter.Answer(Answer::Yes);
    Share(true);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2u);
    EXPECT_FALSE(Check(u"ckbShare"_s).Value());
    EXPECT_FALSE(home.disk.FileExists(shared));
}

TEST_F(ConfigShare, TurnedOffCopiesTheSharedFile)
{
    store::MakeDatabase(engine, shared);
    Shared();
    doubles.prompter.Answer(Answer::Yes);
    Share(false);
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"Copy the shared comments at this time (otherwise an empty comment file will be "
                           u"created)?"_s,
                           u"Copy successful"_s}));
    EXPECT_TRUE(home.disk.FileExists(own));
    EXPECT_FALSE(Check(u"ckbShare"_s).Value());
}

TEST_F(ConfigShare, TurnedOffWithNothingSharedMakesAnEmptyFileUnasked)
{
    store::MakeDatabase(engine, u"C:\\VAS2000\\newcmts.mdb"_s);
    Shared();
    Share(false);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList{u"An empty comment was created."_s});
    EXPECT_TRUE(home.disk.FileExists(own));
}

TEST_F(Config, TheSearchFindsSettingsByTheirLabelsAcrossPages)
{
    int told = 0;
    QObject::connect(&*screen, &frm_Config::Searched, [&] { ++told; });
    screen->txtFind.SetText(u"QUALITY"_s);
    EXPECT_EQ(told, 1);
    QStringList found;
    for (const auto& field : screen->Fields()) {
        if (field.found)
            found.append(field.about.control);
    }
    EXPECT_EQ(found, (QStringList{u"txtQuality"_s, u"txtmapquality"_s}));
    EXPECT_EQ(screen->lblFind.Caption(), u"2 settings"_s);
    EXPECT_EQ(screen->SSConfig.Tab(), static_cast<int>(ConfigPage::Pictures)) << "the first page with a hit";
    EXPECT_TRUE(screen->SSConfig.TabEnabled(static_cast<int>(ConfigPage::Map)));
    EXPECT_FALSE(screen->SSConfig.TabEnabled(static_cast<int>(ConfigPage::Comments)));
    int focus = 0;
    QObject::connect(&Text(u"txtQuality"_s), &forms::Control::FocusWanted, [&] { ++focus; });
    screen->GoToFound();
    EXPECT_EQ(focus, 1);

    screen->txtFind.SetText(u"autosave"_s);
    EXPECT_EQ(screen->lblFind.Caption(), u"1 setting"_s) << "access keys do not stand in the way";
    screen->txtFind.SetText(u"as is"_s);
    EXPECT_TRUE(FieldOf(u"optAddressCase"_s).found) << "by an option";
    screen->txtFind.SetText(u"zebra"_s);
    EXPECT_EQ(screen->lblFind.Caption(), u"No setting is called so"_s);
    screen->txtFind.SetText({});
    EXPECT_EQ(screen->lblFind.Caption(), QString());
    EXPECT_TRUE(screen->SSConfig.TabEnabled(0));
    EXPECT_FALSE(screen->HasChanged()) << "searching changes no setting";
}

} // namespace
} // namespace vasclip::shell
