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
        if (page->LabelOf(parts.at(1).toInt(), parts.at(2).toInt()) == label)
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

INSTANTIATE_TEST_SUITE_P(Both, Reports,
                         testing::Values(ReportRow{"Big", &BigReport, "OAKST114.RPT", "114 Oak St", 2},
                                         ReportRow{"Small", &SmallReport, "FERRY22.RPT", "22 Ferry St", 1}),
                         [](const auto& info) { return std::string(info.param.name); });

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
