#include "app/vasctl/map.h"

#include "link/messages.h"
#include "map/exports.h"
#include "shell/map_exports.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

int MapExport(Session& session, const Output& out, const QStringList& words)
{
    static const QStringList kKinds{u"delorme"_s, u"delorme2005"_s, u"streets"_s, u"streets2001"_s};
    if (words.size() != 1 || !kKinds.contains(words[0])) {
        out.Error(u"Usage: vasctl map export %1"_s.arg(kKinds.join(u" | "_s)));
        return kUsage;
    }
    if (!session.ReportIsOpen(out, link::messages::kNotRunning))
        return kNoLink;
    shell::Program& program = session.WithReport();
    const map::ExportDesk desk = shell::Exports(program);
    const map::ExportResult result = words[0] == u"delorme"_s       ? map::ExportDelorme(desk)
                                     : words[0] == u"delorme2005"_s ? map::ExportDelorme2005(desk)
                                                                    : map::ExportMSStreets(desk, words[0] == u"streets"_s);
    if (!result.written)
        return kFailed; // the box has told why
    const QString message = program.status.lblmsg.Caption();
    out.Value({{u"file"_s, result.file}, {u"entries"_s, result.entries}, {u"message"_s, message}}, message);
    return kDone;
}

} // namespace vasclip::vasctl
