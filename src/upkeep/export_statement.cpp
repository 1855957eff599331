#include "upkeep/export_statement.h"

#include "platform/engine/sql_name.h"

#include <QRegularExpression>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using engine::Bracketed;

QString SearchTextOf(const QString& select)
{
    static const QRegularExpression from(uR"(\sFROM\s+(\[[^\]]*\]|\S+)\s*)"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression where(u"^WHERE\\s+"_s, QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch head = from.match(select);
    return head.hasMatch() ? select.mid(head.capturedEnd()).trimmed().remove(where) : QString();
}

bool Narrows(const QString& search)
{
    static const QRegularExpression sort(u"^ORDER\\s+BY\\b"_s, QRegularExpression::CaseInsensitiveOption);
    const QString text = search.trimmed();
    return !text.isEmpty() && !sort.match(text).hasMatch();
}

QString SortOf(const QString& search)
{
    static const QRegularExpression parts(uR"('[^']*'|"[^"]*"|\[[^\]]*\]|\b(ORDER\s+BY)\b)"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    qsizetype at = -1;
    for (auto found = parts.globalMatch(search); found.hasNext();)
        if (const QRegularExpressionMatch part = found.next(); part.hasCaptured(1))
            at = part.capturedStart(1);
    return at < 0 ? QString() : u' ' + search.mid(at);
}

QString ExportStatement(const QString& target, const QString& table, const QString& databook,
                        const QString& sourceTable, const QString& search)
{
    const QString all = u"SELECT * INTO "_s + Bracketed(target) + u'.' + Bracketed(table) + u" FROM "_s +
                        Bracketed(databook) + u'.' + Bracketed(sourceTable) + u' ';
    return Narrows(search) ? all + u"WHERE "_s + search : all;
}

} // namespace vasclip::upkeep
