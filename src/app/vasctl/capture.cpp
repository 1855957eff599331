#include "app/vasctl/session.h"

#include "common/paths.h"
#include "photos/card_copy.h"
#include "photos/content.h"
#include "photos/photo_owners.h"
#include "platform/text/text.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

QString KnownText(const photos::WhereKnown& where)
{
    switch (where.known) {
    case photos::Known::Here:
        return u"here as "_s + where.path;
    case photos::Known::Filed:
        return u"filed with "_s + where.record;
    case photos::Known::InTrash:
        return u"in the trash as "_s + where.path;
    case photos::Known::New:
        break;
    }
    return u"new"_s;
}

int NoDirectory(const Output& out, const QString& directory)
{
    out.Error(u"There is no directory '%1', or it can't be reached."_s.arg(directory));
    return kNotFound;
}

int List(Session& session, const Output& out, const QString& given)
{
    auto& program = session.WithDatabook();
    const files::Disk& disk = session.Disk();
    const QString directory =
        common::CkRSlash(given.isEmpty() ? program.globals.G_CaptureDir : DrivePathOf(disk, given));
    if (directory == "\\"_L1 || !disk.DirExists(directory))
        return NoDirectory(out, given.isEmpty() ? directory : given);
    const bool own = photos::IsCaptureDirectory(program.globals, directory);
    photos::PhotoOwners owners(program.sources.datDatabook, program.globals.G_Table);
    photos::KnownPictures known(disk, program.globals, [&owners](const QString& stem) { return owners.Of(stem); });
    QList<QStringList> rows;
    for (const QString& name : photos::PictureNames(disk, directory, photos::kCapturePatterns)) {
        QStringList row{name, text::Dec(disk.FileLen(directory + name)),
                        disk.FileDateTime(directory + name).toString(Qt::ISODate)};
        if (!own)
            row.append(KnownText(known.Look(directory + name)));
        rows.append(row);
    }
    QStringList headings{u"NAME"_s, u"BYTES"_s, u"SAVED"_s};
    if (!own)
        headings.append(u"KNOWN"_s);
    out.Table(headings, rows, {Kind::Text, Kind::Number});
    return kDone;
}

/// What lies in the directory and is not copied because it is no picture that the capture browser shows.
QStringList OtherThings(const files::Disk& disk, const QString& source, const QStringList& pictures)
{
    QStringList lines;
    for (const QString& name : photos::PictureNames(disk, source, u"*"_s))
        if (!pictures.contains(name))
            lines.append(u"%1 is no picture (%2)"_s.arg(name, photos::kCapturePatterns));
    for (const QString& name : photos::DirectoryNames(disk, source))
        lines.append(u"%1 is a directory; name it to copy from it"_s.arg(name));
    return lines;
}

/// The names within `source`, given as such or as paths. @return false, told, if one of them is none there
bool ReadNames(const Output& out, const files::Disk& disk, const QString& source, QStringList& names)
{
    for (QString& name : names) {
        const bool path = name.contains(u'/') || name.contains(u'\\');
        const QString given = path ? DrivePathOf(disk, name) : source + name;
        const QString wanted = given.section(u'\\', -1);
        if (text::Folded(given) != text::Folded(source + wanted) || !disk.FileExists(given)) {
            out.Error(u"There is no picture '%1' in %2."_s.arg(name, source));
            return false;
        }
        name = wanted;
    }
    return true;
}

int Copy(Session& session, const Output& out, const QString& given, QStringList names)
{
    auto& program = session.WithDatabook();
    const files::Disk& disk = session.Disk();
    // A shell makes many names of "card/*.jpg": the first is a picture too then.
    QString source = DrivePathOf(disk, given);
    if (disk.FileExists(source)) {
        names.prepend(given);
        source = source.section(u'\\', 0, -2);
    }
    source = common::CkRSlash(source);
    if (source == "\\"_L1 || !disk.DirExists(source))
        return NoDirectory(out, given);
    if (photos::IsCaptureDirectory(program.globals, source)) {
        out.Error(u"The Source and target directories are the same.  Copy ignored."_s);
        return kUsage;
    }
    if (!ReadNames(out, disk, source, names))
        return kNotFound;
    const QStringList pictures = photos::PictureNames(disk, source, photos::kCapturePatterns);
    QStringList left;
    if (names.isEmpty()) {
        left = OtherThings(disk, source, pictures);
        names = pictures;
    }
    for (const QString& name : std::as_const(names)) {
        const bool picture = pictures.contains(name, Qt::CaseInsensitive);
        if (picture)
            continue;
        out.Error(u"%1 is no picture (%2); nothing was copied."_s.arg(name, photos::kCapturePatterns));
        return kUsage;
    }
    if (names.isEmpty()) {
        out.Error(QStringList{u"%1 holds no pictures (%2)."_s.arg(source, photos::kCapturePatterns), left.join(u'\n')}
                      .join(u'\n')
                      .trimmed());
        return kNotFound;
    }
    photos::PhotoOwners owners(program.sources.datDatabook, program.globals.G_Table);
    const photos::CopyDesk desk{.ports = session.Ports(),
                                .disk = disk,
                                .globals = program.globals,
                                .recordOf = [&owners](const QString& stem) { return owners.Of(stem); }};
    ProgressLine line(out);
    session.Prompter().SetBeforeBox([&line] { line.Clear(); });
    const photos::CopyOutcome outcome =
        photos::CopyFromMedia(desk, source, names, [&line](const QString& doing, qint64 done, qint64 total) {
            line.Show(doing, done, total);
            return true;
        });
    session.Prompter().SetBeforeBox({});
    line.Clear();
    const QString text = outcome.Text(program.globals.G_CaptureDir);
    left = outcome.left + left;
    if (outcome.begun && !outcome.stopped && outcome.failed.isEmpty()) {
        out.Value({{u"copied"_s, outcome.copied},
                   {u"there"_s, outcome.thereAlready},
                   {u"leftOut"_s, outcome.leftOut},
                   {u"left"_s, QJsonArray::fromStringList(left)},
                   {u"kept"_s, static_cast<int>(outcome.kept.size())}},
                  left.isEmpty() ? text : text + u"\nNot copied:\n  "_s + left.join(u"\n  "_s));
        return outcome.copied == 0 && session.Prompter().Declined() ? kDeclined : kDone;
    }
    out.Error(text);
    return session.Prompter().Declined() ? kDeclined : kFailed;
}

} // namespace

int RunCapture(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser&)
{
    const QString verb = arguments.value(0);
    if (verb == u"list"_s && arguments.size() <= 2)
        return List(session, out, arguments.value(1));
    if (verb == u"copy"_s && arguments.size() >= 2)
        return Copy(session, out, arguments[1], arguments.mid(2));
    out.Error(u"Usage: vasctl capture list [DIR] | copy DIR [NAME ...] | copy FILE ..."_s);
    return kUsage;
}

} // namespace vasclip::vasctl
