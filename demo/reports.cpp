#include "demo/forms_files.h"

#include "formsbook/kel_ini.h"
#include "formsbook/layout.h"
#include "formsbook/mapping.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

/// "1.2 Mi. NW": where `there` lies as seen from `here`; "" if either is unknown.
QString Proximity(const Comp& here, const Comp& there)
{
    const auto degrees = [](const Comp& comp, const char16_t* name) {
        return comp.fields.value(QString::fromUtf16(name)).toDouble();
    };
    const double toLatitude = degrees(there, u"LATITUDE");
    const double latitude = degrees(here, u"LATITUDE");
    if (toLatitude == 0 || latitude == 0)
        return {};
    const double north = (toLatitude - latitude) * 69.0;
    const double east = (degrees(there, u"LONGITUDE") - degrees(here, u"LONGITUDE")) * 69.0 * 0.709;
    static const QStringList winds{u"N"_s, u"NE"_s, u"E"_s, u"SE"_s, u"S"_s, u"SW"_s, u"W"_s, u"NW"_s};
    const double turn = std::atan2(east, north) * 4 / 3.14159265358979;
    const int wind = (static_cast<int>(std::lround(turn)) + 8) % 8;
    return u"%1 Mi. %2"_s.arg(std::hypot(north, east), 0, 'f', 1).arg(winds[wind]);
}

/// A picture of its own, which stands beside the report: 1 to 3 the subject's, the general ones behind them.
QString OwnPicture(const QString& report, int number)
{
    const formsbook::KelPlaces kel;
    return kel.dataDir + report.section(u'.', 0, 0) + u"_%1.JPG"_s.arg(number);
}

struct Group
{
    QLatin1StringView compType, objectPrefix;
};
constexpr Group kSales{"SALE"_L1, "CMP_"_L1};
constexpr Group kAlternates{"ALT"_L1, "ALT_"_L1};
constexpr Group kListings{"LIST"_L1, "LCMP_"_L1};
constexpr Group kRentals{"RENT"_L1, "RCMP_"_L1};

/// The general photos of the full report.
struct General
{
    QLatin1StringView words;
    View view;
    Room room;
};
constexpr General kGeneral[] = {
    {"KITCHEN"_L1, View::Inside, Room::Kitchen},
    {"LIVING ROOM"_L1, View::Inside, Room::LivingRoom},
    {"MAIN BATH"_L1, View::Inside, Room::MainBath},
    {"BASEMENT"_L1, View::Inside, Room::Basement},
    {"GARAGE INTERIOR"_L1, View::Inside, Room::GarageInterior},
    {"VIEW FROM DECK"_L1, View::Inside, Room::Deck},
};
constexpr int kFirstGeneral = 4;

QString BedBath(const Comp& comp)
{
    return comp.fields.value(u"BEDROOM"_s) + u" / "_s + comp.fields.value(u"BATH"_s);
}

class Report
{
public:
    Report(const QString& name, const QString& formType, const QStringList& forms, Subject subject,
           const QString& fileNumber)
        : m_name(name)
        , m_formType(formType)
        , m_forms(forms)
        , m_subject(MakeSubject(subject))
    {
        m_subject.fields[u"APPRSRFILE"_s] = fileNumber;
        PutSubject();
        for (int view = 1; view <= 3; ++view)
            PutPicture(u"SUB_%1_3X5"_s.arg(view), OwnPicture(name, view));
    }

    [[nodiscard]] const Comp& TheSubject() const { return m_subject; }

    /// Fills a comp's column.
    void PutComp(const Group& group, int comp, const Comp& record)
    {
        const QString base = QString::number((comp - 1) / 3 * 3 + 1);
        for (const formsbook::MappingRow& row : formsbook::MappingRows(m_formType)) {
            if (row.compType != group.compType || row.comp != base)
                continue;
            const int cell = row.cell.toInt() + (comp - 1) % 3 * row.offset.toInt();
            PutCell(row.formName, row.row, cell, ValueOf(record, row));
        }
    }
    void PutPhoto(const Group& group, int comp, const Comp& record, const QString& photoDirectory)
    {
        for (const Photo& photo : record.photos)
            if (photo.view == "FRONT VIEW"_L1)
                PutPicture(u"%1%2_3X5"_s.arg(group.objectPrefix).arg(comp), photoDirectory + photo.stem + u".jpg"_s);
    }
    void PutGeneral(int number, const QString& view, const QString& path)
    {
        const QString page = u"GENPH%1"_s.arg((number + 2) / 3, 2, 10, QLatin1Char('0'));
        const QString row = QString::number((number - 1) % 3 + 1);
        PutCell(page, row, 1, view);
        PutCell(page, row, 2, m_subject.fields.value(u"ADDRESS"_s));
        PutPicture(u"GN_%1_3X5"_s.arg(number), path);
    }
    void PutAddendum(const QStringList& lines)
    {
        for (qsizetype i = 0; i < lines.size(); ++i)
            PutCell(formsbook::kAddendumPage, QString::number(i + 1), 1, lines[i]);
    }
    void PutPicture(const QString& object, const QString& path) { m_images.insert(object, path); }

    [[nodiscard]] QJsonObject Json() const
    {
        const auto& fields = m_subject.fields;
        return {{u"name"_s, m_name},
                {u"forms"_s, QJsonArray::fromStringList(m_forms)},
                {u"cells"_s, m_cells},
                {u"images"_s, m_images},
                {u"variables"_s, QJsonObject{{u"Address"_s, fields.value(u"ADDRESS"_s)},
                                             {u"City"_s, fields.value(u"CITY"_s)},
                                             {u"State"_s, fields.value(u"ST"_s)},
                                             {u"Zip"_s, fields.value(u"ZIP"_s)}}}};
    }

private:
    [[nodiscard]] QString ValueOf(const Comp& record, const formsbook::MappingRow& row) const
    {
        const auto& fields = record.fields;
        if (row.trueFalse == "A"_L1 || row.trueFalse == "R"_L1 || row.fieldName == "CENTRALKEY"_L1 || row.fieldName == "SALEDATE"_L1)
            return {}; // not sent by cell, or not at all
        if (row.fieldName == "PROXIMITY"_L1)
            return Proximity(m_subject, record);
        if (row.fieldName == "BEDBATH"_L1)
            return BedBath(record);
        if (row.fieldName == "CITYSTZIP"_L1) // the second address line of a comp
            return u"%1, %2 %3"_s.arg(fields.value(u"CITY"_s), fields.value(u"ST"_s), fields.value(u"ZIP"_s));
        return fields.value(row.fieldName);
    }

    void PutSubject()
    {
        for (const formsbook::MappingRow& row : formsbook::MappingRows(m_formType)) {
            if (row.comp != "10"_L1)
                continue;
            QString value =
                row.fieldName == "BEDBATH"_L1 ? BedBath(m_subject) : m_subject.fields.value(row.fieldName);
            if (row.trueFalse == "A"_L1)
                value = m_subject.fields.value(row.preEval) + u' ' + value;
            PutCell(row.formName, row.row, row.cell.toInt(), value);
        }
    }

    void PutCell(const QString& form, const QString& row, int cell, const QString& text)
    {
        if (!text.isEmpty())
            m_cells.insert(u"%1|%2|%3"_s.arg(form, row).arg(cell), text);
    }

    QString m_name;
    QString m_formType;
    QStringList m_forms;
    Comp m_subject;
    QJsonObject m_cells;
    QJsonObject m_images;
};

/// Records fit to be comps of the subject, the best ones first: closed sales of houses that have a picture,
/// near by.
QList<Comp> Candidates(const QList<Comp>& comps, const Comp& subject)
{
    QList<Comp> fit;
    for (const Comp& comp : comps)
        if (comp.type != u'R' && comp.type != u'L')
            fit.append(comp);
    const auto score = [&subject](const Comp& comp) {
        const auto same = [&](const char16_t* field) {
            return comp.fields.value(QString::fromUtf16(field)) ==
                   subject.fields.value(QString::fromUtf16(field));
        };
        return (comp.type == u'F' ? 8 : 0) + (comp.photos.isEmpty() ? 0 : 10) +
               (comp.fields.value(u"SALEFLD"_s) == "Pending"_L1 ? 0 : 4) + (same(u"NEIGHBORHD") ? 3 : 0) +
               (same(u"CITY") ? 2 : 0) + (comp.fields.contains(u"LATITUDE"_s) ? 1 : 0);
    };
    std::stable_sort(fit.begin(), fit.end(),
                     [&](const Comp& a, const Comp& b) { return score(a) > score(b); });
    return fit;
}

} // namespace

QJsonObject BigReport(const QList<Comp>& comps, const QString& photoDirectory)
{
    const QString formType = u"UA5"_s;
    const QStringList pages = formsbook::PagesOf(*formsbook::FindForm(formType), formsbook::Edition::Small);
    Report report(u"OAKST114.RPT"_s, formType, pages, Subject::OakStreet, u"26-0417"_s);
    const QList<Comp> fit = Candidates(comps, report.TheSubject());
    for (int comp = 1; comp <= 2 && comp <= fit.size(); ++comp) {
        report.PutComp(kSales, comp, fit[comp - 1]);
        report.PutPhoto(kSales, comp, fit[comp - 1], photoDirectory);
    }
    return report.Json();
}

QJsonObject FullReport(const QList<Comp>& comps, const QString& photoDirectory)
{
    const QString name = u"LAUREL.RPT"_s;
    const QString formType = u"UA5"_s;
    const QStringList pages = formsbook::PagesOf(*formsbook::FindForm(formType), formsbook::Edition::Small);
    Report report(name, formType, pages, Subject::LaurelHill, u"26-0440"_s);
    QList<Comp> rentals;
    for (const Comp& comp : comps)
        if (comp.type == u'R')
            rentals.append(comp);
    std::stable_sort(rentals.begin(), rentals.end(), [](const Comp& a, const Comp& b) {
        return !a.photos.isEmpty() && b.photos.isEmpty();
    });
    QList<Comp> fit = Candidates(comps, report.TheSubject());
    const auto put = [&](const Group& group, int count, QList<Comp>& from, int withPhoto) {
        for (int comp = 1; comp <= count && !from.isEmpty(); ++comp) {
            const Comp record = from.takeFirst();
            report.PutComp(group, comp, record);
            if (comp <= withPhoto)
                report.PutPhoto(group, comp, record, photoDirectory);
        }
    };
    put(kSales, 5, fit, 4);
    put(kAlternates, 2, fit, 2);
    put(kListings, 3, fit, 3);
    put(kRentals, 3, rentals, 3);
    int number = 0;
    for (const General& general : kGeneral) {
        report.PutGeneral(number + 1, general.words, OwnPicture(name, kFirstGeneral + number));
        ++number;
    }
    report.PutPicture(u"SUB_TITLE"_s, OwnPicture(name, 1));
    report.PutAddendum(
        {u"The subject was inspected on June 26, 2026, from the street and from within."_s,
         u"The kitchen and the main bath were renewed in 2019; the basement is dry and unfinished."_s,
         u"The deck looks west over the orchards to the hills, which buyers of this street pay for."_s,
         u"Comparable 5 is to be photographed."_s});
    return report.Json();
}

QJsonObject SmallReport(const QList<Comp>& comps, const QString& photoDirectory)
{
    const QString formType = u"2055"_s;
    QStringList pages{formType};
    for (const formsbook::PhotoPage& page : formsbook::PhotoPages(formsbook::Edition::Small)) {
        const bool wanted = page.kind == formsbook::PhotoKind::Subject ||
                            (page.kind == formsbook::PhotoKind::Comps && page.number == 1);
        if (wanted)
            pages.append(page.code);
    }
    Report report(u"FERRY22.RPT"_s, formType, pages, Subject::FerryStreet, u"26-0431"_s);
    const QList<Comp> fit = Candidates(comps, report.TheSubject());
    if (!fit.isEmpty()) {
        report.PutComp(kSales, 1, fit.first());
        report.PutPhoto(kSales, 1, fit.first(), photoDirectory);
    }
    return report.Json();
}

QList<Shot> SubjectPictures()
{
    QList<Shot> shots;
    for (const auto& [subject, report] : {std::pair(Subject::OakStreet, u"OAKST114.RPT"_s),
                                          {Subject::FerryStreet, u"FERRY22.RPT"_s},
                                          {Subject::LaurelHill, u"LAUREL.RPT"_s}}) {
        const Look look = MakeSubject(subject).look;
        for (const View view : {View::Front, View::Rear, View::Street})
            shots.append({OwnPicture(report, static_cast<int>(view) + 1), look, view});
        if (subject != Subject::LaurelHill)
            continue;
        for (int i = 0; i < static_cast<int>(std::size(kGeneral)); ++i)
            shots.append({OwnPicture(report, kFirstGeneral + i), look, kGeneral[i].view, kGeneral[i].room});
    }
    return shots;
}

} // namespace vasclip::demo
