#include "link/kel_helpers.h"

#include "link/slot_table.h"
#include "platform/text/text.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

QString KelFirstToken(const QString& text)
{
    const qsizetype comma = text.indexOf(u',');
    return comma < 0 ? QString() : text.left(comma);
}

bool KelReportsUnnamed(const QString& reports)
{
    const QString answer = text::Trim(reports);
    return !answer.isEmpty() && answer.compare("none"_L1, Qt::CaseInsensitive) != 0 &&
           text::Trim(KelFirstToken(answer)).isEmpty();
}

QString KelCleanCaption(const QString& text)
{
    const QString padded = text + QString(text.size(), u' ');
    if (padded.left(9).toUpper() == "MACRO(GET"_L1 || padded.left(5).toUpper() == "ERAL)"_L1)
        return {};
    const bool clean =
        std::all_of(padded.cbegin(), padded.cend(), [](QChar c) { return c >= u' ' && c <= u'~'; });
    return clean ? text::Trim(padded) : QString();
}

qint16 GetIndexValue(const QString& name)
{
    const qsizetype first = name.indexOf(u'_');
    if (first < 0)
        return -1;
    const qsizetype second = name.indexOf(u'_', first + 1);
    if (second < 0)
        return -1;
    const double value = text::Val(name.mid(first + 1, second - first - 1));
    return std::abs(value) > 32767 ? qint16{-1} : text::ToInt16(value);
}

QString KelDoubleBackslash(const QString& path)
{
    QString doubled;
    doubled.reserve(path.size() + 8);
    for (const QChar c : path) {
        doubled += c;
        if (c == u'\\')
            doubled += c;
    }
    return doubled;
}

QString DoubleSlash(const QString& path)
{
    QString doubled = path;
    for (qsizetype at = doubled.indexOf(u'\\'); at >= 0; at = doubled.indexOf(u'\\', at + 2))
        doubled.insert(at, u'\\');
    return doubled;
}

qint16 KelPageBase(qint16 comp)
{
    if (comp == kSubjectComp)
        return kSubjectComp;
    return comp >= 1 && comp <= photos::kComps ? static_cast<qint16>(FirstShown(comp)) : qint16{0};
}

QString KelShiftCell(const QString& rowCell, const QString& offset, qint16 comp)
{
    switch (comp) {
    case 1:
    case 4:
        return text::Trim(rowCell);
    case 7:
    case 10:
        return rowCell;
    default:
        break;
    }
    if (comp < 1 || comp > 10)
        return {};
    const int steps = (comp - 1) % 3;
    const qsizetype bar = rowCell.indexOf(u'|');
    const QString row = bar < 0 ? rowCell : rowCell.left(bar);
    const double cell = bar < 0 ? 0 : text::Val(rowCell.mid(bar + 1));
    const double shifted = cell + steps * text::Val(offset);
    const bool whole = shifted == std::trunc(shifted) && std::abs(shifted) < 1e9;
    return row + u'|' + (whole ? text::Dec(static_cast<qint64>(shifted)) : text::Trim(text::Str(shifted)));
}

QString KelPhotoSizeOfPage(const QString& name)
{
    // NLSUBPH2 holds NLSUBPH, so the last row never decides; the order is the forms program's.
    struct Row
    {
        QLatin1StringView part, size;
    };
    static constexpr Row kRows[] = {{"SUBPHOTO"_L1, "3X5"_L1},
                                    {"SUBPHOT2"_L1, "4X6"_L1},
                                    {"NLSUBPH"_L1, "3X5"_L1},
                                    {"NLSUBPH2"_L1, "4X6"_L1}};
    const QString upper = name.toUpper();
    for (const Row& row : kRows)
        if (upper.contains(row.part))
            return row.size;
    return {};
}

QString TwoPartVersion(const QString& fileVersion)
{
    const QStringList parts = fileVersion.split(u'.');
    const auto major = static_cast<float>(text::Val(parts.value(0)));
    const QString minor = text::Trim(parts.value(1)).left(2).rightJustified(2, u'0');
    return text::Trim(text::Str(static_cast<double>(major))) + u'.' + minor;
}

} // namespace vasclip::link
