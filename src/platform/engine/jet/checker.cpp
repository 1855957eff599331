#include "platform/engine/jet/checker.h"

#include "platform/engine/jet/index_check.h"
#include "platform/engine/jet/page_check.h"
#include "platform/text/counted.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kRecords{u"record"_s, u"records"_s};

/// Reads every value of a table.
void CheckValues(Opening& opening, Table& table)
{
    // Values that claim more than the file has point at one another's bytes.
    qint64 left = opening.file->Size();
    const FieldList& fields = table.Def().fields;
    quint32 rows = 0;
    table.ForEach([&](const FoundRow& row) {
        ++rows;
        for (int field = 0; field < fields.size(); ++field) {
            const bool isBinary = fields[field].type == FieldType::LongBinary;
            const bool isLong = fields[field].type == FieldType::Memo || isBinary;
            if (isLong)
                left -= table.SizeOf(row, field).toLongLong();
            if (isLong && left < 0)
                continue;
            if (isBinary)
                static_cast<void>(table.LongOf(row, field));
            else
                static_cast<void>(table.Value(row, field));
        }
        return true;
    });
    if (left < 0)
        opening.findings->Add(table.Def().name, {}, {}, u"its memos and pictures claim more bytes than the file has"_s);
    if (rows != table.Stored().rows)
        opening.findings->Add(table.Def().name, {}, {}, u"has %1, and claims %2"_s.arg(
                                                           kRecords(rows), QString::number(table.Stored().rows)));
}

} // namespace

void CheckFile(Opening& opening)
{
    QSet<quint32> seen;
    for (const Catalogue::Entry& entry : std::as_const(opening.catalogue.tables)) {
        if (seen.contains(entry.page)) {
            opening.findings->Add(entry.name, {}, {}, u"is the same as another table"_s);
            continue;
        }
        seen.insert(entry.page);
        try {
            TableRows& rows = opening.Need(entry.name);
            CheckValues(opening, rows.Rows());
            QSet<int> real;
            for (const Index& index : rows.Rows().Stored().indexes) {
                if (!real.contains(index.real) && !index.columns.isEmpty())
                    CheckIndex(*opening.file, *opening.findings, rows, index);
                real.insert(index.real);
            }
        } catch (const RuntimeError&) {
            // a table whose definition is damaged is among the findings already
        }
    }
    CheckPages(*opening.file, *opening.findings);
}

} // namespace vasclip::engine::jet
