#include "app/vasctl/session.h"

#include "drops/router.h"
#include "link/comp2kel.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/slot_table.h"
#include "platform/text/text.h"

#include <QRegularExpression>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kNoReport = u"No report is open. Start the forms program, open a report and try again."_s;

int Status(Session& session, const Output& out)
{
    auto& program = session.WithReport();
    out.Facts({{u"report"_s, program.addr.txtKelReport.Text()},
               {u"form"_s, link::KelFirstToken(program.addr.txtKelListForms.Text())},
               {u"forms"_s, program.addr.txtKelListForms.Text()},
               {u"subject"_s, program.report.txtSubject.Text()},
               {u"socket"_s, session.SocketPath()}});
    return kDone;
}

/// Without KEL.INI no page of a report is known, and what would be said of it is not what it is.
bool PagesAreKnown(Session& session, const Output& out)
{
    const QString ini = session.Home().globals.kelIni;
    if (!ini.isEmpty() && session.Disk().FileExists(ini))
        return true;
    out.Error(u"The report's pages are not known without KEL.INI%1."_s.arg(ini.isEmpty() ? QString()
                                                                                     : u", which belongs at "_s + ini));
    return false;
}

/// Every page of every tab with its caption and what its slots hold.
int Pages(Session& session, const Output& out)
{
    auto& program = session.WithReport();
    QList<QStringList> rows;
    const auto& report = program.report;
    for (const link::GroupRow& row : link::GroupTable()) {
        if (!row.texts)
            continue;
        const forms::TabControl& tab = report.*row.tabControl;
        for (int page = 0; page < row.pages; ++page) {
            QStringList slots_;
            for (int i = page * link::kSlotsOnAPage + 1; row.Comps() && i <= (page + 1) * link::kSlotsOnAPage; ++i)
                slots_.append(u"%1: %2"_s.arg(i).arg(text::Trim((report.*row.texts)(i).Text())));
            const int at = row.firstPage + page;
            rows.append({tab.Name(), QString::number(at + 1), tab.TabCaption(at), slots_.join(u"; "_s)});
        }
    }
    out.Table({u"tab"_s, u"page"_s, u"caption"_s, u"slots"_s}, rows, {Kind::Text, Kind::Number});
    return kDone;
}

/// The cells of one slot as the mapping knows them, or named items.
int Cells(Session& session, const Output& out, const QStringList& items)
{
    auto& program = session.WithReport();
    const QString report = program.addr.txtKelReport.Text();
    QList<QStringList> rows;
    for (const QString& item : items)
        rows.append({item, link::KelGetFieldInfo(session.Conduit(), report, item)});
    if (items.isEmpty()) {
        const QString form = link::KelFirstToken(program.addr.txtKelListForms.Text());
        store::Rows all = store::ReadRows(program.sources.datComp2Kel_CURRENT,
                                          u"SELECT * FROM Comp2Kel WHERE Comp2Kel.FORMTYPE = '%1'"_s.arg(form));
        while (const auto row = all.Next()) {
            const auto column = [&](const QString& name) { return row->Text(name); };
            if (column(u"FIELDNAME"_s).toUpper() == link::kCityStateZipWord)
                continue; // its cell is read by the row beside it
            const qint16 base = text::ToInt16(text::Val(column(u"COMP"_s)));
            for (qint16 comp = base; comp < base + (base == link::kSubjectComp ? 1 : link::kSlotsOnAPage); ++comp) {
                const QString cell = link::KelShiftCell(column(u"ROW"_s) + u'|' + column(u"CELL"_s),
                                                        column(u"OFFSET"_s), comp);
                const QString item = column(u"FORMNAME"_s) + u'|' + cell;
                const QString value = link::KelGetFieldInfo(session.Conduit(), report, item);
                if (!value.isEmpty())
                    rows.append({item, column(u"COMPTYPE"_s) + u' ' + QString::number(comp),
                                 column(u"FIELDNAME"_s), value});
            }
        }
        out.Table({u"item"_s, u"comp"_s, u"field"_s, u"text"_s}, rows);
        return kDone;
    }
    out.Table({u"item"_s, u"text"_s}, rows);
    return kDone;
}

/// The report's picture objects and the files in them.
int Images(Session& session, const Output& out)
{
    auto& program = session.WithReport();
    QList<QStringList> rows;
    for (const QString& entry : program.addr.txtKelimages.Text().split(u';', Qt::SkipEmptyParts))
        rows.append({entry.section(u'|', 0, 0), entry.section(u'|', 1)});
    out.Table({u"object"_s, u"file"_s}, rows);
    return kDone;
}

} // namespace

int RunReport(Session& session, const Output& out, const QStringList& arguments)
{
    const QString verb = arguments.value(0);
    if ((verb != u"status"_s && verb != u"pages"_s && verb != u"images"_s && verb != u"cells"_s) ||
        (verb != u"cells"_s && arguments.size() != 1)) {
        out.Error(u"Usage: vasctl report status | pages | images | cells [FORM|ROW|CELL ...]"_s);
        return kUsage;
    }
    for (const QString& item : arguments.mid(1))
        if (text::Trim(item).isEmpty() || item.startsWith(u'|')) { // the forms program would not even be asked
            out.Error(u"\"%1\" is no item: FORM|ROW|CELL is wanted."_s.arg(item));
            return kUsage;
        }
    if (!session.ReportIsOpen(out, kNoReport))
        return kNoLink;
    if (!PagesAreKnown(session, out))
        return kFailed;
    if (verb == u"status"_s)
        return Status(session, out);
    if (verb == u"pages"_s)
        return Pages(session, out);
    if (verb == u"images"_s)
        return Images(session, out);
    return Cells(session, out, arguments.mid(1));
}

int RunRefresh(Session& session, const Output& out)
{
    if (!session.ReportIsOpen(out, kNoReport))
        return kNoLink;
    if (!PagesAreKnown(session, out))
        return kFailed;
    auto& program = session.WithReport();
    QList<QStringList> rows;
    for (int i = 1; i <= link::RowOf(link::Group::Sales).slots; ++i) {
        if (!program.report.txtComp(i).Text().isEmpty())
            rows.append({u"txtComp:%1"_s.arg(i), program.report.txtComp(i).Text()});
    }
    out.Table({u"slot"_s, u"address"_s}, rows);
    return kDone;
}

int RunDrop(Session& session, const Output& out, const QStringList& arguments,
            const QCommandLineParser& options)
{
    const auto slot =
        QRegularExpression(u"^([A-Za-z]+)[:(_](\\d+)\\)?$"_s).match(options.value(u"on"_s).trimmed());
    if (arguments.size() != 1 || !slot.hasMatch()) {
        out.Error(u"Usage: vasctl drop KEY --on SLOT:INDEX, for instance --on txtComp:4"_s);
        return kUsage;
    }
    if (!session.ReportIsOpen(out, kNoReport))
        return kNoLink;
    auto& program = session.WithReport();
    forms::Control* target = program.controls.Find(slot.captured(1), slot.captured(2).toInt());
    if (!target) {
        out.Error(
            u"There is no slot %1(%2). Slots are txtComp 1-9, txtAltComp 1-6, txtListing 1-6, txtRental 1-9, "
            u"and the data boxes geaComp, geaAltComp, geaListing, geaRental."_s.arg(slot.captured(1),
                                                                                    slot.captured(2)));
        return kNotFound;
    }
    drops::Drag drag;
    drag.source = program.records.grddatabook.Name();
    drag.key = text::Folded(arguments[0]);
    if (!store::FindRecord(session.Ports(), program.sources.datDatabook, drag.key, u"Centralkey"_s)) {
        out.Error(u"There is no record '%1' in the Databook."_s.arg(drag.key));
        return kNotFound;
    }
    drops::Router router(program.Drops());
    if (!router.Accepts(drag.source, *target)) {
        out.Error(u"A record can't be dropped on %1: it is no text slot or data box, or the report has no "
                  u"such page "
                  u"(\"N/A\"). 'vasctl report pages' shows the pages."_s.arg(target->ObjectName()));
        return kNotFound;
    }
    const drops::Outcome outcome = router.DropUntold(drag, *target);
    if (outcome.done && outcome.colour == forms::Colour::Red) {
        out.Error(outcome.message); // the data are there, the photo is not
        return kFailed;
    }
    if (outcome.done) {
        out.Value({{u"slot"_s, target->ObjectName()}, {u"key"_s, drag.key}, {u"message"_s, outcome.message}},
                  outcome.message);
        return kDone;
    }
    if (session.Prompter().Declined())
        return kDeclined;
    out.Error(outcome.message.isEmpty() ? u"%1 was not sent whole; see the message above."_s.arg(drag.key)
                                        : outcome.message);
    return kFailed;
}

} // namespace vasclip::vasctl
