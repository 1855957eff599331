#include "drops/view_rule.h"

#include "link/general_text.h"
#include "photos/view_name.h"
#include "platform/text/text.h"

#include <QScopedValueRollback>

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

QString ProposedView(const QString& source, int index, const QString& text)
{
    const QString name = text::Folded(source);
    if (name == "CBOGENERAL"_L1)
        return text::Trim(text).isEmpty() ? u"GENERAL VIEW "_s + text::Str(index) : text;
    return name == "GEAMAPPHOTO"_L1 ? u"GENERAL VIEW"_s : u"FRONT VIEW"_s;
}

GeneralCaption::GeneralCaption(DropDesk& desk, int index)
    : m_desk(desk)
    , m_index(index)
    , m_before(desk.link.report.cboGeneral(index).Text())
    , m_report(desk.link.addr.txtKelReport.Text())
{}

GeneralCaption::~GeneralCaption()
{
    if (m_taken || m_desk.link.addr.txtKelReport.Text() != m_report) // which has been read from another report
        return;
    const QScopedValueRollback<bool> quiet(m_desk.link.state.generalReentry, true);
    m_desk.link.report.cboGeneral(m_index).SetText(m_before);
}

QString AskView(DropDesk& desk, const QString& source, int index, const QString& picture, const QString& whose)
{
    link::LinkDesk& link = desk.link;
    const bool general = text::Folded(source) == "CBOGENERAL"_L1;
    const QString now = general ? link.report.cboGeneral(index).Text() : QString();
    QString& view = desk.photos.CurrentView;
    view = ProposedView(source, index, now);
    view = photos::CleanView(desk.photos.questions.View(picture, view, whose));
    if (text::Folded(view).isEmpty() || text::Folded(view) == "CANCEL"_L1) {
        view.clear();
        return {};
    }
    if (general) {
        // Poked with its address by TellGeneral, once the picture is there.
        const QScopedValueRollback<bool> quiet(link.state.generalReentry, true);
        link.report.cboGeneral(index).SetText(view);
    } else if (text::Folded(source) == "TXTVIEW"_L1) {
        link.lists.txtView.SetText(view);
    }
    return view;
}

QString GeneralTold::Words() const
{
    if (viewFailed)
        return u"; its description and address are not."_s;
    return addressFailed ? u"; its address is not."_s : u"."_s;
}

GeneralTold TellGeneral(DropDesk& desk, int index, GeneralCaption* caption)
{
    using link::GeneralPoke;
    const link::ReportControls& report = desk.link.report;
    if (link::KelPokeGeneralData(desk.link, index, report.cboGeneral(index).Text()) == GeneralPoke::Failed)
        return {true, true};
    if (caption)
        caption->Taken();
    const GeneralPoke address =
        link::KelPokeGeneralAddr(desk.link, index, report.txtgeneraladdr(index).Text());
    return {false, address == GeneralPoke::Failed};
}

} // namespace vasclip::drops
