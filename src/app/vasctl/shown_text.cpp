#include "app/vasctl/shown_text.h"

#include <algorithm>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr char16_t kDelete = 0x7F;
constexpr char16_t kControlPictures = 0x2400; ///< a sign for each of the first 32, as U+241B for Escape
constexpr char16_t kDeletePicture = 0x2421;

/// Turns the direction of what follows, or ends such a turn.
bool Turns(char16_t letter)
{
    return letter == 0x200E || letter == 0x200F || letter == 0x061C || (letter >= 0x202A && letter <= 0x202E) ||
           (letter >= 0x2066 && letter <= 0x2069);
}

/// Obeyed by a terminal, and no line end or tab.
bool Obeyed(QChar letter)
{
    const char16_t code = letter.unicode();
    return (code < u' ' && code != u'\n' && code != u'\t') || (code >= kDelete && code < 0xA0) || Turns(code);
}

} // namespace

QString Visible(const QString& text)
{
    QString lines = text;
    lines.replace("\r\n"_L1, "\n"_L1);
    if (std::none_of(lines.cbegin(), lines.cend(), Obeyed))
        return lines;
    QString shown;
    for (const QChar letter : std::as_const(lines)) {
        const char16_t code = letter.unicode();
        if (!Obeyed(letter))
            shown += letter;
        else if (code < u' ')
            shown += QChar(char16_t(kControlPictures + code));
        else if (code == kDelete)
            shown += QChar(kDeletePicture);
        else
            shown += u"<U+%1>"_s.arg(QString::number(code, 16).toUpper().rightJustified(4, u'0'));
    }
    return shown;
}

QByteArray VisibleJson(const QByteArray& json)
{
    const QString text = QString::fromUtf8(json); // the writer escapes the first 32 itself
    if (std::none_of(text.cbegin(), text.cend(), Obeyed))
        return json;
    QString escaped;
    for (const QChar letter : text)
        escaped += Obeyed(letter) ? u"\\u%1"_s.arg(int(letter.unicode()), 4, 16, QChar(u'0')) : QString(letter);
    return escaped.toUtf8();
}

} // namespace vasclip::vasctl
