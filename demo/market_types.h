#pragma once

#include "demo/market.h"

namespace vasclip::demo {

/// A comp in the making: what all types share is decided, its type's own fields are to be filled.
struct Draft
{
    Dice& dice;
    const Neighbourhood& place;
    Comp& comp;
    QDate sale; ///< of a closed sale or a lease
    bool pending = false;
    int year = 1970; ///< built

    void Put(const char* field, const QString& value) { comp.fields[QString::fromLatin1(field)] = value; }
    void Put(const char* field, const char* value) { Put(field, QString::fromLatin1(value)); }
    void Put(const char* field, int value) { Put(field, QString::number(value)); }

    /// A field that a form shows as a check box.
    void PutTick(const char* field, bool ticked) { Put(field, ticked ? "X" : ""); }

    /// Price, printed price, price per square foot.
    void PutPrice(double price, int gla);
    /// The price of a square foot here and then: neighbourhood, age, month and luck.
    [[nodiscard]] double Market(double perSquareFoot);
    void PutSite(double squareFeet);
    void PutConditionAndUtility();
};

void PutSingleFamily(Draft& draft);
void PutCondo(Draft& draft);
void PutUnitSale(Draft& draft);
void PutUnitRental(Draft& draft);
void PutLand(Draft& draft);
void PutManufactured(Draft& draft);

} // namespace vasclip::demo
