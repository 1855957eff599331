#include "link/send_bulk.h"

#include "common/addresses.h"
#include "common/error_block.h"
#include "common/proper_case.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/reporter.h"
#include "link/talk.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The proximity of the record being sent; nothing without a comp on the map.
std::optional<QString> ProximityText(LinkDesk& desk, const store::Record& record)
{
    if (!desk.proximity)
        return std::nullopt;
    const QString onMap = text::Folded(desk.proximity->ShownAddress());
    if (onMap == text::Folded(record.Text(fields::CENTRALKEY)))
        return text::Trim(desk.proximity->ShownProximity());
    if (onMap.isEmpty())
        return std::nullopt;
    if (!desk.state.proximityOnDrop)
        return QString();
    const QString key = store::GetFieldData(desk.sources.datsql, fields::CENTRALKEY);
    const QString miles = desk.proximity->CalcTheDistance(key);
    // A comp that is not found is sent as an empty cell.
    return miles.isEmpty() ? QString() : miles + u" Mi. "_s + desk.proximity->GetDirection(key);
}

/// Nothing if all three are blank: a comp without a known city does not empty the line.
std::optional<QString> CityLine(const store::Record& record)
{
    const QString line = common::CityStateZipLine(
        {record.Text(fields::CITY), record.Text(fields::ST), record.Text(fields::ZIP)});
    return line.isEmpty() ? std::nullopt : std::optional(line);
}

/// What an unsent row leaves in its cell, in words; "" where nothing of another comp can stay.
QString LeftByRow(const MappingRow& row)
{
    const QString field = row.fieldName.toUpper();
    if (field == "PROXIMITY"_L1)
        return u"proximity"_s;
    return field == kCityStateZipWord ? u"city line"_s : QString();
}

/// The value of a row without TRUEFALSE; nothing for the fields that are never sent so.
std::optional<QString> PlainText(const store::Record& record, const QString& field)
{
    if (field.compare(fields::CENTRALKEY, Qt::CaseInsensitive) == 0)
        return std::nullopt;
    const QString value = record.Text(field);
    if (field == fields::YEARBUILT)
        return u' ' + value;
    if (field == fields::SALEDATE)
        return std::nullopt;
    if (field == fields::LEASEDATE && (value == "01/01/1900"_L1 || value == "1/1/1900"_L1))
        return QString();
    return value;
}

} // namespace

std::optional<OutgoingField> FieldToSend(LinkDesk& desk, const store::Record& record, const MappingRow& row,
                                         const QString& formName, qint16 comp)
{
    const QString& field = row.fieldName;
    const QString upperField = field.toUpper();
    const QString rowCell = row.RowCell();
    OutgoingField out;
    out.item = formName + u'|' + text::Trim(KelShiftCell(rowCell, row.offset, comp));

    if (upperField == "PROXIMITY"_L1) {
        const std::optional<QString> proximity = ProximityText(desk, record);
        if (!proximity)
            return std::nullopt;
        out.text = *proximity;
    } else if (upperField == kCityStateZipWord) {
        const std::optional<QString> line = CityLine(record);
        if (!line)
            return std::nullopt;
        out.text = *line;
    } else if (upperField == "BEDBATH"_L1) {
        out.text = record.Text(fields::BEDROOM) + u" / "_s + record.Text(fields::BATH);
    } else if (upperField == fields::ADDRESS) {
        out.text = common::AddressInCase(record.Text(fields::ADDRESS), desk.globals.addressCase);
    } else {
        const QString trueFalse = row.trueFalse.toUpper();
        if (trueFalse == "0"_L1 || trueFalse == "1"_L1) {
            out.text = record.Value(field).toString();
        } else if (trueFalse == "A"_L1) {
            // Goes out with the form name twice and unshifted; the forms program expects it so.
            out.item = formName + u'|' + formName + u'|' + rowCell;
            out.text = record.Text(row.preEval) + u' ' + record.Text(field);
        } else if (trueFalse.isEmpty()) {
            const std::optional<QString> plain = PlainText(record, field);
            if (!plain)
                return std::nullopt;
            out.text = *plain;
        } else {
            return std::nullopt;
        }
    }
    return out;
}

SendResult SendBulk(LinkDesk& desk, const store::Record& record, const QString& formType,
                    const QString& report, qint16 comp, const QString& compType)
{
    const common::RoutineScope scope{"SendBulk"};
    forms::Prompter& prompter = desk.ports.prompter;
    SendResult result;
    result.report = report;
    QList<MappingRow> rows;
    const QString base = text::Dec(KelPageBase(comp));
    const bool mapped = Reported(prompter, "SendBulk", [&] {
        FilterComp2Kel(desk.sources.datComp2Kel_CURRENT, formType, base, compType);
        rows = ReadMappingRows(desk.sources.datComp2Kel_CURRENT, MappingColumns::Fields);
        if (rows.isEmpty())
            throw RuntimeError(error::kNoCurrentRecord, messages::kNoRows.arg(formType, compType, base));
    });
    if (!mapped || rows.isEmpty()) {
        result.failure = error::kNoCurrentRecord;
        return result;
    }

    result.rows = static_cast<int>(rows.size());
    const QString formName = rows.first().formName;
    const QString topic = u"KEL|"_s + report;
    int row = 0;
    OutgoingField going;
    try {
        for (; row < rows.size(); ++row) {
            if (desk.talk)
                desk.talk->SetStep(row, result.rows);
            going.item = formName + u'|' + rows[row].RowCell();
            const bool goOn = common::Guarded(prompter, [&] {
                const std::optional<OutgoingField> field =
                    FieldToSend(desk, record, rows[row], formName, comp);
                if (!field) {
                    if (const QString what = LeftByRow(rows[row]); !what.isEmpty())
                        result.unsent.append(
                            {what,
                             formName + u'|' + KelShiftCell(rows[row].RowCell(), rows[row].offset, comp)});
                    return;
                }
                going = *field;
                KelPokeText(desk.txtDDE, topic, going.item, going.text);
                ++result.sent;
                if (rows[row].fieldName.compare(fields::ADDRESS, Qt::CaseInsensitive) == 0)
                    result.addressSent = true;
            });
            if (!goOn)
                return result;
        }
        result.complete = true;
    } catch (const RuntimeError& failure) {
        result.failure = failure.Number();
        result.cancelled = failure.Number() == conduit::kUserInterrupt;
        if (result.cancelled)
            return result;
        // A value that was not answered in time, or whose taker has gone, may have been taken.
        const bool unsure = failure.Number() == error::kLinkTimeOut || failure.Number() == error::kLinkPeerGone;
        common::ReportError(
            prompter, RuntimeError(failure.Number(),
                                   messages::kSendStopped.arg(failure.Description(), rows[row].fieldName,
                                                              going.item, messages::kFieldsSent(result.sent),
                                                              text::Dec(rows.size()), text::Dec(row + 1),
                                                              unsure ? messages::kThisOneIsUnsure
                                                                     : messages::kThisOneWasNot)));
    }
    return result;
}

bool LinkSurvived(const SendResult& result)
{
    return !LinkIsDead(result.failure);
}

} // namespace vasclip::link
