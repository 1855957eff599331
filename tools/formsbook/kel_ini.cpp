#include "formsbook/kel_ini.h"

#include "formsbook/layout.h"

#include <QMap>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::formsbook {

namespace {

class IniText
{
public:
    void Section(const QString& name)
    {
        m_text += (m_text.isEmpty() ? u"["_s : u"\r\n["_s) + name + u"]\r\n"_s;
    }
    void Key(const QString& key, const QString& value) { m_text += key + u'=' + value + u"\r\n"_s; }
    [[nodiscard]] const QString& Text() const { return m_text; }

private:
    QString m_text;
};

void WritePages(IniText& ini, Edition edition)
{
    ini.Section(EditionSection(edition));
    const QList<PhotoPage> pages = PhotoPages(edition);
    for (const PhotoPage& page : pages) {
        if (!page.key.isEmpty() && page.kind != PhotoKind::Alternates)
            ini.Key(page.key, page.code);
    }
    // All general pages of an edition are laid out alike: description in cell 1, address in cell 2 of the
    // photo's row.
    for (int place = 1; place <= 3; ++place)
        ini.Key(u"GENERAL_DATA_%1"_s.arg(place), u"%1|1"_s.arg(place));
    for (int place = 1; place <= 3; ++place)
        ini.Key(u"GENERAL_ADDR_%1"_s.arg(place), u"%1|2"_s.arg(place));
}

void WriteDescriptions(IniText& ini)
{
    ini.Section(u"Descriptions"_s);
    // The key of an alternate page is itself the code of its page.
    for (int number = 1; number <= 4; ++number)
        ini.Key(u"ALTPH%1"_s.arg(number), u"ALTPH%1"_s.arg(number));
    QMap<QString, QString> titles;
    for (const Form& form : Forms()) {
        for (const Edition edition : kEditions) {
            for (const QString& code : PagesOf(form, edition)) {
                if (!code.startsWith("ALTPH"_L1) && !titles.contains(code))
                    titles.insert(code, LayoutOf(form.code, code)->title);
            }
        }
    }
    for (auto it = titles.cbegin(); it != titles.cend(); ++it)
        ini.Key(it.key(), it.value());
}

} // namespace

QString KelIniText(const KelPlaces& places)
{
    IniText ini;
    ini.Section(u"DIRECTORIES"_s);
    ini.Key(u"DATADIR"_s, places.dataDir);
    ini.Key(u"PRIVATEDIR"_s, places.privateDir);
    ini.Key(u"APPDIR"_s, places.appDir);
    ini.Section(u"VENDOR"_s);
    ini.Key(u"ApplicationName"_s, places.applicationName);
    for (const Edition edition : kEditions)
        WritePages(ini, edition);
    WriteDescriptions(ini);
    return ini.Text();
}

} // namespace vasclip::formsbook
