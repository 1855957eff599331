#include "map/frm_map_preview.h"

#include "map/copy_map.h"
#include "map/map_icons.h"

#include <utility>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

frm_MapPreview::frm_MapPreview(MapDesk& desk, int addendum, QString file)
    : Screen(u"frm_MapPreview"_s)
    , mapPreview(controls, u"mapPreview"_s)
    , cmdSend(controls, u"cmdSend"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , m_desk(desk)
    , m_addendum(addendum)
    , m_file(std::move(file))
{
    SetCaption(u"Map Preview - "_s + desk.tab.optMapAddendum(addendum).Caption());
    cmdSend.SetCaption(u"&Generate Map"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    connect(&cmdSend, &forms::Control::Clicked, this, &frm_MapPreview::cmdSend_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_MapPreview::Unload);
}

void frm_MapPreview::Form_Load()
{
    ShowBitmap(m_desk, mapPreview, m_file);
}

void frm_MapPreview::cmdSend_Click()
{
    if (!IsOpen())
        return;
    Unload();
    SendMap(m_desk, m_addendum, m_file);
}

} // namespace vasclip::map
