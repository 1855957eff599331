#include "upkeep/csv_values.h"

#include "common/dates.h"
#include "databook/comp_fields.h"
#include "databook/number_text.h"
#include "databook/records.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kNoDate = u"%1: \"%2\" is no date"_s;

} // namespace

QString MakeStorable(QHash<QString, QString>& values, int keySize, QDate today)
{
    const QString given = values.value(fields::CENTRALKEY);
    const QString key = databook::KeyOf(text::Trim(given).isEmpty() ? values.value(fields::ADDRESS) : given);
    values.insert(fields::CENTRALKEY, key.isEmpty() ? key : key.leftJustified(keySize));
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (!databook::WantsNumber(value.key()))
            continue;
        const auto plain = databook::PlainNumber(value.value(), value.key());
        if (!plain)
            return value.key() + u": "_s + databook::NoNumberText(value.value(), value.key());
        value.value() = *plain;
    }
    for (const store::FieldName& field : {fields::SALEDATE, fields::LOADDATE, fields::LEASEDATE}) {
        const QString written = text::Trim(values.value(field));
        if (written.isEmpty())
            continue;
        if (!common::IsDate(written, today))
            return kNoDate.arg(QString(field), written);
        values.insert(field, common::FixDate(written, today));
    }
    const auto twin = [&](const QString& date, const QString& serial) {
        if (!text::Trim(values.value(date)).isEmpty())
            values.insert(serial, databook::SerialText(values.value(date), today));
    };
    twin(fields::SALEDATE, fields::SALESERIAL);
    twin(fields::LOADDATE, fields::LOADSERIAL);
    return {};
}

} // namespace vasclip::upkeep
