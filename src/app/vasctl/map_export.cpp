#include "app/vasctl/map.h"

#include "link/messages.h"
#include "map/exports.h"
#include "shell/map_exports.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

int MapExport(Session& session, const Output& out, const QStringList& words, const QString& to)
{
    static const QStringList kTexts{u"delorme"_s, u"delorme2005"_s};
    static const QStringList kDatabases{u"streets"_s, u"streets2001"_s};
    const QString wanted = words.value(0);
    const bool database = kDatabases.contains(wanted);
    const bool knownKind = to.isEmpty() || (database && (to == u"access"_s || to == u"vasclip"_s));
    if (words.size() != 1 || !(database || kTexts.contains(wanted)) || !knownKind) {
        out.Error(u"Usage: vasctl map export %1 | %2 [--to access|vasclip]"_s.arg(kTexts.join(u" | "_s),
                                                                                  kDatabases.join(u" | "_s)));
        return kUsage;
    }
    if (!session.ReportIsOpen(out, link::messages::kNotRunning))
        return kNoLink;
    shell::Program& program = session.WithReport();
    const map::ExportDesk desk = shell::Exports(program);
    const engine::DatabaseKind kind =
        to == u"vasclip"_s ? engine::DatabaseKind::Vasclip : engine::DatabaseKind::Access;
    const map::ExportResult result = wanted == u"delorme"_s       ? map::ExportDelorme(desk)
                                     : wanted == u"delorme2005"_s ? map::ExportDelorme2005(desk)
                                                                  : map::ExportMSStreets(desk, wanted == u"streets"_s, kind);
    if (!result.written)
        return kFailed; // the box has told why
    const QString message = program.status.lblmsg.Caption();
    out.Value({{u"file"_s, result.file}, {u"entries"_s, result.entries}, {u"message"_s, message}}, message);
    return kDone;
}

} // namespace vasclip::vasctl
