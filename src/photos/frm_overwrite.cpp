#include "photos/frm_overwrite.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

frm_Overwrite::frm_Overwrite(SlotLoader& loader, const QString& existing, const QString& fresh,
                             const QString& record)
    : Screen(u"frm_Overwrite"_s)
    , lblQuestion(controls, u"lblQuestion"_s)
    , lblExisting(controls, u"lblExisting"_s)
    , lblFresh(controls, u"lblFresh"_s)
    , geaExisting(controls, u"geaExisting"_s)
    , geaFresh(controls, u"geaFresh"_s)
    , cmdYes(controls, u"cmdYes"_s)
    , cmdNo(controls, u"cmdNo"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , m_loader(loader)
    , m_existing(existing)
    , m_fresh(fresh)
{
    SetCaption(u"Overwrite Photo"_s);
    lblQuestion.SetCaption(
        u"%1 has a photo of this view already. Shall the new one take its place?"_s.arg(text::Trim(record)));
    lblExisting.SetCaption(u"The record's photo: "_s + common::WholeFileName(existing));
    lblFresh.SetCaption(u"The new photo: "_s + common::WholeFileName(fresh));
    cmdYes.SetCaption(u"&Yes"_s);
    cmdNo.SetCaption(u"&No"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    connect(&cmdYes, &forms::Control::Clicked, this, [this] { Close(forms::Answer::Yes); });
    connect(&cmdNo, &forms::Control::Clicked, this, [this] { Close(forms::Answer::No); });
    connect(&cmdCancel, &forms::Control::Clicked, this, [this] { Close(forms::Answer::Cancel); });
}

void frm_Overwrite::Form_Load()
{
    const common::RoutineScope scope{"frm_Overwrite"};
    m_loader.ErrLoadPict(geaExisting, m_existing);
    m_loader.ErrLoadPict(geaFresh, m_fresh);
    cmdNo.SetFocus();
}

void frm_Overwrite::Close(forms::Answer answer)
{
    m_answer = answer;
    Unload();
}

} // namespace vasclip::photos
