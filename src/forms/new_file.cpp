#include "forms/new_file.h"

#include "forms/ports.h"

namespace vasclip::forms {

QString ChooseNewFile(Prompter& prompter, const QString& filter, const QString& title, const QString& directory)
{
    if (auto* asks = dynamic_cast<NewFilePrompter*>(&prompter))
        return asks->NewFileDialog(filter, title, directory);
    return prompter.OpenDialog(filter, title, directory);
}

} // namespace vasclip::forms
