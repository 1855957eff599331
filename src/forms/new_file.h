#pragma once

#include <QString>

namespace vasclip::forms {

class Prompter;

/// A prompter whose file dialog takes no name of a file that is not there has another one for that.
class NewFilePrompter
{
public:
    virtual ~NewFilePrompter() = default;
    /// Nothing is asked about a file that is there. As Prompter::OpenDialog otherwise
    virtual QString NewFileDialog(const QString& filter, const QString& title, const QString& directory) = 0;
};

/// Asks for a file that need not be there yet. @return a drive path, "" on cancel
[[nodiscard]] QString ChooseNewFile(Prompter& prompter, const QString& filter, const QString& title,
                                    const QString& directory);

} // namespace vasclip::forms
