#include "upkeep/report_layout.h"

#include "store/fields.h"
#include "store/schema.h"

#include <QSet>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

/// Gathers fields in the order in which they are met.
class Gathered
{
public:
    void Add(const LabelledField& field)
    {
        if (field.field.isEmpty() || SpecialWords().contains(field.field) || m_known.contains(field.field))
            return;
        m_known.insert(field.field);
        m_fields.append(field);
        if (m_fields.last().label.isEmpty())
            if (const store::CompsColumn* column = store::FindCompsColumn(field.field))
                m_fields.last().label = column->heading;
    }
    void Add(const Template& text)
    {
        for (const Template::Piece& piece : text.pieces)
            Add({piece.field, {}, piece.format});
    }
    [[nodiscard]] QList<LabelledField> Fields() const { return m_fields; }

private:
    QSet<QString> m_known;
    QList<LabelledField> m_fields;
};

} // namespace

const QStringList& SpecialWords()
{
    static const QStringList words{u"DATE"_s, u"COUNT"_s, u"DATABOOK"_s, u"SEARCH"_s, u"COMPANY"_s};
    return words;
}

QList<LabelledField> ReportLayout::Fields() const
{
    Gathered gathered;
    for (const Group& group : groups)
        gathered.Add({group.field, {}, Format::Text});
    for (const Column& column : columns)
        gathered.Add({column.field, column.heading, column.format});
    for (const RecordPart& part : parts) {
        gathered.Add(part.heading.left);
        gathered.Add(part.heading.right);
        gathered.Add(part.line.text);
        for (const LabelledField& field : part.section.fields)
            gathered.Add(field);
        gathered.Add({part.notes.field, part.notes.label, Format::Text});
        if (part.kind == RecordPart::Kind::Photos)
            gathered.Add({fields::PHOTOS, {}, Format::Text});
    }
    for (const Group& group : groups)
        gathered.Add(group.heading);
    for (const Total& total : totals)
        gathered.Add({total.field, {}, total.format});
    return gathered.Fields();
}

bool ReportLayout::HasPhotos() const
{
    return std::any_of(parts.begin(), parts.end(),
                       [](const RecordPart& part) { return part.kind == RecordPart::Kind::Photos; });
}

} // namespace vasclip::upkeep
