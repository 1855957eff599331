#include "photos/view_name.h"

#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

bool PartsLines(QChar letter)
{
    return u"|\r\n\v\f\u0085\u2028\u2029"_s.contains(letter);
}

} // namespace

QString CleanView(const QString& view)
{
    QString clean = view;
    std::replace_if(clean.begin(), clean.end(), PartsLines, QChar(u' '));
    return clean;
}

QString CleanedView(const QString& given)
{
    const QString clean = CleanView(given);
    if (clean == given)
        return {};
    const QString rule = u"A view's name can't hold \"|\" or a line break"_s;
    return text::Trim(clean).isEmpty() ? rule + u'.' : rule + u"; it is \"%1\" now."_s.arg(text::Trim(clean));
}

} // namespace vasclip::photos
