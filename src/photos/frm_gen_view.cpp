#include "photos/frm_gen_view.h"

#include "common/error_block.h"
#include "common/ini_list.h"
#include "photos/gen_views.h"
#include "photos/view_name.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

const QString kGeneralView = u"GENERAL VIEW"_s;
const QString kChooseView = u"Select the view for this photo or type one in and select 'OK'."_s;
const QString kKeepList =
    u"Type a new view and select 'ADD'  - OR - Highlight view from list and select 'DELETE'."_s;
const QString kNotSaved =
    u"The list of general views could not be written to %1, which still holds the old one. Check that "
    u"the file may be changed and that the disk has room."_s;

} // namespace

frm_GenView::frm_GenView(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                         SlotLoader& loader, const QString& picture, const QString& proposal, const QString& whose)
    : Screen(u"frm_GenView"_s)
    , lstViews(controls, u"lstViews"_s)
    , txtView(controls, u"txtView"_s)
    , geaPreview(controls, u"geaPreview"_s)
    , lblWhose(controls, u"lblWhose"_s)
    , lblViews(controls, u"lblViews"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , cmdOK(controls, u"cmdOK"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , cmdAddView(controls, u"cmdAddView"_s)
    , cmdDelView(controls, u"cmdDelView"_s)
    , imaOK(controls, u"imaOK"_s)
    , imaCancel(controls, u"imaCancel"_s)
    , imaAdd(controls, u"imaAdd"_s)
    , imaDelView(controls, u"imaDelView"_s)
    , m_ports(ports)
    , m_disk(disk)
    , m_globals(globals)
    , m_loader(loader)
    , m_picture(text::Trim(picture))
    , m_proposal(proposal)
{
    SetCaption(u"Select The View"_s);
    lblWhose.SetCaption(whose);
    lblWhose.SetVisible(!whose.isEmpty());
    cmdOK.SetCaption(u"&OK"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    cmdAddView.SetCaption(u"Add View to List"_s);
    cmdDelView.SetCaption(u"Delete View From List"_s);
    imaOK.SetToolTipText(u"Take the view"_s);
    imaCancel.SetToolTipText(u"Close without a view"_s);
    imaAdd.SetToolTipText(u"Add View to List"_s);
    imaDelView.SetToolTipText(u"Delete View From List"_s);
    for (forms::Control* control : std::initializer_list<forms::Control*>{&cmdOK, &imaOK})
        connect(control, &forms::Control::Clicked, this, &frm_GenView::cmdOK_Click);
    for (forms::Control* control : std::initializer_list<forms::Control*>{&cmdCancel, &imaCancel})
        connect(control, &forms::Control::Clicked, this, &frm_GenView::Unload);
    for (forms::Control* control : std::initializer_list<forms::Control*>{&cmdAddView, &imaAdd})
        connect(control, &forms::Control::Clicked, this, &frm_GenView::cmdAddView_Click);
    for (forms::Control* control : std::initializer_list<forms::Control*>{&cmdDelView, &imaDelView})
        connect(control, &forms::Control::Clicked, this, &frm_GenView::cmdDelView_Click);
    connect(&lstViews, &forms::ListBox::ListIndexChanged, this, &frm_GenView::lstViews_Click);
    connect(&lstViews, &forms::Control::Clicked, this, &frm_GenView::lstViews_Click);
    connect(&lstViews, &forms::Control::DoubleClicked, this, [this] {
        lstViews_Click();
        cmdOK_Click();
    });
}

void frm_GenView::Form_Load()
{
    const RoutineScope scope{"frm_GenView"};
    LoadGenViews(lstViews, m_disk, m_globals);
    if (m_picture.isEmpty()) {
        geaPreview.SetVisible(false);
        lblViews.SetCaption(kKeepList);
    } else {
        m_loader.ErrLoadPict(geaPreview, m_picture);
        lblViews.SetCaption(kChooseView);
        txtView.SetText(text::Trim(m_proposal).isEmpty() ? kGeneralView : CleanView(m_proposal));
        lblmsg.Show(CleanedView(m_proposal), forms::Colour::Blue);
    }
    connect(&txtView, &forms::TextBox::TextChanged, this, &frm_GenView::txtView_Change);
    txtView.SetFocus();
    txtView.SelectAll();
}

void frm_GenView::Form_Unload()
{
    const RoutineScope scope{"frm_GenView"};
    if (m_changed && !common::SaveList(lstViews, m_disk, common::GeneralViews(m_globals)))
        m_ports.prompter.Box({}, kNotSaved.arg(m_globals.applicationIni));
}

/// The proposal stands as it was given; what is typed comes in capitals, and as a record can hold it.
void frm_GenView::txtView_Change()
{
    const QString typed = txtView.Text();
    const QString view = CleanView(typed).toUpper();
    if (view != typed)
        txtView.SetText(view); // which comes back here
    if (const QString told = CleanedView(typed); !told.isEmpty())
        lblmsg.Show(told, forms::Colour::Blue);
    else if (view == typed)
        lblmsg.Show({}, forms::Colour::Normal);
}

void frm_GenView::lstViews_Click()
{
    if (lstViews.ListIndex() >= 0)
        txtView.SetText(lstViews.List(lstViews.ListIndex()));
}

void frm_GenView::cmdOK_Click()
{
    const RoutineScope scope{"frm_GenView"};
    if (!IsOpen())
        return;
    if (!text::Trim(txtView.Text()).isEmpty())
        m_view = txtView.Text();
    Unload();
}

void frm_GenView::cmdAddView_Click()
{
    const RoutineScope scope{"frm_GenView"};
    const QString view = text::Folded(txtView.Text());
    if (view.isEmpty()) {
        lblmsg.Show(u"Type a view first."_s, forms::Colour::Red);
        txtView.SetFocus();
        return;
    }
    if (!common::AddUnlessPresent(lstViews, view, common::Case::Ignored)) {
        lblmsg.Show(u"%1 is in the list already."_s.arg(view), forms::Colour::Blue);
        return;
    }
    m_changed = true;
    lblmsg.Show(u"%1 was added to the list."_s.arg(view), forms::Colour::Blue);
}

void frm_GenView::cmdDelView_Click()
{
    const RoutineScope scope{"frm_GenView"};
    const QString view = text::Folded(txtView.Text());
    bool removed = !view.isEmpty() && common::RemoveFromList(lstViews, view, common::Case::Ignored);
    if (lstViews.ListIndex() >= 0) {
        lstViews.RemoveItem(lstViews.ListIndex());
        removed = true;
    }
    m_changed = m_changed || removed;
    lblmsg.Show(removed ? u"The view was deleted from the list."_s
                        : u"Highlight a view in the list first."_s,
                removed ? forms::Colour::Blue : forms::Colour::Red);
}

} // namespace vasclip::photos
