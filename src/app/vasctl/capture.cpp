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
    auto& main = session.WithDatabook();
    const files::Disk& disk = session.Disk();
    const QString directory = common::CkRSlash(given.isEmpty() ? main.globals.G_CaptureDir : given);
    if (!disk.DirExists(directory))
        return NoDirectory(out, directory);
    const bool own = photos::IsCaptureDirectory(main.globals, directory);
    photos::PhotoOwners owners(main.sources.datDatabook, main.globals.G_Table);
    photos::KnownPictures known(disk, main.globals, [&owners](const QString& stem) { return owners.Of(stem); });
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
    out.Table(headings, rows);
    return kDone;
}

int Copy(Session& session, const Output& out, const QString& directory, QStringList names)
{
    auto& main = session.WithDatabook();
    const files::Disk& disk = session.Disk();
    const QString source = common::CkRSlash(directory);
    if (photos::IsCaptureDirectory(main.globals, source)) {
        out.Error(u"The Source and target directories are the same.  Copy ignored."_s);
        return kUsage;
    }
    if (!disk.DirExists(source))
        return NoDirectory(out, source);
    if (names.isEmpty())
        names = photos::PictureNames(disk, source, photos::kCapturePatterns);
    for (const QString& name : std::as_const(names)) {
        if (name.contains(u'\\') || name.contains(u'/') || !disk.Found(source + name)) {
            out.Error(u"There is no picture '%1' in %2."_s.arg(name, source));
            return kNotFound;
        }
    }
    photos::PhotoOwners owners(main.sources.datDatabook, main.globals.G_Table);
    const photos::CopyDesk desk{.ports = session.Ports(),
                                .disk = disk,
                                .globals = main.globals,
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
    const QString text = outcome.Text(main.globals.G_CaptureDir);
    if (outcome.begun && !outcome.stopped && outcome.failed.isEmpty()) {
        out.Value({{u"copied"_s, outcome.copied},
                   {u"there"_s, outcome.thereAlready},
                   {u"leftOut"_s, outcome.leftOut},
                   {u"kept"_s, static_cast<int>(outcome.kept.size())}},
                  text);
        return kDone;
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
    out.Error(u"Usage: vasctl capture list [DIR] | copy DIR [NAME ...]"_s);
    return kUsage;
}

} // namespace vasclip::vasctl
