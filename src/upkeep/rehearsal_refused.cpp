// The rows that a rehearsal refuses, in a file that can be mended.

#include "upkeep/rehearsal.h"

#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/record.h"
#include "upkeep/csv_text.h"
#include "upkeep/draft_file.h"
#include "upkeep/list_headings.h"
#include "upkeep/target_file.h"


namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kOverSource = u"%1 is the list that is imported. Choose another name for its refused rows"_s;

} // namespace

QByteArray Rehearsal::RefusedText() const
{
    if (m_order.list) {
        QHash<qint64, QString> reasons;
        for (const RefusedRow& line : m_order.list->Refused())
            reasons.insert(line.place, line.why);
        for (const RehearsedRow& row : m_rows)
            if (row.kind == RowKind::Refused && row.place >= 0)
                reasons.insert(m_order.list->LineOf(row.place), row.why);
        return m_order.list->Refusals(reasons);
    }
    QByteArray bytes = CsvLine(m_plan.columns + QStringList{kReasonHeading}, u',').toUtf8();
    for (const RehearsedRow& row : m_rows) {
        const auto record = row.kind == RowKind::Refused ? m_theirs->At(row.place) : std::nullopt;
        if (!record)
            continue;
        QStringList values;
        for (const QString& field : m_plan.columns)
            values.append(text::Trim(record->Value(field).toString()));
        bytes += CsvLine(values + QStringList{row.why}, u',').toUtf8();
    }
    return bytes;
}

qsizetype Rehearsal::WriteRefused(const QString& file) const
{
    const qsizetype refused = Count(RowKind::Refused);
    if (refused == 0)
        return 0;
    if (text::Folded(file) == text::Folded(m_order.Name()))
        throw RuntimeError(error::kPathFileAccess, kOverSource.arg(file));
    NeedTextFile(m_desk.Disk(), file);
    const QByteArray bytes = RefusedText();
    DraftFile draft(m_desk.Disk().ToNative(file), file);
    if (draft.Out().write(bytes) != bytes.size())
        FailWriting(file, draft.Out());
    draft.Finish();
    return refused;
}

} // namespace vasclip::upkeep
