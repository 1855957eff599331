#include "link/kel_pages.h"

#include "platform/files/profile.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {
const QString kDescriptions = u"Descriptions"_s;
constexpr QLatin1StringView kPageSections[] = {"3X5_PHOTO_PAGES"_L1, "4X6_PHOTO_PAGES"_L1,
                                               "3X5_NLPHOTO_PAGES"_L1, "4X6_NLPHOTO_PAGES"_L1};
} // namespace

IniReader ReadsKelIni(const files::Disk& disk, const QString& kelIni)
{
    return [&disk, kelIni](const QString& section, const QString& key) {
        if (kelIni.isEmpty() || section.isEmpty() || key.isEmpty())
            return QString();
        return files::GetPrivateProfileString(disk, section, key, QString(), kelIni);
    };
}

bool KelFormOnList(const IniReader& ini, const QString& key, const QString& section, const QString& forms)
{
    const QString value = text::Folded(ini(section, key));
    const QString upperForms = forms.toUpper();
    const QString upperKey = key.toUpper();
    if (upperKey.contains("ALTPH"_L1))
        return upperForms.contains(upperKey);
    if (value.isEmpty())
        return true; // an empty needle is found at the first position
    const QString open = u',' + value;
    return upperForms.contains(open) || upperForms.contains(open + u',');
}

QString KelPageSection(const IniReader& ini, const QString& key, const QString& forms)
{
    const QString upperKey = key.toUpper();
    if (upperKey.contains("ALT"_L1) &&
        (KelFormOnList(ini, key, kDescriptions, forms) || forms.toUpper().contains(upperKey)))
        return kDescriptions;
    for (const QLatin1StringView section : kPageSections)
        if (KelFormOnList(ini, key, section, forms))
            return section;
    return {};
}

QString KelReturnPage(const IniReader& ini, const QString& key, const QString& forms)
{
    const QString section = KelPageSection(ini, key, forms);
    if (section.isEmpty() || !KelFormOnList(ini, key, section, forms))
        return {};
    return ini(section, key);
}

QString KelPageOfSection(const IniReader& ini, const QString& key, const QString& section)
{
    return ini(section, key);
}

QString KelDescriptionOf(const IniReader& ini, const QString& key)
{
    return ini(kDescriptions, key);
}

} // namespace vasclip::link
