#pragma once

#include "platform/paper/sheet.h"

#include <QList>
#include <QString>

namespace vasclip::upkeep {

/// How a value is printed; Type is the words of a comp type's letter. What is no number or date is printed as
/// it stands.
enum class Format { Text, Number, Money, Date, Type };
enum class Side { Left, Centre, Right };

/// A text with fields in it: "{CITY}, {ST}". What stands before a field is printed with it alone.
struct Template
{
    struct Piece
    {
        QString before;
        QString field; ///< a column, or one of the words of SpecialWords(), in capitals
        Format format = Format::Text;
    };
    QList<Piece> pieces;
    QString after;

    [[nodiscard]] bool Blank() const { return pieces.isEmpty() && after.isEmpty(); }
};

struct SortKey
{
    QString field;
    bool down = false;
};

struct Group
{
    QString field;
    Template heading;
    bool newPage = false;
};

struct Column
{
    QString field;
    QString heading;
    int wide = 10; ///< parts of the sum of all
    Format format = Format::Text;
    Side side = Side::Left;
    int lines = 1; ///< at most
};

struct LabelledField
{
    QString field;
    QString label;
    Format format = Format::Text;
};

struct HeadingPart
{
    Template left, right;
};
struct LinePart
{
    Template text;
};
struct SectionPart
{
    QString words; ///< "" for none
    int columns = 2;
    bool blanks = false; ///< fields that hold nothing are printed too
    QList<LabelledField> fields;
};
struct NotesPart
{
    QString field;
    QString label;
};
struct PhotosPart
{
    bool all = true; ///< else the front view alone
    bool beside = false;
    int across = 3;
    int high = 2 * paper::kInch;
    bool captions = false;
};

/// What a record is made of, from top to bottom. One of them.
struct RecordPart
{
    enum class Kind { Heading, Line, Section, Notes, Photos } kind;
    HeadingPart heading;
    LinePart line;
    SectionPart section;
    NotesPart notes;
    PhotosPart photos;
};

struct Total
{
    enum class Of { Count, Sum, Average, Lowest, Highest } of = Of::Count;
    QString field; ///< "" for Count
    QString label;
    Format format = Format::Number;
};

/// Where a record goes that does not fit on what is left of a page.
enum class Flow { Over, Together, OwnPage };

/// A report as its layout file describes it.
struct ReportLayout
{
    QString name; ///< of its file, without directory and extension
    QString words;
    Template title, subtitle, footer;
    paper::Sheet sheet;
    int text = 9 * paper::kPoint;
    QList<SortKey> sort;
    QList<Group> groups;
    Flow flow = Flow::Over;
    QList<Column> columns;   ///< a table, or
    QList<RecordPart> parts; ///< a block for each record
    QList<Total> totals;

    /// The columns of COMPS that it prints, each once, in the order of the page.
    [[nodiscard]] QList<LabelledField> Fields() const;
    [[nodiscard]] bool HasPhotos() const;
};

/// What a template may name beside columns: DATE, COUNT, DATABOOK, SEARCH, COMPANY.
[[nodiscard]] const QStringList& SpecialWords();

} // namespace vasclip::upkeep
