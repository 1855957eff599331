#pragma once

#include "forms/ports.h"
#include "forms/controls.h"
#include "store/data_source.h"
#include "upkeep/walk.h"

#include <QDate>
#include <QHash>

namespace vasclip::upkeep {

// What a recalculation does to one record. Each writes into the record that is under edit; whoever walks stores it.

/// PRICEGLA of SELLINGPR and GLA, both without what people write around a number.
void RecalcPriceSqFt(RowEdit& row);
/// The date texts of a walk as they are stored, each worked out once: records share their days.
class StoredDates
{
public:
    struct Both
    {
        QString date; ///< MM/DD/YYYY; "" for what is no date
        QString serial;
        bool pending = false; ///< the text is a day that means none, as one of the future
        bool isDate = false;  ///< what `date` reads as
    };
    explicit StoredDates(QDate today)
        : m_today(today)
    {}
    [[nodiscard]] const Both& Of(const QString& text);

private:
    QDate m_today;
    QHash<QString, Both> m_known;
};

/// AGE of YEARBUILT at the sale, on the day that RecalcSaleDate stores; "0" without a sale date.
void RecalcAge(RowEdit& row, StoredDates& dates);
/// SALEDATE as MM/DD/YYYY with its serial; what is no date becomes a pending sale, and SALEFLD says so.
void RecalcSaleDate(RowEdit& row, StoredDates& dates);
/// The same of LOADDATE, which no text stands beside.
void RecalcLoadDate(RowEdit& row, StoredDates& dates);
/// FRONT by whether PHOTOS holds a front view. A record without a key is passed over.
void FixFrontFlag(RowEdit& row);
/// A date with a year of two digits gets its four; Null stays, and so does what is no date.
void RecalcY2K(RowEdit& row, const QString& field, QDate today);

/// Copies a field from the record of one source into the one under edit of another; Null becomes "".
void TransferField(const store::DataSource& source, store::DataSource& target, const QString& field);

/// Copies every record of a table into another one, which gets those that it lacks and takes the fields that both
/// have; in one transaction. The label is called "Comp Database".
/// @return false if it was stopped, and taken back
[[nodiscard]] bool Comp2Central(store::DataSource& data, store::DataSource& central, forms::Label& label,
                                const Walk::Step& step);

} // namespace vasclip::upkeep
