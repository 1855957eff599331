#include "common/proper_case.h"

namespace vasclip::common {

QString ProperCase(const QString& text)
{
    QString result = text;
    bool inWord = false;
    for (QChar& character : result) {
        const bool letter = character.isLetter();
        if (letter)
            character = inWord ? character.toLower() : character.toUpper();
        inWord = letter;
    }
    return result;
}

QString AddressInCase(const QString& text, int addressCase)
{
    switch (addressCase) {
    case 0:
        return text.toUpper();
    case 1:
        return ProperCase(text);
    default:
        return text;
    }
}

} // namespace vasclip::common
