#include "shell/photo_questions.h"

#include "store/messages.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

forms::Answer PhotoBoxes::Overwrite(const QString& existing, const QString& fresh)
{
    return m_prompter.MsgBox(
        forms::Buttons::YesNoCancel, forms::Icon::Question, store::kPlainTitle,
        u"The record has a picture of that view already: %1. Shall %2 take its place?"_s.arg(existing, fresh));
}

QString PhotoBoxes::View(const QString& picture, const QString& proposal)
{
    Q_UNUSED(picture)
    return proposal;
}

} // namespace vasclip::shell
