#include "drops/drop_table.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <map>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

// Every name that takes part in a drag, as source or as target.
const QStringList kNames{
    u"FILCAPTURE"_s,    u"GEALISTBOX"_s,      u"GEATHUMB"_s,   u"GRDDATABOOK"_s, u"GEAMAINTAIN"_s,
    u"TXTMAPADDRESS"_s, u"TXTMAPPROXIMITY"_s, u"MAPVIEW"_s,    u"GEAMAPPHOTO"_s, u"TXTSUBJECT"_s,
    u"TXTCOMP"_s,       u"TXTALTCOMP"_s,      u"TXTLISTING"_s, u"TXTRENTAL"_s,   u"TXTGENERAL"_s,
    u"IMASUBJECT"_s,    u"IMACOMP"_s,         u"IMAALTCOMP"_s, u"IMALISTING"_s,  u"IMARENTAL"_s,
    u"IMAGENERAL"_s,    u"GEASUBJECT"_s,      u"GEACOMP"_s,    u"GEAALTCOMP"_s,  u"GEALISTING"_s,
    u"GEARENTAL"_s,     u"GEAGENERAL"_s,      u"CBOADDRESS"_s, u"CBOGENERAL"_s,  u"FRAADDACOMP"_s,
    u"TXTADDACOMP"_s,   u"IMATRASHCAN"_s,     u"FRAPICS"_s,    u"LBLTAB"_s};

struct Expected
{
    drops::DropAction action;
    QString compType;
};

const std::map<QString, Expected> kFromTheGrid{
    {u"TXTCOMP"_s, {drops::DropAction::PasteCompAndPhoto, u"SALE"_s}},
    {u"TXTALTCOMP"_s, {drops::DropAction::PasteCompAndPhoto, u"ALT"_s}},
    {u"TXTLISTING"_s, {drops::DropAction::PasteCompAndPhoto, u"LIST"_s}},
    {u"TXTRENTAL"_s, {drops::DropAction::PasteCompAndPhoto, u"RENT"_s}},
    {u"GEACOMP"_s, {drops::DropAction::PasteComp, u"SALE"_s}},
    {u"GEAALTCOMP"_s, {drops::DropAction::PasteComp, u"ALT"_s}},
    {u"GEALISTING"_s, {drops::DropAction::PasteComp, u"LIST"_s}},
    {u"GEARENTAL"_s, {drops::DropAction::PasteComp, u"RENT"_s}},
};

TEST(DropTable, EveryPairDoesWhatItsRowSaysOrNothing)
{
    for (const QString& source : kNames) {
        for (const QString& target : kNames) {
            SCOPED_TRACE((source + u" on "_s + target).toStdString());
            const drops::DropRule* rule = drops::RuleFor(source, target);
            const auto expected = kFromTheGrid.find(target);
            if (source != u"GRDDATABOOK"_s || expected == kFromTheGrid.end()) {
                EXPECT_EQ(rule, nullptr);
                EXPECT_EQ(drops::HintFor(source, target), QString());
                continue;
            }
            ASSERT_NE(rule, nullptr);
            EXPECT_EQ(rule->action, expected->second.action);
            EXPECT_EQ(QString(rule->compType), expected->second.compType);
        }
    }
    EXPECT_EQ(drops::Matrix().size(), kFromTheGrid.size());
}

TEST(DropTable, NamesAreComparedWithoutCaseAndOuterBlanks)
{
    EXPECT_NE(drops::RuleFor(u" grddatabook "_s, u"txtComp"_s), nullptr);
    EXPECT_EQ(drops::RuleFor(u"grddatabook"_s, u"txtComp1"_s), nullptr);
}

TEST(DropTable, HintsAreTheirFixedTexts)
{
    const QString data = u"Drop here to paste the comp data in the appraisal"_s;
    const QString both = u"Drop here to place both the photo and the comp data into the appraisal"_s;
    for (const QString& target : {u"TXTCOMP"_s, u"TXTALTCOMP"_s, u"TXTLISTING"_s, u"TXTRENTAL"_s})
        EXPECT_EQ(drops::HintFor(u"GRDDATABOOK"_s, target), data) << target.toStdString();
    for (const QString& target : {u"GEACOMP"_s, u"GEAALTCOMP"_s, u"GEALISTING"_s, u"GEARENTAL"_s})
        EXPECT_EQ(drops::HintFor(u"GRDDATABOOK"_s, target), both) << target.toStdString();
}

} // namespace
