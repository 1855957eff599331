#include "app/vasctl/set_fields.h"

#include "common/dates.h"
#include "common/text_filters.h"
#include "databook/comp_fields.h"
#include "databook/comp_types.h"
#include "databook/entry_record.h"
#include "databook/messages.h"
#include "databook/number_text.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"

#include <algorithm>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A value that cannot be; the text says why.
struct Wrong
{
    QString text;
};

const QStringList kComputed{fields::LOADSERIAL, fields::SALESERIAL, fields::MODIFIEDDATE, fields::PRICEGLA};
const QStringList kDates{fields::SALEDATE, fields::LEASEDATE, fields::LOADDATE};
const QStringList kNumbers{fields::AGE};

QString DateIn(const QString& field, const QString& value, QDate today)
{
    if (text::Trim(value).isEmpty())
        return {};
    const auto read = common::IsDate(value, today) ? text::ReadDate(value, today) : std::nullopt;
    if (!read || read->date() > today)
        throw Wrong{
            u"%1 takes a date up to today such as 6/30/2004, or nothing, not '%2'."_s.arg(field, value)};
    return common::FixDate(value, today);
}

QString ValueIn(const engine::Field& field, const QString& value, QDate today)
{
    const QString name = field.name.toUpper();
    if (name == fields::CENTRALKEY)
        throw Wrong{u"The key is changed with 'vasctl records rename'."_s};
    if (name == fields::PHOTOS || field.type == engine::FieldType::LongBinary)
        throw Wrong{
            u"%1 belongs to the photos of the record, which are kept with 'vasctl photos'."_s.arg(name)};
    if (kComputed.contains(name))
        throw Wrong{u"%1 is computed from other fields; set those."_s.arg(name)};
    if (databook::WantsNumber(name)) {
        const std::optional<QString> plain = databook::PlainNumber(value, name);
        if (!plain)
            throw Wrong{u"%1 takes digits, not '%2'."_s.arg(name, value)};
        if (plain->size() <= field.size)
            return *plain;
    }
    if (field.type == engine::FieldType::Text && value.size() > field.size)
        throw Wrong{u"%1 takes at most %2 characters; the value has %3."_s.arg(name)
                        .arg(field.size)
                        .arg(value.size())};
    if (kDates.contains(name))
        return DateIn(name, value, today);
    if (name == fields::APPRSLTYPE) {
        const QChar letter = databook::CompTypeLetter(value);
        if (letter.isNull() || value.size() != 1)
            throw Wrong{databook::kUnknownType.arg(value)};
        return QString(letter);
    }
    if (kNumbers.contains(name)) {
        const QString number = text::Trim(value);
        if (!std::all_of(number.cbegin(), number.cend(),
                         [](QChar letter) { return common::IsNumericChar(QString(letter)); }))
            throw Wrong{u"%1 takes digits, not '%2'."_s.arg(name, value)};
    }
    return value;
}

QHash<QString, QString> ValuesIn(const store::DataSource& databook, const QStringList& settings, QDate today)
{
    QHash<QString, QString> values;
    for (const QString& setting : settings) {
        const qsizetype equals = setting.indexOf(u'=');
        const QString field = text::Folded(setting.left(equals));
        const engine::Field* stored = equals < 1 ? nullptr : store::FindField(databook, field);
        if (stored == nullptr)
            throw Wrong{
                u"--set takes FIELD=VALUE with a field of the Databook; '%1' is none."_s.arg(setting)};
        values.insert(field, ValueIn(*stored, setting.mid(equals + 1), today));
    }
    return values;
}

/// What the boxes of the entry screen fill by themselves.
void Complete(QHash<QString, QString>& values, const databook::EntryRecord& record, QDate today)
{
    const auto value = [&](const QString& field) { return values.value(field, record.Text(field)); };
    const QString date(record.Form().dateField);
    const QString year = value(fields::YEARBUILT);
    const bool follows =
        values.contains(fields::YEARBUILT) || (values.contains(date) && !text::Trim(year).isEmpty());
    if (follows && !values.contains(fields::AGE))
        values.insert(fields::AGE, databook::AgeText(year, value(date), today));
    if (values.contains(fields::SALEDATE))
        values.insert(fields::SALESERIAL, databook::SerialText(value(fields::SALEDATE), today));
}

} // namespace

int SetFields(Session& session, const Output& out, const QString& key, const QStringList& settings)
{
    if (settings.isEmpty())
        return kDone;
    auto& program = session.WithDatabook();
    const store::DataSource& databook = program.sources.datDatabook;
    const QDate today = session.Ports().clock.Today();
    QHash<QString, QString> values;
    try {
        values = ValuesIn(databook, settings, today);
    } catch (const Wrong& wrong) {
        out.Error(wrong.text);
        return kUsage;
    }
    const databook::EntryDesk desk{.ports = session.Ports(),
                                   .engine = session.Engine(),
                                   .databook = databook.DatabaseName(),
                                   .table = databook.RecordSource(),
                                   .opened = &databook};
    const QString type = values.value(fields::APPRSLTYPE, store::GetFieldData(databook, fields::APPRSLTYPE));
    databook::EntryRecord record(desk, *databook::FindEntryForm(databook::EntryFormOf(type)), key);
    if (!record.Open()) {
        out.Error(databook::kNoSuchAddress.arg(key));
        return kNotFound;
    }
    if (!record.Updatable())
        store::Change::Begin(record.datDatabook, {}); // says which file it is and what to do
    Complete(values, record, today);
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        record.SetText(value.key(), value.value());
    switch (record.Save()) {
    case databook::Stored::Done:
        return kDone;
    case databook::Stored::TookTheirs:
        out.Error(databook::kNothingChanged);
        return kDeclined;
    case databook::Stored::Kept:
        break; // why was told in a box
    }
    record.Cancel();
    return kFailed;
}

} // namespace vasclip::vasctl
