#include "common/text_filters.h"

#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::common {

namespace {

struct CodeRange
{
    char16_t first, last;
};

constexpr CodeRange kIllegal[] = {{1, 31},  {33, 39}, {42, 43}, {47, 47},  {58, 64},
                                  {92, 92}, {94, 94}, {96, 96}, {126, 127}};

bool IsIllegal(QChar character)
{
    const char16_t code = character.unicode();
    return std::any_of(std::begin(kIllegal), std::end(kIllegal),
                       [code](const CodeRange& range) { return code >= range.first && code <= range.last; });
}

} // namespace

QString ReplaceChar(const QString& text, const QString& search, const QString& replacement)
{
    return search.isEmpty() ? text : text.split(search).join(replacement);
}

QString RemoveIllegalChars(const QString& text)
{
    QString kept = text;
    kept.removeIf(IsIllegal);
    return kept;
}

QString PadLeft(const QString& text, int width, QChar pad)
{
    return text::Trim(text).rightJustified(std::max(0, width), pad).right(std::max(0, width));
}

bool IsNumericChar(const QString& character)
{
    if (character.isEmpty())
        return false;
    const QChar first = character[0];
    return (first >= u'0' && first <= u'9') || first == u'-';
}

void errClearFldSetFocus(forms::TextBox& field)
{
    field.SetText({});
    field.SetFocus();
}

void errClearFldSetFocus(forms::ComboBox& field)
{
    field.SetText({});
    field.SetFocus();
}

} // namespace vasclip::common
