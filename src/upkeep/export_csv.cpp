#include "upkeep/export_csv.h"

#include "platform/files/disk.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/record.h"
#include "upkeep/code_pages.h"
#include "upkeep/csv_text.h"
#include "upkeep/export_statement.h"

#include <QSaveFile>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kTurn = 500;
const QString kWriting = u"Writing record %1 of %2"_s;

[[noreturn]] void Fail(const QString& file, const QString& why)
{
    throw RuntimeError(error::kPathFileAccess, u"The file %1 could not be written: %2"_s.arg(file, why));
}

} // namespace

void NeedTextFile(const files::Disk& disk, const QString& file)
{
    if (!disk.Found(file, files::ReadOnly | files::Hidden))
        return;
    const QString name = text::Folded(file);
    if (!name.endsWith(u".CSV"_s) && !name.endsWith(u".TXT"_s) && !name.endsWith(u".TSV"_s))
        throw RuntimeError(error::kPathFileAccess,
                           u"%1 is there, and no text file to be written over. Choose a name that ends in .csv"_s.arg(file));
    if ((disk.GetAttr(file) & files::ReadOnly) != 0)
        throw RuntimeError(error::kPathFileAccess,
                           u"The file %1 is write-protected. Choose another name, or take the protection off it"_s.arg(file));
}

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
    QSaveFile out(desk.Disk().ToNative(file));
    if (!out.open(QIODevice::WriteOnly))
        Fail(file, out.errorString());
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
            Fail(file, out.errorString());
        ++result.records;
    }
    if (!out.commit())
        Fail(file, out.errorString());
    result.written = true;
    return result;
}

} // namespace vasclip::upkeep
