#pragma once

#include "store/data_source.h"

#include <array>
#include <map>

namespace vasclip::link {

/// The mapping's word for the second address line of a comp: city, state and ZIP in one. Sent and never read; what
/// stands there is read by the NEIGHBORHD row of the same cell, which a mapping then marks as not sent.
inline constexpr QLatin1StringView kCityStateZipWord{"CITYSTZIP"};

/// One row of the mapping, every column trimmed.
struct MappingRow
{
    QString formType, formName, fieldName, row, cell, compType, comp, offset, preEval, trueFalse;

    /// Row and cell joined by "|", of the first comp of the page.
    [[nodiscard]] QString RowCell() const { return row + u'|' + cell; }
};

// The texts of the queries. Values are pasted in as they are.
[[nodiscard]] QString FilterComp2KelQuery(const QString& formType, const QString& comp,
                                          const QString& compType);
[[nodiscard]] QString FilterAltComp2KelQuery(const QString& formType, const QString& comp,
                                             const QString& formName);
[[nodiscard]] QString FilterComp2KelProximityQuery(const QString& formType, const QString& comp,
                                                   const QString& compType);
/// Address rows of all comps of a form, for the refresh read.
[[nodiscard]] QString AddressRowsQuery(const QString& formType);

/// Sets the source to the rows of a form, page base and group, and stands on the last one if there are rows.
/// @param comp  page base as text
void FilterComp2Kel(store::DataSource& source, const QString& formType, const QString& comp,
                    const QString& compType);
/// @throws RuntimeError 3021 if there are no rows
void FilterAltComp2Kel(store::DataSource& source, const QString& formType, const QString& comp,
                       const QString& formName);
void FilterComp2KelProximity(store::DataSource& source, const QString& formType, const QString& comp,
                             const QString& compType);

/// A column of the current row as text, "" for Null. @throws RuntimeError 3265 for a column that is not there
[[nodiscard]] QString GetComp2KelData(const store::DataSource& source, const QString& fieldName);

/// Which columns of the mapping are read.
enum class MappingColumns {
    All,
    Fields, ///< without FORMTYPE, COMPTYPE and COMP, which the filter of a send has fixed; they stay blank
};
/// Every row of the source's set in its order, read page by page. The source, which must be a dynaset, is
/// shared: who holds the rows needs it no more, whatever a turn of the queue does to it.
[[nodiscard]] QList<MappingRow> ReadMappingRows(const store::DataSource& source,
                                                MappingColumns columns = MappingColumns::All);

/// Mapping rows that were read once, by form, page base and group. Comps of one page share their rows, and
/// asking for them anew costs more than a comp's own storing; kept no longer than one transfer.
class MappingPages
{
public:
    /// The rows that FilterComp2Kel selects, in their order; empty if there are none.
    const QList<MappingRow>& Rows(store::DataSource& source, const QString& formType, const QString& comp,
                                  const QString& compType);

private:
    using Page = std::array<QString, 3>;
    std::map<Page, QList<MappingRow>> m_rows;
};

} // namespace vasclip::link
