#pragma once

#include "support/scripted_ports.h"

#include <functional>

namespace vasclip::tests {

/// While a box stands, somebody else may do something.
class HookedPrompter : public ScriptedPrompter
{
public:
    std::function<void(const QString& text)> onBox;

    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title, const QString& text) override
    {
        if (onBox)
            onBox(text);
        return ScriptedPrompter::MsgBox(buttons, icon, title, text);
    }
};

} // namespace vasclip::tests
