#include "formsbook/layout.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::formsbook {

namespace {

/// Where the columns of a family's grids stand.
struct Columns
{
    int subject, first, step;
};

Columns ColumnsOf(Family family)
{
    switch (family) {
    case Family::House:
        return {1, 3, 2};
    case Family::Condo:
        return {1, 4, 3};
    case Family::Income:
        return {2, 3, 2};
    case Family::Land:
        return {1, 2, 2};
    case Family::Mobile:
        return {1, 5, 4};
    case Family::Short:
        break;
    }
    return {1, 2, 2};
}

constexpr int kFirstRowOfExtraPage = 5;
constexpr int kFirstRowOfExtraGrid = 101; // grids that stand on the main page behind its own

struct HeaderLine
{
    int row, cell;
    QLatin1StringView label, field, trueFalse, preEval;
};

constexpr HeaderLine kHeader[] = {
    {1, 1, "File number"_L1, "APPRSRFILE"_L1, ""_L1, ""_L1},
    {2, 1, "Borrower"_L1, ""_L1, ""_L1, ""_L1},
    {2, 2, "Lender / client"_L1, ""_L1, ""_L1, ""_L1},
    {3, 1, "Property address"_L1, "ADDRESS"_L1, ""_L1, ""_L1},
    {4, 1, "City"_L1, "CITY"_L1, ""_L1, ""_L1},
    {4, 2, "State"_L1, "ST"_L1, ""_L1, ""_L1},
    {4, 3, "ZIP code"_L1, "ZIP"_L1, ""_L1, ""_L1},
    {5, 1, "County"_L1, "COUNTY"_L1, ""_L1, ""_L1},
    {5, 2, "Neighborhood"_L1, "NEIGHBORHD"_L1, ""_L1, ""_L1},
    {6, 1, "Office codes"_L1, "CTSCODE"_L1, "A"_L1, "COMPCODE"_L1},
};

/// The subject's own address, place and distance stand in the header or are none.
bool HasSubjectCell(const Field& field)
{
    return !field.name.isEmpty() && field.name != "ADDRESS"_L1 && field.name != "NEIGHBORHD"_L1 &&
           field.name != "PROXIMITY"_L1;
}

QString GroupTitles(Group group)
{
    switch (group) {
    case Group::Sale:
        return u"Comparable sales"_s;
    case Group::Alt:
        return u"Alternate comparable sales"_s;
    case Group::Rent:
        return u"Comparable rentals"_s;
    case Group::List:
        break;
    }
    return u"Competing listings"_s;
}

Section Header(const Form& form)
{
    Section section;
    section.title = u"Subject"_s;
    section.subject = true;
    section.subjectPage = form.code;
    for (const HeaderLine& from : kHeader) {
        Line line;
        line.row = line.subjectRow = from.row;
        line.subjectCell = from.cell;
        line.label = from.label;
        line.field = from.field;
        line.trueFalse = from.trueFalse;
        line.preEval = from.preEval;
        section.lines.append(line);
    }
    return section;
}

Section Grid(const Form& form, Group group, int base, int firstRow)
{
    const Columns columns = ColumnsOf(form.family);
    const QList<Field> mainFields = GridFields(form.family, Group::Sale);
    Section section;
    section.title = u"%1 %2 - %3"_s.arg(GroupTitles(group)).arg(base).arg(base + 2);
    section.group = group;
    section.base = base;
    section.subject = group == Group::Sale && base == 1;
    section.subjectPage = form.code;
    int row = firstRow;
    for (const Field& field : GridFields(form.family, group)) {
        Line line;
        line.row = row++;
        line.label = field.label;
        line.field = field.name;
        line.trueFalse = field.trueFalse;
        line.sentAs = field.sentAs;
        line.kind = field.kind;
        for (int place = 0; place < 3; ++place) {
            const auto i = static_cast<size_t>(place);
            line.comps[i] = columns.first + place * columns.step;
            line.adjusts[i] = field.adjusted ? line.comps[i] + 1 : 0;
        }
        if (HasSubjectCell(field)) {
            for (qsizetype i = 0; i < mainFields.size(); ++i) {
                if (mainFields[i].name != field.name)
                    continue;
                line.subjectRow = form.gridRow + static_cast<int>(i);
                line.subjectCell = columns.subject;
            }
        }
        section.lines.append(line);
    }
    return section;
}

Section Captions()
{
    Section section;
    section.title = u"Captions"_s;
    for (int place = 1; place <= 3; ++place) {
        Line line;
        line.row = line.subjectRow = place;
        line.subjectCell = 1;
        line.label = u"Photo %1: description"_s.arg(place);
        section.lines.append(line);
        line.subjectCell = 2;
        line.label = u"Photo %1: address"_s.arg(place);
        section.lines.append(line);
    }
    return section;
}

Section AddendumText()
{
    Section section;
    section.title = u"Comments"_s;
    section.wide = true;
    for (int row = 1; row <= kAddendumLines; ++row) {
        Line line;
        line.row = line.subjectRow = row;
        line.subjectCell = 1;
        line.label = u"Line %1"_s.arg(row);
        section.lines.append(line);
    }
    return section;
}

constexpr Group kGroups[] = {Group::Sale, Group::Alt, Group::List, Group::Rent};

} // namespace

bool Page::HasCell(int row, int cell) const
{
    return !LabelOf(row, cell).isEmpty();
}

QString Page::LabelOf(int row, int cell) const
{
    if (cell <= 0)
        return {};
    for (const Section& section : sections) {
        const bool ownSubject = section.subject || !section.group;
        for (const Line& line : section.lines) {
            if (ownSubject && line.subjectRow == row && line.subjectCell == cell)
                return section.group ? u"Subject: "_s + line.label : line.label;
            if (!section.group || line.row != row)
                continue;
            for (size_t place = 0; place < 3; ++place) {
                const QString comp = u"%1 %2: %3"_s.arg(GroupNoun(*section.group))
                                         .arg(section.base + static_cast<int>(place))
                                         .arg(line.label);
                if (line.comps[place] == cell)
                    return comp;
                if (line.adjusts[place] == cell)
                    return comp + u", adjustment"_s;
            }
        }
    }
    return {};
}

QString GridPage(const Form& form, Group group, int base)
{
    switch (group) {
    case Group::Sale:
        return base == 1 ? QString(form.code) : u"COMP%1%2"_s.arg(base).arg(base + 2);
    case Group::Alt:
        return u"ALTCMP%1%2"_s.arg(base).arg(base + 2);
    case Group::Rent:
        if (form.code == "MUL"_L1)
            return u"MULRNT%1%2"_s.arg(base).arg(base + 2);
        return u"RENT%1"_s.arg((base + 2) / 3);
    case Group::List:
        break;
    }
    // The relocation summary has its listings on the form itself.
    if (form.code == "ERS"_L1)
        return form.code;
    return u"LIST%1%2"_s.arg(base).arg(base + 2);
}

std::optional<Page> LayoutOf(const QString& formType, const QString& pageCode)
{
    const Form* form = FindForm(formType);
    if (form == nullptr)
        return std::nullopt;
    const QString code = pageCode.toUpper();
    Page page;
    page.code = code;
    if (code == form->code) {
        page.title = form->title;
        page.sections.append(Header(*form));
    }
    int extraRow = kFirstRowOfExtraGrid;
    for (const Group group : kGroups) {
        for (const int base : PageBases(group)) {
            if (GridPage(*form, group, base) != code)
                continue;
            int firstRow = kFirstRowOfExtraPage;
            if (code == form->code) {
                firstRow = group == Group::Sale ? form->gridRow : extraRow;
                extraRow += group == Group::Sale ? 0 : 100;
            }
            page.sections.append(Grid(*form, group, base, firstRow));
            if (page.title.isEmpty())
                page.title = page.sections.last().title;
        }
    }
    if (!page.sections.isEmpty())
        return page;
    if (code == kAddendumPage) {
        page.title = u"Text addendum"_s;
        page.sections.append(AddendumText());
        return page;
    }
    const std::optional<PhotoPage> photos = FindPhotoPage(code);
    if (!photos)
        return std::nullopt;
    page.title = photos->title;
    page.objects = photos->objects;
    if (photos->kind == PhotoKind::General)
        page.sections.append(Captions());
    return page;
}

QStringList PagesOf(const Form& form, Edition edition)
{
    QStringList pages{QString(form.code)};
    for (const Group group : kGroups) {
        for (const int base : PageBases(group)) {
            const QString page = GridPage(form, group, base);
            if (!pages.contains(page))
                pages.append(page);
        }
    }
    for (const PhotoPage& page : PhotoPages(edition))
        pages.append(page.code);
    pages.append(kAddendumPage);
    return pages;
}

} // namespace vasclip::formsbook
