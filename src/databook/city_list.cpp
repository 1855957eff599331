#include "databook/city_list.h"

#include "common/ini_list.h"
#include "platform/text/text.h"

using namespace Qt::StringLiterals;

namespace vasclip::databook {

namespace {

const QString kComma = u", "_s;
const QString kBlanks = u"  "_s;

common::IniListPlace Place(const common::Globals& globals)
{
    return {globals.applicationIni, u"CITIES"_s, u"CITY"_s};
}

QString Clean(QString part)
{
    for (QChar& letter : part)
        if (letter.category() == QChar::Other_Control)
            letter = QLatin1Char(' ');
    return text::Trim(part);
}

/// Cuts off and returns what stands before a separator; without one it is the whole text.
QString CutAt(QString& rest, qsizetype at, qsizetype length)
{
    const QString head = at < 0 ? rest : rest.first(at);
    rest = at < 0 ? QString() : rest.sliced(at + length);
    return text::Trim(head);
}

} // namespace

QString CityText(const CityEntry& entry)
{
    return text::Trim(Clean(entry.city) + kComma + Clean(entry.state) + kBlanks + Clean(entry.zip) + kBlanks +
                      Clean(entry.county));
}

CityEntry SplitCity(const QString& line)
{
    QString rest = line;
    const auto blanks = [&rest] { return CutAt(rest, rest.indexOf(kBlanks), kBlanks.size()); };
    CityEntry entry;
    const qsizetype comma = rest.indexOf(kComma);
    const qsizetype gap = rest.indexOf(kBlanks);
    if (comma >= 0 && (gap < 0 || comma < gap)) {
        entry.city = CutAt(rest, comma, kComma.size());
        entry.state = blanks();
    } else {
        entry.city = blanks();
        if (entry.city.endsWith(QLatin1Char(','))) // nothing behind the comma
            entry.city.chop(1);
    }
    entry.zip = blanks();
    entry.county = text::Trim(rest);
    return entry;
}

void LoadCities(forms::ListBox& list, const files::Disk& disk, const common::Globals& globals)
{
    common::LoadList(list, disk, Place(globals));
}

bool SaveCities(const forms::ListBox& list, const files::Disk& disk, const common::Globals& globals)
{
    return common::SaveList(list, disk, Place(globals));
}

CityAdded AddCity(forms::ListBox& list, const CityEntry& entry)
{
    if (Clean(entry.city).isEmpty())
        return CityAdded::NoCity;
    return common::AddUnlessPresent(list, CityText(entry), common::Case::Ignored) ? CityAdded::Yes
                                                                                  : CityAdded::IsThere;
}

void RemoveSelectedCities(forms::MultiListBox& list)
{
    QStringList kept;
    for (int i = 0; i < list.ListCount(); ++i)
        if (!list.Selected(i))
            kept.append(list.List(i));
    list.SetItems(kept);
}

} // namespace vasclip::databook
