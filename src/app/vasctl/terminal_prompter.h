#pragma once

#include "forms/ports.h"

#include <functional>
#include <optional>

namespace vasclip::vasctl {

/// How questions are answered when nobody is to be asked.
enum class Standing { Ask, Yes, No };

/// Asks on the terminal, or answers by --yes, --no or --answer. Boxes without a choice are printed to stderr.
///
/// With no terminal and no standing answer a question is taken as its cautious button (No, Cancel, Abort) and
/// the text says so.
class TerminalPrompter : public forms::Prompter
{
public:
    TerminalPrompter(Standing standing, QStringList answers, bool interactive)
        : m_standing(standing)
        , m_answers(std::move(answers))
        , m_interactive(interactive)
    {}

    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title,
                         const QString& text) override;
    QString OpenDialog(const QString& filter, const QString& title, const QString& directory) override;
    QString ChooseDirectory(const QString& title, const QString& directory) override;

    /// Called before each box: what stands on the line of the terminal goes.
    void SetBeforeBox(std::function<void()> clear) { m_beforeBox = std::move(clear); }

    /// Was any question answered with No, Cancel or Abort?
    [[nodiscard]] bool Declined() const { return m_declined; }
    [[nodiscard]] const QStringList& Shown() const { return m_shown; } ///< texts of the boxes so far

private:
    [[nodiscard]] forms::Answer Choose(const QList<forms::Answer>& choices);

    Standing m_standing;
    QStringList m_answers; ///< of --answer, used up in order
    bool m_interactive;
    bool m_declined = false;
    QStringList m_shown;
    std::function<void()> m_beforeBox;
};

} // namespace vasclip::vasctl
