#pragma once

#include <QString>

namespace vasclip::common {

/// The durable settings and the process-wide values of start-up. Logic takes `const Globals&`; start-up, the
/// settings screen and a few menu entries write it.
struct Globals
{
    // VAS2000.INI, DIRECTORIES; directories end in a backslash
    QString G_ProgramDir, G_UserDir, G_PhotoDir, G_CaptureDir, G_DataDir;
    QString G_DataFile, G_Table;
    QString G_ArchiveDir, G_ArchiveFile, G_ArchiveTable;
    QString G_ExportDir, G_ExportFile, G_ExportTableS;
    QString G_ImportDir, G_ImportFile, G_ImportTable;
    QString mapExportDir, mapExportFile;

    // COPY DEVICE
    QString floppy, rom, reader, lastCopy;

    // PREFERENCES
    int previewCopyPics = 1;
    QString imageType;
    int trashcan = 1;
    int autoSave = 1;
    bool writeProtectPhotos = true;
    int copyImages = 1;
    int autoDelete = 1;
    int quality = 90;
    int contrast = 0;
    int brightness = 0;
    bool redux = true;
    qint32 resolX = 800;
    qint32 resolY = 600;
    int share = 0;
    int lockAddr = 1;
    QString caps;
    int autoAdvance = 1;  ///< a function key goes on to the next field
    int sortComments = 0; ///< the comment dialog keeps its list in order of the alphabet
    int addressCase = 2;  ///< 0 upper case, 1 proper case, 2 as is
    int sortGrid = 1;     ///< 0 to 6
    int ignorePending = 0;
    QString useSubjCsz;
    double picDelay = 0; ///< seconds, 0 to 10
    bool tabMask = false;
    bool ignoreZipCodes = true;
    bool mapCase = false;
    int mapDetail = 3;
    int mapQuality = 100;
    int arrowColor = 0;
    QString transparent;
    int radius = 0;
    int freeze = 0;
    QString imageFileNames; ///< "ON" or "OFF"
    QString imageListBox;   ///< "ON" or "OFF"
    bool labelStreets = false;
    int arrangeArrows = 0; ///< after each placing

    // names
    QString companyName;  ///< PRODUCT INFO, COMPANY NAME
    QString productName;  ///< the program's display name
    QString mapName;      ///< the mapping add-on's display name
    QString formsProgram; ///< KEL.INI, VENDOR, ApplicationName
    QString website;      ///< PRODUCT INFO, WEBSITE: the maker's page

    // KEL.INI, DIRECTORIES
    QString kelDataDir, kelPrivateDir, kelAppDir;

    // found at start-up
    QString iniDir; ///< where the ini files are looked for first
    QString preferredIniDir;
    QString applicationIni; ///< full path of VAS2000.INI, upper-cased
    QString kelIni;         ///< full path of KEL.INI, upper-cased
    QString mapPointIni, pwStreetIni;
    QString cellData, basePath; ///< pwstreet.ini, V2BETA
    bool isVista = false;
    QString windowsName;
    QString formsCaption;          ///< of the appraisal program's window at the start, at most 255 characters
    QString captureDirBeforeTrash; ///< the remembered capture directory
    QString arrowsDir;             ///< G_ProgramDir + "arrows\"
    QString formsProgramVersion;   ///< kept for the About box

    static constexpr const char* kMappingFile = "Comp2Kel.mdb";
    static constexpr const char* kMappingTable = "Comp2Kel";
};

} // namespace vasclip::common
