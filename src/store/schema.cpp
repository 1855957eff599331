#include "store/schema.h"

#include "platform/text/runtime_error.h"
#include "store/fields.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace vasclip::store {

namespace {

using Name = QLatin1StringView;

constexpr int kKeySize = 35;  // key and address
constexpr int kDateSize = 20; // roomy enough for "January 1, 1900", as the calendar writes it
constexpr int kReportCell = 40;
constexpr int kNoteSize = 255;

constexpr CompsColumn Text(FieldName name, int size, const char* heading)
{
    return {name, size, engine::SortsAs::Text, Name(heading)};
}
constexpr CompsColumn Num(FieldName name, int size, const char* heading)
{
    return {name, size, engine::SortsAs::Number, Name(heading)};
}
constexpr CompsColumn Day(FieldName name, const char* heading)
{
    return {name, kDateSize, engine::SortsAs::Date, Name(heading)};
}

constexpr std::array kComps = {
    // key and identity
    Text(fields::CENTRALKEY, kKeySize, "Key"),
    Text(fields::COMPID, 7, "Comp ID"),
    Text(fields::APPRSLTYPE, 1, "Type"),
    Text(fields::COMPCODE, 10, "Comp Code"),
    Text(fields::CTSCODE, 10, "CTS Code"),
    Text(fields::STRCODE, 10, "Stories"),
    // location
    Text(fields::ADDRESS, kKeySize, "Address"),
    Text(fields::ADDRESS2, kKeySize, "Address 2"),
    Text(fields::CITY, 25, "City"),
    Text(fields::ST, 4, "State"),
    Text(fields::ZIP, 10, "ZIP"),
    Text(fields::COUNTY, 25, "County"),
    Text(fields::NEIGHBORHD, kReportCell, "Neighborhood"),
    Text(fields::CENSUSTRCT, 15, "Census Tract"),
    Text(fields::TAXMAPNUM, 30, "Tax Map No."),
    Text(fields::FLOODMAP, 25, "Flood Map"),
    Num(fields::LONGITUDE, 11, "Longitude"),
    Num(fields::LATITUDE, 11, "Latitude"),
    Text(fields::ANCHORED, 1, "Anchored"),
    // dates and calculated fields
    Day(fields::LOADDATE, "Load Date"),
    Num(fields::LOADSERIAL, 10, "Load Serial"),
    Day(fields::SALEDATE, "Sale Date"),
    Text(fields::SALEFLD, kReportCell, "Sale Date on Report"),
    Num(fields::SALESERIAL, 10, "Sale Serial"),
    Day(fields::MODIFIEDDATE, "Modified"),
    Day(fields::CONTRKDATE, "Contract Date"),
    Num(fields::PRICEGLA, 10, "Price/GLA"),
    Num(fields::AGE, 4, "Age"),
    Day(fields::LEASEDATE, "Lease Date"),
    // sale
    Num(fields::SELLINGPR, 10, "Price"),
    Text(fields::PRICEFLD, 20, "Price on Report"),
    Text(fields::RENTFLD, 20, "Rent on Report"),
    Text(fields::DATASOURCE, kReportCell, "Data Source"),
    Text(fields::VERIFYSRCE, kReportCell, "Verification"),
    Text(fields::SFCONCESS1, kReportCell, "Concessions"),
    Text(fields::SFCONCESS2, kReportCell, "Concessions 2"),
    Text(fields::FINANCETYP, 20, "Financing"),
    Text(fields::ERCFINAL, 20, "ERC Final"),
    Text(fields::MKTCHANGE, 30, "Market Change"),
    Num(fields::DAYSONMKT, 10, "Days on Market"),
    Text(fields::SALEHIST1, kReportCell, "Sale History 1"),
    Text(fields::SALEHIST2, kReportCell, "Sale History 2"),
    Text(fields::SALEHIST3, kReportCell, "Sale History 3"),
    Text(fields::SALEHIST4, 20, "Sale History 4"),
    Text(fields::SALEHIST5, 20, "Sale History 5"),
    // dwelling
    Num(fields::GLA, 10, "GLA"),
    Num(fields::ROOMCOUNT, 6, "Rooms"),
    Num(fields::BEDROOM, 6, "Bedrooms"),
    Num(fields::BATH, 6, "Baths"),
    Num(fields::YEARBUILT, 20, "Year Built"),
    Text(fields::SITE, 30, "Site"),
    Text(fields::LOCATION, 30, "Location"),
    Text(fields::DESIGNAPPL, 30, "Design/Appeal"),
    Text(fields::CONSTRQUAL, 30, "Quality"),
    Text(fields::CONDITION, 30, "Condition"),
    Text(fields::FUNCTUTIL, 30, "Functional Utility"),
    Text(fields::FUNCUTIL1, 30, "Functional Utility 1"),
    Text(fields::FUNCUTIL2, 30, "Functional Utility 2"),
    Text(fields::FUNCUTIL3, 30, "Functional Utility 3"),
    Text(fields::FUNCUTIL4, 30, "Functional Utility 4"),
    Text(fields::FUNCUTIL5, 30, "Functional Utility 5"),
    Text(fields::FUNCUTIL6, 30, "Functional Utility 6"),
    Text(fields::BASEMENT, 30, "Basement"),
    Text(fields::FINISHED, 30, "Finished Below Grade"),
    Text(fields::AC, 30, "Heating/Cooling"),
    Text(fields::ENERGYEFF1, 30, "Energy Efficient 1"),
    Text(fields::ENERGYEFF2, 30, "Energy Efficient 2"),
    Text(fields::PARKING, 30, "Parking"),
    Text(fields::PORCHPATI1, 30, "Porch/Patio 1"),
    Text(fields::PORCHPATI2, 30, "Porch/Patio 2"),
    Text(fields::FIREPLACES, 30, "Fireplaces"),
    Text(fields::STORAGE, 30, "Storage"),
    Text(fields::COMMONELEM, 30, "Common Elements"),
    Text(fields::LEASEFEE, 30, "Leasehold/Fee"),
    Text(fields::INTDECOR, 30, "Interior"),
    Text(fields::OTHER1, 30, "Other 1"),
    Text(fields::OTHER2, 30, "Other 2"),
    Text(fields::OTHERAREA1, 20, "Other Area 1"),
    Text(fields::OTHERAREA2, 20, "Other Area 2"),
    // condominium
    Num(fields::PROJSIZE, 20, "Project Size"),
    Text(fields::FLOORLOCAL, 20, "Floor Location"),
    Num(fields::MONTHASSES, 20, "Monthly Assessment"),
    Text(fields::UTILFURN1, 30, "Utilities/Furniture 1"),
    Text(fields::UTILFURN2, 30, "Utilities/Furniture 2"),
    Text(fields::UTILFURN3, 30, "Utilities/Furniture 3"),
    Text(fields::UTILFURN4, 30, "Utilities/Furniture 4"),
    Text(fields::UTILFURN5, 30, "Utilities/Furniture 5"),
    Text(fields::UTILFURN6, 30, "Utilities/Furniture 6"),
    // income units
    Num(fields::NUMBUNITS, 6, "Units"),
    Num(fields::NUMVACANT, 6, "Vacant Units"),
    Num(fields::UNITS_1, 6, "Units 1"),
    Num(fields::UNITS_2, 6, "Units 2"),
    Num(fields::UNITS_3, 6, "Units 3"),
    Num(fields::UNITS_4, 6, "Units 4"),
    Num(fields::VACANT_1, 6, "Vacant 1"),
    Num(fields::VACANT_2, 6, "Vacant 2"),
    Num(fields::VACANT_3, 6, "Vacant 3"),
    Num(fields::VACANT_4, 6, "Vacant 4"),
    Num(fields::SQFT_1, 10, "Sq. Ft. 1"),
    Num(fields::SQFT_2, 10, "Sq. Ft. 2"),
    Num(fields::SQFT_3, 10, "Sq. Ft. 3"),
    Num(fields::SQFT_4, 10, "Sq. Ft. 4"),
    Num(fields::ROOMCOUNT1, 6, "Rooms 1"),
    Num(fields::ROOMCOUNT2, 6, "Rooms 2"),
    Num(fields::ROOMCOUNT3, 6, "Rooms 3"),
    Num(fields::ROOMCOUNT4, 6, "Rooms 4"),
    Num(fields::BEDROOMS1, 6, "Bedrooms 1"),
    Num(fields::BEDROOMS2, 6, "Bedrooms 2"),
    Num(fields::BEDROOMS3, 6, "Bedrooms 3"),
    Num(fields::BEDROOMS4, 6, "Bedrooms 4"),
    Num(fields::BATHS1, 6, "Baths 1"),
    Num(fields::BATHS2, 6, "Baths 2"),
    Num(fields::BATHS3, 6, "Baths 3"),
    Num(fields::BATHS4, 6, "Baths 4"),
    Num(fields::MONTHRENT, 10, "Monthly Rent"),
    Num(fields::MONTHRENT2, 10, "Monthly Rent 2"),
    Num(fields::MONTHRENT3, 10, "Monthly Rent 3"),
    Num(fields::MONTHRENT4, 10, "Monthly Rent 4"),
    Num(fields::GRSMORENT, 10, "Gross Monthly Rent"),
    Text(fields::RENTCONCES, kReportCell, "Rent Concessions"),
    Text(fields::RENTEXTRA, kReportCell, "Rent Extras"),
    Text(fields::FURNISHED, 20, "Furnished"),
    // land and description
    Num(fields::LANDSIZE, 20, "Land Size"),
    Text(fields::RUNFT, 20, "Front Feet"),
    Text(fields::DESCRIPT1, kReportCell, "Description 1"),
    Text(fields::DESCRIPT2, kReportCell, "Description 2"),
    Text(fields::DESCRIPT3, kReportCell, "Description 3"),
    Text(fields::DESCRIPT4, kReportCell, "Description 4"),
    Text(fields::DESCRIPT5, kReportCell, "Description 5"),
    // notes and photos
    Text(fields::NOTES, kNoteSize, "Notes"),
    Text(fields::MISCCOMM, kNoteSize, "Comments"),
    Text(fields::MISCCOMM2, kNoteSize, "Comments 2"),
    Text(fields::MISCCOMM3, kNoteSize, "Comments 3"),
    Text(fields::PICTFILENM, 60, "Picture File"),
    Text(fields::APPRSRFILE, 30, "File No."),
    Text(fields::PHOTOS, 0, "Photos"),
    Text(fields::FRONT, 1, "Front"),
    Text(fields::FRONTPHOTO, 0, "Front Photo"),
};

engine::FieldType TypeOf(const CompsColumn& column)
{
    if (column.size > 0)
        return engine::FieldType::Text;
    return column.name == fields::FRONTPHOTO ? engine::FieldType::LongBinary : engine::FieldType::Memo;
}

engine::Field MakeField(const QString& name, engine::FieldType type, int size)
{
    engine::Field field;
    field.name = name;
    field.type = type;
    field.size = size;
    return field;
}

engine::FieldList CompsFields()
{
    engine::FieldList fields;
    fields.reserve(static_cast<qsizetype>(kComps.size()));
    for (const CompsColumn& column : kComps) {
        fields.append(MakeField(QString(column.name), TypeOf(column), column.size));
        fields.last().sortsAs = column.sorts;
    }
    return fields;
}

struct PlainColumn
{
    Name name;
    int size;
};

template <std::size_t N>
engine::TableDef PlainTable(const char* name, const std::array<PlainColumn, N>& columns)
{
    engine::TableDef table;
    table.name = QString::fromLatin1(name);
    for (const PlainColumn& column : columns)
        table.fields.append(MakeField(column.name, engine::FieldType::Text, column.size));
    return table;
}

constexpr std::array<PlainColumn, 10> kMapping = {{
    {Name("FORMTYPE"), 10},
    {Name("FORMNAME"), 20},
    {Name("FIELDNAME"), 20},
    {Name("ROW"), 6},
    {Name("CELL"), 10},
    {Name("COMPTYPE"), 10},
    {Name("COMP"), 4},
    {Name("OFFSET"), 10},
    {Name("PREEVAL"), 20},
    {Name("TRUEFALSE"), 4},
}};

// Text fields of the engine's default size.
constexpr std::array<PlainColumn, 10> kAppraisal = {{
    {Name("ID"), 255},
    {Name("NAME"), 255},
    {fields::ADDRESS, 255},
    {fields::ADDRESS2, 255},
    {fields::CITY, 255},
    {fields::ST, 255},
    {fields::ZIP, 255},
    {fields::COUNTY, 255},
    {Name("HYPERLINK"), 255},
    {Name("Information"), 255},
}};

constexpr std::array<PlainColumn, 4> kCities = {
    {{fields::CITY, 25}, {fields::ST, 4}, {fields::ZIP, 10}, {fields::COUNTY, 25}}};

/// Phrases of the keys stand in the first six rows, "1" to "6"; the library of a field can't outgrow the
/// table.
void AddCommentRows(engine::Database& database)
{
    engine::Transaction rows(database);
    const std::unique_ptr<engine::Recordset> table =
        database.OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    const QString key = fields::CENTRALKEY;
    for (int row = 1; row <= kCommentKeyRows + kCommentListRows; ++row) {
        table->AddNew();
        table->SetValue(key, row <= kCommentKeyRows ? QString::number(row) : QString(20, QLatin1Char(' ')));
        table->Update();
    }
    table->Close();
    rows.Commit();
}

enum class FileKind { Databook, Comments, Mapping, Appraisal };

struct FileRow
{
    QLatin1StringView name;
    FileKind kind;
};

constexpr FileRow kFiles[] = {
    {Name("NEWDATA.MDB"), FileKind::Databook},        {Name("NEWCMTS.MDB"), FileKind::Comments},
    {Name("COMMENTS.MDB"), FileKind::Comments},       {Name("TEMPCMTS.MDB"), FileKind::Comments},
    {Name("COMP2KEL.MDB"), FileKind::Mapping},        {Name("APPRAISAL.MBK"), FileKind::Appraisal},
    {Name("APPRAISAL.MDB"), FileKind::Appraisal},     {Name("REPORT_BRIEF.MDB"), FileKind::Databook},
    {Name("REPORT_MEDIUM.MDB"), FileKind::Databook},  {Name("REPORT_DETAIL.MDB"), FileKind::Databook},
    {Name("REPORT_NONDESC.MDB"), FileKind::Databook},
};

FileKind KindOf(const QString& path)
{
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('\\')) + 1);
    for (const FileRow& row : kFiles)
        if (name.compare(row.name, Qt::CaseInsensitive) == 0)
            return row.kind;
    return FileKind::Databook;
}

void Fill(engine::Database& database, FileKind kind)
{
    switch (kind) {
    case FileKind::Databook:
        database.CreateTable(CompsTable());
        return;
    case FileKind::Comments:
        for (const engine::TableDef& table : CommentTables())
            database.CreateTable(table);
        AddCommentRows(database);
        return;
    case FileKind::Mapping:
        database.CreateTable(MappingTable());
        return;
    case FileKind::Appraisal:
        database.CreateTable(AppraisalTable());
        return;
    }
}

void KillQuietly(const files::Disk& disk, const QString& path)
{
    try {
        if (disk.Found(path, files::ReadOnly | files::Hidden))
            disk.Kill(path);
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to tell.
    }
}

} // namespace

std::span<const CompsColumn> CompsColumns()
{
    return kComps;
}

const CompsColumn* FindCompsColumn(const QString& name)
{
    const auto found = std::find_if(kComps.begin(), kComps.end(), [&name](const CompsColumn& column) {
        return name.compare(column.name, Qt::CaseInsensitive) == 0;
    });
    return found == kComps.end() ? nullptr : &*found;
}

const engine::TableDef& CompsTable()
{
    static const engine::TableDef table = [] {
        engine::TableDef comps;
        comps.name = u"COMPS"_s;
        comps.fields = CompsFields();
        comps.indexes = {
            {u"Centralkey"_s, {fields::CENTRALKEY}, true, true},
            // The second index that look-ups know: a comp by the appraiser's own file number.
            {u"FILENUMBERUSER"_s, {fields::APPRSRFILE}, false, false},
        };
        return comps;
    }();
    return table;
}

QList<engine::TableDef> CommentTables()
{
    // As many columns as COMPS, for the check at start counts them. The free list's keys are all blank, so
    // the key can't be unique here.
    engine::TableDef phrases = PlainTable<0>("COMPS", {});
    phrases.fields = CompsFields();
    return {phrases, PlainTable("CITIES", kCities)};
}

const engine::TableDef& MappingTable()
{
    static const engine::TableDef table = [] {
        engine::TableDef mapping = PlainTable("Comp2Kel", kMapping);
        // Every send and every reading asks for one page of one form among the thousands of rows of all
        // forms.
        mapping.indexes = {{u"Page"_s, {u"FORMTYPE"_s, u"COMPTYPE"_s, u"COMP"_s}, false, false}};
        return mapping;
    }();
    return table;
}

const engine::TableDef& AppraisalTable()
{
    static const engine::TableDef table = PlainTable("appraisal", kAppraisal);
    return table;
}

void MakeDatabase(engine::Engine& engine, const QString& path)
{
    const files::Disk& disk = engine.Disk();
    if (disk.Found(path, files::ReadOnly | files::Hidden))
        return;
    const QString working = path + u".new"_s;
    KillQuietly(disk, working); // a run that was killed in the middle
    try {
        const std::shared_ptr<engine::Database> database = engine.CreateDatabase(working);
        Fill(*database, KindOf(path));
        database->Close();
        disk.Name(working, path);
    } catch (...) {
        KillQuietly(disk, working);
        throw;
    }
}

} // namespace vasclip::store
