#include "kelforms/window/page_boxes.h"

#include "kelforms/core/comps.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::formsbook;

namespace kelforms {

namespace {

constexpr int kMargin = 18;
constexpr int kRow = 23;
constexpr int kFieldRow = 40;
constexpr int kGap = 14;

/// What stands beside a comp's photo, repeated from its column.
constexpr QLatin1StringView kBesideAPhoto[] = {"ADDRESS"_L1, "NEIGHBORHD"_L1, "PROXIMITY"_L1, "PRICEFLD"_L1,
                                               "SELLINGPR"_L1, "RENTFLD"_L1, "GLA"_L1};

class Builder
{
public:
    Builder(const Report& report, const Page& page, int width)
        : m_report(report)
        , m_page(page)
        , m_width(qMax(width, 620) - 2 * kMargin)
    {}

    PageBoxes Build()
    {
        Add(Box::Kind::Title, {kMargin, m_y, m_width, 30}, m_page.title.simplified());
        m_y += 30 + kGap;
        if (!m_page.objects.isEmpty()) {
            Pictures();
        } else {
            for (const Section& section : m_page.sections)
                section.group ? Grid(section) : Fields(section);
        }
        m_result.height = m_y + kMargin;
        return m_result;
    }

private:
    void Add(Box::Kind kind, const QRect& rect, const QString& text, const QString& key = {})
    {
        m_result.boxes.append({kind, rect, text, key});
    }

    void Heading(const QString& text)
    {
        Add(Box::Kind::Heading, {kMargin, m_y, m_width, 26}, text);
        m_y += 26;
    }

    /// Four in a row, or one; those of the last row share its width.
    void Fields(const Section& section)
    {
        const qsizetype inARow = section.wide ? 1 : 4;
        Heading(section.title);
        for (qsizetype i = 0; i < section.lines.size(); i += inARow) {
            const int count = static_cast<int>(qMin(inARow, section.lines.size() - i));
            for (int n = 0; n < count; ++n) {
                const Line& line = section.lines[i + n];
                const int left = m_width * n / count;
                const int right = m_width * (n + 1) / count;
                Add(Box::Kind::Field, {kMargin + left, m_y, right - left, kFieldRow}, line.label,
                    CellAddress{m_page.code, line.subjectRow, line.subjectCell}.Key());
            }
            m_y += kFieldRow;
        }
        m_y += kGap;
    }

    void Grid(const Section& section)
    {
        Heading(section.title);
        const int label = qBound(164, m_width / 5, 220);
        const int subject = m_width / 6;
        const int comp = (m_width - label - subject) / 3;
        const int adjust = qBound(56, comp / 3, 90);
        const auto compLeft = [&](int place) { return kMargin + label + subject + comp * place; };
        const auto compRight = [&](int place) {
            return place == 2 ? kMargin + m_width : compLeft(place + 1);
        };

        Add(Box::Kind::ColumnHead, {kMargin, m_y, label, kRow}, {});
        Add(Box::Kind::ColumnHead, {kMargin + label, m_y, subject, kRow}, u"Subject"_s);
        for (int place = 0; place < 3; ++place)
            Add(Box::Kind::ColumnHead, {compLeft(place), m_y, compRight(place) - compLeft(place), kRow},
                u"%1 %2"_s.arg(GroupNoun(*section.group)).arg(section.base + place));
        m_y += kRow;
        for (const Line& line : section.lines) {
            Add(Box::Kind::Label, {kMargin, m_y, label, kRow}, line.label);
            const bool check = line.kind == LineKind::Check;
            const bool total = line.kind != LineKind::Check && line.kind != LineKind::Text;
            const Box::Kind kind = check ? Box::Kind::Check : total ? Box::Kind::Total : Box::Kind::Value;
            Add(line.subjectCell > 0 ? kind : Box::Kind::Label, {kMargin + label, m_y, subject, kRow}, {},
                line.subjectCell > 0
                    ? CellAddress{section.subjectPage, line.subjectRow, line.subjectCell}.Key()
                    : QString());
            for (int place = 0; place < 3; ++place) {
                const auto at = static_cast<size_t>(place);
                const int beside = line.adjusts[at] > 0 ? adjust : 0;
                Add(kind, {compLeft(place), m_y, compRight(place) - compLeft(place) - beside, kRow}, {},
                    CellAddress{m_page.code, line.row, line.comps[at]}.Key());
                if (beside > 0)
                    Add(Box::Kind::Adjust, {compRight(place) - beside, m_y, beside, kRow}, {},
                        CellAddress{m_page.code, line.row, line.adjusts[at]}.Key());
            }
            m_y += kRow;
        }
        m_y += kGap;
    }

    void Pictures()
    {
        const bool single = m_page.objects.size() == 1;
        const int text = single ? 0 : qMin(300, m_width / 3);
        const int width = qMin(m_width - text - (text > 0 ? kGap : 0), single ? 900 : 460);
        const int height = single ? width * 3 / 4 : width * 3 / 5;
        for (qsizetype i = 0; i < m_page.objects.size(); ++i) {
            const QString& object = m_page.objects[i];
            Add(Box::Kind::Picture, {kMargin, m_y, width, height}, ObjectCaption(object), object);
            if (text > 0) {
                const int left = kMargin + width + kGap;
                const int room = m_width - width - kGap;
                Add(Box::Kind::Heading, {left, m_y, room, 26}, ObjectCaption(object));
                int y = m_y + 26;
                for (const QString& key : CaptionCells(object, static_cast<int>(i) + 1)) {
                    const CellAddress address = ReadItem(key);
                    const Page* page = m_report.Layout(address.form);
                    const QString name =
                        page == nullptr ? QString() : page->LabelOf(address.row, address.cell);
                    QString label = name.section(u": "_s, -1);
                    if (!label.isEmpty())
                        label[0] = label[0].toUpper();
                    Add(Box::Kind::Field, {left, y, room, kFieldRow}, label, key);
                    y += kFieldRow;
                }
            }
            m_y += height + kGap;
        }
    }

    /// The cells that say what a picture shows.
    [[nodiscard]] QStringList CaptionCells(const QString& object, int place) const
    {
        if (!m_page.sections.isEmpty())
            return {CellAddress{m_page.code, place, 1}.Key(), CellAddress{m_page.code, place, 2}.Key()};
        QStringList cells;
        const auto add = [&cells](const QString& cell) {
            if (!cell.isEmpty())
                cells.append(cell);
        };
        if (object.startsWith("SUB_"_L1))
            add(AddressCell(m_report, Group::Sale, 0));
        const int comp = object.section(u'_', 1, 1).toInt();
        for (const Group group : {Group::Sale, Group::Alt, Group::Rent, Group::List}) {
            if (!object.startsWith(ObjectPrefix(group)))
                continue;
            for (const QLatin1StringView field : kBesideAPhoto)
                add(CompCell(m_report, group, comp, field));
        }
        return cells;
    }

public:
    [[nodiscard]] static QString ObjectPrefix(Group group)
    {
        switch (group) {
        case Group::Sale:
            return u"CMP_"_s;
        case Group::Alt:
            return u"ALT_"_s;
        case Group::Rent:
            return u"RCMP_"_s;
        case Group::List:
            break;
        }
        return u"LCMP_"_s;
    }

private:
    const Report& m_report;
    const Page& m_page;
    int m_width;
    int m_y = kMargin;
    PageBoxes m_result;
};

/// A page that the forms book does not know: its cells as they come.
PageBoxes LayOutUnknown(const Report& report, const QString& pageCode, int width)
{
    Page page;
    page.code = pageCode;
    page.title = pageCode;
    Section section;
    section.title = u"Cells"_s;
    for (auto it = report.Cells().cbegin(); it != report.Cells().cend(); ++it) {
        const CellAddress address = ReadItem(it.key());
        if (address.form != pageCode)
            continue;
        Line line;
        line.subjectRow = address.row;
        line.subjectCell = address.cell;
        line.label = u"Row %1, cell %2"_s.arg(address.row).arg(address.cell);
        section.lines.append(line);
    }
    if (!section.lines.isEmpty())
        page.sections.append(section);
    return Builder(report, page, width).Build();
}

} // namespace

PageBoxes LayOut(const Report& report, const QString& pageCode, int width)
{
    const Page* page = report.Layout(pageCode);
    return page == nullptr ? LayOutUnknown(report, pageCode, width) : Builder(report, *page, width).Build();
}

QStringList ObjectsBeside(const Report& report, const QString& pageCode)
{
    const Page* page = report.Layout(pageCode);
    if (page == nullptr || !page->objects.isEmpty())
        return {};
    QStringList objects;
    const auto add = [&](const QString& prefix) {
        if (const QString object = report.ObjectOf(prefix); !object.isEmpty())
            objects.append(object);
    };
    add(u"SUB_1_"_s);
    for (const Section& section : page->sections) {
        for (int place = 0; section.group && place < 3; ++place)
            add(u"%1%2_"_s.arg(Builder::ObjectPrefix(*section.group)).arg(section.base + place));
    }
    return objects;
}

QString PictureCaption(const Report& report, const QString& object)
{
    const int comp = object.section(u'_', 1, 1).toInt();
    QString cell;
    if (object.startsWith("SUB_"_L1))
        return report.Cell(AddressCell(report, Group::Sale, 0));
    for (const Group group : {Group::Sale, Group::Alt, Group::Rent, Group::List}) {
        if (object.startsWith(Builder::ObjectPrefix(group)))
            cell = AddressCell(report, group, comp);
    }
    return report.Cell(cell);
}

} // namespace kelforms
