#include "formsbook/mapping.h"

#include "formsbook/layout.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::formsbook {

namespace {

void AppendSubject(QList<MappingRow>& rows, const Form& form, const Page& page)
{
    for (const Section& section : page.sections) {
        if (!section.subject)
            continue;
        for (const Line& line : section.lines) {
            if (line.field.isEmpty() || line.subjectCell == 0)
                continue;
            rows.append({form.code, page.code, line.field, QString::number(line.subjectRow),
                         QString::number(line.subjectCell), GroupWord(Group::Sale), u"10"_s, u"0"_s,
                         line.preEval, line.trueFalse});
        }
    }
}

void AppendGrid(QList<MappingRow>& rows, const Form& form, const Page& page, Group group, int base)
{
    for (const Section& section : page.sections) {
        if (section.group != group || section.base != base)
            continue;
        for (const Line& line : section.lines) {
            if (line.field.isEmpty())
                continue;
            rows.append({form.code, page.code, line.field, QString::number(line.row),
                         QString::number(line.comps[0]), GroupWord(group), QString::number(base),
                         QString::number(line.comps[1] - line.comps[0]), line.preEval, line.trueFalse});
            if (line.sentAs.isEmpty())
                continue;
            MappingRow sent = rows.last();
            sent.fieldName = line.sentAs;
            sent.trueFalse.clear();
            rows.append(sent);
        }
    }
}

void AppendForm(QList<MappingRow>& rows, const Form& form)
{
    const QString code = form.code;
    AppendSubject(rows, form, *LayoutOf(code, code));
    for (const Group group : {Group::Sale, Group::Alt, Group::Rent, Group::List}) {
        for (const int base : PageBases(group))
            AppendGrid(rows, form, *LayoutOf(code, GridPage(form, group, base)), group, base);
    }
}

} // namespace

QList<MappingRow> MappingRows()
{
    QList<MappingRow> rows;
    for (const Form& form : Forms())
        AppendForm(rows, form);
    return rows;
}

QList<MappingRow> MappingRows(const QString& formType)
{
    QList<MappingRow> rows;
    if (const Form* form = FindForm(formType))
        AppendForm(rows, *form);
    return rows;
}

} // namespace vasclip::formsbook
