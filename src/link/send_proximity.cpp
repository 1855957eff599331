#include "link/send_proximity.h"

#include "common/error_block.h"
#include "link/comp2kel.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/report_check.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

int SendBulkProximity(LinkDesk& desk, const QString& formType, const QString& report, SlotRef slot,
                      const QString& text)
{
    const common::RoutineScope scope{"SendBulkProximity"};
    const auto comp = static_cast<qint16>(slot.index);
    FilterComp2KelProximity(desk.sources.datComp2Kel_CURRENT, formType, text::Dec(KelPageBase(comp)),
                            RowOf(slot.group).mapping);
    const QList<MappingRow> rows = ReadMappingRows(desk.sources.datComp2Kel_CURRENT, MappingColumns::Fields);
    for (const MappingRow& row : rows) {
        const QString cell = text::Trim(KelShiftCell(row.RowCell(), row.offset, comp));
        KelPokeText(desk.txtDDE, u"KEL|"_s + report, row.formName + u'|' + cell, text);
    }
    return static_cast<int>(rows.size());
}

ProximitySend KelUpdateKelProximity(LinkDesk& desk, SlotRef slot, const QString& text)
{
    const common::RoutineScope scope{"KelUpdateKelProximity"};
    const forms::Hourglass hourglass{desk.ports.window};
    KelQueryActiveReports(desk.txtDDE);
    if (CompareReport(desk) == ReportIs::NotOpen)
        return ProximitySend::NoReport;
    if (const ReportCheck check = CheckAnsweredReport(desk); !check.Stands()) {
        desk.state.notSent = check.words;
        return ProximitySend::OtherReport;
    }
    const QString report = KelFirstToken(desk.txtDDE.Text());
    KelOpenReport(desk.txtDDE, report);
    KelListForms(desk.txtDDE, report);
    const int cells = SendBulkProximity(desk, KelFirstToken(desk.txtDDE.Text()), report, slot, text);
    return cells > 0 ? ProximitySend::Sent : ProximitySend::NoCell;
}

} // namespace vasclip::link
