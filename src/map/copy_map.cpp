#include "map/copy_map.h"

#include "link/link_desk.h"
#include "link/reporter.h"
#include "link/slot_photos.h"
#include "map/frm_map_preview.h"
#include "map/messages.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPictureWidth = 1500;
constexpr int kPictureHeight = 1000;

struct Addendum
{
    int slot; ///< as the link names the image objects of which there is one
    QLatin1StringView stock, file, title;
};
constexpr Addendum kAddenda[] = {{-1, "vas2000.jpg"_L1, "VAS2000.JPG"_L1, "location map"_L1},
                                 {-2, "general.jpg"_L1, "GENERAL.JPG"_L1, "general map"_L1},
                                 {-3, "MapScan.jpg"_L1, "GENERAL.JPG"_L1, "fax page"_L1}};

void Tell(MapDesk& desk, link::SlotSend sent, const Addendum& addendum)
{
    if (sent == link::SlotSend::Sent)
        desk.status.lblmsg.Show(messages::kMapSent.arg(addendum.title), forms::Colour::Blue);
    else
        desk.status.lblmsg.Show(desk.link->state.notSent.isEmpty() ? messages::kMapNotSent.arg(addendum.title)
                                                                   : desk.link->state.notSent,
                                forms::Colour::Red);
}

} // namespace

int ChosenAddendum(const MapDesk& desk)
{
    for (int i = desk.tab.optMapAddendum.First(); i <= desk.tab.optMapAddendum.Last(); ++i)
        if (desk.tab.optMapAddendum(i).Value())
            return i;
    return 0;
}

void optMapAddendum_Click(MapDesk& desk, int index)
{
    for (int i = desk.tab.optMapAddendum.First(); i <= desk.tab.optMapAddendum.Last(); ++i)
        desk.tab.optMapAddendum(i).SetValue(i == index);
}

QString DrawMap(MapDesk& desk, const QString& name)
{
    const QString file = desk.globals.G_ProgramDir + name;
    if (desk.map.DrawTo(file, kPictureWidth, kPictureHeight, desk.globals.mapQuality))
        return file;
    desk.ports.prompter.Box(desk.globals.productName, messages::kNotDrawn.arg(file));
    return {};
}

QString DrawAddendum(MapDesk& desk, int addendum)
{
    const QString stock = desk.globals.G_ProgramDir + kAddenda[addendum].stock;
    if (desk.disk.FileExists(stock))
        desk.loader.ErrLoadPict(desk.tab.geatemp, stock);
    return DrawMap(desk, kAddenda[addendum].file);
}

void cmdCopyMap_Click(MapDesk& desk)
{
    if (desk.state.working || !desk.link)
        return;
    QString file;
    const int addendum = ChosenAddendum(desk);
    {
        const Working working{desk.state};
        const forms::Hourglass hourglass{desk.ports.window};
        link::Reported(desk.ports.prompter, "cmdCopyMap_Click", [&] { file = DrawAddendum(desk, addendum); });
    }
    if (!file.isEmpty())
        SendMap(desk, addendum, file);
}

void cmdPreviewMap_Click(MapDesk& desk)
{
    if (desk.state.working || !desk.link)
        return;
    QString file;
    const int addendum = ChosenAddendum(desk);
    link::Reported(desk.ports.prompter, "cmdPreviewMap_Click", [&] { file = DrawAddendum(desk, addendum); });
    if (file.isEmpty())
        return;
    frm_MapPreview preview(desk, addendum, file);
    desk.ports.screens.ShowModal(preview);
}

void SendMap(MapDesk& desk, int index, const QString& file)
{
    if (desk.state.working || !desk.link)
        return;
    const Working working{desk.state};
    const forms::Hourglass hourglass{desk.ports.window};
    const Addendum& addendum = kAddenda[index];
    link::Reported(desk.ports.prompter, "cmdCopyMap_Click", [&] {
        forms::PictureBox& picture = desk.tab.geatemp;
        desk.loader.ErrLoadPict(picture, file);
        if (!link::KelEnsureRunning(*desk.link))
            return;
        desk.link->state.notSent.clear();
        desk.ports.window.AppActivate();
        const link::SlotSend sent = link::KelSendSlotPhoto(*desk.link, picture, picture, addendum.slot);
        desk.ports.window.AppActivate();
        Tell(desk, sent, addendum);
    });
}

} // namespace vasclip::map
