#pragma once

#include "formsbook/fields.h"
#include "formsbook/photo_pages.h"

#include <QList>
#include <QStringList>

#include <array>
#include <optional>

namespace vasclip::formsbook {

/// One line of a page. Cells are counted from 1; 0 is no cell.
struct Line
{
    int row = 0;
    QString label;
    QString field;     ///< FIELDNAME of the mapping; "" for a line that is not mapped
    QString trueFalse; ///< TRUEFALSE
    QString preEval;   ///< PREEVAL
    QString sentAs;    ///< FIELDNAME of a second row for the same cell, which is sent and not read; "" for none
    LineKind kind = LineKind::Text;
    int subjectRow = 0; ///< where the subject's value stands, on the section's subjectPage
    int subjectCell = 0;
    std::array<int, 3> comps{};
    std::array<int, 3> adjusts{};
};

/// A block of a page: either single cells of the subject or of the page (no group), or a comparison grid.
struct Section
{
    QString title;
    std::optional<Group> group;
    int base = 0;         ///< first comp of the grid
    bool wide = false;    ///< each line takes the page's whole width
    bool subject = false; ///< maps its subject cells (comp 10)
    QString subjectPage;
    QList<Line> lines;
};

struct Page
{
    QString code;
    QString title;
    QList<Section> sections;
    QStringList objects; ///< image objects from the top

    /// Is there such a cell? Cells that only repeat the main page's subject are none of this page.
    [[nodiscard]] bool HasCell(int row, int cell) const;
    /// "Comparable 5: Living area" and the like; "" for no cell of this page.
    [[nodiscard]] QString LabelOf(int row, int cell) const;
};

/// The page of free text behind the forms.
inline constexpr QLatin1StringView kAddendumPage{"ADDENDUM"};
inline constexpr int kAddendumLines = 20;

/// The page as it stands in a report with that main form.
/// @return nullopt if that form has no such page
[[nodiscard]] std::optional<Page> LayoutOf(const QString& formType, const QString& pageCode);

/// FORMNAME of a group's page.
[[nodiscard]] QString GridPage(const Form& form, Group group, int base);

/// Every page of a report with that main form: the main page, the grid pages, the picture pages of the
/// edition, the text addendum.
[[nodiscard]] QStringList PagesOf(const Form& form, Edition edition);

} // namespace vasclip::formsbook
