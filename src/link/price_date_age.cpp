#include "link/price_date_age.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "databook/comp_fields.h"
#include "link/kel_channel.h"
#include "link/messages.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"

#include <algorithm>
#include <array>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kPending = u"1/1/1900"_s;

/// One cell on its way into the current record.
class Cell
{
public:
    Cell(store::DataSource& databook, QDate today, const QString& text)
        : m_databook(databook)
        , m_today(today)
        , m_text(text)
    {
        store::Change::Begin(databook, messages::kReadWords);
    }

    bool Price()
    {
        static const QString kOfPrices = u"0123456789 ,$"_s;
        const bool plain = std::all_of(m_text.cbegin(), m_text.cend(),
                                       [](QChar letter) { return kOfPrices.contains(letter); });
        if (!plain) {
            Store(fields::PRICEFLD, u"0"_s);
            return false;
        }
        // A number stops at a comma or a sign of money, so these go first.
        QString digits = m_text;
        digits.remove(u',').remove(u'$');
        for (const auto field : {fields::PRICEFLD, fields::SELLINGPR})
            StoreNumber(field, digits);
        return true;
    }

    bool Sale()
    {
        if (!common::IsDate(m_text, m_today))
            return false;
        const QString date = Date();
        if (common::IsDate(date, m_today)) {
            Store(fields::SALEDATE, Stored(date));
            Store(fields::SALESERIAL, databook::SerialText(date, m_today));
        } else {
            Store(fields::SALEDATE, kPending);
        }
        StoreSized(fields::SALEFLD);
        return true;
    }

    bool Lease()
    {
        const QString date = Date();
        Store(fields::LEASEDATE, common::IsDate(date, m_today) ? Stored(date) : kPending);
        return false;
    }

    bool Year()
    {
        StoreSized(fields::YEARBUILT);
        const QString age =
            databook::AgeText(m_text, store::GetFieldData(m_databook, fields::SALEDATE), m_today);
        if (age.isEmpty())
            Store(fields::AGE, store::Trim2Size(m_databook, age, fields::AGE)); // no age is none, not 0
        else
            StoreNumber(fields::AGE, age);
        return true;
    }

private:
    [[nodiscard]] QString Date() const
    {
        return common::FixDate(common::ExtractDate(m_text, m_today), m_today);
    }
    [[nodiscard]] QString Stored(const QString& date) const
    {
        return text::Format(text::ReadDate(date, m_today)->date().startOfDay(), u"mm/dd/yyyy"_s);
    }
    void Store(const QString& field, const QString& value) { store::SetFieldData(m_databook, value, field); }
    void StoreSized(const QString& field) { Store(field, store::Trim2Size(m_databook, m_text, field)); }
    void StoreNumber(const QString& field, const QString& value)
    {
        Store(field, text::Trim(text::Str(store::TrimNum2Size(m_databook, value, field))));
    }

    store::DataSource& m_databook;
    QDate m_today;
    QString m_text;
};

struct FieldRule
{
    QLatin1StringView field;
    bool (Cell::*store)();
};

constexpr std::array kRules = {
    FieldRule{fields::PRICEFLD, &Cell::Price},
    FieldRule{fields::SALEFLD, &Cell::Sale},
    FieldRule{fields::LEASEDATE, &Cell::Lease},
    FieldRule{fields::YEARBUILT, &Cell::Year},
};

} // namespace

QString PriceDateAge(LinkDesk& desk, const QString& field, const QString& report, const QString& item,
                     bool& handled)
{
    const common::RoutineScope scope{"PriceDateAge"};
    handled = false;
    const QString text = text::Trim(KelGetFieldInfo(desk.txtDDE, report, item));
    handled = StorePriceDateAge(desk.sources.datDatabook, desk.ports.clock.Today(), field, text);
    return text;
}

bool StorePriceDateAge(store::DataSource& databook, QDate today, const QString& field, const QString& text)
{
    const QString folded = text::Folded(field);
    const auto rule = std::find_if(kRules.begin(), kRules.end(),
                                   [&folded](const FieldRule& row) { return folded == row.field; });
    if (rule == kRules.end())
        return false;
    const common::RoutineScope scope{"PriceDateAge"};
    Cell cell(databook, today, text);
    return (cell.*rule->store)();
}

} // namespace vasclip::link
