#pragma once

#include <QList>
#include <QString>

namespace vasclip::formsbook {

/// A row of the Comp2Kel table; the members are its columns, in its order.
struct MappingRow
{
    QString formType, formName, fieldName, row, cell, compType, comp, offset, preEval, trueFalse;
};

/// The whole table: for each of the 66 forms the subject (comp 10, under SALE), then every group and page
/// base, each in the order of the lines on the page. Some 25,000 rows.
[[nodiscard]] QList<MappingRow> MappingRows();

/// The rows of one form.
[[nodiscard]] QList<MappingRow> MappingRows(const QString& formType);

} // namespace vasclip::formsbook
