#include "upkeep/layout_templates.h"

#include "store/fields.h"
#include "store/schema.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTooFar = 3; ///< letters by which a name may differ from the one that was meant

/// Letters to put in, take out or change to make one word of the other.
int Distance(const QString& one, const QString& other)
{
    std::vector<int> row(static_cast<std::size_t>(other.size()) + 1);
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<int>(i);
    for (const QChar letter : one) {
        int corner = row[0]++;
        for (std::size_t i = 1; i < row.size(); ++i) {
            const int change = corner + (letter == other[static_cast<qsizetype>(i) - 1] ? 0 : 1);
            corner = row[i];
            row[i] = std::min({change, row[i] + 1, row[i - 1] + 1});
        }
    }
    return row.back();
}

QString Nearest(const QString& name)
{
    QString nearest;
    int best = kTooFar;
    for (const store::CompsColumn& column : store::CompsColumns()) {
        if (const int distance = Distance(name.left(40), column.name); distance < best) {
            best = distance;
            nearest = column.name;
        }
    }
    return nearest;
}

QString NoSuchField(const QString& name)
{
    const QString nearest = Nearest(name);
    return u"there is no field '%1'. "_s.arg(name.left(40)) +
           (nearest.isEmpty() ? u"The guide's page on report layouts tells where the names are listed"_s
                              : u"Did you mean %1?"_s.arg(nearest));
}

QString IsPicture(const QString& field)
{
    return u"%1 is a picture. Write a 'photos' line for pictures"_s.arg(field);
}

std::optional<Format> FormatOf(const QString& word)
{
    static const QHash<QString, Format> formats{{u"TEXT"_s, Format::Text},
                                                {u"NUMBER"_s, Format::Number},
                                                {u"MONEY"_s, Format::Money},
                                                {u"DATE"_s, Format::Date},
                                                {u"TYPE"_s, Format::Type}};
    const auto found = formats.constFind(word.toUpper());
    return found == formats.cend() ? std::nullopt : std::optional(*found);
}

QString NoSuchFormat(const QString& word)
{
    return u"'%1' is no way to print a value. Write text, number, money, date or type"_s.arg(word.left(40));
}

} // namespace

Template ReadTemplate(LineReader& line, Columns columns)
{
    const int begin = line.Column() + 1;
    const QString text = line.Text(u"A text"_s);
    Template result;
    qsizetype at = 0;
    for (qsizetype open = text.indexOf(u'{'); open >= 0; open = text.indexOf(u'{', at)) {
        const int column = begin + static_cast<int>(open);
        const qsizetype close = text.indexOf(u'}', open);
        if (close < 0)
            throw LayoutError(line.Number(), column,
                              u"the brace that opens here is not closed. Write } behind the field"_s);
        const QString inner = text.mid(open + 1, close - open - 1);
        Template::Piece piece;
        piece.before = text.mid(at, open - at);
        piece.field = inner.section(u':', 0, 0).trimmed().toUpper();
        const bool special = SpecialWords().contains(piece.field);
        if (!special && !store::FindCompsColumn(piece.field))
            throw LayoutError(line.Number(), column + 1, NoSuchField(piece.field));
        if (!special && columns == Columns::No)
            throw LayoutError(line.Number(), column + 1,
                              u"%1 is a record's, and this line is the page's. Write one of: %2"_s.arg(
                                  piece.field, SpecialWords().join(u", "_s)));
        if (piece.field == fields::FRONTPHOTO)
            throw LayoutError(line.Number(), column + 1, IsPicture(piece.field));
        if (inner.contains(u':')) {
            const QString word = inner.section(u':', 1).trimmed();
            const std::optional<Format> format = FormatOf(word);
            if (!format)
                throw LayoutError(line.Number(), column + 2 + static_cast<int>(inner.indexOf(u':')),
                                  NoSuchFormat(word));
            piece.format = *format;
        }
        result.pieces.append(piece);
        at = close + 1;
    }
    result.after = text.mid(at);
    return result;
}

QString ReadField(LineReader& line)
{
    const QString name = line.Word(u"A field"_s).toUpper();
    const store::CompsColumn* column = store::FindCompsColumn(name);
    if (!column)
        line.Refuse(NoSuchField(name));
    if (name == fields::FRONTPHOTO)
        line.Refuse(IsPicture(name));
    return column->name;
}

Format ReadFormat(LineReader& line, Format otherwise)
{
    if (!line.Take(u"as"_s))
        return otherwise;
    const QString word = line.Word(u"'text', 'number', 'money', 'date' or 'type'"_s);
    const std::optional<Format> format = FormatOf(word);
    if (!format)
        line.Refuse(NoSuchFormat(word));
    return *format;
}

QString HeadingOf(const QString& field)
{
    const store::CompsColumn* column = store::FindCompsColumn(field);
    return column ? QString(column->heading) : QString();
}

} // namespace vasclip::upkeep
