#include "upkeep/export_csv.h"

#include "platform/files/disk.h"
#include "platform/text/text.h"
#include "store/record.h"
#include "upkeep/code_pages.h"
#include "upkeep/csv_text.h"
#include "upkeep/draft_file.h"
#include "upkeep/export_statement.h"
#include "upkeep/target_file.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kTurn = 500;
const QString kWriting = u"Writing record %1 of %2"_s;

} // namespace

CsvExport ExportCsv(const TransferDesk& desk, const QString& file, const QString& search, const CsvForm& form,
                    const WorkStep& step)
{
    CsvExport result;
    NeedTextFile(desk.Disk(), file);
    store::Rows rows = store::ReadRows(desk.databook, u"SELECT * FROM ["_s + desk.globals.G_Table + u']' +
                                                          (Narrows(search) ? u" WHERE "_s + search : QString()));
    QList<int> shown;
    QStringList names;
    for (int i = 0; i < rows.Fields().size(); ++i) {
        if (rows.Fields().at(i).type == engine::FieldType::LongBinary)
            continue;
        shown.append(i);
        names.append(rows.Fields().at(i).name);
    }
    DraftFile draft(desk.Disk().ToNative(file), file);
    QFile& out = draft.Out();
    out.write(MarkOf(form.codePage) + Encoded(CsvLine(names, form.delimiter), form.codePage, result.lost));
    const qint64 count = rows.Count();
    for (qint64 at = 0; at < count; ++at) {
        if (at % kTurn == 0 && !step(at, count, kWriting.arg(at + 1).arg(count)))
            return result;
        const auto record = rows.At(at);
        if (!record)
            continue; // somebody deleted it meanwhile
        QStringList values;
        for (const int field : std::as_const(shown))
            values.append(text::Trim(record->Values().at(field).toString()));
        const QByteArray line = Encoded(CsvLine(values, form.delimiter), form.codePage, result.lost);
        if (out.write(line) != line.size())
            FailWriting(file, out);
        ++result.records;
    }
    draft.Finish();
    result.written = true;
    return result;
}

} // namespace vasclip::upkeep
