#include "kelforms/core/comps.h"

#include "platform/text/runtime_error.h"

#include <QLocale>

#include <cmath>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::formsbook;

namespace kelforms {

namespace error = vasclip::error;
using vasclip::RuntimeError;

namespace {

int BaseOf(int comp)
{
    return (comp - 1) / 3 * 3 + 1;
}

/// The grid section of a comp, with the page that holds it.
struct Column
{
    QString page;
    const Section* section = nullptr;
    size_t place = 0;
};

Column ColumnOf(const Report& report, Group group, int comp)
{
    const Form* form = FindForm(report.MainForm());
    if (form == nullptr)
        return {};
    const QString code = GridPage(*form, group, BaseOf(comp));
    const Page* page = report.Layout(code);
    if (page == nullptr)
        return {};
    for (const Section& section : page->sections) {
        if (section.group == group && section.base == BaseOf(comp))
            return {code, &section, static_cast<size_t>((comp - 1) % 3)};
    }
    return {};
}

QString Key(const QString& page, int row, int cell)
{
    return CellAddress{page, row, cell}.Key();
}

/// The number in a cell as appraisers write it: "$185,000", "-2,500", "(2,500)", "+1500".
std::optional<double> Amount(QString text)
{
    text.remove(u'$').remove(u',').remove(u' ').remove(u'+');
    const bool bracketed = text.startsWith(u'(') && text.endsWith(u')');
    if (bracketed)
        text = u'-' + text.mid(1, text.size() - 2);
    bool fine = false;
    const double amount = QLocale::c().toDouble(text, &fine);
    return fine ? std::optional(amount) : std::nullopt;
}

/// The living area: the digits that a text begins with.
std::optional<double> Area(const QString& text)
{
    qsizetype end = 0;
    while (end < text.size() && (text[end].isDigit() || text[end] == u','))
        ++end;
    const std::optional<double> area = Amount(text.left(end));
    return area && *area > 0 ? area : std::nullopt;
}

QString Whole(double amount)
{
    QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale.toString(static_cast<qlonglong>(std::llround(std::abs(amount))));
}

QString Signed(double amount)
{
    const long long rounded = std::llround(amount);
    return (rounded > 0 ? u"+"_s : rounded < 0 ? u"-"_s : u""_s) + Whole(amount);
}

void RecalculateColumn(Reports& reports, Report& report, const QString& page, const Section& section,
                       size_t place)
{
    std::optional<double> price;
    std::optional<double> area;
    double net = 0;
    for (const Line& line : section.lines) {
        const QString value = report.Cell(Key(page, line.row, line.comps[place]));
        if (line.field == u"PRICEFLD"_s || line.field == u"SELLINGPR"_s || line.field == u"RENTFLD"_s)
            price = Amount(value);
        else if (line.field == u"GLA"_s)
            area = Area(value);
        if (line.adjusts[place] > 0)
            net += Amount(report.Cell(Key(page, line.row, line.adjusts[place]))).value_or(0);
    }
    for (const Line& line : section.lines) {
        const QString key = Key(page, line.row, line.comps[place]);
        QString text;
        switch (line.kind) {
        case LineKind::NetAdjust:
            text = Signed(net);
            break;
        case LineKind::Adjusted:
            text = price ? (*price + net < 0 ? u"-$"_s : u"$"_s) + Whole(*price + net) : QString();
            break;
        case LineKind::AdjustedUnit:
            text = price && area ? u"$"_s + QString::number((*price + net) / *area, 'f', 2) : QString();
            break;
        case LineKind::Text:
        case LineKind::Check:
            continue;
        }
        if (!price || text.isEmpty())
            reports.ClearCell(report, key);
        else if (report.Cell(key) != text)
            reports.SetCell(report, key, text);
    }
}

} // namespace

QString AddressCell(const Report& report, Group group, int comp)
{
    if (comp == 0) {
        const Page* page = report.Layout(report.MainForm());
        if (page == nullptr)
            return {};
        for (const Section& section : page->sections) {
            for (const Line& line : section.lines) {
                if (section.subject && line.field == u"ADDRESS"_s && line.subjectCell > 0)
                    return Key(page->code, line.subjectRow, line.subjectCell);
            }
        }
        return {};
    }
    return CompCell(report, group, comp, "ADDRESS"_L1);
}

QString CompCell(const Report& report, Group group, int comp, QLatin1StringView field)
{
    const Column column = ColumnOf(report, group, comp);
    if (column.section == nullptr)
        return {};
    for (const Line& line : column.section->lines) {
        if (line.field == field)
            return Key(column.page, line.row, line.comps[column.place]);
    }
    return {};
}

void SwapComps(Reports& reports, Report& report, int a, int b)
{
    const Column columnA = ColumnOf(report, Group::Sale, a);
    const Column columnB = ColumnOf(report, Group::Sale, b);
    for (const auto& [column, comp] : {std::pair{columnA, a}, std::pair{columnB, b}}) {
        if (column.section == nullptr || !report.HasForm(column.page))
            throw RuntimeError(error::kLinkBusy,
                               u"The report %1 has no page for comparable %2"_s.arg(report.Name(), QString::number(comp)));
    }
    if (a == b)
        return;
    // All sale grids of a form have the same lines.
    for (qsizetype i = 0; i < columnA.section->lines.size(); ++i) {
        const Line& lineA = columnA.section->lines[i];
        const Line& lineB = columnB.section->lines[i];
        reports.SwapCells(report, Key(columnA.page, lineA.row, lineA.comps[columnA.place]),
                          Key(columnB.page, lineB.row, lineB.comps[columnB.place]));
        if (lineA.adjusts[columnA.place] > 0)
            reports.SwapCells(report, Key(columnA.page, lineA.row, lineA.adjusts[columnA.place]),
                              Key(columnB.page, lineB.row, lineB.adjusts[columnB.place]));
    }
    const QString objectA = report.ObjectOf(u"CMP_%1_"_s.arg(a));
    const QString objectB = report.ObjectOf(u"CMP_%1_"_s.arg(b));
    if (objectA.isEmpty() || objectB.isEmpty())
        return;
    const QString imageA = report.Image(objectA);
    const QString imageB = report.Image(objectB);
    reports.SetImage(report, objectA, imageB);
    reports.SetImage(report, objectB, imageA);
}

void Recalculate(Reports& reports, Report& report)
{
    for (const QString& form : report.Forms()) {
        const Page* page = report.Layout(form);
        if (page == nullptr)
            continue;
        for (const Section& section : page->sections) {
            if (!section.group)
                continue;
            for (size_t place = 0; place < 3; ++place)
                RecalculateColumn(reports, report, form, section, place);
        }
    }
}

} // namespace kelforms
