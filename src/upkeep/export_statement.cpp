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
    const QString text = search.trimmed();
    return !text.isEmpty() && !text.startsWith("ORDER BY"_L1, Qt::CaseInsensitive);
}

QString ExportStatement(const QString& target, const QString& table, const QString& databook,
                        const QString& sourceTable, const QString& search)
{
    const QString all = u"SELECT * INTO "_s + Bracketed(target) + u'.' + Bracketed(table) + u" FROM "_s +
                        Bracketed(databook) + u'.' + Bracketed(sourceTable) + u' ';
    return Narrows(search) ? all + u"WHERE "_s + search : all;
}

} // namespace vasclip::upkeep
