#include "platform/sheet/sheet_reader.h"

#include "platform/sheet/workbook.h"

#include <QHash>

#include <algorithm>

namespace vasclip::sheet {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostMerged = 100'000;
constexpr qint64 kPiece = 1 << 16;
const QString kNoPlace = u"\"%1\" is no place of a cell"_s;
const QString kOrder = u"row %1 stands behind row %2"_s;
const QString kNoText = u"a cell names a text that the file does not have"_s;
const QString kUncounted = u"a formula whose result the file does not have; open it in a spreadsheet program and save it"_s;

struct Place
{
    qsizetype column = -1;
    qint64 row = 0;
};

/// "AB12"; a column of -1 for what is none.
Place PlaceOf(QStringView written)
{
    Place place;
    qsizetype at = 0;
    qsizetype column = 0;
    for (; at < written.size() && at < 4; ++at) {
        const char16_t letter = written[at].toUpper().unicode();
        if (letter < u'A' || letter > u'Z')
            break;
        column = column * 26 + (letter - u'A' + 1);
    }
    bool good = false;
    place.row = written.mid(at).toLongLong(&good);
    if (good && column > 0 && column <= SheetReader::kLastColumn && place.row > 0 && place.row <= SheetReader::kLastRow)
        place.column = column - 1;
    return place;
}

/// A look at the bytes costs a tenth of reading them as XML.
bool Mentions(const Package& package, const QString& part, QByteArrayView word)
{
    const auto bytes = package.Open(part);
    QByteArray kept;
    for (QByteArray more = bytes->read(kPiece); !more.isEmpty(); more = bytes->read(kPiece)) {
        kept += more;
        if (kept.contains(word))
            return true;
        kept = kept.right(word.size());
    }
    return false;
}

} // namespace

SheetReader::SheetReader(const Workbook& book, const QString& part)
    : m_book(book)
    , m_xml(book.m_package, part)
    , m_size(book.m_package.SizeOf(part))
{
    if (Mentions(book.m_package, part, "mergeCell"))
        FindMerged(book.m_package, part);
}

/// They stand behind the cells that they are about.
void SheetReader::FindMerged(const Package& package, const QString& part)
{
    PartReader xml(package, part);
    while (xml.Next()) {
        if (!xml.IsStart() || xml.Name() != "mergeCell"_L1 || m_merged.size() >= kMostMerged)
            continue;
        const QString ends = xml.Attribute(u"ref");
        const Place from = PlaceOf(QStringView(ends).left(ends.indexOf(u':')));
        const Place to = PlaceOf(QStringView(ends).mid(ends.indexOf(u':') + 1));
        if (from.column >= 0 && to.column >= 0 && to.row > from.row)
            m_merged.append({from.row, to.row, from.column});
    }
    std::ranges::sort(m_merged, std::greater{}, &Merged::first); // the next one last
}

Cell SheetReader::ReadCell()
{
    const QString type = m_xml.Attribute(u"t");
    const qsizetype style = m_xml.Attribute(u"s").toInt();
    QString written;
    QString inside;
    bool formula = false;
    bool value = false;
    while (m_xml.Next() && !(m_xml.IsEnd() && m_xml.Name() == "c"_L1)) {
        if (!m_xml.IsStart())
            continue;
        if (m_xml.Name() == "v"_L1) {
            written = m_xml.Text();
            value = true;
        } else if (m_xml.Name() == "is"_L1) {
            inside = m_xml.Text();
        } else if (m_xml.Name() == "f"_L1) {
            formula = true;
            (void)m_xml.Text();
        }
    }
    const auto text = [](const QString& words) {
        return words.isEmpty() ? Cell{} : Cell{Cell::Kind::Text, words};
    };
    if (type == "inlineStr"_L1)
        return text(inside);
    if (type == "str"_L1)
        return text(written);
    if (!value || written.isEmpty())
        return formula ? Cell{Cell::Kind::Error, kUncounted} : Cell{};
    if (type == "s"_L1) {
        bool number = false;
        const QString* shared = m_book.SharedText(written.trimmed().toLongLong(&number));
        if (!number || shared == nullptr)
            m_xml.Fail(kNoText);
        return text(*shared);
    }
    if (type == "b"_L1)
        return {Cell::Kind::Value, written.trimmed() == "0"_L1 ? u"FALSE"_s : u"TRUE"_s};
    if (type == "e"_L1)
        return {Cell::Kind::Error, written};
    if (type == "d"_L1)
        return {Cell::Kind::Value, written.trimmed().replace(u'T', u' ').remove(u" 00:00:00"_s)};
    return NumberCell(written, m_book.StyleOf(style), m_book.m_days);
}

void SheetReader::ReadRow(Row& row)
{
    qsizetype next = 0; // where a cell stands that does not tell
    while (m_xml.Next() && !(m_xml.IsEnd() && m_xml.Name() == "row"_L1)) {
        if (!m_xml.IsStart() || m_xml.Name() != "c"_L1)
            continue;
        const QString where = m_xml.Attribute(u"r");
        const Place place = where.isEmpty() ? Place{next, row.number} : PlaceOf(where);
        if (place.column < next || place.column >= kLastColumn)
            m_xml.Fail(kNoPlace.arg(where.left(20)));
        next = place.column + 1;
        const Cell cell = ReadCell();
        if (cell.kind == Cell::Kind::Empty)
            continue;
        row.cells.resize(place.column);
        row.cells.append(cell);
    }
}

/// A row in the middle of a merged place takes what stands at its top.
void SheetReader::SpreadMerged(Row& row)
{
    for (qsizetype i = m_merged.size() - 1; i >= 0 && m_merged.at(i).first <= row.number; --i) {
        const Merged& merged = m_merged.at(i);
        if (merged.last < row.number) {
            m_spread.remove(merged.column);
            m_merged.removeAt(i);
        } else if (merged.first == row.number) {
            m_spread.insert(merged.column, row.cells.value(merged.column));
        } else if (const Cell top = m_spread.value(merged.column);
                   top.kind != Cell::Kind::Empty && row.cells.value(merged.column).kind == Cell::Kind::Empty) {
            row.cells.resize(std::max(row.cells.size(), merged.column + 1));
            row.cells[merged.column] = top;
        }
    }
}

std::optional<Row> SheetReader::Next()
{
    while (m_xml.Next()) {
        if (!m_xml.IsStart() || m_xml.Name() != "row"_L1)
            continue;
        Row row;
        const QString number = m_xml.Attribute(u"r");
        row.number = number.isEmpty() ? m_lastNumber + 1 : number.toLongLong();
        if (row.number <= m_lastNumber || row.number > kLastRow)
            m_xml.Fail(kOrder.arg(number.left(20)).arg(m_lastNumber));
        m_lastNumber = row.number;
        ReadRow(row);
        const bool own = !row.cells.isEmpty(); // a row without any of its own stays out, merged or not
        SpreadMerged(row);
        if (own)
            return row;
    }
    return std::nullopt;
}

} // namespace vasclip::sheet
