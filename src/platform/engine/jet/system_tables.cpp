#include "platform/engine/jet/system_tables.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

// Identifiers of users as files with this header store them; the header's creation date and build number belong
// to the stream that hides them.
const QByteArray kEngine("\x65\x89", 2);
const QByteArray kCreator("\x65\x8E", 2);
const QByteArray kUsers("\x65\x8B", 2);
const QByteArray kAdmin("\x64\x8B", 2);

constexpr quint32 kTables = 0x0F000001;
constexpr quint32 kDatabases = 0x0F000002;
constexpr quint32 kRelations = 0x0F000003;
constexpr quint32 kRoot = 0x0F000000;
constexpr quint32 kDatabase = 0x10000000;
constexpr quint32 kSystem = 0x80000000;

NewColumn Of(const QString& name, ColumnType type, quint8 marks = 0x10)
{
    NewColumn column;
    column.name = name;
    column.type = type;
    column.marks = marks;
    switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Byte:
        column.length = 1;
        break;
    case ColumnType::Integer:
        column.length = 2;
        break;
    case ColumnType::Long:
        column.length = 4;
        break;
    case ColumnType::Date:
        column.length = 8;
        break;
    case ColumnType::Text:
    case ColumnType::Binary:
        column.length = 510;
        break;
    default:
        break;
    }
    return column;
}

NewTable SystemTable(const QString& name, const QList<NewColumn>& columns, const QList<NewIndex>& indexes)
{
    NewTable table{name, true, columns, indexes};
    table.Arrange();
    return table;
}

NewTable Objects()
{
    using enum ColumnType;
    return SystemTable(u"MSysObjects"_s,
                       {Of(u"Id"_s, Long), Of(u"ParentId"_s, Long), Of(u"Name"_s, Text), Of(u"Type"_s, Integer),
                        Of(u"DateCreate"_s, Date), Of(u"DateUpdate"_s, Date), Of(u"Owner"_s, Binary, 0x30),
                        Of(u"Flags"_s, Long), Of(u"Database"_s, Memo), Of(u"Connect"_s, Memo),
                        Of(u"ForeignName"_s, Text), Of(u"RmtInfoShort"_s, Binary), Of(u"RmtInfoLong"_s, LongBinary),
                        Of(u"Lv"_s, LongBinary), Of(u"LvProp"_s, LongBinary), Of(u"LvModule"_s, LongBinary),
                        Of(u"LvExtra"_s, LongBinary)},
                       {{u"ParentIdName"_s, {1, 2}, 0x81, false}, {u"Id"_s, {0}, 0x81, true}});
}

NewTable Rights()
{
    using enum ColumnType;
    return SystemTable(u"MSysACEs"_s,
                       {Of(u"ObjectId"_s, Long), Of(u"SID"_s, Binary, 0x30), Of(u"ACM"_s, Long),
                        Of(u"FInheritable"_s, Boolean)},
                       {{u"ObjectId"_s, {0}, 0x88, false}});
}

NewTable Queries()
{
    using enum ColumnType;
    return SystemTable(u"MSysQueries"_s,
                       {Of(u"ObjectId"_s, Long), Of(u"Attribute"_s, Byte), Of(u"Order"_s, Binary),
                        Of(u"Name1"_s, Text), Of(u"Name2"_s, Text), Of(u"Expression"_s, Memo), Of(u"Flag"_s, Integer),
                        Of(u"LvExtra"_s, Long)},
                       {{u"ObjectIdAttribute"_s, {0, 1, 2}, 0x81, true}});
}

NewTable Relations()
{
    using enum ColumnType;
    return SystemTable(u"MSysRelationships"_s,
                       {Of(u"szRelationship"_s, Text), Of(u"grbit"_s, Long), Of(u"ccolumn"_s, Long),
                        Of(u"icolumn"_s, Long), Of(u"szObject"_s, Text), Of(u"szColumn"_s, Text),
                        Of(u"szReferencedObject"_s, Text), Of(u"szReferencedColumn"_s, Text)},
                       {{u"szRelationship"_s, {0}, 0x82, false},
                        {u"szObject"_s, {4}, 0x82, false},
                        {u"szReferencedObject"_s, {6}, 0x82, false}});
}

QVariant Number(quint32 value)
{
    return QVariant::fromValue<qlonglong>(static_cast<qint32>(value));
}

} // namespace

SystemTables::SystemTables(PageWriter& pages, MapWriter& maps)
    : m_objects(pages, maps, Objects(), SystemPlace{2, 7, 14})
    , m_rights(pages, maps, Rights(), SystemPlace{3, 9, 15})
    , m_queries(pages, maps, Queries(), SystemPlace{4, 10, 0})
    , m_relations(pages, maps, Relations(), SystemPlace{5, 11, 0})
{}

void SystemTables::WriteObjects(const QDateTime& now)
{
    struct Object
    {
        quint32 id, parent;
        QString name;
        int type;
        quint32 flags;
        QByteArray owner;
    };
    QList<Object> objects{{kTables, kRoot, u"Tables"_s, 3, kSystem, kEngine},
                          {kDatabases, kRoot, u"Databases"_s, 3, kSystem, kEngine},
                          {kRelations, kRoot, u"Relationships"_s, 3, kSystem, kEngine},
                          {kDatabase, kDatabases, u"MSysDb"_s, 2, kSystem, kAdmin},
                          {2, kTables, u"MSysObjects"_s, 1, kSystem, kEngine},
                          {3, kTables, u"MSysACEs"_s, 1, kSystem, kEngine},
                          {4, kTables, u"MSysQueries"_s, 1, kSystem, kEngine},
                          {5, kTables, u"MSysRelationships"_s, 1, kSystem, kEngine}};
    for (const Listed& table : std::as_const(m_listed))
        objects.append({table.page, kTables, table.name, 1, 0, kAdmin});
    for (const Object& object : std::as_const(objects)) {
        QVariantList row{Number(object.id), Number(object.parent), object.name, object.type, now, now, object.owner,
                         Number(object.flags)};
        row.resize(m_objects.Table().columns.size());
        m_objects.Add(row);
    }
}

void SystemTables::WriteRights()
{
    struct Right
    {
        quint32 object;
        QByteArray user;
        quint32 may;
        bool inherited;
    };
    QList<Right> rights{
        {2, kAdmin, 0x60000, false},         {3, kAdmin, 0x60000, false},     {4, kAdmin, 0x60000, false},
        {5, kAdmin, 0xE0000, false},         {kTables, kCreator, 0xF00FE, true},
        {kTables, kAdmin, 0x60001, false},   {kRelations, kCreator, 0xF00FE, true},
        {kRelations, kAdmin, 0x60001, false}, {kDatabases, kAdmin, 0x60000, false},
        {kDatabase, kAdmin, 0x6000E, false}, {kDatabase, kUsers, 0x0E, false}, {4, kUsers, 0x14, false},
        {5, kUsers, 0x14, false},            {2, kUsers, 0x14, false},        {kTables, kUsers, 0xFFEFF, true},
        {kRelations, kUsers, 0xFFFFF, true}};
    for (const Listed& table : std::as_const(m_listed)) {
        rights.append({table.page, kAdmin, 0xFFFFF, false});
        rights.append({table.page, kUsers, 0xFFFFF, false});
    }
    for (const Right& right : std::as_const(rights))
        m_rights.Add({Number(right.object), right.user, Number(right.may), right.inherited});
}

void SystemTables::Finish(const QDateTime& now)
{
    WriteObjects(now);
    WriteRights();
    for (TableWriter* table : {&m_objects, &m_rights, &m_queries, &m_relations})
        table->Finish();
}

} // namespace vasclip::engine::jet
