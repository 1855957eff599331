#pragma once

#include "platform/paper/page.h"
#include "platform/paper/typesetter.h"
#include "upkeep/report_values.h"

#include <vector>

namespace vasclip::upkeep {

/// A strip across the page that is never torn. Its things stand where they are within it.
struct Block
{
    paper::Page content;
    int height = 0;
    bool withNext = false; ///< stays on the page of the strip behind it
    bool gap = false;      ///< empty room, which no page begins with
    bool newPage = false;
    bool below = false; ///< begins below what stands beside the record
    int besides = 0; ///< how far down from its top a photo beside the record reaches
};

/// Measures that all strips of a report share.
struct BlockMeasures
{
    int width = 0;  ///< of the page between its margins
    int height = 0; ///< of the page between head and foot
    int text = 180; ///< size of the text
};

inline constexpr int kReportGutter = 7 * paper::kPoint; ///< between columns

/// Colours of all reports; they print well in grey.
namespace ink {
inline constexpr QRgb kText = 0xff1c2430;
inline constexpr QRgb kQuiet = 0xff5d6672;
inline constexpr QRgb kAccent = 0xff24507f;
inline constexpr QRgb kRule = 0xffc9ced6;
inline constexpr QRgb kBand = 0xffeef2f6;
} // namespace ink

/// Makes the strips of records, groups and totals.
class BlockMaker
{
public:
    BlockMaker(const ReportLayout& layout, const ReportFacts& facts, BlockMeasures measures,
               paper::Typesetter& setter);

    [[nodiscard]] std::vector<Block> OfRecord(const store::Record& record);
    [[nodiscard]] Block OfGroup(const QString& words, int level, bool newPage);
    /// @param words  whose totals they are
    [[nodiscard]] std::vector<Block> OfTotals(const QString& words, const Sums& sums);
    [[nodiscard]] Block OfWords(const QString& words); ///< in the middle of an empty page
    [[nodiscard]] Block Continued(const QString& words);
    [[nodiscard]] Block TableHead();
    [[nodiscard]] Block Gap(int height) const;
    /// What a record is called where it goes on on another page.
    [[nodiscard]] QString NameOf(const store::Record& record) const;

private:
    struct Cell
    {
        int x, width;
    };
    [[nodiscard]] Block OfRow(const store::Record& record);
    void AddHeading(std::vector<Block>& blocks, const HeadingPart& part, const store::Record& record);
    void AddLine(std::vector<Block>& blocks, const LinePart& part, const store::Record& record, int width);
    void AddSection(std::vector<Block>& blocks, const SectionPart& part, const store::Record& record,
                    int width);
    void AddNotes(std::vector<Block>& blocks, const NotesPart& part, const store::Record& record, int width);
    void AddPhotos(std::vector<Block>& blocks, const PhotosPart& part, const store::Record& record);
    void PutBeside(Block& first, const PhotosPart& part, const store::Record& record, int room);
    [[nodiscard]] const PhotosPart* Beside() const;
    [[nodiscard]] static bool HasPhotos(const PhotosPart& part, const store::Record& record);
    [[nodiscard]] int BesideWidth(const PhotosPart& part) const;
    void Put(Block& block, const QString& text, paper::Face face, QRgb colour, int x, int y, int width,
             Side side);
    [[nodiscard]] std::vector<Cell> Cells() const;

    const ReportLayout& m_layout;
    const ReportFacts& m_facts;
    BlockMeasures m_measures;
    paper::Typesetter& m_setter;
    paper::Face m_plain, m_strong, m_small, m_smallStrong, m_large;
};

} // namespace vasclip::upkeep
