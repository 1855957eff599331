#include "upkeep/csv_source.h"

#include "common/paths.h"
#include "platform/engine/process.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/schema.h"
#include "store/transaction.h"
#include "upkeep/code_pages.h"
#include "upkeep/csv_text.h"
#include "upkeep/csv_values.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

const QString CsvSource::kTable = u"COMPS"_s;

namespace {

constexpr qint64 kTurn = 500;
const QString kReading = u"Reading line %1"_s;
const QString kWords = u"Read a line"_s;
const QString kMark = u"CSV.incoming"_s;
const QString kChoices = u"CsvColumns.json"_s;
const QString kNoHeadings = u"%1 has no line of headings"_s;
const QString kOtherPage = u"%1 is no text in the code page %2. Choose another one"_s;

struct Alias
{
    QLatin1StringView words;
    store::FieldName field;
};
constexpr Alias kAliases[] = {
    {"SQFT"_L1, fields::GLA},           {"SQUAREFEET"_L1, fields::GLA},      {"LIVINGAREA"_L1, fields::GLA},
    {"PRICE"_L1, fields::SELLINGPR},    {"SALEPRICE"_L1, fields::SELLINGPR}, {"SALESPRICE"_L1, fields::SELLINGPR},
    {"SOLDPRICE"_L1, fields::SELLINGPR}, {"STATE"_L1, fields::ST},           {"ZIPCODE"_L1, fields::ZIP},
    {"POSTALCODE"_L1, fields::ZIP},     {"STREETADDRESS"_L1, fields::ADDRESS}, {"KEY"_L1, fields::CENTRALKEY},
    {"SOLDDATE"_L1, fields::SALEDATE},  {"DATEOFSALE"_L1, fields::SALEDATE}, {"CLOSEDATE"_L1, fields::SALEDATE},
    {"BEDROOMS"_L1, fields::BEDROOM},   {"BEDS"_L1, fields::BEDROOM},        {"BATHS"_L1, fields::BATH},
    {"BATHROOMS"_L1, fields::BATH},     {"YEAR"_L1, fields::YEARBUILT},      {"BUILT"_L1, fields::YEARBUILT},
    {"SUBDIVISION"_L1, fields::NEIGHBORHD}, {"LAT"_L1, fields::LATITUDE},    {"LON"_L1, fields::LONGITUDE},
    {"LNG"_L1, fields::LONGITUDE},
};

/// Letters and digits in capitals.
QString Bare(const QString& text)
{
    QString bare = text.toUpper();
    bare.removeIf([](QChar letter) { return !letter.isLetterOrNumber(); });
    return bare;
}

QString TextOf(const files::Disk& disk, const QString& file, const QString& codePage, QString* found)
{
    const std::optional<QString> text = Decoded(disk.ReadWhole(file), codePage, found);
    if (!text)
        throw RuntimeError(error::kUnrecognisedDatabase, kOtherPage.arg(file, codePage));
    return *text;
}

QString ChoicesFile(const TransferDesk& desk)
{
    return common::CkRSlash(desk.globals.G_UserDir) + kChoices;
}

QJsonObject Choices(const TransferDesk& desk)
{
    const QString file = ChoicesFile(desk);
    return desk.Disk().FileExists(file) ? QJsonDocument::fromJson(desk.Disk().ReadWhole(file)).object() : QJsonObject();
}

QString NameOfHeadings(const QList<CsvColumn>& columns)
{
    QStringList bare;
    for (const CsvColumn& column : columns)
        bare.append(Bare(column.heading));
    return bare.join(u'|');
}

/// A field is filled by one column: the first that means it.
void DropDoubles(QList<CsvColumn>& columns)
{
    QSet<QString> taken;
    for (CsvColumn& column : columns) {
        if (taken.contains(column.field))
            column.field.clear();
        else if (!column.field.isEmpty())
            taken.insert(column.field);
    }
}

} // namespace

QString FieldOfHeading(const QString& heading)
{
    const QString bare = Bare(heading);
    if (bare.isEmpty())
        return {};
    const auto columns = store::CompsColumns();
    const auto find = [&](auto&& means) {
        const auto found = std::ranges::find_if(
            columns, [&](const store::CompsColumn& column) { return column.name != fields::FRONTPHOTO && means(column); });
        return found == columns.end() ? QString() : QString(found->name);
    };
    if (const QString own = find([&](const auto& column) { return Bare(column.name) == bare; }); !own.isEmpty())
        return own;
    if (const QString shown = find([&](const auto& column) { return Bare(column.heading) == bare; }); !shown.isEmpty())
        return shown;
    const auto* const alias = std::ranges::find_if(kAliases, [&](const Alias& one) { return bare == one.words; });
    return alias == std::end(kAliases) ? QString() : QString(alias->field);
}

CsvLook LookAtCsv(const TransferDesk& desk, const QString& file, QChar delimiter, const QString& codePage)
{
    CsvLook look;
    const QString text = TextOf(desk.Disk(), file, codePage, &look.codePage);
    look.delimiter = delimiter.isNull() ? DelimiterOf(text) : delimiter;
    CsvReader reader(text, look.delimiter);
    const auto headings = reader.Next();
    if (!headings)
        throw RuntimeError(error::kUnrecognisedDatabase, kNoHeadings.arg(file));
    for (const QString& heading : *headings)
        look.columns.append({text::Trim(heading), FieldOfHeading(heading)});
    const QJsonObject chosen = Choices(desk).value(NameOfHeadings(look.columns)).toObject();
    for (CsvColumn& column : look.columns)
        if (const QJsonValue field = chosen.value(Bare(column.heading)); field.isString())
            column.field = field.toString();
    DropDoubles(look.columns);
    return look;
}

void KeepColumns(const TransferDesk& desk, const CsvLook& look)
{
    QJsonObject chosen;
    for (const CsvColumn& column : look.columns)
        chosen.insert(Bare(column.heading), column.field);
    QJsonObject all = Choices(desk);
    all.insert(NameOfHeadings(look.columns), chosen);
    desk.Disk().WriteWhole(ChoicesFile(desk), QJsonDocument(all).toJson());
}

CsvSource::CsvSource(const TransferDesk& desk, const QString& file, const CsvLook& look, const WorkStep& step)
    : m_desk(desk)
    , m_file(common::CkRSlash(desk.globals.G_UserDir) + kMark + QString::number(engine::OwnProcess()))
{
    Remove();
    try {
        Fill(TextOf(desk.Disk(), file, look.codePage, nullptr), look, step);
    } catch (...) {
        Remove();
        throw;
    }
}

CsvSource::~CsvSource()
{
    Remove();
}

void CsvSource::Remove() const
{
    QFile::remove(m_desk.Disk().ToNative(m_file));
}

void CsvSource::Fill(const QString& text, const CsvLook& look, const WorkStep& step)
{
    engine::TableDef table{.name = kTable, .fields = {}, .indexes = {}};
    QStringList names{fields::CENTRALKEY, fields::SALESERIAL, fields::LOADSERIAL};
    for (const CsvColumn& column : look.columns) {
        if (column.field.isEmpty())
            m_leftBehind.append(column.heading);
        else if (!names.contains(column.field))
            names.append(column.field);
    }
    for (const QString& name : std::as_const(names))
        table.fields.append({.name = name, .type = engine::FieldType::Memo});
    const auto made = m_desk.Engine().CreateDatabase(m_file);
    made->CreateTable(table);
    made->Close();
    store::DataSource data(m_desk.Engine(), u"DATTEMP"_s);
    data.Open(m_file, kTable, store::SourceKind::Table);
    store::Transaction whole(data);
    CsvReader reader(text, look.delimiter);
    (void)reader.Next(); // the headings
    const QDate today = m_desk.ports.clock.Today();
    const int keySize = store::FindCompsColumn(fields::CENTRALKEY)->size;
    for (qint64 lines = 0;; ++lines) {
        m_stopped = lines % kTurn == 0 && !step(reader.At(), text.size(), kReading.arg(reader.Line() + 1));
        const auto line = m_stopped ? std::nullopt : reader.Next();
        if (!line)
            break;
        QHash<QString, QString> values;
        for (qsizetype i = 0; i < std::min(line->size(), look.columns.size()); ++i)
            if (!look.columns.at(i).field.isEmpty())
                values.insert(look.columns.at(i).field, text::Trim(line->at(i)));
        if (const QString why = MakeStorable(values, keySize, today); !why.isEmpty()) {
            m_refused.append({u"Line %1, %2"_s.arg(reader.Line()).arg(text::Trim(values.value(fields::CENTRALKEY))), why});
            continue;
        }
        store::Change change(data, store::Change::NewRecord{}, kWords);
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            if (!value.value().isEmpty())
                change.Set(value.key(), value.value());
        change.Store();
    }
    if (!reader.Fault().isEmpty())
        throw RuntimeError(error::kUnrecognisedDatabase, reader.Fault());
    whole.Commit();
}

} // namespace vasclip::upkeep
