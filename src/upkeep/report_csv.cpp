#include "upkeep/report_csv.h"

#include "store/fields.h"
#include "upkeep/draft_file.h"
#include "upkeep/report_values.h"
#include "upkeep/target_file.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kRowsBetween = 200; ///< questions whether to go on

/// As a program reads it: numbers without "$" and commas, texts whole.
QString CsvValue(const store::Record& record, const LabelledField& field, const QDate& today)
{
    if (!record.Has(field.field))
        return {};
    if (field.format == Format::Date)
        return Printed(record, field.field, field.format, today);
    const QString text = LongText(record, field.field);
    if (field.format != Format::Text)
        if (const std::optional<double> number = NumberIn(text))
            return NumberText(*number, Format::Number).remove(u',');
    return text;
}

} // namespace

QString CsvField(const QString& value)
{
    const bool quoted = value.contains(u',') || value.contains(u'"') || value.contains(u'\n') ||
                        value.contains(u'\r') || value.trimmed() != value;
    return quoted ? u'"' + QString(value).replace(u"\""_s, u"\"\""_s) + u'"' : value;
}

paper::Made WriteReportCsv(const QString& file, const ReportLayout& layout, const RecordFeed& feed,
                           const QDate& today, const std::function<bool()>& goOn)
{
    const QList<LabelledField> columns = layout.Fields();
    DraftFile draft(file, file);
    QFile& target = draft.Out();
    bool fine = true;
    const auto put = [&](const QStringList& line) {
        const QByteArray bytes = (line.join(u',') + u"\r\n"_s).toUtf8();
        fine = fine && target.write(bytes) == bytes.size();
    };
    fine = fine && target.write("\xef\xbb\xbf") == 3;
    QStringList line;
    for (const LabelledField& column : columns)
        line.append(CsvField(column.label));
    put(line);
    for (qint64 place = 0; place < feed.count && fine; ++place) {
        if (place % kRowsBetween == 0 && !goOn())
            return paper::Made::Stopped;
        const std::optional<store::Record> record = feed.at(place);
        if (!record)
            continue;
        line.clear();
        for (const LabelledField& column : columns)
            line.append(CsvField(CsvValue(*record, column, today)));
        put(line);
    }
    if (!fine)
        FailWriting(file, target);
    draft.Finish();
    return paper::Made::Whole;
}

} // namespace vasclip::upkeep
