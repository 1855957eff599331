#pragma once

#include "forms/chips.h"
#include "forms/controls.h"
#include "forms/drop_port.h"
#include "forms/grid.h"
#include "forms/menu_port.h"
#include "photos/capture_controls.h"

#include <QImage>
#include <QPainter>

#include <memory>
#include <vector>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

/// A made-up town's comps.
class SampleRows : public forms::GridSource
{
public:
    qint64 count = 512;
    [[nodiscard]] qint64 RowCount() const override { return count; }
    [[nodiscard]] QStringList FieldNames() const override
    {
        return {u"FRONT"_s, u"CENTRALKEY"_s, u"ADDRESS"_s,   u"CITY"_s,    u"ST"_s,
                u"ZIP"_s,   u"GLA"_s,        u"SELLINGPR"_s, u"BEDROOM"_s, u"BATH"_s,
                u"AGE"_s,   u"APPRSLTYPE"_s, u"SALEDATE"_s};
    }
    [[nodiscard]] QStringList Row(qint64 row) const override
    {
        static const QStringList streets = {u"Oak St"_s,  u"Alder Ave"_s,  u"Fir Ct"_s,    u"Maple Dr"_s,
                                            u"Mill Rd"_s, u"Harbor Way"_s, u"Orchard Ln"_s};
        static const QStringList cities = {u"Ferndale"_s, u"Marlow"_s, u"Port Ellis"_s};
        const QString address = u"%1 %2"_s.arg(101 + row * 7).arg(streets.at(row % streets.size()));
        return {row % 3 == 0 ? u"Yes"_s : QString(),
                address.toUpper(),
                address,
                cities.at(row % cities.size()),
                u"WA"_s,
                u"982%1"_s.arg(10 + row % 60),
                QString::number(1180 + row * 37 % 1900),
                QString::number(289000 + row * 4130 % 410000),
                QString::number(2 + row % 4),
                u"%1.%2"_s.arg(1 + row % 3).arg(row % 2 == 0 ? 0 : 5),
                QString::number(row * 3 % 80),
                u"FCSRLM"_s.mid(row % 6, 1),
                u"%1/%2/2026"_s.arg(1 + row % 10).arg(1 + row % 28)};
    }
};

/// A drawn house, another one for every number.
inline QImage SampleHouse(int number)
{
    QImage image(640, 480, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, 300);
    sky.setColorAt(0, QColor(120, 170, 220));
    sky.setColorAt(1, QColor(225, 238, 248));
    painter.fillRect(0, 0, 640, 330, sky);
    painter.fillRect(0, 320, 640, 160, QColor(118, 156, 92));
    const QColor wall = QColor::fromHsv(number * 67 % 360, 50, 225);
    painter.setPen(Qt::NoPen);
    painter.setBrush(wall);
    painter.drawRect(150, 190, 340, 180);
    painter.setBrush(QColor::fromHsv(number * 31 % 360, 90, 110));
    painter.drawPolygon(QPolygon({{120, 195}, {320, 80 + number * 13 % 40}, {520, 195}}));
    painter.setBrush(QColor(90, 60, 45));
    painter.drawRect(295, 280, 55, 90);
    painter.setBrush(QColor(210, 230, 240));
    painter.drawRect(185, 235, 70, 55);
    painter.drawRect(390, 235, 70, 55);
    return image;
}

/// The controls of the main screen, under their fixed names.
struct SampleScreen
{
    forms::ControlSet controls;
    std::vector<std::unique_ptr<forms::Control>> owned;
    photos::CaptureControls capture{controls};

    template <class T, class... Args>
    T& Add(const QString& name, Args&&... args)
    {
        owned.push_back(std::make_unique<T>(controls, name, std::forward<Args>(args)...));
        return static_cast<T&>(*owned.back());
    }
    template <class T>
    void AddArray(const QString& name, int first, int last)
    {
        for (int i = first; i <= last; ++i)
            Add<T>(name, i);
    }
    template <class T>
    [[nodiscard]] T& Get(const QString& name, int index = -1) const
    {
        auto* control = qobject_cast<T*>(controls.Find(name, index));
        if (control == nullptr)
            throw std::out_of_range(name.toStdString());
        return *control;
    }

    SampleScreen()
    {
        using namespace forms;
        Add<TabControl>(u"tabSource"_s, QStringList{u"Report && Databook"_s, u"Atlas"_s});
        Add<TabControl>(u"TabData"_s, QStringList{u"Subject"_s, u"Comparables"_s, u"General"_s, u"Listings"_s,
                                                  u"Rentals"_s});
        Add<TabControl>(u"TabSubject"_s, QStringList{u"1 - 3"_s});
        Add<TabControl>(u"TabComp"_s,
                        QStringList{u"1 - 3"_s, u"4 - 6"_s, u"7 - 9"_s, u"A 1 - 3"_s, u"N/A"_s});
        QStringList general;
        for (int page = 1; page <= 12; ++page)
            general += page <= 5 ? u"%1P"_s.arg(page) : u"N/A"_s;
        Add<TabControl>(u"TabGeneral"_s, general);
        Add<TabControl>(u"TabListing"_s, QStringList{u"1 - 3"_s, u"N/A"_s});
        Add<TabControl>(u"TabRental"_s, QStringList{u"N/A"_s, u"N/A"_s, u"N/A"_s});
        Add<TextBox>(u"txtSubject"_s);
        Add<ChipList>(u"lstConditions"_s);
        const std::pair<QString, int> groups[] = {{u"Subject"_s, 3},  {u"Comp"_s, 9},    {u"AltComp"_s, 6},
                                                  {u"General"_s, 36}, {u"Listing"_s, 6}, {u"Rental"_s, 9}};
        for (const auto& [group, last] : groups) {
            AddArray<PictureBox>(u"ima"_s + group, 1, last);
            AddArray<PictureBox>(u"ima"_s + group + u"Icon"_s, 1, last);
            if (group != u"General"_s)
                AddArray<PictureBox>(u"ima"_s + group + u"Anchor"_s, group == u"Subject"_s ? 0 : 1, last);
            if (group == u"General"_s || group == u"Subject"_s)
                continue;
            AddArray<TextBox>(u"txt"_s + group, 1, last);
            AddArray<PictureBox>(u"gea"_s + group, 1, last);
            AddArray<Label>(u"lbl"_s + group, 0, last / 3 - 1);
        }
        AddArray<ComboBox>(u"cboGeneral"_s, 1, 36);
        AddArray<TextBox>(u"txtgeneraladdr"_s, 1, 36);
        for (const QString& name :
             {u"txtMapAddress"_s, u"txtMapProximity"_s, u"txtcentralkey"_s, u"txtQuickFind"_s, u"txtView"_s, u"txtimage"_s})
            Add<TextBox>(name);
        for (const QString& name : {u"lblmsg"_s, u"lblDatabookADDR"_s, u"lblAddingaComp"_s, u"lblPhotomsg"_s,
                                    u"lblLabelTag"_s, u"lblTwin"_s, u"lblChangingDB"_s, u"lblReport"_s, u"lblLink"_s})
            Add<Label>(name);
        Get<Label>(u"lblChangingDB"_s).SetVisible(false);
        const std::pair<QString, QString> buttons[] = {{u"cmdShowAll"_s, u"Show all records"_s},
                                                       {u"cmdAdd"_s, u"&Add"_s},
                                                       {u"cmdTwin"_s, u"Show it"_s},
                                                       {u"cmdCopy"_s, u"&Copy"_s},
                                                       {u"cmdDelete"_s, u"De&lete"_s},
                                                       {u"cmdRename"_s, u"Re&name"_s},
                                                       {u"cmdEdit"_s, u"&Edit"_s},
                                                       {u"cmdSearch"_s, u"Search"_s},
                                                       {u"cmdAddManual"_s, u"Add Man&ually"_s},
                                                       {u"cmdPrint"_s, u"Print Comps"_s},
                                                       {u"cmdRefresh"_s, u"Refresh Grid"_s},
                                                       {u"cmdLink"_s, u"Refresh"_s},
                                                       {u"cmdDetails"_s, u"Current Details"_s},
                                                       {u"CmdDeletePhoto"_s, u"Delete Photo"_s},
                                                       {u"CmdRenamePhotoView"_s, u"Rename View"_s}};
        for (const auto& [name, caption] : buttons)
            Add<Button>(name).SetCaption(caption);
        Add<PictureBox>(u"imaKel"_s);
        Add<PictureBox>(u"geamaintain"_s);
        Add<ListBox>(u"lstViews"_s);
        Add<ListBox>(u"lstimages"_s);
        Add<ListBox>(u"lstGenViews"_s);
        Add<ComboBox>(u"cboapprslType"_s);
        Add<Control>(u"fraAddaComp"_s);
        Add<Gauge>(u"gauStatus"_s);
        Add<Button>(u"cmdStop"_s).SetVisible(false);
        Add<Grid>(u"grddatabook"_s);
        const std::pair<QString, QString> menus[] = {
            {u"mnuFileItem"_s, u"File"_s},         {u"mnuSetupItem"_s, u"Setup"_s},
            {u"mnuMaintItem"_s, u"Maintenance"_s}, {u"mnuTransferItem"_s, u"Transfer"_s},
            {u"mnuRefreshItem"_s, u"Refresh"_s},   {u"mnuDBItem"_s, u"Database"_s},
            {u"mnuHelpItem"_s, u"Help"_s}};
        for (const auto& [name, caption] : menus)
            Add<Menu>(
                name, caption,
                QList<MenuEntry>{{.index = 0, .caption = u"Launch Appraisal Program"_s},
                                 {.index = 1, .caption = u"-"_s},
                                 {.index = 2, .caption = u"Copy Photos - From Reader"_s, .enabled = false},
                                 {.index = 11, .caption = u"Exit"_s}});
        for (const QString& name : {u"popPhoto_M"_s, u"popThumb_M"_s, u"popPicture_M"_s, u"popGeneral_M"_s, u"popTextData_M"_s,
                                    u"popPicAndData_M"_s})
            Add<Menu>(name, QString(), QList<MenuEntry>{{.index = 0, .caption = u"First of "_s + name}});
        Get<Label>(u"lblAddingaComp"_s).SetCaption(u"Add a Comp"_s);
    }

    /// As the screen looks in the middle of a day's work.
    void Fill(const SampleRows& rows)
    {
        using namespace forms;
        auto& grid = Get<Grid>(u"grddatabook"_s);
        grid.SetColumns(
            {{.field = u"FRONT"_s, .caption = u"Front"_s, .width = 60},
             {.field = u"CENTRALKEY"_s, .caption = u"Address"_s, .width = 220},
             {.field = u"CITY"_s, .caption = u"City"_s, .width = 120},
             {.field = u"ST"_s, .caption = u"St"_s, .width = 50},
             {.field = u"ZIP"_s, .caption = u"ZIP"_s, .width = 80},
             {.field = u"GLA"_s, .caption = u"GLA"_s, .width = 80, .rightAligned = true},
             {.field = u"SELLINGPR"_s, .caption = u"Price"_s, .width = 100, .rightAligned = true},
             {.field = u"BEDROOM"_s, .caption = u"Beds"_s, .width = 70, .rightAligned = true},
             {.field = u"BATH"_s, .caption = u"Baths"_s, .width = 70, .rightAligned = true},
             {.field = u"AGE"_s, .caption = u"Age"_s, .width = 70, .rightAligned = true},
             {.field = u"APPRSLTYPE"_s, .caption = u"Type"_s, .width = 60},
             {.field = u"SALEDATE"_s, .caption = u"Sold"_s, .width = 100, .numberFormat = u"Short Date"_s}});
        grid.Rebind(&rows);
        grid.SetRow(3);
        for (int i = 1; i <= 3; ++i) {
            Get<PictureBox>(u"imaSubject"_s, i).SetPicture(SampleHouse(40 + i));
            Get<Label>(u"lblComp"_s, i - 1).SetCaption(u"Comparables %1 - %2"_s.arg(i * 3 - 2).arg(i * 3));
        }
        Get<Label>(u"lblAltComp"_s, 0).SetCaption(u"Alt Comparables 1 - 3"_s);
        Get<Label>(u"lblListing"_s, 0).SetCaption(u"Listings 1 - 3"_s);
        Get<TextBox>(u"txtSubject"_s).SetText(u"1428 Elmwood Dr"_s);
        for (int i : {1, 2, 4, 5}) {
            Get<TextBox>(u"txtComp"_s, i).SetText(rows.Row(i * 5).at(1));
            Get<PictureBox>(u"imaComp"_s, i).SetPicture(SampleHouse(i));
        }
        for (int i : {3, 6, 7, 8, 9}) {
            Get<PictureBox>(u"imaCompIcon"_s, i).SetVisible(false);
            Get<PictureBox>(u"imaCompAnchor"_s, i).SetVisible(false);
        }
        Get<Label>(u"lblDatabookADDR"_s).SetCaption(rows.Row(3).at(2) + u", Ferndale WA 98213"_s);
        Get<PictureBox>(u"geamaintain"_s).SetPicture(SampleHouse(7));
        auto& views = Get<ListBox>(u"lstViews"_s);
        for (const QString& view : {u"FRONT VIEW"_s, u"REAR VIEW"_s, u"STREET SCENE"_s, u"KITCHEN"_s})
            views.AddItem(view);
        views.SetListIndex(0);
        Get<TextBox>(u"txtView"_s).SetText(u"FRONT VIEW"_s);
        Get<TextBox>(u"txtcentralkey"_s).SetText(rows.Row(3).at(1));
        auto& types = Get<ComboBox>(u"cboapprslType"_s);
        types.AddItem(u"F  Single Family"_s);
        types.AddItem(u"C  Condominium"_s);
        types.SetListIndex(0);
        Get<Label>(u"lblmsg"_s).Show(rows.Row(3).at(1) + u" was found in the comp file."_s, Colour::Green);
        capture.lblTab.SetCaption(u"C:\\VASSNAP"_s);
        capture.lblDirectory.SetCaption(u"1 to 12 of 200"_s);
        for (int i = 0; i < 12; ++i) {
            capture.geathumb(i).SetVisible(true);
            if (i == 7)
                capture.geathumb(i).ShowWithout(NoPicture::Broken);
            else if (i == 11)
                capture.geathumb(i).ShowWithout(NoPicture::Waiting);
            else
                capture.geathumb(i).SetPicture(SampleHouse(60 + i));
            capture.lbltag(i).SetCaption(u"DSCN%1.JPG"_s.arg(41 + i, 4, 10, QChar(u'0')));
            capture.lbltag(i).SetVisible(true);
            capture.lbltag(i).SetBack(i % 3 == 0 ? Ground::Yellow : Ground::Window);
        }
        Get<PictureBox>(u"imaKel"_s).SetToolTipText(u"Refresh"_s);
    }
};

/// Takes everything from the grid on slots, as the rules do, and writes down what happens.
class SamplePort : public forms::DropPort, public forms::MenuPort
{
public:
    QStringList log;
    bool open = true;
    std::function<void(forms::Control&, forms::Control&)> onDrop;
    [[nodiscard]] bool IsSource(const forms::Control& source) const override
    {
        return source.Name() == u"grddatabook"_s;
    }
    [[nodiscard]] bool Accepts(const QString& source, const forms::Control& target) const override
    {
        static const QStringList taken = {u"txtComp"_s,    u"txtAltComp"_s, u"txtListing"_s, u"txtRental"_s,
                                          u"txtSubject"_s, u"geaComp"_s,    u"geaAltComp"_s, u"geaListing"_s,
                                          u"geaRental"_s,  u"imaComp"_s,    u"imaSubject"_s};
        return open && source == u"grddatabook"_s && taken.contains(target.Name());
    }
    void DragOver(const QString& source, const QString& target) override
    {
        log += u"over %1 %2"_s.arg(source, target);
    }
    void Drop(forms::Control& source, forms::Control& target) override
    {
        log += u"drop %1 %2"_s.arg(source.ObjectName(), target.ObjectName());
        if (onDrop)
            onDrop(source, target);
    }
    forms::Menu* MenuOver(const forms::Control&) override { return nullptr; }
    void DeleteKeyOn(const forms::Control&) override {}
};

} // namespace vasclip::tests
