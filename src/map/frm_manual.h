#pragma once

#include "forms/screen.h"
#include "map/map_desk.h"

namespace vasclip::map {

/// Puts an arrow, a house or a dot for a comp into the middle of the map, where no address look-up finds it.
class frm_Manual : public forms::Screen
{
    Q_OBJECT
public:
    explicit frm_Manual(MapDesk& desk);

    forms::Label lblMapLabel, lblGraphic;
    forms::ListBox lstLabel;
    forms::ListBox lstAssoc; ///< hidden: the address of each row of lstLabel
    forms::TextBox txtlabel;
    forms::ControlArray<forms::CheckBox> optwhichdot; ///< house, arrow, dot; one is on
    forms::ControlArray<forms::PictureBox> imaicon;
    forms::ControlArray<forms::CheckBox> optcolor; ///< black, red, blue; one is on
    forms::Control linManual;
    forms::Button cmdOk, cmdCancel;

    /// The point that was placed; 0 for none.
    [[nodiscard]] qint32 Placed() const { return m_placed; }

    void lstLabel_Click();
    void optwhichdot_Click(int index);
    void optcolor_Click(int index);
    void cmdOk_Click();

protected:
    void Form_Load() override;

private:
    void FillLabels();
    [[nodiscard]] bool RowStands() const;
    void Add(const QString& row, const QString& address);
    void AddGroup(link::Group group);
    [[nodiscard]] QString Arrow(int direction) const;
    [[nodiscard]] QString Colour() const;
    void ShowIcons();

    MapDesk& m_desk;
    QString m_address; ///< of the row that was chosen
    qint32 m_placed = 0;
};

} // namespace vasclip::map
