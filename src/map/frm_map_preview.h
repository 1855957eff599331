#pragma once

#include "forms/screen.h"
#include "map/map_desk.h"

namespace vasclip::map {

/// The map's picture before it goes into the report: the very file that is sent, pixel by pixel.
class frm_MapPreview : public forms::Screen
{
    Q_OBJECT
public:
    /// @param file  as DrawMap has made it for the addendum
    frm_MapPreview(MapDesk& desk, int addendum, QString file);

    forms::PictureBox mapPreview;
    forms::Button cmdSend, cmdCancel;

    void cmdSend_Click();

protected:
    void Form_Load() override;

private:
    MapDesk& m_desk;
    int m_addendum;
    QString m_file;
};

} // namespace vasclip::map
