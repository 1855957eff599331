#include "demo/forms_files.h"

#include "formsbook/layout.h"

#include <QJsonArray>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

const QString kPhotos = u"C:\\VASCLIPS\\JPG\\"_s;

QStringList Forms(const QJsonObject& report)
{
    QStringList forms;
    for (const QJsonValue& form : report.value("forms"_L1).toArray())
        forms.append(form.toString());
    return forms;
}

/// The cell of a line of a comp's column, by its label.
QString CellAt(const QJsonObject& report, const QString& label)
{
    const QJsonObject cells = report.value("cells"_L1).toObject();
    const QString main = Forms(report).first();
    const auto page = formsbook::LayoutOf(main, main);
    for (auto cell = cells.begin(); cell != cells.end(); ++cell) {
        const QStringList parts = cell.key().split(u'|');
        if (parts.at(0) == main && page->LabelOf(parts.at(1).toInt(), parts.at(2).toInt()) == label)
            return cell.value().toString();
    }
    return {};
}

struct ReportRow
{
    const char* name;
    QJsonObject (*make)(const QList<Comp>&, const QString&);
    const char* file;
    const char* address;
    int comps;
};

class Reports : public testing::TestWithParam<ReportRow>
{};

TEST_P(Reports, FillCellsThatTheirFormsHave)
{
    const QJsonObject report = GetParam().make(MakeMarket(60), kPhotos);
    const QStringList forms = Forms(report);
    const QJsonObject cells = report.value("cells"_L1).toObject();
    ASSERT_GT(cells.size(), 30);
    for (auto cell = cells.begin(); cell != cells.end(); ++cell) {
        const QStringList parts = cell.key().split(u'|');
        ASSERT_EQ(parts.size(), 3);
        EXPECT_TRUE(forms.contains(parts[0])) << cell.key().toStdString();
        const auto page = formsbook::LayoutOf(forms.first(), parts[0]);
        ASSERT_TRUE(page);
        EXPECT_TRUE(page->HasCell(parts[1].toInt(), parts[2].toInt())) << cell.key().toStdString();
    }
    for (const QString& object : report.value("images"_L1).toObject().keys()) {
        const bool known = std::any_of(forms.begin(), forms.end(), [&](const QString& form) {
            const auto page = formsbook::LayoutOf(forms.first(), form);
            return page && page->objects.contains(object);
        });
        EXPECT_TRUE(known) << object.toStdString();
    }
}

TEST_P(Reports, HoldSubjectAndRecordsOfTheDatabook)
{
    const QList<Comp> comps = MakeMarket(60);
    const QJsonObject report = GetParam().make(comps, kPhotos);
    EXPECT_EQ(report.value("name"_L1).toString(), QString::fromLatin1(GetParam().file));
    EXPECT_EQ(CellAt(report, u"Property address"_s), QString::fromLatin1(GetParam().address));
    EXPECT_EQ(CellAt(report, u"County"_s), u"Calder"_s);
    EXPECT_FALSE(CellAt(report, u"File number"_s).isEmpty());
    EXPECT_EQ(report.value("variables"_L1).toObject().value("State"_L1).toString(), u"OR"_s);
    for (int comp = 1; comp <= 3; ++comp) {
        const QString address = CellAt(report, u"Comparable %1: Address"_s.arg(comp));
        if (comp > GetParam().comps) {
            EXPECT_EQ(address, QString());
            continue;
        }
        const auto record = std::find_if(comps.begin(), comps.end(),
                                         [&](const Comp& one) { return one.key == address.toUpper(); });
        ASSERT_NE(record, comps.end()) << address.toStdString();
        EXPECT_EQ(CellAt(report, u"Comparable %1: Sale price"_s.arg(comp)),
                  record->fields.value(u"PRICEFLD"_s));
        const QString picture =
            report.value("images"_L1).toObject().value(u"CMP_%1_3X5"_s.arg(comp)).toString();
        EXPECT_EQ(picture, kPhotos + record->photos.first().stem + u".jpg"_s);
    }
}

INSTANTIATE_TEST_SUITE_P(All, Reports,
                         testing::Values(ReportRow{"Big", &BigReport, "OAKST114.RPT", "114 Oak St", 2},
                                         ReportRow{"Full", &FullReport, "LAUREL.RPT", "764 Laurel Hill Rd", 3},
                                         ReportRow{"Small", &SmallReport, "FERRY22.RPT", "22 Ferry St", 1}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Report, FullHasEveryGroupWithPhotosAndGeneralViews)
{
    const QJsonObject report = FullReport(MakeMarket(120), kPhotos);
    const QJsonObject images = report.value("images"_L1).toObject();
    const QJsonObject cells = report.value("cells"_L1).toObject();
    for (const auto& [prefix, count] : {std::pair("SUB", 3), std::pair("CMP", 4), std::pair("ALT", 2),
                                        std::pair("LCMP", 3), std::pair("RCMP", 3), std::pair("GN", 6)}) {
        for (int n = 1; n <= count + 1; ++n)
            EXPECT_EQ(images.contains(u"%1_%2_3X5"_s.arg(QLatin1String(prefix)).arg(n)), n <= count) << prefix << n;
    }
    EXPECT_EQ(images.value("GN_4_3X5"_L1).toString(), u"C:\\KEL\\DATA\\LAUREL_7.JPG"_s);
    EXPECT_EQ(cells.value("GENPH02|1|1"_L1).toString(), u"BASEMENT"_s);
    EXPECT_EQ(cells.value("GENPH02|1|2"_L1).toString(), u"764 Laurel Hill Rd"_s);
    EXPECT_FALSE(cells.value("ADDENDUM|1|1"_L1).toString().isEmpty());
    QStringList drawn;
    for (const Shot& shot : SubjectPictures())
        drawn.append(shot.path);
    EXPECT_EQ(drawn.removeDuplicates(), 0);
    for (const QString& object : images.keys()) {
        const QString path = images.value(object).toString();
        EXPECT_TRUE(path.startsWith(kPhotos) || drawn.contains(path)) << path.toStdString();
    }
    // Each comp stands in the report once, and the fifth has its data and no photo.
    QStringList addresses;
    const auto add = [&](const char* cell) {
        addresses.append(cells.value(QLatin1String(cell)).toString());
        EXPECT_FALSE(addresses.last().isEmpty()) << cell;
    };
    for (const char* cell : {"UA5|42|3", "UA5|42|5", "UA5|42|7", "COMP46|5|3", "COMP46|5|5", "ALTCMP13|5|3",
                             "ALTCMP13|5|5", "LIST13|5|3", "LIST13|5|5", "LIST13|5|7", "RENT1|5|3"})
        add(cell);
    EXPECT_EQ(addresses.removeDuplicates(), 0);
}

TEST(Report, BigHasAllPagesAndSmallOneOfComps)
{
    const QStringList big = Forms(BigReport(MakeMarket(12), kPhotos));
    EXPECT_EQ(big.first(), u"UA5"_s);
    for (const auto page : {"SUBPHOTO"_L1, "COMPPH1"_L1, "COMPPH3"_L1, "ALTPH1"_L1, "ALTPH2"_L1, "GENPH12"_L1,
                            "LISTPH2"_L1, "RENTPH3"_L1, "COMP46"_L1, "COMP79"_L1})
        EXPECT_TRUE(big.contains(page)) << page.data();
    EXPECT_EQ(Forms(SmallReport(MakeMarket(12), kPhotos)),
              (QStringList{u"2055"_s, u"SUBPHOTO"_s, u"COMPPH1"_s}));
}

} // namespace
} // namespace vasclip::demo
