#include "shell/config_fields.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::shell {

using common::Globals;

namespace {

constexpr auto kInterface = "User Interface"_L1;
constexpr auto kQualities = "Image Qualities"_L1;
constexpr auto kImages = "Images"_L1;
constexpr auto kExport = "Export Features"_L1;
constexpr auto kMap = "Map Creation Features"_L1;
constexpr auto kSort = "Database Sort Method"_L1;
constexpr auto kAddress = "Address Case Sensitivity"_L1;
constexpr auto kComments = "Comments and Functions"_L1;
constexpr auto kProgram = "Program and User"_L1;
constexpr auto kDatabook = "Databook"_L1;
constexpr auto kPictures = "Pictures"_L1;
constexpr auto kArchive = "Archive"_L1;
constexpr auto kImportGroup = "Import"_L1;
constexpr auto kExportGroup = "Export"_L1;
constexpr auto kDevices = "Copy Photos"_L1;

constexpr auto kPercentBox = "Enter a number between 1 and 100"_L1;
constexpr auto kPixelBox = "Enter a number between 1000 and 50"_L1;
constexpr auto kDelayBox = "Enter a number between 0 and 10"_L1;

constexpr QLatin1StringView kSortOptions[] = {
    "Non-Sorted"_L1,  "Sort by Address"_L1,   "Sort by Sale Date"_L1, "Sort by Sale Price"_L1,
    "Sort by GLA"_L1, "Sort by Price GLA"_L1, "Sort by Load Date"_L1};
constexpr QLatin1StringView kCaseOptions[] = {
    "USE UPPER CASE FOR ADDRESSES"_L1, "Use Proper Case For Addresses"_L1, "Use address data 'AS IS'"_L1};
constexpr QLatin1StringView kColourOptions[] = {"&Blue"_L1, "&Red"_L1, "Blac&k"_L1};

constexpr ConfigField Number(QLatin1StringView control, common::SettingTarget setting,
                             QLatin1StringView label, ConfigPage page, QLatin1StringView group,
                             QLatin1StringView refusal)
{
    return {control, ConfigKind::Number, setting, label, page, group, {}, refusal};
}

constexpr auto Check = ConfigKind::Check;
constexpr auto Directory = ConfigKind::Directory;
constexpr auto Shown = ConfigKind::ShownOnly;
using Page = ConfigPage;

// clang-format off
constexpr ConfigField kFields[] = {
    {"ckbTabMask"_L1, Check, &Globals::tabMask, "Use Default Windows Tab colors"_L1, Page::Appearance, kInterface},

    Number("txtQuality"_L1, &Globals::quality, "Photo Quality (1-100)"_L1, Page::Pictures, kQualities, kPercentBox),
    {"ckbRedux"_L1, Check, &Globals::redux, "Auto Reduce Image Resolution"_L1, Page::Pictures, kQualities},
    Number("txtPixelX"_L1, &Globals::resolX, "Pixels (width)"_L1, Page::Pictures, kQualities, kPixelBox),
    Number("txtPixelY"_L1, &Globals::resolY, "Pixels (height)"_L1, Page::Pictures, kQualities, kPixelBox),
    Number("txtPicDelay"_L1, &Globals::picDelay, "Picture Format Delay (seconds)"_L1, Page::Pictures, kQualities, kDelayBox),
    {"ckbTrashcan"_L1, Check, &Globals::trashcan, "Use Trashcan (Copy of photos is saved)"_L1, Page::Pictures, kImages},
    {"ckbAutoSave"_L1, Check, &Globals::autoSave, "&AutoSave Front Views to the Database"_L1, Page::Pictures, kImages},
    {"ckbWrightProtectPhotos"_L1, Check, &Globals::writeProtectPhotos, "Write Protect Photos"_L1, Page::Pictures, kImages},
    {"ckbAutoDelete"_L1, Check, &Globals::autoDelete, "Auto Delete Thumbnails"_L1, Page::Pictures, kImages},
    {"ckbImageListbox"_L1, Check, &Globals::imageListBox, "View Image File Name ListBox"_L1, Page::Pictures, kImages},
    {"ckbImageFilenames"_L1, Check, &Globals::imageFileNames, "View Image File Names with Thumbnails"_L1, Page::Pictures, kImages},
    {"ckbPreviewCopyPics"_L1, Check, &Globals::previewCopyPics, "Preview Pictures when Copying"_L1, Page::Pictures, kImages},

    {"optSort"_L1, ConfigKind::Options, &Globals::sortGrid, kSort, Page::Databook, kSort, kSortOptions},
    {"ckbIgnorePending"_L1, Check, &Globals::ignorePending, "Ignore Pending Sales"_L1, Page::Databook, kSort, {}, {}, "( SaleDate = 1/1/1900 )"_L1},
    {"optAddressCase"_L1, ConfigKind::Options, &Globals::addressCase, kAddress, Page::Databook, kAddress, kCaseOptions},

    {"ckbLockAddr"_L1, Check, &Globals::lockAddr, "Lock Text Addresses (Upper Right Tab control)"_L1, Page::Comments, kComments},
    {"ckbShare"_L1, Check, &Globals::share, "Share comments with other users"_L1, Page::Comments, kComments},
    {"ckbCaps"_L1, Check, &Globals::caps, "Function keys  - Return comments in CAPS"_L1, Page::Comments, kComments},

    {"ckbTransparent"_L1, Check, &Globals::transparent, "&Transparent Arrows"_L1, Page::Map, kMap},
    {"ckbIgnoreZipCodes"_L1, Check, &Globals::ignoreZipCodes, "Ignore Zip Codes (use only City, St)"_L1, Page::Map, kMap},
    Number("txtmapquality"_L1, &Globals::mapQuality, "Map Quality (1-100)"_L1, Page::Map, kMap, kPercentBox),
    {"optArrowColor"_L1, ConfigKind::Options, &Globals::arrowColor, "Default Map Arrow Color"_L1, Page::Map, kMap, kColourOptions},
    {"txtMapFilename"_L1, ConfigKind::Text, &Globals::mapExportFile, "Map Data Export File"_L1, Page::Map, kExport},
    {"txtMapFiledir"_L1, Directory, &Globals::mapExportDir, "Map Data Export Path"_L1, Page::Map, kExport},
    {"ckbMapCase"_L1, Check, &Globals::mapCase, "Upper Case Transfer To External Map Program"_L1, Page::Map, kExport},

    {"txtDataDir"_L1, Directory, &Globals::G_DataDir, "Data Path"_L1, Page::Directories, kDatabook},
    {"txtDataFile"_L1, Shown, &Globals::G_DataFile, "Database"_L1, Page::Directories, kDatabook},
    {"txtTable"_L1, Shown, &Globals::G_Table, "Table Name"_L1, Page::Directories, kDatabook},
    {"txtPhotoDir"_L1, Directory, &Globals::G_PhotoDir, "Database Photo Dir"_L1, Page::Directories, kPictures},
    {"txtCaptureDir"_L1, Directory, &Globals::G_CaptureDir, "Camera (Capture) Dir"_L1, Page::Directories, kPictures},
    {"txtProgramDir"_L1, Directory, &Globals::G_ProgramDir, "Program Path"_L1, Page::Directories, kProgram},
    {"txtUserDir"_L1, Directory, &Globals::G_UserDir, "User Directory"_L1, Page::Directories, kProgram},

    {"txtArchiveDir"_L1, Directory, &Globals::G_ArchiveDir, "Achive Directory"_L1, Page::Transfer, kArchive},
    {"txtArchiveFile"_L1, Shown, &Globals::G_ArchiveFile, "Archive Database"_L1, Page::Transfer, kArchive},
    {"txtArchiveTable"_L1, Shown, &Globals::G_ArchiveTable, "Archive Table Name"_L1, Page::Transfer, kArchive},
    {"txtImportDir"_L1, Directory, &Globals::G_ImportDir, "Import Directory"_L1, Page::Transfer, kImportGroup},
    {"txtImportFile"_L1, Shown, &Globals::G_ImportFile, "Import Database"_L1, Page::Transfer, kImportGroup},
    {"txtImportTable"_L1, Shown, &Globals::G_ImportTable, "Import Table Name"_L1, Page::Transfer, kImportGroup},
    {"txtExportDir"_L1, Directory, &Globals::G_ExportDir, "Export Directory"_L1, Page::Transfer, kExportGroup},
    {"txtExportFile"_L1, Shown, &Globals::G_ExportFile, "Export Database"_L1, Page::Transfer, kExportGroup},
    {"txtExportTable"_L1, Shown, &Globals::G_ExportTableS, "Export Table Name"_L1, Page::Transfer, kExportGroup},

    {"txtCopyFromFloppy"_L1, Directory, &Globals::floppy, "Copy From Floppy"_L1, Page::CopyDevices, kDevices},
    {"txtCopyFromReader"_L1, Directory, &Globals::reader, "Copy From Reader"_L1, Page::CopyDevices, kDevices},
    {"txtCopyFromRom"_L1, Directory, &Globals::rom, "Copy From ROM"_L1, Page::CopyDevices, kDevices},
};
// clang-format on

constexpr common::SettingTarget kDirectories[] = {
    &Globals::G_ProgramDir, &Globals::G_UserDir,   &Globals::G_CaptureDir,
    &Globals::G_PhotoDir,   &Globals::G_DataDir,   &Globals::G_ImportDir,
    &Globals::G_ExportDir,  &Globals::G_ArchiveDir, &Globals::mapExportDir,
};

constexpr common::SettingTarget kWritingOrder[] = {
    &Globals::G_ProgramDir,
    &Globals::G_UserDir,
    &Globals::G_CaptureDir,
    &Globals::G_PhotoDir,
    &Globals::G_DataDir,
    &Globals::G_ArchiveDir,
    &Globals::G_ExportDir,
    &Globals::G_ImportDir,
    &Globals::floppy,
    &Globals::rom,
    &Globals::reader,
    &Globals::autoSave,
    &Globals::writeProtectPhotos,
    &Globals::trashcan,
    &Globals::autoDelete,
    &Globals::imageFileNames,
    &Globals::imageListBox,
    &Globals::previewCopyPics,
    &Globals::redux,
    &Globals::resolX,
    &Globals::resolY,
    &Globals::quality,
    &Globals::picDelay,
    &Globals::addressCase,
    &Globals::caps,
    &Globals::share,
    &Globals::lockAddr,
    &Globals::sortGrid,
    &Globals::ignorePending,
    &Globals::ignoreZipCodes,
    &Globals::transparent,
    &Globals::mapQuality,
    &Globals::mapCase,
    &Globals::mapExportDir,
    &Globals::mapExportFile,
    &Globals::arrowColor,
    &Globals::tabMask,
    &Globals::imageType,
    &Globals::useSubjCsz,
    &Globals::contrast,
    &Globals::brightness,
    &Globals::mapDetail,
};

constexpr QLatin1StringView kPages[] = {"Appearance"_L1, "Pictures"_L1,    "Databook"_L1, "Comments"_L1,
                                        "Map"_L1,        "Directories"_L1, "Transfer"_L1, "Copy Devices"_L1};

} // namespace

const common::SettingRow& ConfigField::Row() const
{
    const common::SettingRow* row = common::FindSetting(setting);
    Q_ASSERT(row != nullptr);
    return *row;
}

QString ConfigField::Words() const
{
    return QString(label).remove(u'&');
}

std::span<const ConfigField> ConfigFields()
{
    return kFields;
}

const ConfigField* FieldOf(const common::SettingRow& row)
{
    const auto found = std::find_if(std::begin(kFields), std::end(kFields),
                                    [&](const ConfigField& field) { return field.setting == row.target; });
    return found == std::end(kFields) ? nullptr : &*found;
}

std::span<const common::SettingTarget> ConfigDirectories()
{
    return kDirectories;
}

std::span<const common::SettingTarget> ConfigWritingOrder()
{
    return kWritingOrder;
}

QString PageCaption(ConfigPage page)
{
    return kPages[static_cast<std::size_t>(page)];
}

QStringList PageCaptions()
{
    return {std::begin(kPages), std::end(kPages)};
}

} // namespace vasclip::shell
