#include "map/exports.h"

#include "common/addresses.h"
#include "common/error_block.h"
#include "common/paths.h"
#include "common/proper_case.h"
#include "common/text_filters.h"
#include "link/slot_table.h"
#include "map/messages.h"
#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

constexpr qsizetype kLongestMessage = 90;
constexpr int kMostOfAType = 9;
const QString kTextFile = u"appraisal.txt"_s;

QString Filtered(const common::Globals& globals, const QString& value)
{
    const QString legal = text::Trim(common::RemoveIllegalChars(value));
    return globals.mapCase ? legal.toUpper() : common::ProperCase(legal);
}

QString ValidState(const QString& value)
{
    const QString state = text::Folded(value);
    return common::IsValidStateCode(state) ? state : QString();
}

ExportEntry Entry(const ExportDesk& desk, const forms::TextBox& box, const QString& city, const QString& state,
                  const QString& zip)
{
    const auto filtered = [&desk](const QString& value) { return Filtered(desk.globals, value); };
    const QString ownState = ValidState(state);
    const QString ownZip = common::NormalizeZip(text::Trim(zip));
    return {.label = ExportLabel(box),
            .address = filtered(box.Text()),
            .city = filtered(text::Trim(city).isEmpty() ? desk.addr.txtKelCity.Text() : city),
            .state = filtered(ownState.isEmpty() ? ValidState(desk.addr.txtKelState.Text()) : ownState),
            .zip = ownZip,
            .county = {},
            .zipOrSubjects =
                ownZip.isEmpty() ? common::NormalizeZip(text::Trim(desk.addr.txtKelZip.Text())) : ownZip,
            .key = text::Trim(box.Text())};
}

QString Line(const ExportEntry& entry, bool quoted)
{
    QString line;
    for (const QString& value : {entry.label, entry.address, entry.city, entry.state, entry.zip})
        line += quoted ? u"\"%1\","_s.arg(value) : value + u',';
    return line;
}

/// One a byte where the text has such a form, as the programs that read it expect.
QByteArray Encoded(const QString& text)
{
    const QByteArray latin = text.toLatin1();
    return QString::fromLatin1(latin) == text ? latin : text.toUtf8();
}

void Tell(const ExportDesk& desk, const QString& words, const QString& shorter, const QString& file)
{
    const QString whole = words + file;
    desk.status.lblmsg.Show(whole.size() > kLongestMessage ? shorter + file : whole, forms::Colour::Blue);
}

ExportResult WriteText(const ExportDesk& desk, bool quoted)
{
    const common::RoutineScope scope{quoted ? "ExportDelorme" : "ExportDelorme2005"};
    const QString directory = FindExportDir(desk.globals);
    ExportResult result{.file = directory + kTextFile};
    try {
        common::MakeDirectory(desk.disk, desk.ports.prompter, directory);
        QString content;
        const QList<ExportEntry> entries = ExportEntries(desk);
        for (const ExportEntry& entry : entries)
            content += Line(entry, quoted) + u"\r\n"_s;
        desk.disk.WriteWhole(result.file, Encoded(content));
        result.entries = static_cast<int>(entries.size());
        result.written = true;
    } catch (const RuntimeError& failure) {
        desk.ports.prompter.Box(messages::kExportAborted,
                                messages::kNotExported.arg(result.file, failure.Description()));
        return result;
    }
    Tell(desk, messages::kImportBook, messages::kImportFrom, directory + u"Appraisal.txt"_s);
    return result;
}

} // namespace

QString ExportLabel(const forms::Control& box)
{
    const QString name = text::Folded(box.Name());
    const QString number = text::Dec(box.Index());
    if (name == "TXTCOMPADDR"_L1)
        return box.Index() == 0 ? u"SUBJECT"_s : u"COMP #"_s + number;
    if (name == "TXTALTCOMPADDR"_L1)
        return u"ALT COMP #"_s + number;
    if (name == "TXTRENTALADDR"_L1)
        return u"RENTAL #"_s + number;
    return name == "TXTLISTINGADDR"_L1 ? u"LISTING #"_s + number : u"USER COMP"_s;
}

QList<ExportEntry> ExportEntries(const ExportDesk& desk)
{
    const link::frm_Addr& addr = desk.addr;
    QList<ExportEntry> entries;
    const auto add = [&](const forms::TextBox& box, const QString& city, const QString& state, const QString& zip,
                         bool county) {
        if (text::Trim(box.Text()).isEmpty())
            return;
        ExportEntry entry = Entry(desk, box, city, state, zip);
        if (county)
            entry.county = Filtered(desk.globals, addr.txtKelCounty.Text());
        entries.append(entry);
    };
    add(addr.txtCompAddr(0), addr.txtKelCity.Text(), addr.txtKelState.Text(), addr.txtKelZip.Text(), true);
    for (const Group group : {Group::Sales, Group::Alternates, Group::Rentals, Group::Listings}) {
        const link::GroupRow& row = link::RowOf(group);
        for (int i = 1; i <= std::min(row.slots, kMostOfAType); ++i)
            add((addr.*row.addresses)(i), (addr.*row.cities)(i).Text(), (addr.*row.states)(i).Text(),
                (addr.*row.zips)(i).Text(), group == Group::Sales);
    }
    return entries;
}

QString ExportMapLabel(const ExportDesk& desk, const forms::TextBox& box, bool quoted, const QString& city,
                       const QString& state, const QString& zip)
{
    return text::Trim(box.Text()).isEmpty() ? QString() : Line(Entry(desk, box, city, state, zip), quoted);
}

QString FindExportDir(const common::Globals& globals)
{
    const QString set = common::CkRSlash(globals.mapExportDir);
    return set.isEmpty() ? common::CkRSlash(globals.G_UserDir) : set;
}

ExportResult ExportDelorme(ExportDesk desk)
{
    return WriteText(desk, true);
}

ExportResult ExportDelorme2005(ExportDesk desk)
{
    return WriteText(desk, false);
}

ExportResult ExportMSStreets(ExportDesk desk, bool newWizard, engine::DatabaseKind kind)
{
    const ExportResult result = ExportToAppraisalmdb(desk, kind);
    const QString& words = kind != engine::DatabaseKind::Access ? messages::kImportFromStreets
                           : newWizard                          ? messages::kImportWizard
                                                                : messages::kImportData;
    if (result.written)
        Tell(desk, words, messages::kImportFromStreets, result.file);
    return result;
}

} // namespace vasclip::map
