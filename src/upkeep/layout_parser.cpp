#include "upkeep/layout_parser.h"

#include "upkeep/layout_statements.h"

#include <QStringDecoder>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

ReportLayout ParseLayout(const QByteArray& content)
{
    if (content.size() > kMostLayoutBytes)
        throw LayoutError(1, 1,
                          u"the file has %1 bytes, and a layout at most %2. It is another kind of file"_s
                              .arg(content.size())
                              .arg(kMostLayoutBytes));
    QStringDecoder decode(QStringDecoder::Utf8);
    QString text = decode(content);
    if (decode.hasError() || text.contains(QChar(0)))
        throw LayoutError(
            1, 1,
            u"the file is no text in UTF-8. A layout is a text file; copy one that comes with the "
            "program and edit it"_s);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    ReportLayout layout;
    LayoutStatements statements(layout);
    const QStringList lines = text.split(u'\n');
    for (int number = 1; number <= lines.size(); ++number) {
        if (number > kMostLayoutLines)
            throw LayoutError(number, 1,
                              u"a layout has at most %1 lines. Shorten it"_s.arg(kMostLayoutLines));
        const QString& line = lines[number - 1];
        LineReader words(WordsOf(line, number), number, static_cast<int>(line.trimmed().size()) + 1);
        if (!words.AtEnd())
            statements.Line(words);
    }
    statements.End(static_cast<int>(lines.size()));
    return layout;
}

} // namespace vasclip::upkeep
