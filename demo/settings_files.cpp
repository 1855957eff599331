#include "demo/settings_files.h"

#include "common/settings.h"
#include "demo/town.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

void PutNumbered(QString& text, QLatin1StringView section, QLatin1StringView key, const QStringList& values)
{
    text += u"\r\n[%1]\r\n"_s.arg(section);
    for (qsizetype i = 0; i < values.size(); ++i)
        text += u"%1%2=%3\r\n"_s.arg(key).arg(i + 1).arg(values[i]);
}

/// Where a reader with no file behind it lands: every setting at its default.
common::Globals Defaults()
{
    common::Globals globals;
    const common::IniReader nothing = [](common::IniFile, const QString&, const QString&,
                                         const QString& fallback) { return fallback; };
    common::ReadNames(globals, nothing);
    common::ReadGlobals(globals, nothing);
    common::ReadiniSettings(globals, nothing);
    common::ReadStreetPaths(globals, nothing);
    return globals;
}

} // namespace

QString ApplicationIniText()
{
    const common::Globals globals = Defaults();
    QString text = u"; Settings of the demo.\r\n"_s;
    QString section;
    for (const common::SettingRow& row : common::Settings()) {
        if (row.file != common::IniFile::Application || row.readBy == common::ReadBy::Nothing)
            continue;
        if (section != row.section) {
            section = row.section;
            text += u"%1[%2]\r\n"_s.arg(text.endsWith("demo.\r\n"_L1) ? QString() : u"\r\n"_s, section);
        }
        text += u"%1=%2\r\n"_s.arg(row.key, row.fallback.Text(globals));
    }
    PutNumbered(text, "CITIES"_L1, "CITY"_L1, CityList());
    PutNumbered(text, "GENERAL VIEWS"_L1, "GENERALVIEW"_L1,
                {u"KITCHEN"_s, u"LIVING ROOM"_s, u"MAIN BATH"_s, u"BASEMENT"_s, u"GARAGE INTERIOR"_s,
                 u"VIEW FROM DECK"_s});
    return text;
}

QStringList SettingsDirectories()
{
    const common::Globals globals = Defaults();
    QStringList directories;
    for (const common::SettingRow& row : common::Settings()) {
        if (row.file != common::IniFile::Application || row.rule != common::ReadRule::Directory)
            continue;
        const QString directory = globals.*std::get<QString common::Globals::*>(row.target);
        if (!directories.contains(directory, Qt::CaseInsensitive))
            directories.append(directory);
    }
    directories.append({globals.arrowsDir, MapDirectory()});
    return directories;
}

QString MapDirectory()
{
    return Defaults().cellData + u'\\';
}

QString StreetIniText()
{
    const common::Globals globals = Defaults();
    QString text = u"; Street maps of the demo.\r\n[V2BETA]\r\n"_s;
    for (const common::SettingRow& row : common::Settings())
        if (row.file == common::IniFile::PwStreet)
            text += u"%1=%2\r\n"_s.arg(row.key, row.fallback.Text(globals));
    return text;
}

} // namespace vasclip::demo
