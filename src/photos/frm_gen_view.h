#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "forms/screen.h"
#include "photos/slots.h"

namespace vasclip::photos {

/// Names the view of a picture, and keeps the user's list of general views.
class frm_GenView : public forms::Screen
{
public:
    /// @param picture   path of the picture that the view is for; "" to maintain the list alone
    /// @param proposal  the view to begin with
    /// @param whose     what the picture belongs to, a record's key for instance; may be empty
    frm_GenView(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                SlotLoader& loader, const QString& picture, const QString& proposal, const QString& whose = {});

    forms::ListBox lstViews;
    forms::TextBox txtView;
    forms::PictureBox geaPreview;
    forms::Label lblWhose, lblViews, lblmsg;
    forms::Button cmdOK, cmdCancel, cmdAddView, cmdDelView;
    forms::PictureBox imaOK, imaCancel, imaAdd, imaDelView; ///< the same four as pictures

    /// The view chosen; "" after Cancel, or for a blank one.
    [[nodiscard]] const QString& View() const { return m_view; }
    /// Is the list of views another than it was?
    [[nodiscard]] bool ListChanged() const { return m_changed; }

    void cmdOK_Click();
    void cmdAddView_Click();
    void cmdDelView_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void lstViews_Click();
    void txtView_Change();

    forms::Ports m_ports;
    const files::Disk& m_disk;
    const common::Globals& m_globals;
    SlotLoader& m_loader;
    QString m_picture;
    QString m_proposal;
    QString m_view;
    bool m_changed = false;
};

} // namespace vasclip::photos
