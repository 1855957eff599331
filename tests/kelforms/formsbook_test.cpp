#include "formsbook/layout.h"
#include "formsbook/mapping.h"

#include <QMap>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::formsbook;

namespace {

TEST(FormsBook, HasTheSixtySixFormsInTheirOrder)
{
    QStringList codes;
    for (const Form& form : Forms()) {
        codes.append(form.code);
        EXPECT_FALSE(form.title.isEmpty());
    }
    EXPECT_EQ(
        codes.join(u", "_s),
        u"2006, 2045, 2055, 2065, 2075, 2095, 704, 704SUMRY, 71A, 71B, 79, AUC3, ADR, ALAR, ANVL, BAT, BA2, "
        u"BMA, "
        "BPO, CI2, CIA, CIB, CMR, CN2, DAWI, DT2, DT3, DU2, DUQ, DVA, ECI, ECU, EOI, ER5, ER3, ER4, ERS, "
        "EVAL, "
        "FA4, FR2, FR3, FR4, FRA, FRR, FSE, ICI, ICU, LAR, MOB, MH2, MFH, MUL, NCU, NEO, NRI, NUR, NVL, QAR, "
        "RECON, RNF, SAR, SRI, UA2, UA4, UA5, UCIAR"_s);
}

TEST(EveryForm, MapsEveryGroupAndBase)
{
    for (const Form& form : Forms()) {
        const QString code = form.code;
        SCOPED_TRACE(code.toStdString());
        QMap<QString, int> rows;
        for (const MappingRow& row : MappingRows(code)) {
            EXPECT_EQ(row.formType, code);
            ++rows[row.compType + u' ' + row.comp];
        }
        EXPECT_EQ(rows.keys(),
                  (QStringList{u"ALT 1"_s, u"ALT 4"_s, u"LIST 1"_s, u"LIST 4"_s, u"RENT 1"_s, u"RENT 4"_s,
                               u"RENT 7"_s, u"SALE 1"_s, u"SALE 10"_s, u"SALE 4"_s, u"SALE 7"_s}));
        for (const int count : rows)
            EXPECT_GE(count, 20);
    }
}

TEST(EveryForm, HasTheFieldsThatEveryGroupNeeds)
{
    for (const Form& form : Forms()) {
        const QString code = form.code;
        SCOPED_TRACE(code.toStdString());
        QMap<QString, QStringList> fields;
        for (const MappingRow& row : MappingRows(code))
            fields[row.compType + u' ' + row.comp].append(row.fieldName);
        for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
            const QStringList wanted =
                it.key() == u"SALE 10"_s
                    ? QStringList{u"ADDRESS"_s, u"CITY"_s,       u"ST"_s,        u"ZIP"_s,
                                  u"COUNTY"_s,  u"NEIGHBORHD"_s, u"APPRSRFILE"_s}
                    : QStringList{u"ADDRESS"_s, u"NEIGHBORHD"_s, u"CITYSTZIP"_s, u"PROXIMITY"_s};
            for (const QString& field : wanted)
                EXPECT_EQ(it->count(field), 1) << it.key().toStdString() << " " << field.toStdString();
        }
        EXPECT_TRUE(fields[u"RENT 1"_s].contains(u"LEASEDATE"_s));
        EXPECT_FALSE(fields[u"SALE 4"_s].contains(u"SALEDATE"_s)) << "never sent, so not read";
        EXPECT_TRUE(fields[u"SALE 7"_s].contains(u"SALEFLD"_s));
    }
}

TEST(EveryForm, OneFormNameForEverySet)
{
    for (const Form& form : Forms()) {
        const QString code = form.code;
        SCOPED_TRACE(code.toStdString());
        QMap<QString, QSet<QString>> names;
        for (const MappingRow& row : MappingRows(code))
            names[row.compType + u' ' + row.comp].insert(row.formName);
        for (const QSet<QString>& set : names)
            EXPECT_EQ(set.size(), 1);
    }
}

/// What the mapping says is a cell is a labelled cell on the page as it is shown, for all three comps, and no
/// two fields share one, but for the line that is read under one word and sent under another.
TEST(EveryForm, EveryMappedCellStandsOnItsPage)
{
    for (const Form& form : Forms()) {
        const QString code = form.code;
        SCOPED_TRACE(code.toStdString());
        QMap<QString, QString> taken;
        for (const MappingRow& row : MappingRows(code)) {
            const auto page = LayoutOf(code, row.formName);
            ASSERT_TRUE(page) << row.formName.toStdString();
            for (int place = 0; place < (row.comp == u"10"_s ? 1 : 3); ++place) {
                const int cell = row.cell.toInt() + place * row.offset.toInt();
                const QString label = page->LabelOf(row.row.toInt(), cell);
                EXPECT_FALSE(label.isEmpty())
                    << row.formName.toStdString() << " " << row.fieldName.toStdString();
                EXPECT_FALSE(label.endsWith(u"adjustment"_s)) << label.toStdString();
                EXPECT_TRUE(row.comp == u"10"_s || label.contains(u" %1: "_s.arg(row.comp.toInt() + place)))
                    << label.toStdString();
                const QString item = u"%1|%2|%3"_s.arg(row.formName, row.row).arg(cell);
                if (row.fieldName == u"CITYSTZIP"_s) {
                    EXPECT_EQ(taken.take(item), u"NEIGHBORHD"_s) << item.toStdString();
                }
                EXPECT_FALSE(taken.contains(item)) << item.toStdString();
                taken.insert(item, row.fieldName);
            }
        }
    }
}

/// And the reverse: a line of a page that names a field is mapped.
TEST(EveryForm, EveryFieldOnAPageIsMapped)
{
    for (const Form& form : Forms()) {
        const QString code = form.code;
        SCOPED_TRACE(code.toStdString());
        QSet<QString> mapped;
        for (const MappingRow& row : MappingRows(code))
            mapped.insert(row.formName + u'|' + row.row + u'|' + row.cell + u'|' + row.fieldName);
        for (const QString& pageCode : PagesOf(form, Edition::Small)) {
            const auto page = LayoutOf(code, pageCode);
            ASSERT_TRUE(page) << pageCode.toStdString();
            EXPECT_FALSE(page->title.isEmpty());
            for (const Section& section : page->sections) {
                for (const Line& line : section.lines) {
                    if (line.field.isEmpty())
                        continue;
                    if (section.group) {
                        EXPECT_TRUE(mapped.contains(
                            u"%1|%2|%3|%4"_s.arg(pageCode).arg(line.row).arg(line.comps[0]).arg(line.field)));
                    }
                    if (section.subject && line.subjectCell > 0) {
                        EXPECT_TRUE(mapped.contains(u"%1|%2|%3|%4"_s.arg(pageCode)
                                                        .arg(line.subjectRow)
                                                        .arg(line.subjectCell)
                                                        .arg(line.field)));
                    }
                }
            }
        }
    }
}

/// The name of a neighborhood never goes where a comp's city, state and ZIP stand.
TEST(EveryForm, SendsTheCityLineOfACompAndReadsItAsNeighborhood)
{
    for (const Form& form : Forms()) {
        const QString code = form.code;
        SCOPED_TRACE(code.toStdString());
        const auto cell = [](const MappingRow& row) {
            return QStringList{row.formName, row.row, row.cell, row.compType, row.comp, row.offset}.join(u'|');
        };
        QStringList read, sent;
        for (const MappingRow& row : MappingRows(code)) {
            const bool readOnly = row.fieldName == u"NEIGHBORHD"_s && row.comp != u"10"_s;
            EXPECT_EQ(row.trueFalse == u"R"_s, readOnly) << row.fieldName.toStdString();
            if (readOnly)
                read.append(cell(row));
            if (row.fieldName == u"CITYSTZIP"_s) {
                EXPECT_EQ(row.trueFalse, QString());
                sent.append(cell(row));
            }
        }
        EXPECT_FALSE(read.isEmpty());
        EXPECT_EQ(sent, read) << "each is sent under the other word";
    }
}

TEST(EveryForm, CompositesOnlyForTheSubject)
{
    for (const Form& form : Forms()) {
        const QString code = form.code;
        SCOPED_TRACE(code.toStdString());
        int composites = 0;
        for (const MappingRow& row : MappingRows(code)) {
            EXPECT_TRUE(QStringList({QString(), u"0"_s, u"1"_s, u"A"_s, u"R"_s}).contains(row.trueFalse));
            EXPECT_EQ(row.trueFalse == u"A"_s, !row.preEval.isEmpty());
            if (row.trueFalse == u"A"_s) {
                ++composites;
                EXPECT_EQ(row.comp, u"10"_s);
            }
        }
        EXPECT_EQ(composites, 1);
    }
}

TEST(FormsBook, AllFormsTogether)
{
    const QList<MappingRow> rows = MappingRows();
    qsizetype single = 0;
    for (const Form& form : Forms())
        single += MappingRows(form.code).size();
    EXPECT_EQ(rows.size(), single);
    EXPECT_TRUE(MappingRows(u"XYZ"_s).isEmpty());
    EXPECT_FALSE(LayoutOf(u"XYZ"_s, u"XYZ"_s));
    EXPECT_FALSE(LayoutOf(u"UA5"_s, u"UA4"_s));
    EXPECT_TRUE(LayoutOf(u"ua5"_s, u"comp46"_s));
}

TEST(FormsBook, ARelocationSummaryCarriesItsListings)
{
    const auto page = LayoutOf(u"ERS"_s, u"ERS"_s);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->sections.size(), 4);
    EXPECT_FALSE(LayoutOf(u"ERS"_s, u"LIST13"_s));
}

TEST(FormsBook, TheAddendumIsAPageOfEveryForm)
{
    for (const Form& form : Forms()) {
        EXPECT_EQ(PagesOf(form, Edition::Small).last(), u"ADDENDUM"_s);
        const auto page = LayoutOf(form.code, u"Addendum"_s);
        ASSERT_TRUE(page);
        EXPECT_EQ(page->title, u"Text addendum"_s);
        EXPECT_EQ(page->LabelOf(20, 1), u"Line 20"_s);
        EXPECT_FALSE(page->HasCell(21, 1));
        EXPECT_FALSE(page->HasCell(1, 2));
    }
}

TEST(FormsBook, LabelsSayWhoseCellItIs)
{
    const auto page = LayoutOf(u"UA5"_s, u"UA5"_s);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->LabelOf(3, 1), u"Property address"_s);
    EXPECT_EQ(page->LabelOf(42, 3), u"Comparable 1: Address"_s);
    EXPECT_EQ(page->LabelOf(44, 7), u"Comparable 3: Proximity to subject"_s);
    EXPECT_EQ(page->LabelOf(44, 1), u""_s);
    EXPECT_EQ(page->LabelOf(45, 1), u"Subject: Sale price"_s);
    EXPECT_EQ(page->LabelOf(0, 0), u""_s);
    EXPECT_EQ(LayoutOf(u"UA5"_s, u"COMP46"_s)->LabelOf(8, 1), u""_s);
}

} // namespace
