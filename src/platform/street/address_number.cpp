#include "platform/street/address_number.h"

#include "platform/street/address_words.h"

namespace vasclip::street {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostDigits = 8;

bool IsFraction(const QString& word)
{
    return word == u"1/2" || word == u"1/4" || word == u"3/4" || word == u"1/3" || word == u"2/3";
}

bool IsCompass(QChar letter)
{
    return letter == u'N' || letter == u'S' || letter == u'E' || letter == u'W';
}

bool IsDigit(QChar letter)
{
    return letter >= u'0' && letter <= u'9';
}

qsizetype DigitsFrom(const QString& word, qsizetype at)
{
    qsizetype end = at;
    while (end < word.size() && IsDigit(word.at(end)))
        ++end;
    return end - at;
}

/// One word: "12", "12B", "12-34", "12-34A", "N65W1234", "A12"; empty for any other.
HouseNumber OfWord(const QString& word)
{
    HouseNumber number;
    qsizetype at = 0;
    if (!word.isEmpty() && IsCompass(word.at(0))) {
        const qsizetype digits = DigitsFrom(word, 1);
        if (digits == 0)
            return {};
        at = 1 + digits;
        if (at == word.size()) { // "W1234"
            at = 1;
        } else if (IsCompass(word.at(at)) && DigitsFrom(word, at + 1) > 0) {
            ++at;
        } else {
            return {};
        }
    } else if (const qsizetype digits = DigitsFrom(word, 0);
               digits > 0 && digits + 1 < word.size() && word.at(digits) == u'-') {
        at = digits + 1;
    }
    const qsizetype digits = DigitsFrom(word, at);
    if (digits == 0 || digits > kMostDigits || word.size() - at - digits > 2)
        return {};
    number.prefix = word.left(at);
    number.value = QStringView(word).sliced(at, digits).toInt();
    number.suffix = word.sliced(at + digits);
    for (const QChar letter : std::as_const(number.suffix)) {
        if (!letter.isLetter())
            return {};
    }
    return number;
}

} // namespace

QString HouseNumber::Text() const
{
    if (IsEmpty())
        return {};
    // A hyphenated number keeps two digits behind its hyphen: 56-05.
    QString text = prefix.endsWith(u'-') ? QString::number(value).rightJustified(2, u'0') : QString::number(value);
    text = prefix + text;
    return suffix.contains(u'/') ? text + u' ' + suffix : text + suffix;
}

HouseNumber NumberAt(const QStringList& words, qsizetype at, qsizetype& count)
{
    count = 0;
    if (at >= words.size() || !OrdinalOf(words.at(at)).isEmpty())
        return {};
    HouseNumber number;
    // "W156 N8480" is one number in two words.
    if (at + 1 < words.size() && IsCompass(words.at(at).at(0)) && IsCompass(words.at(at + 1).at(0))) {
        number = OfWord(words.at(at) + words.at(at + 1));
        if (!number.IsEmpty())
            count = 2;
    }
    if (count == 0) {
        number = OfWord(words.at(at));
        if (number.IsEmpty())
            return {};
        count = 1;
    }
    if (number.suffix.isEmpty() && at + count < words.size() && IsFraction(words.at(at + count))) {
        number.suffix = words.at(at + count);
        ++count;
    }
    return number;
}

HouseNumber ParseHouseNumber(const QString& text)
{
    const QStringList words = AddressWords(text);
    qsizetype count = 0;
    HouseNumber number = NumberAt(words, 0, count);
    // "101 A" of a source is "101A".
    if (count == 1 && words.size() == 2 && number.suffix.isEmpty() && words.at(1).size() == 1 &&
        words.at(1).at(0).isLetter()) {
        number.suffix = words.at(1);
        ++count;
    }
    return count == words.size() ? number : HouseNumber();
}

} // namespace vasclip::street
