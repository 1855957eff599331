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
        const formsbook::KelPlaces kel;
        const QString stem = kel.dataDir + name.section(u'.', 0, 0);
        PutSubject();
        PutPicture(u"SUB_1_3X5"_s, stem + u"_1.JPG"_s);
        PutPicture(u"SUB_2_3X5"_s, stem + u"_2.JPG"_s);
        PutPicture(u"SUB_3_3X5"_s, stem + u"_3.JPG"_s);
    }

    [[nodiscard]] const Comp& TheSubject() const { return m_subject; }

    /// Fills a comp's column and picture; comp is 1 to 3.
    void PutComp(int comp, const Comp& record, const QString& photoDirectory)
    {
        for (const formsbook::MappingRow& row : formsbook::MappingRows(m_formType)) {
            if (row.compType != "SALE"_L1 || row.comp != "1"_L1)
                continue;
            const int cell = row.cell.toInt() + (comp - 1) * row.offset.toInt();
            PutCell(row.formName, row.row, cell, ValueOf(record, row));
        }
        for (const Photo& photo : record.photos)
            if (photo.view == "FRONT VIEW"_L1)
                PutPicture(u"CMP_%1_3X5"_s.arg(comp), photoDirectory + photo.stem + u".jpg"_s);
    }

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
        if (row.trueFalse == "A"_L1 || row.fieldName == "CENTRALKEY"_L1 || row.fieldName == "SALEDATE"_L1)
            return {}; // not sent by cell, or not at all
        if (row.fieldName == "PROXIMITY"_L1)
            return Proximity(m_subject, record);
        if (row.fieldName == "BEDBATH"_L1)
            return BedBath(record);
        if (row.fieldName == "NEIGHBORHD"_L1) // the second address line of a comp
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
    void PutPicture(const QString& object, const QString& path) { m_images.insert(object, path); }

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
    for (int comp = 1; comp <= 2 && comp <= fit.size(); ++comp)
        report.PutComp(comp, fit[comp - 1], photoDirectory);
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
    if (!fit.isEmpty())
        report.PutComp(1, fit.first(), photoDirectory);
    return report.Json();
}

QList<Shot> SubjectPictures()
{
    const formsbook::KelPlaces kel;
    QList<Shot> shots;
    for (const auto& [subject, stem] :
         {std::pair(Subject::OakStreet, u"OAKST114"_s), {Subject::FerryStreet, u"FERRY22"_s}}) {
        const Look look = MakeSubject(subject).look;
        shots.append({kel.dataDir + stem + u"_1.JPG"_s, look, View::Front});
        shots.append({kel.dataDir + stem + u"_2.JPG"_s, look, View::Rear});
        shots.append({kel.dataDir + stem + u"_3.JPG"_s, look, View::Street});
    }
    return shots;
}

} // namespace vasclip::demo
