#include "shell/ini_location.h"

#include "common/paths.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <QFileInfo>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

IniDirectory GetIniDir(const files::Disk& disk, forms::Prompter& prompter, const SystemPlaces& places)
{
    IniDirectory found;
    const QString drive =
        common::ParseFileName(common::CkRSlash(places.systemDirectory) + u"changes.txt"_s).drive;
    const QString appraise = drive + u"\\APPRAISE\\"_s;
    if (disk.DirExists(appraise)) {
        found.preferred = appraise;
        found.directory = appraise;
    } else {
        found.directory = common::CkRSlash(places.windowsDirectory);
        if (places.isVista)
            prompter.Info(
                u"NON-STANDARD INI FILE PLACEMENT"_s,
                u"Reinstall this program to correct INI placement and avoid potential configuration errors."_s);
    }
    const QString trimmed = text::Trim(found.directory);
    if (trimmed.isEmpty() || trimmed == u"\\"_s)
        found.directory = common::CkRSlash(places.executableDir);
    return found;
}

namespace {

/// However the two are spelled, and through whichever drive.
bool IsSameDirectory(const files::Disk& disk, const QString& one, const QString& other)
{
    if (text::Folded(common::CkRSlash(one)) == text::Folded(common::CkRSlash(other)))
        return true;
    const auto place = [&](const QString& directory) {
        try {
            return QFileInfo(disk.ToNative(directory)).canonicalFilePath();
        } catch (const RuntimeError&) {
            return QString(); // its drive is not there
        }
    };
    return !place(one).isEmpty() && place(one) == place(other);
}

QString MissingText(const files::Disk& disk, const QString& name, IniKind kind, const QString& iniDir, const QString& windowsDir)
{
    const bool appraisal = kind == IniKind::Appraisal;
    const QString question = u" . DO you wish to coninue? "_s;
    const QString effect = appraisal
                               ? u"(You will not be able to transfer pictures into the appraisal program)"_s
                               : u"(Program may not function correctly)"_s;
    const QString start =
        (appraisal ? u"Appraisal "_s : QString()) + name + u" configuration file is missing from "_s + iniDir;
    if (IsSameDirectory(disk, iniDir, windowsDir))
        return start + question + effect;
    return start + u" (primary location) and "_s + windowsDir +
           u" (secondary location). DO you wish to coninue? "_s + effect;
}

} // namespace

QString LocateIni(const files::Disk& disk, forms::Prompter& prompter, const QString& name, IniKind kind,
                  const QString& iniDir, const QString& windowsDir, Silence silence)
{
    const QString primary = text::Folded(iniDir + name);
    if (disk.FileExists(primary))
        return primary;
    const QString secondary = text::Folded(common::CkRSlash(windowsDir) + name);
    if (disk.FileExists(secondary))
        return secondary;
    if (silence == Silence::Silent)
        return primary;
    const auto answer =
        prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Question, u"Configuration File Missing"_s,
                        MissingText(disk, name, kind, iniDir, windowsDir));
    if (answer != forms::Answer::Yes)
        throw forms::EndOfProgram{1};
    return primary;
}

} // namespace vasclip::shell
