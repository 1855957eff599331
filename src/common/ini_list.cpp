#include "common/ini_list.h"

#include "platform/files/profile.h"
#include "platform/text/text.h"

using namespace Qt::StringLiterals;

namespace vasclip::common {

IniListPlace GeneralViews(const Globals& globals)
{
    return {globals.applicationIni, u"GENERAL VIEWS"_s, u"GENERALVIEW"_s};
}

void LoadList(forms::ListBox& list, const files::Disk& disk, const IniListPlace& place, int count)
{
    for (int number = 1; count == kUntilEmpty || number <= count; ++number) {
        const QString value = files::GetPrivateProfileString(
            disk, place.section, place.prefix + QString::number(number), {}, place.file);
        if (count == kUntilEmpty && text::Trim(value).isEmpty())
            return;
        list.AddItem(value);
    }
}

bool SaveList(const forms::ListBox& list, const files::Disk& disk, const IniListPlace& place)
{
    QList<files::ProfileKey> keys;
    for (int i = 0; i < list.ListCount(); ++i) {
        const QString key = place.prefix + QString::number(i + 1);
        // An empty text would be read back as the end of the list, but a null one would delete its key.
        keys.append({place.section, key, list.List(i).isNull() ? u""_s : list.List(i)});
    }
    for (const QString& key : files::ProfileKeys(disk, place.section, place.file)) {
        if (!key.startsWith(place.prefix, Qt::CaseInsensitive))
            continue;
        bool numbered = false;
        if (key.mid(place.prefix.size()).toInt(&numbered) > list.ListCount() && numbered)
            keys.append({place.section, key, QString()});
    }
    return keys.isEmpty() || files::WriteProfileKeys(disk, place.file, keys);
}

int FindInList(const forms::ListBox& list, const QString& text, Case sensitivity)
{
    const QString wanted = text::Trim(text);
    const auto compared = sensitivity == Case::Matters ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (text::Trim(list.List(i)).compare(wanted, compared) == 0)
            return i;
    }
    return -1;
}

bool AddUnlessPresent(forms::ListBox& list, const QString& text, Case sensitivity)
{
    if (FindInList(list, text, sensitivity) >= 0)
        return false;
    list.AddItem(text::Trim(text));
    return true;
}

bool RemoveFromList(forms::ListBox& list, const QString& text, Case sensitivity)
{
    const int index = FindInList(list, text, sensitivity);
    if (index < 0)
        return false;
    list.RemoveItem(index);
    return true;
}

} // namespace vasclip::common
