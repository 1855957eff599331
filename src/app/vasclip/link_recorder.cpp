#include "app/vasclip/link_recorder.h"

#include <QRegularExpression>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

void LinkRecorder::LinkPoke()
{
    m_link.LinkPoke();
    m_cells.insert(m_link.LinkItem(), m_link.Text());
    ++m_pokes;
}

void LinkRecorder::LinkExecute(const QString& command)
{
    m_link.LinkExecute(command);
    static const QRegularExpression kSetImage(uR"x(SetImage "([^"]*)", "([^"]*)")x"_s);
    if (const auto found = kSetImage.match(command); found.hasMatch())
        m_images.insert(found.captured(1), found.captured(2).replace(u"\\\\"_s, u"\\"_s));
}

} // namespace vasclip::app
