#pragma once

#include "upkeep/layout_parser.h"
#include "upkeep/report_pager.h"

#include <gtest/gtest.h>

#include <set>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

using Fields = QList<std::pair<QString, QString>>;

inline store::Record RecordOf(const Fields& fields)
{
    auto names = std::make_shared<store::Record::Names>();
    QVariantList values;
    for (const auto& [name, value] : fields) {
        names->insert(name, static_cast<int>(values.size()));
        values.append(value);
    }
    return {names, values};
}

/// A report of made-up records.
class Pager : public testing::Test
{
protected:
    paper::Typesetter setter;
    ReportFacts facts{.now = QDateTime({2026, 3, 7}, {9, 0}),
                      .count = 0,
                      .databook = {},
                      .search = {},
                      .company = u"Acme"_s};
    QList<Fields> records;
    ReportLayout layout;
    int asked = 0;

    void Lay(const QByteArray& text) { layout = ParseLayout(text); }
    [[nodiscard]] RecordFeed Feed()
    {
        return {records.size(), [this](qint64 place) -> std::optional<store::Record> {
                    ++asked;
                    if (records[place].isEmpty())
                        return std::nullopt;
                    return RecordOf(records[place]);
                }};
    }
    QList<paper::Page> Pages(int total = 0)
    {
        ReportPager pager(layout, layout.sheet, facts, Feed(), setter);
        ReportPager::Place place;
        QList<paper::Page> pages;
        while (const auto page = pager.Next(place, total)) {
            pages.append(*page);
            if (pages.size() > 5000) {
                ADD_FAILURE() << "no end";
                break;
            }
        }
        return pages;
    }
    static QStringList TextsOf(const paper::Page& page)
    {
        QStringList texts;
        for (const paper::TextItem& item : page.texts)
            texts.append(item.text);
        return texts;
    }
    static qsizetype PageOf(const QList<paper::Page>& pages, const QString& text)
    {
        for (qsizetype i = 0; i < pages.size(); ++i)
            if (TextsOf(pages[i]).contains(text))
                return i;
        return -1;
    }
    /// Everything stands within the margins, and no two texts one on the other.
    void ExpectTidy(const QList<paper::Page>& pages) const
    {
        const QRect inside = layout.sheet.Inside();
        for (const paper::Page& page : pages) {
            std::set<std::pair<int, int>> places;
            for (const paper::TextItem& item : page.texts) {
                EXPECT_GE(item.at.x(), inside.left()) << item.text.toStdString();
                EXPECT_LE(item.at.x() + item.width, inside.right() + 2) << item.text.toStdString();
                EXPECT_GE(item.at.y(), inside.top());
                EXPECT_LE(item.at.y(), inside.bottom());
                EXPECT_TRUE(places.insert({item.at.x(), item.at.y()}).second) << item.text.toStdString();
            }
            for (const paper::PictureItem& item : page.pictures)
                EXPECT_TRUE(inside.contains(item.box)) << item.name.toStdString();
        }
    }
};

} // namespace vasclip::upkeep
