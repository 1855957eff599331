#include "map/map_data_words.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

QStringList ImportLines(const street::ImportResult& result)
{
    QStringList lines;
    const auto add = [&lines](const QString& head, const QStringList& counted) {
        for (const QString& line : counted)
            lines.append(head + ForScreen(line));
    };
    add(u"Taken: "_s, result.taken);
    add(u"Left out: "_s, result.leftOut);
    add(u"With a remark: "_s, result.remarks);
    add(u"Note: "_s, result.notes);
    return lines;
}

QString ForScreen(QString words)
{
    return words.replace(u"by --county"_s, u"in the field County"_s);
}

QString FaultOf(const QStringList& problems, const QString& county)
{
    const QString head = county + u": "_s;
    for (const QString& problem : problems)
        if (problem.startsWith(head))
            return problem.mid(head.size());
    return {};
}

} // namespace vasclip::map
