#include "upkeep/layout_files.h"

#include "common/paths.h"
#include "platform/files/profile.h"
#include "platform/text/call_errors.h"
#include "upkeep/layout_parser.h"

#include <QFile>

#include <algorithm>

static void InitReports()
{
    Q_INIT_RESOURCE(reports);
}

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kExtension = u".layout"_s;
const QString kSection = u"REPORT PAPER"_s;

const QStringList& OfTheProgram()
{
    static const QStringList names{u"brief"_s, u"medium"_s, u"detail"_s};
    return names;
}

QByteArray ProgramsOwn(const QString& name)
{
    InitReports();
    QFile file(u":/reports/"_s + name + kExtension);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool HasNone(const QString& name, QStringView letters)
{
    return std::none_of(name.begin(), name.end(), [&](QChar letter) { return letters.contains(letter); });
}

/// Can a file in the directory be called so?
bool IsFileName(const QString& name)
{
    return !name.isEmpty() && HasNone(name, u"\\/:*?\"<>|");
}

/// Can a new one be, whose paper is remembered under its name?
bool IsName(const QString& name)
{
    return IsFileName(name) && name.size() <= 60 && HasNone(name, u".=[];");
}

QString OwnFile(const common::Globals& globals, const QString& name)
{
    return LayoutDirectory(globals) + name + kExtension;
}

ReportLayout Parsed(const QByteArray& content, const QString& file, const QString& name)
{
    try {
        ReportLayout layout = ParseLayout(content);
        layout.name = name;
        if (layout.words.isEmpty())
            layout.words = name;
        return layout;
    } catch (const LayoutError& wrong) {
        throw RuntimeError(error::kInvalidCall,
                           u"%1, line %2, column %3: %4%5"_s.arg(
                               file, QString::number(wrong.Line()), QString::number(wrong.Column()),
                               wrong.What(), wrong.What().endsWith(u'?') ? QString() : u"."_s));
    }
}

} // namespace

QString LayoutDirectory(const common::Globals& globals)
{
    return common::CkRSlash(globals.G_UserDir) + u"REPORTS\\"_s;
}

QList<LayoutEntry> ListLayouts(const files::Disk& disk, const common::Globals& globals)
{
    QStringList names = OfTheProgram();
    QStringList own = disk.Dir(LayoutDirectory(globals) + u'*' + kExtension);
    for (QString& file : own) {
        file = file.chopped(kExtension.size()).toLower();
        if (!names.contains(file))
            names.append(file);
    }
    QList<LayoutEntry> entries;
    for (const QString& name : std::as_const(names)) {
        LayoutEntry entry{.name = name, .words = name, .own = own.contains(name), .wrong = {}};
        try {
            entry.words = OpenLayout(disk, globals, name).words;
        } catch (const RuntimeError& failure) {
            entry.wrong = failure.Description();
        }
        entries.append(entry);
    }
    return entries;
}

QString ShownName(const LayoutEntry& entry)
{
    return entry.words == entry.name || OfTheProgram().contains(entry.name) ? entry.words
                                                                           : entry.words + u" ("_s + entry.name + u')';
}

ReportLayout OpenLayout(const files::Disk& disk, const common::Globals& globals, const QString& name)
{
    const QString wanted = name.trimmed().toLower();
    const QString file = OwnFile(globals, wanted);
    if (IsFileName(wanted) && disk.Found(file)) {
        if (disk.FileLen(file) > kMostLayoutBytes)
            return Parsed(QByteArray(kMostLayoutBytes + 1, ' '), file, wanted);
        return Parsed(disk.ReadWhole(file), file, wanted);
    }
    if (OfTheProgram().contains(wanted))
        return Parsed(ProgramsOwn(wanted), wanted + kExtension, wanted);
    QStringList names = OfTheProgram();
    for (const QString& own : disk.Dir(LayoutDirectory(globals) + u'*' + kExtension))
        names.append(own.chopped(kExtension.size()).toLower());
    names.removeDuplicates();
    throw RuntimeError(error::kFileNotFound, u"There is no report layout '%1' in %2. There are: %3."_s.arg(
                                                 name, LayoutDirectory(globals), names.join(u", "_s)));
}

QString CopyLayout(const files::Disk& disk, const common::Globals& globals, const QString& name,
                   const QString& newName)
{
    const QString from = name.trimmed().toLower(), to = newName.trimmed().toLower();
    if (!IsName(to))
        throw RuntimeError(error::kBadFileName,
                           u"'%1' can't be a layout's name. Use letters, digits and blanks."_s.arg(newName));
    const QString source = OwnFile(globals, from), target = OwnFile(globals, to);
    const QByteArray content = IsFileName(from) && disk.Found(source) ? disk.ReadWhole(source)
                               : OfTheProgram().contains(from)    ? ProgramsOwn(from)
                                                                  : QByteArray();
    if (content.isEmpty())
        throw RuntimeError(error::kFileNotFound, u"There is no report layout '%1'."_s.arg(name));
    if (!disk.DirExists(LayoutDirectory(globals)))
        disk.MkDir(LayoutDirectory(globals));
    if (disk.Found(target))
        throw RuntimeError(error::kFileExists, u"%1 is there already. Choose another name."_s.arg(target));
    disk.WriteWhole(target, content);
    return target;
}

paper::Sheet SheetOf(const files::Disk& disk, const common::Globals& globals, const ReportLayout& layout)
{
    paper::Sheet sheet = layout.sheet;
    const QString kept =
        files::GetPrivateProfileString(disk, kSection, layout.name, {}, globals.applicationIni);
    const QString name = kept.section(u' ', 0, 0).toLower();
    if (paper::PaperNames().contains(name)) {
        sheet.name = name;
        sheet.landscape = kept.section(u' ', 1).trimmed().toLower() == u"landscape"_s;
    }
    // A paper that leaves no room between the layout's margins is not taken.
    const QRect inside = sheet.Inside();
    return inside.width() < 3 * paper::kInch || inside.height() < 3 * paper::kInch ? layout.sheet : sheet;
}

bool KeepSheet(const files::Disk& disk, const common::Globals& globals, const ReportLayout& layout,
               const paper::Sheet& sheet)
{
    return files::WritePrivateProfileString(disk, kSection, layout.name,
                                            sheet.name + (sheet.landscape ? u" landscape"_s : u" portrait"_s),
                                            globals.applicationIni);
}

} // namespace vasclip::upkeep
