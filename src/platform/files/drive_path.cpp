#include "platform/files/drive_path.h"

#include "platform/text/runtime_error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::files {

namespace {

constexpr qsizetype kLongestName = 255;

/// A message holds a name of 300 characters only by its beginning.
QString Shown(const QString& text)
{
    constexpr qsizetype kLongestShown = 120;
    return text.size() <= kLongestShown ? text : text.left(kLongestShown) + u"..."_s;
}

[[noreturn]] void RefuseName(const QString& path, const QString& reason)
{
    throw RuntimeError(error::kBadFileName, u"Bad file name or number: \"%1\" %2"_s.arg(Shown(path), reason));
}

bool IsSeparator(QChar c)
{
    return c == u'\\' || c == u'/';
}

bool IsWildcard(QChar c)
{
    return c == u'*' || c == u'?';
}

bool IsForbidden(QChar c)
{
    return c.unicode() < 32 || c == u'<' || c == u'>' || c == u':' || c == u'"' || c == u'|';
}

/// The names that belong to devices in every directory, with any extension.
bool IsDeviceName(QStringView name)
{
    const qsizetype dot = name.indexOf(u'.');
    QStringView stem = dot < 0 ? name : name.left(dot);
    while (stem.endsWith(u' '))
        stem.chop(1);
    const auto is = [stem](QStringView device) { return stem.compare(device, Qt::CaseInsensitive) == 0; };
    switch (stem.size()) {
    case 3:
        return is(u"CON") || is(u"PRN") || is(u"AUX") || is(u"NUL");
    case 4:
        return (stem.startsWith(u"COM", Qt::CaseInsensitive) ||
                stem.startsWith(u"LPT", Qt::CaseInsensitive)) &&
               stem[3] >= u'1' && stem[3] <= u'9';
    case 6:
        return is(u"CLOCK$");
    default:
        return false;
    }
}

QStringList Split(const QString& rest)
{
    QStringList parts;
    qsizetype from = 0;
    for (qsizetype at = 0; at <= rest.size(); ++at) {
        if (at == rest.size() || IsSeparator(rest[at])) {
            if (at > from)
                parts.append(rest.mid(from, at - from));
            from = at + 1;
        }
    }
    return parts;
}

QString WithoutTail(QString part)
{
    while (part.endsWith(u'.') || part.endsWith(u' '))
        part.chop(1);
    return part;
}

} // namespace

QString DrivePath::Text() const
{
    return drive + u":\\"_s + parts.join(u'\\') + (closed && !parts.isEmpty() ? u"\\"_s : QString());
}

bool IsPossibleName(const QString& name)
{
    return !name.isEmpty() && !name.endsWith(u'.') && !name.endsWith(u' ') && !IsDeviceName(name) &&
           std::none_of(name.begin(), name.end(),
                        [](QChar c) { return IsForbidden(c) || IsWildcard(c) || IsSeparator(c); });
}

DrivePath ParseDrivePath(const QString& path, Wildcards wildcards)
{
    if (path.trimmed().isEmpty())
        RefuseName(path, u"is no path, it is empty"_s);
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]))
        RefuseName(path, u"names a machine; give its share a drive letter in drives.ini"_s);
    const QChar letter = path[0].toUpper();
    if (path.size() < 2 || path[1] != u':' || letter < u'A' || letter > u'Z')
        RefuseName(path, u"does not begin with a drive, such as C:\\"_s);

    DrivePath result;
    result.drive = letter;
    const QString rest = path.mid(2);
    result.closed = rest.isEmpty() || IsSeparator(rest.back());
    const QStringList given = Split(rest);
    for (qsizetype at = 0; at < given.size(); ++at) {
        const QString& part = given[at];
        if (part == u"."_s)
            continue;
        if (part == u".."_s) {
            if (result.parts.isEmpty())
                throw RuntimeError(error::kPathNotFound,
                                   u"Path not found: \"%1\" leaves its drive"_s.arg(Shown(path)));
            result.parts.removeLast();
            continue;
        }
        if (part.size() > kLongestName)
            throw RuntimeError(
                error::kPathNotFound,
                u"Path not found: a name in \"%1\" has %2 characters, and a disk holds %3 at most"_s
                    .arg(Shown(path))
                    .arg(part.size())
                    .arg(kLongestName));
        const bool last = at == given.size() - 1 && !result.closed;
        const bool pattern = std::any_of(part.begin(), part.end(), IsWildcard);
        if (pattern && (wildcards == Wildcards::Refused || !last))
            RefuseName(path, wildcards == Wildcards::Refused ? u"holds * or ?, and one name is wanted"_s
                                                             : u"holds * or ? in a directory's name"_s);
        const auto forbidden = std::find_if(part.begin(), part.end(), IsForbidden);
        if (forbidden != part.end())
            RefuseName(path, forbidden->unicode() < 32 ? u"holds a control character"_s
                                                       : u"holds the character %1"_s.arg(*forbidden));
        if (IsDeviceName(part))
            RefuseName(path, u"holds the name of a device"_s);
        const QString name = pattern ? part : WithoutTail(part);
        if (name.isEmpty())
            RefuseName(path, u"holds a name of dots and blanks alone"_s);
        result.parts.append(name);
    }
    return result;
}

} // namespace vasclip::files
