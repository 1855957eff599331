#include "databook/comp_fields.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "databook/messages.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/store.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using common::RoutineScope;

namespace {

const QString kStoredPicture = u"mm/dd/yyyy"_s;
const QString kLoadDate = fields::LOADDATE;
const QString kLoadSerial = fields::LOADSERIAL;
const QString kSaleDate = fields::SALEDATE;
const QString kSaleSerial = fields::SALESERIAL;

void StoreLoadDate(store::DataSource& source, QDate today)
{
    const QString date = common::FixDate(text::Format(today.startOfDay(), kStoredPicture), today);
    store::SetFieldData(source, date, kLoadDate);
    store::SetFieldData(source, text::Str(static_cast<double>(text::DateSerial(today))), kLoadSerial);
}

void StoreSaleDate(store::DataSource& source, const QString& date, QDate today)
{
    store::SetFieldData(source, date, kSaleDate);
    store::SetFieldData(source, SerialText(date, today), kSaleSerial);
}

/// The day that stands for a pending sale, however it is written.
bool IsPendingDay(const QString& date, QDate today)
{
    const std::optional<QDateTime> value = text::ReadDate(date, today);
    return value && value->date() == QDate(1900, 1, 1);
}

bool IsNumeric(const QString& text)
{
    bool number = false;
    return std::isfinite(text.toDouble(&number)) && number;
}

} // namespace

QString PriceGla(const QString& sellingPrice, const QString& gla)
{
    const double price = text::Val(sellingPrice);
    const double area = text::Val(gla);
    if (price == 0 || area == 0)
        return u"0"_s;
    return text::Format(price / area, u"###.##"_s);
}

QString AgeText(const QString& yearBuilt, const QString& saleDate, QDate today)
{
    return AgeText(yearBuilt, saleDate, [&] { return common::IsDate(saleDate, today); });
}

QString AgeText(const QString& yearBuilt, const QString& saleDate, const std::function<bool()>& isDate)
{
    QString kept;
    int digits = 0;
    for (const QChar letter : yearBuilt.first(std::min<qsizetype>(4, yearBuilt.size()))) {
        const bool digit = letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
        digits += digit;
        if (digit || letter == QLatin1Char('-'))
            kept.append(letter);
    }
    if (digits == 0)
        return {};
    if (digits < 4)
        return kept;
    if (!isDate())
        return {};
    const double age = text::Val(saleDate.right(4)) - text::Val(kept);
    return age >= 1 ? text::Dec(static_cast<qint64>(age)) : QString();
}

QString AlphaOnly(const QString& text)
{
    QString letters;
    for (const QChar letter : text) {
        const QChar upper = letter.toUpper();
        if (upper >= QLatin1Char('A') && upper <= QLatin1Char('Z'))
            letters.append(letter);
    }
    return letters;
}

QString Strip1stNums(const QString& address)
{
    const qsizetype blank = address.indexOf(QLatin1Char(' '));
    if (blank < 0 || !IsNumeric(address.first(blank)))
        return address;
    return address.sliced(blank + 1);
}

QString SerialText(const QString& date, QDate today)
{
    const std::optional<QDateTime> value = text::ReadDate(date, today);
    return value ? text::Str(static_cast<double>(text::DateSerial(value->date()))) : QString();
}

void SetLoadDate2Today(const forms::Ports& ports, store::DataSource& source)
{
    const RoutineScope scope{"ErrSetLoadDate2Today"};
    common::Guarded(ports.prompter, [&] {
        store::Change::Begin(source, kEditWords);
        if (store::GetFieldData(source, kLoadDate).isEmpty())
            StoreLoadDate(source, ports.clock.Today());
    });
}

void ForceLoadDate2Today(const forms::Ports& ports, store::DataSource& source)
{
    const RoutineScope scope{"ForceLoadDate2Today"};
    common::Guarded(ports.prompter, [&] {
        store::Change::Begin(source, kEditWords);
        StoreLoadDate(source, ports.clock.Today());
    });
}

void RepairLoadDate(const forms::Ports& ports, store::DataSource& source)
{
    const RoutineScope scope{"RepairLoadDate"};
    common::Guarded(ports.prompter, [&] {
        store::Change::Begin(source, kEditWords);
        const QString stored = store::GetFieldData(source, kLoadDate);
        if (!stored.isEmpty() && !common::IsDate(stored, ports.clock.Today()))
            StoreLoadDate(source, ports.clock.Today());
    });
}

void ErrSetSaleDate(const forms::Ports& ports, store::DataSource& source, QString& dateText)
{
    const RoutineScope scope{"ErrSetSaleDate"};
    common::Guarded(ports.prompter, [&] {
        store::Change::Begin(source, kEditWords);
        const QDate today = ports.clock.Today();
        if (!common::IsDate(dateText, today))
            dateText = kPendingDate;
        const QString date = common::FixDate(dateText, today);
        StoreSaleDate(source, IsPendingDay(date, today) ? kPendingDate : date, today);
    });
}

void ErrSaveSaleDate(const forms::Ports& ports, store::DataSource& source, forms::TextBox& box)
{
    const RoutineScope scope{"ErrSaveSaleDate"};
    QString date = box.Text();
    if (!common::IsDate(date, ports.clock.Today())) {
        date = kPendingDate;
        box.SetText(date);
    }
    ErrSetSaleDate(ports, source, date);
    store::Updateandfind(ports, source, store::GetFieldData(source, fields::CENTRALKEY));
}

} // namespace vasclip::databook
