#include "app/vasctl/session.h"

#include "common/paths.h"
#include "platform/text/text.h"
#include "shell/rescue_text.h"
#include "store/convert.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

/// How the program gets to open a Databook: its directory is a setting of its own.
QString HowToOpen(const QString& directory, const QString& target)
{
    const qsizetype slash = target.lastIndexOf(u'\\') + 1;
    const QString file = u"'vasctl settings set DIRECTORIES DATAFILE \"%1\"'"_s.arg(target.mid(slash));
    if (text::Folded(target.left(slash)) == text::Folded(common::CkRSlash(directory)))
        return file + u" lets the program open it."_s;
    return u"'vasctl settings set DIRECTORIES DATADIR \"%1\"' and %2 let the program open it."_s.arg(
        target.left(slash), file);
}

int Copy(Session& session, const Output& out, const QString& given)
{
    const auto& g = session.Home().globals;
    const files::Disk& disk = session.Disk();
    const QString source = g.G_DataDir + g.G_DataFile;
    QString target = given;
    if (target.contains(u'/')) {
        target = DrivePathOf(disk, given);
        if (target.isEmpty()) {
            out.Error(u"%1 lies on none of the program's drives; drives.ini maps more."_s.arg(given));
            return kUsage;
        }
    } else if (!target.contains(u'\\')) {
        target = g.G_DataDir + target; // beside the one that it is made of
    }
    ProgressLine progress(out);
    const auto rescued = store::CopyReadable(session.Engine(), source, target, [&](qint64 records) {
        progress.Show(u"Copying"_s, records);
        return true;
    });
    progress.Clear();
    QJsonObject value{{u"copied"_s, rescued->records},
                      {u"lost"_s, rescued->lost},
                      {u"incomplete"_s, rescued->incomplete},
                      {u"file"_s, target},
                      {u"missing"_s, QJsonArray::fromStringList(rescued->names)}};
    out.Value(value, shell::RescueText(*rescued, source, target) +
                         u'\n' + HowToOpen(g.G_DataDir, target));
    return rescued->lost == 0 && rescued->incomplete == 0 ? kDone : kFailed;
}

} // namespace

int RunDatabook(Session& session, const Output& out, const QStringList& arguments)
{
    if (arguments.size() == 2 && arguments[0] == u"copy"_s && !arguments[1].trimmed().isEmpty())
        return Copy(session, out, arguments[1]);
    out.Error(u"Usage: vasctl databook copy FILE, a new Databook of all that can be read of the present one."_s);
    return kUsage;
}

} // namespace vasclip::vasctl
