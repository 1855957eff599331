// The order of texts that English files of the old engine have ("General legacy").

#include "platform/engine/jet/index_key.h"

#include <array>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLongestKey = 255; ///< characters
constexpr quint8 kPlain = 0x02;  ///< the accent byte of a character without one

/// What one character adds to a key.
struct Weight
{
    enum class Kind { Weighted, Hidden, Ignored };
    Kind kind = Kind::Weighted;
    quint16 weight = 0; ///< one byte or two; the code of a hidden one
    quint8 accent = kPlain;
};

constexpr quint8 kLetters[] = {0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59, 0x5B, 0x5C, 0x5E, 0x60,
                               0x62, 0x64, 0x66, 0x68, 0x69, 0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};

struct Sign
{
    char16_t character;
    quint16 weight;
};

constexpr Sign kSigns[] = {
    {u' ', 0x07},     {u'!', 0x09},     {u'"', 0x0A},     {u'#', 0x0C},     {u'$', 0x0E},     {u'%', 0x10},
    {u'&', 0x12},     {u'(', 0x14},     {u')', 0x16},     {u'*', 0x18},     {u',', 0x1A},     {u'.', 0x1C},
    {u'/', 0x1E},     {u':', 0x20},     {u';', 0x22},     {u'?', 0x24},     {u'@', 0x26},     {u'[', 0x27},
    {u'\\', 0x29},    {u']', 0x2A},     {u'^', 0x2B02},   {u'_', 0x2B03},   {u'`', 0x2B07},   {u'{', 0x2B09},
    {u'|', 0x2B0B},   {u'}', 0x2B0D},   {u'~', 0x2B0F},   {u'+', 0x2C},     {u'<', 0x2E},     {u'=', 0x30},
    {u'>', 0x32},     {0x09, 0x0803},   {0x0A, 0x0804},   {0x0B, 0x0805},   {0x0C, 0x0806},   {0x0D, 0x0807},
    {0xA0, 0x0802},   {0xA1, 0x2B10},   {0xA6, 0x2B11},   {0xA8, 0x2B12},   {0xAF, 0x2B13},   {0xB4, 0x2B14},
    {0xB8, 0x2B15},   {0xBF, 0x2B16},   {0xB1, 0x3304},   {0xAB, 0x3305},   {0xBB, 0x3307},   {0xD7, 0x3309},
    {0xF7, 0x330A},   {0xA2, 0x34A6},   {0xA3, 0x34A7},   {0xA4, 0x34A8},   {0xA5, 0x34A9},   {0xA7, 0x34AA},
    {0xA9, 0x34AB},   {0xAC, 0x34AC},   {0xAE, 0x34AD},   {0xB0, 0x34AE},   {0xB5, 0x34AF},   {0xB6, 0x34B0},
    {0xB7, 0x34B1},   {0xB9, 0x38},     {0xB2, 0x3A},     {0xB3, 0x3C},     {0xBC, 0x3712},   {0xBD, 0x3716},
    {0xBE, 0x371A},   {0xC6, 0x4A51},   {0xE6, 0x4A51},   {0xDE, 0x6D57},   {0xFE, 0x6D57},   {0xDF, 0x6B6B}};

struct Accented
{
    const char16_t* characters;
    quint8 accent;
};

constexpr Accented kAccents[] = {{u"áéíóúýÁÉÍÓÚÝ", 0x0E}, {u"àèìòùÀÈÌÒÙ", 0x0F}, {u"âêîôûÂÊÎÔÛ", 0x12},
                                 {u"äëïöüÿÄËÏÖÜ", 0x13},  {u"ãñõÃÑÕ", 0x19},     {u"åÅ", 0x1A},
                                 {u"çÇ", 0x1C},           {u"øØ", 0x21},         {u"ðÐ", 0x68},
                                 {u"ªº", 0x03}};

quint8 LetterOf(char16_t letter)
{
    return kLetters[(letter | 0x20) - u'a'];
}

/// The letter under the accent.
char16_t BaseOf(char16_t character)
{
    static const QString kFrom = u"áéíóúýàèìòùâêîôûäëïöüÿãñõåçøðªº"_s;
    static const QString kTo = u"aeiouyaeiouaeiouaeiouyanoacodao"_s;
    const qsizetype at = kFrom.indexOf(QChar(character).toLower());
    return at < 0 ? u'\0' : kTo[at].unicode();
}

Weight WeightOf(char16_t character)
{
    if ((character >= u'A' && character <= u'Z') || (character >= u'a' && character <= u'z'))
        return {Weight::Kind::Weighted, LetterOf(character)};
    if (character >= u'0' && character <= u'9')
        return {Weight::Kind::Weighted, static_cast<quint16>(0x36 + 2 * (character - u'0'))};
    for (const Sign& sign : kSigns) {
        if (sign.character == character)
            return {Weight::Kind::Weighted, sign.weight};
    }
    for (const Accented& row : kAccents) {
        if (QStringView(row.characters).contains(QChar(character)))
            return {Weight::Kind::Weighted, LetterOf(BaseOf(character)), row.accent};
    }
    const auto hidden = [](int code) { return Weight{Weight::Kind::Hidden, static_cast<quint16>(code)}; };
    if (character == 0)
        return {Weight::Kind::Ignored};
    if (character <= 0x08)
        return hidden(0x03 + character - 0x01);
    if (character >= 0x0E && character <= 0x1F)
        return hidden(0x0B + character - 0x0E);
    if (character >= 0x7F && character <= 0x9F)
        return hidden(0x1D + character - 0x7F);
    return hidden(character == u'\'' ? 0x80 : character == u'-' ? 0x82 : 0x83);
}

const std::array<Weight, 256>& Weights()
{
    static const auto weights = [] {
        std::array<Weight, 256> made;
        for (char16_t character = 0; character < made.size(); ++character)
            made[character] = WeightOf(character);
        return made;
    }();
    return weights;
}

} // namespace

std::optional<QByteArray> TextKey(const QString& text)
{
    QStringView view = QStringView(text).left(kLongestKey);
    while (view.endsWith(u' '))
        view.chop(1);
    QByteArray key;
    QByteArray accents;
    QByteArray hidden;
    for (const QChar character : view) {
        if (character.unicode() > 0xFF)
            return std::nullopt;
        const Weight& weight = Weights()[character.unicode()];
        if (weight.kind == Weight::Kind::Ignored)
            continue;
        if (weight.kind == Weight::Kind::Hidden) {
            const auto place = static_cast<quint16>(0x8000 | (7 + 4 * accents.size()));
            hidden.append(static_cast<char>(place >> 8)).append(static_cast<char>(place & 0xFF));
            hidden.append('\x06').append(static_cast<char>(weight.weight));
            continue;
        }
        if (weight.weight > 0xFF)
            key.append(static_cast<char>(weight.weight >> 8));
        key.append(static_cast<char>(weight.weight & 0xFF));
        accents.append(static_cast<char>(weight.accent));
    }
    while (!accents.isEmpty() && static_cast<quint8>(accents.back()) <= kPlain)
        accents.chop(1);
    key.append('\x01').append(accents);
    if (!hidden.isEmpty())
        key.append("\x01\x01\x01").append(hidden);
    return key.append('\0');
}

} // namespace vasclip::engine::jet
