#include "house/include_graph.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vasclip::house {

namespace {

const QString kSrc = u"src/"_s;
const QString kTools = u"tools/"_s;

struct Include
{
    QString name;
    bool quoted = false; ///< "..." and not <...>
};

QList<Include> IncludesOf(const QString& text)
{
    static const QRegularExpression pattern(uR"(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"])"_s,
                                            QRegularExpression::MultilineOption);
    QList<Include> includes;
    for (auto found = pattern.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        includes.append({match.captured(2), match.captured(1) == u"\""});
    }
    return includes;
}

/// The room of a path that begins with "src/"; empty for a folder that the plan does not know.
QString RoomOf(const QString& path)
{
    for (const QStringList& floor : Floors()) {
        for (const QString& room : floor) {
            if (path.startsWith(kSrc + room + u'/'))
                return room;
        }
    }
    return {};
}

qsizetype FloorOf(const QString& room)
{
    for (qsizetype at = 0; at < Floors().size(); ++at) {
        if (Floors()[at].contains(room))
            return at;
    }
    return -1;
}

/// Made by the build: the form of a window, the meta-object code of a class.
bool IsGenerated(const QString& name)
{
    return name.startsWith(u"ui_"_s) || name.endsWith(u".moc"_s) || name.startsWith(u"moc_"_s);
}

bool MayShowWidgets(const QString& path)
{
    static const QRegularExpression pattern(u"^(src/windows/|src/app/|tools/kelforms/)"_s);
    return pattern.match(path).hasMatch();
}

bool MayAskTheSystem(const QString& path)
{
    return path.startsWith(u"src/platform/"_s);
}

/// A path of the project for the name of an include; empty if there is none.
QString Resolved(const Sources& sources, const QString& from, const QString& name)
{
    if (sources.contains(kSrc + name))
        return kSrc + name;
    if (from.startsWith(kTools) && sources.contains(kTools + name))
        return kTools + name;
    return {};
}

void CheckArrow(const QString& from, const QString& onto, QStringList& violations)
{
    if (from.startsWith(kTools))
        return; // tools stand outside the house and may use all of it
    const QString room = RoomOf(from);
    const QString other = RoomOf(onto);
    if (room == other)
        return;
    const qsizetype floor = FloorOf(room);
    const qsizetype otherFloor = FloorOf(other);
    if (otherFloor > floor)
        violations.append(u"%1 includes %2, which stands above it"_s.arg(from, onto.mid(kSrc.size())));
    else if (otherFloor == floor)
        violations.append(u"%1 includes %2 of its own floor"_s.arg(from, onto.mid(kSrc.size())));
}

/// One kind of database is known to itself and to the list of kinds alone; the map's files are its own.
void CheckBackEnd(const QString& path, const Include& include, QStringList& violations)
{
    static const QRegularExpression kind(u"^platform/engine/(?:sqlite|jet)/"_s);
    const QString own = include.quoted ? kind.match(include.name).captured() : u"platform/engine/sqlite/"_s;
    const bool names = include.quoted ? !own.isEmpty() : include.name == u"sqlite3.h"_s;
    const bool knows = path.startsWith(kSrc + own) || path.startsWith(u"src/platform/engine/kinds/"_s) ||
                       (!include.quoted && path.startsWith(u"src/platform/street/"_s));
    if (names && !knows && path.startsWith(kSrc))
        violations.append(u"%1 includes %2, which is one kind of database's own"_s.arg(path, include.name));
}

void CheckIncludes(const Sources& sources, const QSet<QString>& widgetHeaders,
                   QMap<QString, QStringList>& arrows, QStringList& violations)
{
    static const QSet<QString> kWholeLibraries = {u"QtCore"_s, u"QtGui"_s, u"QtWidgets"_s, u"QtNetwork"_s};
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        const QString& path = source.key();
        if (path.startsWith(kSrc) && RoomOf(path).isEmpty())
            violations.append(u"%1 lies in no room of the plan"_s.arg(path));
        for (const Include& include : IncludesOf(source.value())) {
            CheckBackEnd(path, include, violations);
            if (include.quoted && !IsGenerated(include.name)) {
                const QString onto = Resolved(sources, path, include.name);
                if (onto.isEmpty()) {
                    violations.append(u"%1 includes \"%2\", which is no path from src/ or tools/"_s.arg(
                        path, include.name));
                } else {
                    arrows[path].append(onto);
                    CheckArrow(path, onto, violations);
                }
            }
            const QString header = include.name.section(u'/', -1);
            if (kWholeLibraries.contains(include.name))
                violations.append(u"%1 includes all of <%2>"_s.arg(path, include.name));
            const bool widget = widgetHeaders.contains(header) || include.name.startsWith(u"QtWidgets/"_s);
            if (!include.quoted && widget && !MayShowWidgets(path))
                violations.append(u"%1 includes the widget <%2>"_s.arg(path, include.name));
        }
    }
}

/// One spelling of a literal in the whole project.
void CheckLiterals(const Sources& sources, QStringList& violations)
{
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        if (source.value().contains(u"QString"_s + u"Literal("_s))
            violations.append(u"%1 spells a text in the long way: it is u\"...\"_s"_s.arg(source.key()));
    }
}

void CheckSystems(const Sources& sources, QStringList& violations)
{
    static const QRegularExpression pattern(
        uR"(^[ \t]*#[ \t]*(?:if|ifdef|ifndef|elif)\b.*\b)"
        R"((_?WIN32|_WIN64|Q_OS_\w+|__linux__|__unix__|__APPLE__|_MSC_VER|__MINGW\w*)\b)"_s,
        QRegularExpression::MultilineOption);
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        const QRegularExpressionMatch match = pattern.match(source.value());
        if (match.hasMatch() && !MayAskTheSystem(source.key()))
            violations.append(
                u"%1 asks for a system by %2 outside platform/"_s.arg(source.key(), match.captured(1)));
    }
}

/// Every change of a record goes through store::Change, which knows what it held and holds.
void CheckWriters(const Sources& sources, QStringList& violations)
{
    static const QRegularExpression pattern(
        uR"((?:\.|->)(Edit(?=\(\))|AddNew|Update(?=\(\))|Delete(?=\(\))|CancelUpdate|Execute)\()"_s);
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        const QString& path = source.key();
        const bool writer = path.startsWith(u"src/store/"_s) || path.startsWith(u"src/platform/"_s);
        const QRegularExpressionMatch match = pattern.match(source.value());
        if (match.hasMatch() && !writer && path.startsWith(kSrc))
            violations.append(u"%1 changes records by %2, past store::Change"_s.arg(path, match.captured(1)));
    }
}

/// What is stored together is heard of together, which store::Transaction sees to. A file that is made or upgraded has
/// nobody who hears.
void CheckTransactions(const Sources& sources, QStringList& violations)
{
    static const QSet<QString> kUnheard = {u"src/map/export_database.cpp"_s};
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        const QString& path = source.key();
        const bool owner = path.startsWith(u"src/store/"_s) || path.startsWith(u"src/platform/"_s);
        if (path.startsWith(kSrc) && !owner && !kUnheard.contains(path) &&
            source.value().contains(u"engine::Transaction"_s))
            violations.append(u"%1 begins a transaction of the engine: it is store::Transaction"_s.arg(path));
    }
}

/// What is a group's of slots stands in the one table of them. A picture's length may be "N/A" as well.
void CheckSlotTable(const Sources& sources, QStringList& violations)
{
    static const QString kTable = u"src/link/slot_table.h"_s;
    static const QRegularExpression comment(u"//[^\n]*"_s);
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        if (!source.key().startsWith(kSrc) || source.key() == kTable ||
            FloorOf(RoomOf(source.key())) < FloorOf(u"link"_s))
            continue;
        if (QString(source.value()).remove(comment).contains(u"\"N/A\""_s))
            violations.append(u"%1 spells \"N/A\" itself: it is kNotAvailable"_s.arg(source.key()));
    }
}

/// A number of an error is named once, in the header of its floor.
void CheckErrorNumbers(const Sources& sources, QStringList& violations)
{
    static const QRegularExpression header(u"^src/platform/(text/(runtime|call)_errors?|engine/errors)\\.h$"_s);
    static const QRegularExpression bare(uR"(\bRuntimeError\s*[({]\s*(\d+)|\bNumber\(\)\s*[=!]=\s*(\d+)|)"
                                         R"(\bconstexpr int k\w+ = (3(?!000)\d{3});)"_s);
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        if (!source.key().startsWith(kSrc) || header.match(source.key()).hasMatch())
            continue;
        const QRegularExpressionMatch match = bare.match(source.value());
        if (match.hasMatch())
            violations.append(u"%1 has the number %2 of an error, which has a name in namespace error"_s.arg(
                source.key(), match.captured(match.lastCapturedIndex())));
    }
}

enum class Mark { Unseen, OnTheWay, Done };

void Visit(const QString& path, const QMap<QString, QStringList>& arrows, QMap<QString, Mark>& marks,
           QStringList& way, QStringList& violations)
{
    marks[path] = Mark::OnTheWay;
    way.append(path);
    for (const QString& onto : arrows.value(path)) {
        const Mark mark = marks.value(onto, Mark::Unseen);
        if (mark == Mark::OnTheWay)
            violations.append(u"a circle of includes: %1"_s.arg(
                (way.mid(way.indexOf(onto)) + QStringList{onto}).join(u" > "_s)));
        else if (mark == Mark::Unseen)
            Visit(onto, arrows, marks, way, violations);
    }
    way.removeLast();
    marks[path] = Mark::Done;
}

} // namespace

const QList<QStringList>& Floors()
{
    static const QList<QStringList> floors = {
        {u"platform/text"_s},
        {u"platform/files"_s, u"platform/work"_s},
        {u"platform/engine"_s, u"platform/picture"_s, u"platform/paper"_s, u"platform/street"_s, u"platform/conduit"_s,
         u"platform/desktop"_s, u"platform/sheet"_s},
        {u"forms"_s},
        {u"common"_s},
        {u"store"_s},
        {u"photos"_s, u"comments"_s},
        {u"databook"_s},
        {u"link"_s},
        {u"upkeep"_s},
        {u"map"_s},
        {u"drops"_s},
        {u"shell"_s},
        {u"windows"_s},
        {u"app"_s},
    };
    return floors;
}

QStringList Violations(const Sources& sources, const QSet<QString>& widgetHeaders)
{
    QStringList violations;
    QMap<QString, QStringList> arrows;
    CheckIncludes(sources, widgetHeaders, arrows, violations);
    CheckSystems(sources, violations);
    CheckLiterals(sources, violations);
    CheckWriters(sources, violations);
    CheckErrorNumbers(sources, violations);
    CheckTransactions(sources, violations);
    CheckSlotTable(sources, violations);
    QMap<QString, Mark> marks;
    QStringList way;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        if (marks.value(source.key(), Mark::Unseen) == Mark::Unseen)
            Visit(source.key(), arrows, marks, way, violations);
    }
    return violations;
}

Sources ReadSources(const QString& projectDirectory)
{
    Sources sources;
    const QDir root(projectDirectory);
    for (const QString& folder : {kSrc, kTools}) {
        QDirIterator files(root.filePath(folder), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                sources.insert(root.relativeFilePath(file.fileName()), QString::fromUtf8(file.readAll()));
        }
    }
    return sources;
}

QSet<QString> ReadWidgetHeaders(const QStringList& includeDirectories)
{
    QSet<QString> widgets;
    QSet<QString> others;
    for (const QString& directory : includeDirectories) {
        const QStringList names = QDir(directory).entryList(QDir::Files);
        const QString library = QDir(directory).dirName();
        if (library == u"QtWidgets")
            widgets.unite(QSet<QString>(names.begin(), names.end()));
        else if (library == u"QtGui" || library == u"QtCore")
            others.unite(QSet<QString>(names.begin(), names.end()));
    }
    return widgets.subtract(others);
}

} // namespace vasclip::house
