#include "forms/screen.h"

using namespace Qt::StringLiterals;

namespace vasclip::forms {

Screen::Screen(const QString& name)
    : m_name(name)
{}

void Screen::SetCaption(const QString& caption)
{
    if (caption == m_caption)
        return;
    m_caption = caption;
    Q_EMIT CaptionChanged();
}

void Screen::Open()
{
    m_open = true;
    Form_Load();
}

void Screen::Unload()
{
    if (!m_open || !QueryUnload())
        return;
    m_open = false;
    Q_EMIT Unloaded();
}

void Screen::End()
{
    m_open = false;
    Form_Unload();
}

void NoScreens::ShowModal(Screen& screen)
{
    throw RuntimeError(error::kInvalidOperation,
                       u"This needs the screen %1, which only the program's window has"_s.arg(screen.Name()));
}

} // namespace vasclip::forms
