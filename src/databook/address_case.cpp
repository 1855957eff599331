#include "databook/address_case.h"

#include "platform/text/text.h"

namespace vasclip::databook {

QString ProperCase(const QString& text)
{
    QString result = text;
    bool inWord = false;
    for (QChar& letter : result) {
        const bool isLetter = letter.isLetter();
        if (isLetter)
            letter = inWord ? letter.toLower() : letter.toUpper();
        inWord = isLetter;
    }
    return result;
}

QString AddressInCase(const QString& address, int addressCase)
{
    switch (addressCase) {
    case 0:
        return text::Trim(address.toUpper());
    case 1:
        return text::Trim(ProperCase(address));
    default:
        return text::Trim(address);
    }
}

} // namespace vasclip::databook
