#include "formsbook/kel_ini.h"
#include "formsbook/layout.h"

#include <QMap>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::formsbook;

namespace {

/// KEL.INI as the reader sees it: sections and keys without regard to case.
QMap<QString, QMap<QString, QString>> Ini()
{
    QMap<QString, QMap<QString, QString>> ini;
    QString section;
    for (const QString& line : KelIniText().split(u"\r\n"_s)) {
        if (line.startsWith(u'[')) {
            section = line.mid(1, line.size() - 2).toUpper();
            EXPECT_FALSE(ini.contains(section)) << section.toStdString();
        } else if (!line.isEmpty()) {
            const qsizetype equals = line.indexOf(u'=');
            EXPECT_GT(equals, 0) << line.toStdString();
            EXPECT_GT(line.size(), equals + 1) << line.toStdString();
            EXPECT_FALSE(ini[section].contains(line.left(equals).toUpper())) << line.toStdString();
            ini[section][line.left(equals).toUpper()] = line.mid(equals + 1);
        }
    }
    return ini;
}

/// The page that a key leads to, by the rule of the reader: the sections in their order, a value found at the
/// beginning of any later form code, alternates by the key itself.
QString Resolve(const QMap<QString, QMap<QString, QString>>& ini, const QString& key, const QString& forms)
{
    if (key.contains(u"ALT"_s))
        return forms.contains(key) ? ini[u"DESCRIPTIONS"_s].value(key) : QString();
    for (const Edition edition : kEditions) {
        const QString value = ini[QString(EditionSection(edition))].value(key).toUpper();
        if (value.isEmpty() || forms.contains(u',' + value))
            return value;
    }
    return {};
}

class Editions : public testing::TestWithParam<Edition>
{};

TEST_P(Editions, EveryPageKeyLeadsToItsOwnPage)
{
    const auto ini = Ini();
    for (const Form& form : Forms()) {
        SCOPED_TRACE(QString(form.code).toStdString());
        const QString forms = PagesOf(form, GetParam()).join(u',') + u',';
        for (const PhotoPage& page : PhotoPages(GetParam())) {
            if (!page.key.isEmpty()) {
                EXPECT_EQ(Resolve(ini, page.key, forms), page.code) << page.key.toStdString();
            }
        }
    }
}

TEST_P(Editions, AMissingPageLeadsNowhere)
{
    const auto ini = Ini();
    for (const PhotoPage& left : PhotoPages(GetParam())) {
        QStringList codes = PagesOf(*FindForm(u"UA5"_s), GetParam());
        codes.removeAll(left.code);
        if (!left.key.isEmpty()) {
            EXPECT_EQ(Resolve(ini, left.key, codes.join(u',') + u','), QString()) << left.code.toStdString();
        }
    }
}

TEST_P(Editions, GeneralCellsStandOnTheGeneralPages)
{
    const auto section = Ini()[QString(EditionSection(GetParam()))];
    for (const PhotoPage& photos : PhotoPages(GetParam())) {
        if (photos.kind != PhotoKind::General)
            continue;
        const auto page = LayoutOf(u"UA5"_s, photos.code);
        ASSERT_TRUE(page);
        for (int place = 1; place <= 3; ++place) {
            for (const QString& key : {u"GENERAL_DATA_%1"_s.arg(place), u"GENERAL_ADDR_%1"_s.arg(place)}) {
                const QStringList cell = section.value(key).split(u'|');
                ASSERT_EQ(cell.size(), 2);
                EXPECT_TRUE(
                    page->LabelOf(cell[0].toInt(), cell[1].toInt()).startsWith(u"Photo %1: "_s.arg(place)));
            }
        }
    }
}

TEST_P(Editions, NoPageCodeBeginsWithAPicturePages)
{
    for (const Form& form : Forms()) {
        const QStringList codes = PagesOf(form, GetParam());
        for (const PhotoPage& page : PhotoPages(GetParam())) {
            for (const QString& other : codes) {
                EXPECT_TRUE(page.code == other || !other.startsWith(page.code))
                    << page.code.toStdString() << " " << other.toStdString();
            }
        }
    }
}

TEST_P(Editions, TheSizeThatTheFormsListGivesIsTheOneInTheObjectNames)
{
    const QString forms = PagesOf(*FindForm(u"UA5"_s), GetParam()).join(u',');
    const QString size = forms.contains(u"SUBPHOTO"_s)   ? u"3X5"_s
                         : forms.contains(u"SUBPHOT2"_s) ? u"4X6"_s
                         : forms.contains(u"NLSUBPH"_s)  ? u"3X5"_s
                                                         : QString();
    QStringList objects;
    for (const PhotoPage& page : PhotoPages(GetParam()))
        objects += page.objects;
    for (const auto& [prefix, count] : {std::pair{"SUB", 3}, std::pair{"CMP", 9}, std::pair{"ALT", 6},
                                        std::pair{"GN", 36}, std::pair{"LCMP", 6}, std::pair{"RCMP", 9}}) {
        for (int n = 1; n <= count; ++n)
            EXPECT_EQ(objects.count(u"%1_%2_%3"_s.arg(QLatin1String(prefix)).arg(n).arg(size)), 1);
    }
    EXPECT_TRUE(objects.contains(u"MAP_LOCATION"_s));
}

INSTANTIATE_TEST_SUITE_P(All, Editions, testing::ValuesIn(kEditions), [](const auto& info) {
    return "S" + QString(EditionSection(info.param)).toStdString();
});

TEST(KelIni, HasDirectoriesVendorAndDescriptions)
{
    const auto ini = Ini();
    EXPECT_EQ(ini[u"DIRECTORIES"_s].value(u"APPDIR"_s), u"C:\\KEL\\"_s);
    EXPECT_EQ(ini[u"VENDOR"_s].value(u"APPLICATIONNAME"_s), u"Korvat Forms"_s);
    EXPECT_EQ(ini[u"DESCRIPTIONS"_s].value(u"ALTPH3"_s), u"ALTPH3"_s);
    for (const Form& form : Forms())
        EXPECT_EQ(ini[u"DESCRIPTIONS"_s].value(form.code), QString(form.title));
}

} // namespace
