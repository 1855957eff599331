#include "store/schema.h"

#include "platform/text/runtime_error.h"

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

constexpr CompsColumn Text(const char* name, int size, const char* heading)
{
    return {Name(name), size, engine::SortsAs::Text, Name(heading)};
}
constexpr CompsColumn Num(const char* name, int size, const char* heading)
{
    return {Name(name), size, engine::SortsAs::Number, Name(heading)};
}
constexpr CompsColumn Day(const char* name, const char* heading)
{
    return {Name(name), kDateSize, engine::SortsAs::Date, Name(heading)};
}

constexpr std::array kComps = {
    // key and identity
    Text("CENTRALKEY", kKeySize, "Key"),
    Text("COMPID", 7, "Comp ID"),
    Text("APPRSLTYPE", 1, "Type"),
    Text("COMPCODE", 10, "Comp Code"),
    Text("CTSCODE", 10, "CTS Code"),
    Text("STRCODE", 10, "Stories"),
    // location
    Text("ADDRESS", kKeySize, "Address"),
    Text("ADDRESS2", kKeySize, "Address 2"),
    Text("CITY", 25, "City"),
    Text("ST", 4, "State"),
    Text("ZIP", 10, "ZIP"),
    Text("COUNTY", 25, "County"),
    Text("NEIGHBORHD", kReportCell, "Neighborhood"),
    Text("CENSUSTRCT", 15, "Census Tract"),
    Text("TAXMAPNUM", 30, "Tax Map No."),
    Text("FLOODMAP", 25, "Flood Map"),
    Num("LONGITUDE", 11, "Longitude"),
    Num("LATITUDE", 11, "Latitude"),
    Text("ANCHORED", 1, "Anchored"),
    // dates and calculated fields
    Day("LOADDATE", "Load Date"),
    Num("LOADSERIAL", 10, "Load Serial"),
    Day("SALEDATE", "Sale Date"),
    Text("SALEFLD", kReportCell, "Sale Date on Report"),
    Num("SALESERIAL", 10, "Sale Serial"),
    Day("MODIFIEDDATE", "Modified"),
    Day("CONTRKDATE", "Contract Date"),
    Num("PRICEGLA", 10, "Price/GLA"),
    Num("AGE", 4, "Age"),
    Day("LEASEDATE", "Lease Date"),
    // sale
    Num("SELLINGPR", 10, "Price"),
    Text("PRICEFLD", 20, "Price on Report"),
    Text("RENTFLD", 20, "Rent on Report"),
    Text("DATASOURCE", kReportCell, "Data Source"),
    Text("VERIFYSRCE", kReportCell, "Verification"),
    Text("SFCONCESS1", kReportCell, "Concessions"),
    Text("SFCONCESS2", kReportCell, "Concessions 2"),
    Text("FINANCETYP", 20, "Financing"),
    Text("ERCFINAL", 20, "ERC Final"),
    Text("MKTCHANGE", 30, "Market Change"),
    Num("DAYSONMKT", 10, "Days on Market"),
    Text("SALEHIST1", kReportCell, "Sale History 1"),
    Text("SALEHIST2", kReportCell, "Sale History 2"),
    Text("SALEHIST3", kReportCell, "Sale History 3"),
    Text("SALEHIST4", 20, "Sale History 4"),
    Text("SALEHIST5", 20, "Sale History 5"),
    // dwelling
    Num("GLA", 10, "GLA"),
    Num("ROOMCOUNT", 6, "Rooms"),
    Num("BEDROOM", 6, "Bedrooms"),
    Num("BATH", 6, "Baths"),
    Num("YEARBUILT", 20, "Year Built"),
    Text("SITE", 30, "Site"),
    Text("LOCATION", 30, "Location"),
    Text("DESIGNAPPL", 30, "Design/Appeal"),
    Text("CONSTRQUAL", 30, "Quality"),
    Text("CONDITION", 30, "Condition"),
    Text("FUNCTUTIL", 30, "Functional Utility"),
    Text("FUNCUTIL1", 30, "Functional Utility 1"),
    Text("FUNCUTIL2", 30, "Functional Utility 2"),
    Text("FUNCUTIL3", 30, "Functional Utility 3"),
    Text("FUNCUTIL4", 30, "Functional Utility 4"),
    Text("FUNCUTIL5", 30, "Functional Utility 5"),
    Text("FUNCUTIL6", 30, "Functional Utility 6"),
    Text("BASEMENT", 30, "Basement"),
    Text("FINISHED", 30, "Finished Below Grade"),
    Text("AC", 30, "Heating/Cooling"),
    Text("ENERGYEFF1", 30, "Energy Efficient 1"),
    Text("ENERGYEFF2", 30, "Energy Efficient 2"),
    Text("PARKING", 30, "Parking"),
    Text("PORCHPATI1", 30, "Porch/Patio 1"),
    Text("PORCHPATI2", 30, "Porch/Patio 2"),
    Text("FIREPLACES", 30, "Fireplaces"),
    Text("STORAGE", 30, "Storage"),
    Text("COMMONELEM", 30, "Common Elements"),
    Text("LEASEFEE", 30, "Leasehold/Fee"),
    Text("INTDECOR", 30, "Interior"),
    Text("OTHER1", 30, "Other 1"),
    Text("OTHER2", 30, "Other 2"),
    Text("OTHERAREA1", 20, "Other Area 1"),
    Text("OTHERAREA2", 20, "Other Area 2"),
    // condominium
    Num("PROJSIZE", 20, "Project Size"),
    Text("FLOORLOCAL", 20, "Floor Location"),
    Num("MONTHASSES", 20, "Monthly Assessment"),
    Text("UTILFURN1", 30, "Utilities/Furniture 1"),
    Text("UTILFURN2", 30, "Utilities/Furniture 2"),
    Text("UTILFURN3", 30, "Utilities/Furniture 3"),
    Text("UTILFURN4", 30, "Utilities/Furniture 4"),
    Text("UTILFURN5", 30, "Utilities/Furniture 5"),
    Text("UTILFURN6", 30, "Utilities/Furniture 6"),
    // income units
    Num("NUMBUNITS", 6, "Units"),
    Num("NUMVACANT", 6, "Vacant Units"),
    Num("UNITS_1", 6, "Units 1"),
    Num("UNITS_2", 6, "Units 2"),
    Num("UNITS_3", 6, "Units 3"),
    Num("UNITS_4", 6, "Units 4"),
    Num("VACANT_1", 6, "Vacant 1"),
    Num("VACANT_2", 6, "Vacant 2"),
    Num("VACANT_3", 6, "Vacant 3"),
    Num("VACANT_4", 6, "Vacant 4"),
    Num("SQFT_1", 10, "Sq. Ft. 1"),
    Num("SQFT_2", 10, "Sq. Ft. 2"),
    Num("SQFT_3", 10, "Sq. Ft. 3"),
    Num("SQFT_4", 10, "Sq. Ft. 4"),
    Num("ROOMCOUNT1", 6, "Rooms 1"),
    Num("ROOMCOUNT2", 6, "Rooms 2"),
    Num("ROOMCOUNT3", 6, "Rooms 3"),
    Num("ROOMCOUNT4", 6, "Rooms 4"),
    Num("BEDROOMS1", 6, "Bedrooms 1"),
    Num("BEDROOMS2", 6, "Bedrooms 2"),
    Num("BEDROOMS3", 6, "Bedrooms 3"),
    Num("BEDROOMS4", 6, "Bedrooms 4"),
    Num("BATHS1", 6, "Baths 1"),
    Num("BATHS2", 6, "Baths 2"),
    Num("BATHS3", 6, "Baths 3"),
    Num("BATHS4", 6, "Baths 4"),
    Num("MONTHRENT", 10, "Monthly Rent"),
    Num("MONTHRENT2", 10, "Monthly Rent 2"),
    Num("MONTHRENT3", 10, "Monthly Rent 3"),
    Num("MONTHRENT4", 10, "Monthly Rent 4"),
    Num("GRSMORENT", 10, "Gross Monthly Rent"),
    Text("RENTCONCES", kReportCell, "Rent Concessions"),
    Text("RENTEXTRA", kReportCell, "Rent Extras"),
    Text("FURNISHED", 20, "Furnished"),
    // land and description
    Num("LANDSIZE", 20, "Land Size"),
    Text("RUNFT", 20, "Front Feet"),
    Text("DESCRIPT1", kReportCell, "Description 1"),
    Text("DESCRIPT2", kReportCell, "Description 2"),
    Text("DESCRIPT3", kReportCell, "Description 3"),
    Text("DESCRIPT4", kReportCell, "Description 4"),
    Text("DESCRIPT5", kReportCell, "Description 5"),
    // notes and photos
    Text("NOTES", kNoteSize, "Notes"),
    Text("MISCCOMM", kNoteSize, "Comments"),
    Text("MISCCOMM2", kNoteSize, "Comments 2"),
    Text("MISCCOMM3", kNoteSize, "Comments 3"),
    Text("PICTFILENM", 60, "Picture File"),
    Text("APPRSRFILE", 30, "File No."),
    Text("PHOTOS", 0, "Photos"),
    Text("FRONT", 1, "Front"),
    Text("FRONTPHOTO", 0, "Front Photo"),
};

engine::FieldType TypeOf(const CompsColumn& column)
{
    if (column.size > 0)
        return engine::FieldType::Text;
    return column.name == Name("FRONTPHOTO") ? engine::FieldType::LongBinary : engine::FieldType::Memo;
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
    const char* name;
    int size;
};

template <std::size_t N>
engine::TableDef PlainTable(const char* name, const std::array<PlainColumn, N>& columns)
{
    engine::TableDef table;
    table.name = QString::fromLatin1(name);
    for (const PlainColumn& column : columns)
        table.fields.append(
            MakeField(QString::fromLatin1(column.name), engine::FieldType::Text, column.size));
    return table;
}

constexpr std::array<PlainColumn, 10> kMapping = {{
    {"FORMTYPE", 10},
    {"FORMNAME", 20},
    {"FIELDNAME", 20},
    {"ROW", 6},
    {"CELL", 10},
    {"COMPTYPE", 10},
    {"COMP", 4},
    {"OFFSET", 10},
    {"PREEVAL", 20},
    {"TRUEFALSE", 4},
}};

// Text fields of the engine's default size.
constexpr std::array<PlainColumn, 10> kAppraisal = {{
    {"ID", 255},
    {"NAME", 255},
    {"ADDRESS", 255},
    {"ADDRESS2", 255},
    {"CITY", 255},
    {"ST", 255},
    {"ZIP", 255},
    {"COUNTY", 255},
    {"HYPERLINK", 255},
    {"Information", 255},
}};

constexpr std::array<PlainColumn, 4> kCities = {{{"CITY", 25}, {"ST", 4}, {"ZIP", 10}, {"COUNTY", 25}}};

/// Phrases of the keys stand in the first six rows, "1" to "6"; the library of a field can't outgrow the
/// table.
void AddCommentRows(engine::Database& database)
{
    engine::Transaction rows(database);
    const std::unique_ptr<engine::Recordset> table =
        database.OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    const QString key = u"CENTRALKEY"_s;
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
            {u"Centralkey"_s, {u"CENTRALKEY"_s}, true, true},
            // The second index that look-ups know: a comp by the appraiser's own file number.
            {u"FILENUMBERUSER"_s, {u"APPRSRFILE"_s}, false, false},
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
