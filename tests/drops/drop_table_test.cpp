#include "drops/drop_table.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <map>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

using enum drops::DropAction;

// Every name that takes part in a drag, as source or as target.
const QStringList kNames{
    u"FILCAPTURE"_s,    u"GEALISTBOX"_s,      u"GEATHUMB"_s,   u"GRDDATABOOK"_s,   u"GEAMAINTAIN"_s,
    u"TXTMAPADDRESS"_s, u"TXTMAPPROXIMITY"_s, u"MAPVIEW"_s,    u"GEAMAPPHOTO"_s,   u"TXTSUBJECT"_s,
    u"TXTCOMP"_s,       u"TXTALTCOMP"_s,      u"TXTLISTING"_s, u"TXTRENTAL"_s,     u"TXTGENERAL"_s,
    u"IMASUBJECT"_s,    u"IMACOMP"_s,         u"IMAALTCOMP"_s, u"IMALISTING"_s,    u"IMARENTAL"_s,
    u"IMAGENERAL"_s,    u"GEASUBJECT"_s,      u"GEACOMP"_s,    u"GEAALTCOMP"_s,    u"GEALISTING"_s,
    u"GEARENTAL"_s,     u"GEAGENERAL"_s,      u"CBOADDRESS"_s, u"CBOGENERAL"_s,    u"FRAADDACOMP"_s,
    u"TXTADDACOMP"_s,   u"IMATRASHCAN"_s,     u"FRAPICS"_s,    u"LBLTAB"_s,        u"TXTVIEW"_s,
    u"TXTCENTRALKEY"_s, u"LSTVIEWS"_s,        u"IMAFOLDER"_s,  u"IMACOMPICON"_s,   u"FILES"_s};

struct Expected
{
    drops::DropAction action;
    std::optional<drops::Group> group = {};
};
using Pair = std::pair<QString, QString>;

const QStringList kPhotoSlots{u"IMASUBJECT"_s, u"IMACOMP"_s,   u"IMAALTCOMP"_s,
                              u"IMALISTING"_s, u"IMARENTAL"_s, u"IMAGENERAL"_s};

drops::Group GroupOf(const QString& name)
{
    using enum drops::Group;
    static const std::map<QString, drops::Group> groups{{u"SUBJECT"_s, Subject},    {u"COMP"_s, Sales},
                                                        {u"ALTCOMP"_s, Alternates}, {u"LISTING"_s, Listings},
                                                        {u"RENTAL"_s, Rentals},     {u"GENERAL"_s, General}};
    return groups.at(name.mid(3));
}

/// The matrix as people describe it: which sources on which kind of target.
std::map<Pair, Expected> Wanted()
{
    std::map<Pair, Expected> wanted;
    const auto add = [&](const QString& source, const QString& target, drops::DropAction action,
                         std::optional<drops::Group> group = {}) { wanted.insert({Pair(source, target), {action, group}}); };
    for (const QString& target : kPhotoSlots) {
        const bool subject = target == u"IMASUBJECT"_s;
        const bool general = target == u"IMAGENERAL"_s;
        for (const QString& source : {u"GRDDATABOOK"_s, u"TXTMAPADDRESS"_s})
            add(source, target, subject ? SendViewOfIndex : general ? SendAskedView : SendFrontView,
                GroupOf(target));
        for (const QString& source : {u"GEATHUMB"_s, u"FILCAPTURE"_s, u"GEALISTBOX"_s, u"FILES"_s})
            add(source, target, general ? FileIntoGeneral : FileIntoSlot, GroupOf(target));
        add(u"GEAMAINTAIN"_s, target, general ? SendShownAsked : SendShownPhoto, GroupOf(target));
    }
    add(u"GRDDATABOOK"_s, u"TXTSUBJECT"_s, ReplaceSubjectPhotos, drops::Group::Subject);
    for (const QString& target : {u"TXTCOMP"_s, u"TXTALTCOMP"_s, u"TXTLISTING"_s, u"TXTRENTAL"_s}) {
        add(u"GRDDATABOOK"_s, target, PasteCompAndPhoto, GroupOf(target));
        add(u"MAPVIEW"_s, target, PasteCompAndPhoto, GroupOf(target));
    }
    for (const QString& target : {u"TXTCOMP"_s, u"TXTALTCOMP"_s})
        add(u"TXTMAPADDRESS"_s, target, PasteCompAndPhoto, GroupOf(target));
    add(u"TXTMAPPROXIMITY"_s, u"TXTALTCOMP"_s, SendProximity, drops::Group::Alternates);
    for (const QString& source : {u"GEATHUMB"_s, u"FILCAPTURE"_s, u"FILES"_s})
        add(source, u"TXTSUBJECT"_s, ShowInSubject, drops::Group::Subject);
    for (const QString& target : {u"GEACOMP"_s, u"GEAALTCOMP"_s, u"GEALISTING"_s, u"GEARENTAL"_s})
        add(u"GRDDATABOOK"_s, target, PasteComp, GroupOf(target));
    for (const QString& target : {u"GEACOMP"_s, u"GEAALTCOMP"_s})
        for (const QString& source : {u"TXTMAPADDRESS"_s, u"GEAMAPPHOTO"_s})
            add(source, target, PasteComp, GroupOf(target));
    for (const QString& source : {u"GEATHUMB"_s, u"FILCAPTURE"_s, u"FILES"_s})
        add(source, u"GRDDATABOOK"_s, FileInRecord);
    for (const QString& name : {u"COMP"_s, u"ALTCOMP"_s, u"LISTING"_s, u"RENTAL"_s}) {
        add(u"GEA"_s + name, u"GRDDATABOOK"_s, SaveData, GroupOf(u"GEA"_s + name));
        add(u"IMA"_s + name, u"GRDDATABOOK"_s, SavePhoto, GroupOf(u"IMA"_s + name));
        add(u"TXT"_s + name, u"GRDDATABOOK"_s, SaveBoth, GroupOf(u"TXT"_s + name));
    }
    add(u"IMASUBJECT"_s, u"GRDDATABOOK"_s, SavePhoto, drops::Group::Subject);
    add(u"TXTSUBJECT"_s, u"GRDDATABOOK"_s, SaveBoth, drops::Group::Subject);
    for (const QString& source : {u"IMAGENERAL"_s, u"TXTGENERAL"_s, u"CBOGENERAL"_s})
        add(source, u"GRDDATABOOK"_s, AdviseGeneral, drops::Group::General);
    for (const QString& target : {u"CBOADDRESS"_s, u"TXTCENTRALKEY"_s, u"FRAADDACOMP"_s, u"TXTADDACOMP"_s})
        for (const QString& source : {u"GEATHUMB"_s, u"FILCAPTURE"_s, u"FILES"_s})
            add(source, target, FileUnderAddress);
    add(u"GEATHUMB"_s, u"IMATRASHCAN"_s, ToTrash);
    for (const QString& target : {u"GEATHUMB"_s, u"FRAPICS"_s, u"LBLTAB"_s}) {
        add(u"GRDDATABOOK"_s, target, CopyBack);
        for (const QString& source : kPhotoSlots)
            add(source, target, CopyBack, GroupOf(source));
    }
    for (const QString& target :
         {u"GEATHUMB"_s, u"FRAPICS"_s, u"LBLTAB"_s, u"FILCAPTURE"_s, u"GEALISTBOX"_s})
        add(u"FILES"_s, target, CopyIn);
    return wanted;
}

TEST(DropTable, EveryPairDoesWhatItsRowSaysOrNothing)
{
    const auto wanted = Wanted();
    for (const QString& source : kNames) {
        for (const QString& target : kNames) {
            SCOPED_TRACE((source + u" on "_s + target).toStdString());
            const drops::DropRule* rule = drops::RuleFor(source, target);
            const auto expected = wanted.find(Pair(source, target));
            if (expected == wanted.end()) {
                EXPECT_EQ(rule, nullptr);
                continue;
            }
            ASSERT_NE(rule, nullptr);
            EXPECT_EQ(rule->action, expected->second.action);
            EXPECT_EQ(rule->group, expected->second.group);
        }
    }
    EXPECT_EQ(drops::Matrix().size(), wanted.size()) << "no row stands twice, none names an unknown control";
}

TEST(DropTable, ReportSlotsDoNotDropOnEachOther)
{
    const QStringList kinds{u"TXT"_s, u"IMA"_s, u"GEA"_s};
    const QStringList groups{u"SUBJECT"_s, u"COMP"_s, u"ALTCOMP"_s, u"LISTING"_s, u"RENTAL"_s, u"GENERAL"_s};
    for (const QString& sourceKind : kinds)
        for (const QString& source : groups)
            for (const QString& targetKind : kinds)
                for (const QString& target : groups)
                    EXPECT_EQ(drops::RuleFor(sourceKind + source, targetKind + target), nullptr)
                        << (sourceKind + source + u" on "_s + targetKind + target).toStdString();
}

TEST(DropTable, NamesAreComparedWithoutCaseAndOuterBlanks)
{
    EXPECT_NE(drops::RuleFor(u" grddatabook "_s, u"txtComp"_s), nullptr);
    EXPECT_EQ(drops::RuleFor(u"grddatabook"_s, u"txtComp1"_s), nullptr);
}

TEST(DropTable, HintsAreTheirFixedTextsAndEmptyForAnythingElse)
{
    const QString data = u"Drop here to paste the comp data in the appraisal"_s;
    const QString photo = u"Drop here to place the photo into the appraisal"_s;
    const QString both = u"Drop here to place both the photo and the comp data into the appraisal"_s;
    const QString record = u"Drop here to add a photo to the currently highlighted data entry"_s;
    std::map<Pair, QString> wanted;
    for (const QString& target : {u"TXTCOMP"_s, u"TXTALTCOMP"_s, u"TXTLISTING"_s, u"TXTRENTAL"_s})
        wanted[{u"GRDDATABOOK"_s, target}] = data;
    for (const QString& target : kPhotoSlots)
        wanted[{u"GRDDATABOOK"_s, target}] = photo;
    for (const QString& target : {u"GEACOMP"_s, u"GEAALTCOMP"_s, u"GEASUBJECT"_s, u"GEAGENERAL"_s,
                                  u"GEALISTING"_s, u"GEARENTAL"_s})
        wanted[{u"GRDDATABOOK"_s, target}] = both;
    for (const QString& source : {u"GEATHUMB"_s, u"FILCAPTURE"_s, u"FILES"_s}) {
        for (const QString& target : kPhotoSlots)
            if (target != u"IMAALTCOMP"_s)
                wanted[{source, target}] = photo;
        wanted[{source, u"GRDDATABOOK"_s}] = record;
    }
    for (const QString& source : kNames)
        for (const QString& target : kNames) {
            const auto found = wanted.find(Pair(source, target));
            EXPECT_EQ(drops::HintFor(source, target), found == wanted.end() ? QString() : found->second)
                << (source + u" over "_s + target).toStdString();
        }
    EXPECT_EQ(drops::HintFor(u"grddatabook"_s, u"txtComp"_s), data);
}

TEST(DropTable, KindsOfSources)
{
    const std::map<QString, QStringList> wanted{
        {u"FILCAPTURE"_s, {u"filCapture"_s, u"geaListBox"_s, u"FILES"_s}},
        {u"THUMB"_s, {u"geathumb"_s, u"geamaintain"_s, u"txtMapAddress"_s}},
        {u"KEL"_s,
         {u"txtSubject"_s, u"txtComp"_s, u"txtAltComp"_s, u"txtListing"_s, u"txtRental"_s, u"imaSubject"_s,
          u"imaComp"_s, u"imaAltComp"_s, u"imaListing"_s, u"imaRental"_s, u"imaGeneral"_s, u"geaComp"_s,
          u"geaAltComp"_s, u"geaListing"_s, u"geaRental"_s, u"cboGeneral"_s}},
        {QString(), {u"grddatabook"_s, u"lblmsg"_s}}};
    for (const auto& [kind, names] : wanted)
        for (const QString& name : names)
            EXPECT_EQ(drops::KindOfSource(name), kind) << name.toStdString();
}

TEST(DropTable, TheIconBecomesTheDropIconAndStaysSoOutsideTheGrid)
{
    using enum drops::DragIcon;
    for (const QString& source : {u"geathumb"_s, u"filCapture"_s, u"imaSubject"_s, u"imaComp"_s, u"imaAltComp"_s,
                                  u"imaListing"_s, u"imaRental"_s, u"imaGeneral"_s})
        for (const bool entering : {true, false})
            EXPECT_EQ(drops::IconOver(source, u"imaComp"_s, entering, Hand), Drop) << source.toStdString();
    for (const QString& source : {u"grddatabook"_s, u"geaListBox"_s, u"txtComp"_s, u"geaComp"_s})
        for (const bool entering : {true, false})
            EXPECT_EQ(drops::IconOver(source, u"imaComp"_s, entering, Hand), Hand) << source.toStdString();
    EXPECT_EQ(drops::IconOver(u"txtComp"_s, u"grddatabook"_s, true, Hand), Drop);
    EXPECT_EQ(drops::IconOver(u"geathumb"_s, u"grddatabook"_s, false, Drop), Hand);
    EXPECT_EQ(drops::IconOver(u"geathumb"_s, u"lblTab"_s, true, Drop), Drop);
}

} // namespace
