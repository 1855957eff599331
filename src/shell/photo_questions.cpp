#include "shell/photo_questions.h"

#include "forms/screen.h"
#include "photos/frm_gen_view.h"
#include "photos/frm_overwrite.h"
#include "store/messages.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// There is nothing to look at and nothing to choose from in a box.
class PhotoBoxes : public photos::PhotoQuestions
{
public:
    explicit PhotoBoxes(forms::Prompter& prompter)
        : m_prompter(prompter)
    {}
    forms::Answer Overwrite(const QString& existing, const QString& fresh, const QString& record) override
    {
        return m_prompter.MsgBox(
            forms::Buttons::YesNoCancel, forms::Icon::Question, store::kPlainTitle,
            u"%1 has a picture of that view already: %2. Shall %3 take its place?"_s.arg(record, existing,
                                                                                        fresh));
    }
    QString View(const QString&, const QString& proposal, const QString&) override { return proposal; }

private:
    forms::Prompter& m_prompter;
};

class PhotoScreens : public photos::PhotoQuestions
{
public:
    PhotoScreens(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                 photos::SlotLoader& loader, std::function<void()> viewsChanged)
        : m_ports(ports)
        , m_disk(disk)
        , m_globals(globals)
        , m_loader(loader)
        , m_viewsChanged(std::move(viewsChanged))
    {}
    forms::Answer Overwrite(const QString& existing, const QString& fresh, const QString& record) override
    {
        photos::frm_Overwrite screen(m_loader, existing, fresh, record);
        m_ports.screens.ShowModal(screen);
        return screen.Answer();
    }
    QString View(const QString& picture, const QString& proposal, const QString& whose) override
    {
        photos::frm_GenView screen(m_ports, m_disk, m_globals, m_loader, picture, proposal, whose);
        m_ports.screens.ShowModal(screen);
        if (screen.ListChanged())
            m_viewsChanged();
        return screen.View();
    }

private:
    forms::Ports m_ports;
    const files::Disk& m_disk;
    const common::Globals& m_globals;
    photos::SlotLoader& m_loader;
    std::function<void()> m_viewsChanged;
};

} // namespace

std::unique_ptr<photos::PhotoQuestions> MakePhotoQuestions(const forms::Ports& ports, const files::Disk& disk,
                                                           const common::Globals& globals,
                                                           photos::SlotLoader& loader,
                                                           std::function<void()> viewsChanged)
{
    if (dynamic_cast<const forms::NoScreens*>(&ports.screens) != nullptr)
        return std::make_unique<PhotoBoxes>(ports.prompter);
    return std::make_unique<PhotoScreens>(ports, disk, globals, loader, std::move(viewsChanged));
}

} // namespace vasclip::shell
