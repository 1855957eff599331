#pragma once

#include "forms/ports.h"
#include "photos/photo_desk.h"

namespace vasclip::shell {

/// The questions about a picture, asked by a box.
class PhotoBoxes : public photos::PhotoQuestions
{
public:
    explicit PhotoBoxes(forms::Prompter& prompter)
        : m_prompter(prompter)
    {}
    forms::Answer Overwrite(const QString& existing, const QString& fresh) override;
    /// The proposal: there is nothing to choose from in a box.
    QString View(const QString& picture, const QString& proposal) override;

private:
    forms::Prompter& m_prompter;
};

} // namespace vasclip::shell
