#pragma once

#include "forms/grid.h"
#include "upkeep/list_guess.h"

#include <QDate>

namespace vasclip::upkeep {

/// The first lines of a list as they would come in.
struct ListPreview
{
    QStringList samples;      ///< of each column, some of its values
    QStringList fields;       ///< of the Databook that columns go into, in their order
    QList<ListLine> lines;    ///< that can be stored; a cell for each field
    QStringList faults;       ///< "Line 7: Price: ..." of the others
    qsizetype refused = 0;    ///< how many these are; not all are kept
    qsizetype seen = 0;       ///< lines that were looked at
};

/// @param text  the list is a text file
[[nodiscard]] ListPreview PreviewOf(const ListSample& sample, const ListLook& look, bool text, QDate today);

inline constexpr qsizetype kPreviewLines = 100;
inline constexpr qsizetype kPreviewFaults = 200;

/// The columns of a list for a grid: what they hold and where they go.
class ColumnRows : public forms::GridSource
{
public:
    ColumnRows(const ListLook& look, const ListPreview& preview)
        : m_look(look)
        , m_preview(preview)
    {}
    [[nodiscard]] qint64 RowCount() const override { return m_look.columns.size(); }
    [[nodiscard]] QStringList FieldNames() const override;
    [[nodiscard]] QStringList Row(qint64 row) const override;
    [[nodiscard]] static QList<forms::GridColumn> Columns();

private:
    const ListLook& m_look;
    const ListPreview& m_preview;
};

/// The lines of a preview for a grid.
class PreviewRows : public forms::GridSource
{
public:
    explicit PreviewRows(const ListPreview& preview)
        : m_preview(preview)
    {}
    [[nodiscard]] qint64 RowCount() const override { return m_preview.lines.size(); }
    [[nodiscard]] QStringList FieldNames() const override;
    [[nodiscard]] QStringList Row(qint64 row) const override;
    [[nodiscard]] QList<forms::GridColumn> Columns() const;

private:
    const ListPreview& m_preview;
};

/// A field as people find it in a list of fields: "Sale Date  SALEDATE".
[[nodiscard]] QString NameOfField(const QString& field);

} // namespace vasclip::upkeep
