#include "upkeep/rehearsed_rows.h"

#include "store/schema.h"

#include <algorithm>
#include <numeric>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

int OrderOf(const RehearsedRow& row)
{
    switch (row.kind) {
    case RowKind::Changed:
        return 0;
    case RowKind::Twin:
        return 1;
    case RowKind::Refused:
        return 2;
    case RowKind::New:
        return row.why.isEmpty() ? 3 : 1;
    case RowKind::Same:
        break;
    }
    return 4;
}

QString WordsOf(RowPicture picture)
{
    switch (picture) {
    case RowPicture::Fresh:
        return u"new"_s;
    case RowPicture::There:
        return u"there"_s;
    case RowPicture::Other:
        return u"another"_s;
    case RowPicture::Refused:
        return u"refused"_s;
    case RowPicture::None:
        break;
    }
    return {};
}

QString OneLine(QString text)
{
    return text.replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ');
}

QString CaptionOf(const QString& field)
{
    const store::CompsColumn* column = store::FindCompsColumn(field);
    return column ? QString(column->heading) : field;
}

} // namespace

RehearsedRows::RehearsedRows(const Rehearsal& rehearsal)
    : m_rehearsal(rehearsal)
    , m_order(static_cast<std::size_t>(rehearsal.Rows().size()))
{
    std::iota(m_order.begin(), m_order.end(), qsizetype{0});
    std::ranges::stable_sort(m_order, {}, [&](qsizetype at) { return OrderOf(rehearsal.Rows().at(at)); });
}

QStringList RehearsedRows::FieldNames() const
{
    return {u"key"_s, u"kind"_s, u"choice"_s, u"picture"_s, u"why"_s};
}

qsizetype RehearsedRows::PlaceOf(qint64 row) const
{
    return row < 0 || row >= RowCount() ? -1 : m_order[static_cast<std::size_t>(row)];
}

QStringList RehearsedRows::Row(qint64 row) const
{
    const qsizetype place = PlaceOf(row);
    if (place < 0)
        return {};
    const RehearsedRow& one = m_rehearsal.Rows().at(place);
    QString why = one.why;
    if (!why.isEmpty())
        return {one.key, NameOf(one.kind), NameOf(one.choice), WordsOf(one.picture), why};
    if (one.kind == RowKind::Changed)
        why = one.differences == 1 ? u"1 field differs"_s : u"%1 fields differ"_s.arg(one.differences);
    else if (one.kind == RowKind::Twin)
        why = u"your record is %1"_s.arg(one.mine);
    return {one.key, NameOf(one.kind), NameOf(one.choice), WordsOf(one.picture), why};
}

QList<forms::GridColumn> RehearsedRows::Columns()
{
    return {{.field = u"key"_s, .caption = u"Record"_s, .width = 220},
            {.field = u"kind"_s, .caption = u"Kind"_s, .width = 100},
            {.field = u"choice"_s, .caption = u"What becomes of it"_s, .width = 160},
            {.field = u"picture"_s, .caption = u"Picture"_s, .width = 80},
            {.field = u"why"_s, .caption = u"Why"_s, .width = 320}};
}

QStringList FieldRows::FieldNames() const
{
    return {u"field"_s, u"mine"_s, u"theirs"_s};
}

QStringList FieldRows::Row(qint64 row) const
{
    if (row < 0 || row >= m_pairs.size())
        return {};
    const FieldPair& pair = m_pairs.at(row);
    return {CaptionOf(pair.field), OneLine(pair.mine), OneLine(pair.theirs)};
}

QList<forms::GridColumn> FieldRows::Columns()
{
    return {{.field = u"field"_s, .caption = u"Field"_s, .width = 160},
            {.field = u"mine"_s, .caption = u"Mine"_s, .width = 260},
            {.field = u"theirs"_s, .caption = u"Theirs"_s, .width = 260}};
}

} // namespace vasclip::upkeep
