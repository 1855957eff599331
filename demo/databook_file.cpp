#include "demo/databook_file.h"

#include "platform/text/runtime_error.h"
#include "store/schema.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

/// @throws RuntimeError 3163 that names record and field: the made-up data must fit, cutting it would hide
/// that
void Put(engine::Recordset& table, const QString& record, const QString& name, const QString& value)
{
    const int at = table.FieldIndex(name);
    if (at < 0)
        throw RuntimeError(error::kFieldUnknown, u"The Databook has no field %1"_s.arg(name));
    const engine::Field& field = table.Fields().at(at);
    if (field.type == engine::FieldType::Text && value.size() > field.size)
        throw RuntimeError(error::kFieldTooLong,
                           u"%1 of %2 is longer than the %3 characters of its field: '%4'"_s.arg(name, record)
                               .arg(field.size)
                               .arg(value));
    table.SetValue(at, value);
}

QString Padded(const engine::Recordset& table, const QString& name, const QString& value)
{
    return value.leftJustified(table.Fields().at(table.FieldIndex(name)).size, u' ');
}

struct Phrases
{
    const char* field;
    QList<const char*> keys; ///< F3 to F8
    QList<const char*> list;
};

const QList<Phrases>& Library()
{
    static const QList<Phrases> library{
        {"LOCATION",
         {"Suburban", "Urban", "Rural", "Suburban/Good", "Busy Street", "Cul-de-sac"},
         {"Adjoins park", "Near freeway", "River frontage"}},
        {"CONDITION",
         {"Average", "Good", "Very Good", "Fair", "Avg/Good", "New"},
         {"Recently remodeled", "Deferred maintenance"}},
        {"CONSTRQUAL", {"Average", "Good", "Avg/Good", "Very Good", "Fair", "Custom"}, {}},
        {"DESIGNAPPL",
         {"Ranch/Avg", "Colonial/Avg", "Cape Cod/Avg", "Split Level/Avg", "Bungalow/Avg", "Farmhouse/Avg"},
         {"Contemporary/Good", "Townhouse/Avg"}},
        {"FUNCTUTIL", {"Average", "Typical", "Good", "Fair", "Obsolete plan", "Average/Good"}, {}},
        {"BASEMENT", {"Full", "Partial", "None", "Crawl Space", "Daylight", "Slab"}, {"Walk-out"}},
        {"FINISHED", {"None", "Rec Room", "50% Finished", "75% Finished", "Full Bath", "Bedroom"}, {}},
        {"AC", {"FWA/CAC", "FWA/None", "Heat Pump", "HWBB/None", "Elec BB/Wall", "Wall Heat"}, {}},
        {"PARKING",
         {"1 Car Garage", "2 Car Garage", "3 Car Garage", "Carport", "None", "Open Parking"},
         {"Detached garage"}},
        {"PORCHPATI1", {"Porch", "Covered Porch", "Stoop", "Patio", "Balcony", "None"}, {}},
        {"PORCHPATI2", {"Deck", "Patio", "Deck/Patio", "None", "Gazebo", "Screened porch"}, {}},
        {"FIREPLACES", {"None", "1 Fireplace", "2 Fireplaces", "Wood stove", "Insert", "Gas log"}, {}},
        {"DATASOURCE", {"MLS", "County Records", "Office File", "Owner", "Agent", "Drive-by"}, {}},
        {"VERIFYSRCE",
         {"County Assessor", "Public Records", "Listing Agent", "Selling Agent", "Deed", "Owner"},
         {}},
        {"SFCONCESS1", {"Conv", "FHA", "VA", "Cash", "Contract", "Assumed"}, {}},
        {"SFCONCESS2", {"None Noted", "Points paid", "Closing costs", "Repairs", "Buydown", "Unknown"}, {}},
        {"ENERGYEFF1",
         {"Typical", "Dbl Pane Windows", "Solar Panels", "Ins. Doors", "None", "Upgraded insul."},
         {}},
        {"OTHER1", {"Fence", "None", "Sprinklers", "Shed", "Pool", "RV pad"}, {}},
    };
    return library;
}

} // namespace

QString PhotosText(const QList<Photo>& photos)
{
    QString text;
    for (const Photo& photo : photos)
        text += photo.view + u'|' + photo.stem + "\r\n"_L1;
    return text.isEmpty() ? u" "_s : text;
}

void MakeDatabook(engine::Engine& engine, const QString& path, const QList<Comp>& comps)
{
    store::MakeDatabase(engine, path);
    const std::shared_ptr<engine::Database> database = engine.OpenDatabase(path, engine::OpenMode::Exclusive);
    engine::Transaction all(*database);
    AddComps(*database, comps);
    all.Commit();
    database->Close();
}

void AddComps(engine::Database& database, const QList<Comp>& comps,
              const std::function<void(engine::Recordset& row, const Comp& comp)>& more)
{
    const std::unique_ptr<engine::Recordset> table =
        database.OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    for (const Comp& comp : comps) {
        table->AddNew();
        Put(*table, comp.key, u"CENTRALKEY"_s, Padded(*table, u"CENTRALKEY"_s, comp.key));
        for (auto field = comp.fields.cbegin(); field != comp.fields.cend(); ++field) {
            const bool padded = field.key() == "ADDRESS"_L1;
            Put(*table, comp.key, field.key(),
                padded ? Padded(*table, field.key(), field.value()) : field.value());
        }
        Put(*table, comp.key, u"PHOTOS"_s, PhotosText(comp.photos));
        Put(*table, comp.key, u"FRONT"_s, comp.photos.isEmpty() ? QString() : u"1"_s);
        if (more)
            more(*table, comp);
        table->Update();
    }
    table->Close();
}

void MakeComments(engine::Engine& engine, const QString& path)
{
    store::MakeDatabase(engine, path);
    const std::shared_ptr<engine::Database> database = engine.OpenDatabase(path, engine::OpenMode::Exclusive);
    engine::Transaction all(*database);
    const std::unique_ptr<engine::Recordset> table =
        database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    table->MoveFirst();
    for (qsizetype row = 0; !table->Eof(); ++row, table->MoveNext()) {
        QList<std::pair<QString, QString>> phrases;
        for (const Phrases& field : Library()) {
            const qsizetype free = row - field.keys.size();
            if (row < field.keys.size())
                phrases.append({QString::fromLatin1(field.field), QString::fromLatin1(field.keys.at(row))});
            else if (free < field.list.size())
                phrases.append({QString::fromLatin1(field.field), QString::fromLatin1(field.list.at(free))});
        }
        if (phrases.isEmpty())
            break;
        table->Edit();
        for (const auto& [name, text] : phrases)
            Put(*table, u"the comment library"_s, name, text);
        table->Update();
    }
    table->Close();

    const std::unique_ptr<engine::Recordset> cities =
        database->OpenRecordset(u"CITIES"_s, engine::RecordsetType::Table);
    QStringList done;
    for (const Neighbourhood& place : Town()) {
        if (done.contains(place.city + place.zip))
            continue;
        done.append(place.city + place.zip);
        cities->AddNew();
        cities->SetValue(u"CITY"_s, place.city);
        cities->SetValue(u"ST"_s, place.state);
        cities->SetValue(u"ZIP"_s, place.zip);
        cities->SetValue(u"COUNTY"_s, place.county);
        cities->Update();
    }
    cities->Close();
    all.Commit();
    database->Close();
}

} // namespace vasclip::demo
