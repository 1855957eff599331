#pragma once

#include "link/desk_test.h"
#include "link/slot_table.h"
#include "map/map_start.h"
#include "map/recording_control.h"

#include <gtest/gtest.h>

#include <QImage>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;
using street::Place;
using link::Fields;

/// A map desk on the link's, with a recording map.
class MapTest : public link::DeskTest
{
protected:
    link::LinkDesk& linkDesk = link::DeskTest::desk;
    link::LinkState& linkState = link::DeskTest::state;
    frm_MapTab tab{set};
    test::RecordingControl control;
    MapDesk desk{.map = control,
                 .tab = tab,
                 .report = report,
                 .addr = addr,
                 .sources = sources,
                 .globals = globals,
                 .ports = doubles.Get(),
                 .status = status,
                 .disk = home.disk,
                 .loader = loader,
                 .link = &linkDesk};

    static inline const QString kArrows = u"C:\\VAS2000\\arrows\\"_s;
    static constexpr Place kOak{32'460'000, -86'470'000};

    void SetUp() override
    {
        DeskTest::SetUp();
        home.MakeDirs(u"C:\\VAS2000\\arrows"_s);
        globals.arrowsDir = kArrows;
        desk.state.inUse = true;
        AttachMap(desk);
    }

    void Add(const QString& path, const QString& name, const Fields& fields)
    {
        DeskTest::Add(engine, path, name, fields);
    }
    /// A comp in PRATTVILLE, AL.
    void AddTown(const QString& key, const Fields& fields = {})
    {
        AddComp(key, Fields{{u"CITY"_s, u"PRATTVILLE"_s}, {u"ST"_s, u"AL"_s}, {u"ZIP"_s, u"36067"_s}} + fields);
    }
    static Fields Anchor(const QString& latitude, const QString& longitude)
    {
        return {{u"ANCHORED"_s, u"1"_s}, {u"LATITUDE"_s, latitude}, {u"LONGITUDE"_s, longitude}};
    }
    [[nodiscard]] QString Field(const QString& key, const QString& field)
    {
        const auto record = store::ReadRecord(sources.datDatabook, key);
        EXPECT_TRUE(record) << key.toStdString();
        return record ? record->Text(field) : QString();
    }
    /// LATITUDE, LONGITUDE and ANCHORED of a record.
    [[nodiscard]] QString Location(const QString& key)
    {
        return Field(key, u"LATITUDE"_s) + u' ' + Field(key, u"LONGITUDE"_s) + u' ' + Field(key, u"ANCHORED"_s);
    }
    /// The subject of the open report; its city is PRATTVILLE, AL.
    void Subject(const QString& address)
    {
        report.txtSubject.SetText(address);
        addr.txtCompAddr(0).SetText(address);
        addr.txtKelCity.SetText(u"Prattville"_s);
        addr.txtKelState.SetText(u"AL"_s);
        addr.txtKelZip.SetText(u"36067"_s);
    }
    /// An address that the map finds, in PRATTVILLE, AL with and without its ZIP.
    void Street(const QString& street, Place place)
    {
        for (const QString& city : {u", PRATTVILLE, AL"_s, u", PRATTVILLE, AL 36067"_s, u", PRATTVILLE,AL"_s,
                                    u",PRATTVILLE, AL"_s, u", PRATTVILLE,AL 36067"_s})
            control.addresses[street.toUpper() + city] = place;
    }
    [[nodiscard]] static Place Near(Place from, double azimuth, double feet)
    {
        return street::Project(from, azimuth, feet);
    }
    /// Number, bitmap, text and flags of every point.
    [[nodiscard]] QStringList Pins() const
    {
        QStringList pins;
        for (const auto& [id, pin] : control.pins)
            pins << u"%1 %2 '%3' %4"_s.arg(id).arg(pin.picture.mid(pin.picture.lastIndexOf(u'\\') + 1), pin.text,
                                                    QString::number(pin.flags, 16).toUpper());
        return pins;
    }
    /// Places subject and comps as the button does: point 1, and the comps from 2 on.
    void ShowTab(Group group)
    {
        report.TabData.SetTab(link::RowOf(group).dataPage);
        if (group == Group::Alternates)
            report.TabComp.SetTab(link::RowOf(group).firstPage);
        else if (group == Group::Sales)
            report.TabComp.SetTab(0);
    }
};

} // namespace vasclip::map
