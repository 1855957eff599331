#include "platform/sheet/workbook.h"

#include "platform/sheet/part_reader.h"
#include "platform/sheet/sheet_reader.h"

#include <QHash>

#include <algorithm>

namespace vasclip::sheet {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostTexts = 10'000'000;
constexpr qint64 kMostLetters = qint64(256) << 20; ///< of all shared texts
constexpr qsizetype kMostStyles = 100'000;
const QString kNoBook = u"it holds no workbook"_s;
const QString kBinary = u"it is a binary workbook (.xlsb); save it as .xlsx or .csv"_s;
const QString kOpenDocument = u"it is a spreadsheet of another kind (.ods); save it as .xlsx or .csv"_s;
const QString kNoSheets = u"it has no sheet of cells"_s;
const QString kUnknown = u"it has no sheet %1; its sheets are %2"_s;
const QString kManyTexts = u"its texts are more than can be held"_s;

struct Relation
{
    QString type, target;
};

/// Where a part's relation leads, from the package's own root.
QString PathOf(const QString& part, const QString& target)
{
    QStringList path = target.startsWith(u'/') ? QStringList() : part.split(u'/').mid(0, part.count(u'/'));
    for (const QString& step : target.split(u'/', Qt::SkipEmptyParts)) {
        if (step == ".."_L1 && !path.isEmpty())
            path.removeLast();
        else if (step != "."_L1 && step != ".."_L1)
            path.append(step);
    }
    return path.join(u'/');
}

QHash<QString, Relation> RelationsOf(const Package& package, const QString& part)
{
    const qsizetype slash = part.lastIndexOf(u'/') + 1;
    const QString name = part.left(slash) + u"_rels/"_s + part.mid(slash) + u".rels"_s;
    QHash<QString, Relation> relations;
    if (!package.Has(name))
        return relations;
    PartReader xml(package, name);
    while (xml.Next())
        if (xml.IsStart() && xml.Name() == "Relationship"_L1 && xml.Attribute(u"TargetMode") != "External"_L1)
            relations.insert(xml.Attribute(u"Id"), {xml.Attribute(u"Type"), PathOf(part, xml.Attribute(u"Target"))});
    return relations;
}

/// Types are addresses, whose beginnings differ between the two kinds of the format.
QString TargetOf(const QHash<QString, Relation>& relations, QLatin1StringView type)
{
    const auto found = std::find_if(relations.cbegin(), relations.cend(),
                                    [&](const Relation& one) { return one.type.endsWith(type); });
    return found == relations.cend() ? QString() : found->target;
}

bool IsTrue(const QString& text)
{
    return text == "1"_L1 || text == "true"_L1;
}

} // namespace

Workbook::Workbook(const QString& file)
    : m_package(file)
{
    ReadBook();
}

Workbook::~Workbook() = default;

void Workbook::ReadBook()
{
    QString book = TargetOf(RelationsOf(m_package, {}), "/officeDocument"_L1);
    if (book.isEmpty() && m_package.Has(u"mimetype"_s) && m_package.Has(u"content.xml"_s))
        Refuse(m_package.File(), kOpenDocument);
    if (book.isEmpty())
        book = u"xl/workbook.xml"_s;
    if (book.endsWith(".bin"_L1))
        Refuse(m_package.File(), kBinary);
    if (!m_package.Has(book))
        Refuse(m_package.File(), kNoBook);
    const QHash<QString, Relation> relations = RelationsOf(m_package, book);
    PartReader xml(m_package, book);
    while (xml.Next()) {
        if (!xml.IsStart())
            continue;
        if (xml.Name() == "workbookPr"_L1 && IsTrue(xml.Attribute(u"date1904")))
            m_days = DaySystem::From1904;
        if (xml.Name() != "sheet"_L1)
            continue;
        const Relation relation = relations.value(xml.Attribute(u"id"));
        if (relation.type.endsWith("/worksheet"_L1) && m_package.Has(relation.target))
            m_sheets.append({xml.Attribute(u"name"), relation.target});
    }
    if (m_sheets.isEmpty())
        Refuse(m_package.File(), kNoSheets);
    m_textsPart = TargetOf(relations, "/sharedStrings"_L1);
    if (const QString styles = TargetOf(relations, "/styles"_L1); m_package.Has(styles))
        ReadStyles(styles);
}

void Workbook::ReadStyles(const QString& part)
{
    QHash<int, QString> codes;
    bool cells = false;
    PartReader xml(m_package, part);
    while (xml.Next()) {
        if (xml.Name() == "cellXfs"_L1)
            cells = xml.IsStart();
        if (!xml.IsStart())
            continue;
        if (xml.Name() == "numFmt"_L1)
            codes.insert(xml.Attribute(u"numFmtId").toInt(), xml.Attribute(u"formatCode"));
        if (xml.Name() != "xf"_L1 || !cells || m_styles.size() >= kMostStyles)
            continue;
        const int format = xml.Attribute(u"numFmtId").toInt();
        const auto code = codes.constFind(format);
        m_styles.append(code == codes.cend() ? NumberStyle{ShownByNumber(format), 0}
                                             : NumberStyle{ShownBy(*code), LeadingZeros(*code)});
    }
}

void Workbook::ReadTexts(const QString& part) const
{
    qint64 letters = 0;
    PartReader xml(m_package, part);
    while (xml.Next()) {
        if (!xml.IsStart() || xml.Name() != "si"_L1)
            continue;
        m_texts.append(xml.Text());
        letters += m_texts.last().size();
        if (m_texts.size() > kMostTexts || letters > kMostLetters)
            Refuse(m_package.File(), kManyTexts);
    }
}

const QString* Workbook::SharedText(qsizetype place) const
{
    if (!m_textsRead && m_package.Has(m_textsPart))
        ReadTexts(m_textsPart);
    m_textsRead = true;
    return place >= 0 && place < m_texts.size() ? &m_texts.at(place) : nullptr;
}

QStringList Workbook::Sheets() const
{
    QStringList names;
    for (const Sheet& sheet : m_sheets)
        names.append(sheet.name);
    return names;
}

std::unique_ptr<SheetReader> Workbook::Open(const QString& sheet) const
{
    const auto found = std::find_if(m_sheets.cbegin(), m_sheets.cend(), [&](const Sheet& one) {
        return one.name.compare(sheet, Qt::CaseInsensitive) == 0;
    });
    if (found == m_sheets.cend())
        Refuse(m_package.File(), kUnknown.arg(sheet, Sheets().join(u", "_s)));
    return std::make_unique<SheetReader>(*this, found->part);
}

} // namespace vasclip::sheet
