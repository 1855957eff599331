#include "upkeep/recalculate.h"

#include "common/dates.h"
#include "databook/comp_fields.h"
#include "databook/number_text.h"
#include "platform/text/dates.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/store.h"
#include "store/transaction.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kStoredPicture = u"mm/dd/yyyy"_s;
const QString kPendingSerial = u"2"_s;
const QString kPending = u"PENDING"_s;
const QString kFrontView = u"FRONT VIEW"_s;
constexpr qsizetype kMostKnown = 10000;
const QString kTransferWords = u"Copy %1"_s;

/// A date text with the century that it means; what is no date stays.
QString WithCentury(const QString& text, QDate today)
{
    try {
        return common::FixDate(text, today);
    } catch (const RuntimeError&) {
        return text;
    }
}

/// As it is stored; "" for what is no date.
QString StoredDate(const QString& text, QDate today)
{
    if (!common::IsDate(text, today))
        return {};
    const auto date = text::ReadDate(text, today);
    return date ? text::Format(*date, kStoredPicture) : QString();
}

/// @return false where the field held no date, or one that means none
bool RecalcDate(RowEdit& row, const QString& dateField, const QString& serialField, StoredDates& dates)
{
    const StoredDates::Both& both = dates.Of(row.Text(dateField));
    row.Set(dateField, both.date.isEmpty() ? databook::kPendingDate : both.date);
    row.Set(serialField, both.date.isEmpty() ? kPendingSerial : both.serial);
    return !both.date.isEmpty() && !both.pending;
}

/// Is it a whole number just as Str writes one?
bool IsWritten(const QString& number)
{
    constexpr qsizetype kMostDigits = 9;
    return !number.isEmpty() && number.size() <= kMostDigits && (number.size() == 1 || number.front() != u'0') &&
           std::ranges::all_of(number, [](QChar letter) { return letter >= u'0' && letter <= u'9'; });
}

QString Number(const RowEdit& row, const QString& field)
{
    const QString text = row.Text(field);
    const bool plain = std::ranges::all_of(text, [](QChar letter) { return letter >= u'0' && letter <= u'9'; });
    return plain ? text : databook::PlainNumber(text, field).value_or(text);
}

} // namespace

const StoredDates::Both& StoredDates::Of(const QString& text)
{
    auto known = m_known.find(text);
    if (known == m_known.end()) {
        if (m_known.size() >= kMostKnown)
            m_known.clear();
        const QString date = StoredDate(WithCentury(text, m_today), m_today);
        const bool turned = date == databook::kPendingDate && StoredDate(text, m_today) != date;
        known = m_known.insert(text, {.date = date,
                                      .serial = date.isEmpty() ? QString() : databook::SerialText(date, m_today),
                                      .pending = turned,
                                      .isDate = common::IsDate(date, m_today)});
    }
    return *known;
}

void RecalcPriceSqFt(RowEdit& row)
{
    row.Set(fields::PRICEGLA, databook::PriceGla(Number(row, fields::SELLINGPR), Number(row, fields::GLA)));
}

void RecalcAge(RowEdit& row, StoredDates& dates)
{
    const StoredDates::Both& sale = dates.Of(row.Text(fields::SALEDATE));
    const QString age = sale.date.isEmpty() ? QString()
                                            : databook::AgeText(row.Text(fields::YEARBUILT), sale.date,
                                                                [&sale] { return sale.isDate; });
    row.Set(fields::AGE, IsWritten(age) ? age : text::Trim(text::Str(text::Val(age))));
}

void RecalcSaleDate(RowEdit& row, StoredDates& dates)
{
    if (!RecalcDate(row, fields::SALEDATE, fields::SALESERIAL, dates))
        row.Set(fields::SALEFLD, kPending);
}

void RecalcLoadDate(RowEdit& row, StoredDates& dates)
{
    static_cast<void>(RecalcDate(row, fields::LOADDATE, fields::LOADSERIAL, dates));
}

void FixFrontFlag(RowEdit& row)
{
    if (!row.Key().isEmpty())
        row.Set(fields::FRONT,
                row.Text(fields::PHOTOS).contains(kFrontView, Qt::CaseInsensitive) ? u"1"_s : u" "_s);
}

void RecalcY2K(RowEdit& row, const QString& field, QDate today)
{
    if (!row.IsNull(field))
        row.Set(field, WithCentury(row.Text(field), today));
}

void TransferField(const store::DataSource& source, store::DataSource& target, const QString& field)
{
    const QVariant value = source.Value(field);
    store::Change::Set(target, field, value.isValid() ? value : QVariant(QString(u""_s)));
}

bool Comp2Central(store::DataSource& data, store::DataSource& central, forms::Label& label, const Walk::Step& step)
{
    label.SetCaption(u"Comp Database"_s);
    store::Transaction whole(central);
    const qint64 all = data.Count();
    qint64 done = 0;
    for (data.MoveFirst(); !data.AtEnd(); data.MoveNext()) {
        if (!step(done++, all))
            return false;
        const QString key = store::GetFieldData(data, fields::CENTRALKEY);
        if (key.isEmpty())
            continue;
        const bool there = store::ReadRecord(central, key).has_value();
        std::optional<store::Change> change;
        if (there)
            change.emplace(central, store::Change::OfKey{key}, kTransferWords);
        else
            change.emplace(central, store::Change::NewKey{}, kTransferWords);
        for (const engine::Field& field : data.Fields())
            if (store::FindField(central, field.name) != nullptr)
                TransferField(data, change->Source(), field.name);
        change->Store();
    }
    whole.Commit();
    return true;
}

} // namespace vasclip::upkeep
