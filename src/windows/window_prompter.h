#pragma once

#include "forms/new_file.h"
#include "forms/ports.h"

#include <functional>

class QWidget;

namespace vasclip::files {
class Disk;
}

namespace vasclip::windows {

/// Real boxes on the screen.
class WindowPrompter : public forms::Prompter, public forms::NewFilePrompter
{
public:
    explicit WindowPrompter(const files::Disk& disk);
    /// The window that boxes belong to when no other window of the program is active.
    void SetOwner(QWidget* owner) { m_owner = owner; }
    /// Where lines for the log go.
    void SetLog(std::function<void(const QString& line)> log) { m_log = std::move(log); }
    void Log(const QString& line) override
    {
        if (m_log)
            m_log(line);
    }

    /// A question of Yes and No stands on No: Enter, pressed too soon, changes nothing. With a Cancel beside them
    /// a warning stands on Cancel, as both answers lose something, and an information on Yes, as No does.
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title,
                         const QString& text) override;
    /// Offers to do something. @param action  the words of its button; @return false for Cancel
    bool Offer(const QString& action, const QString& title, const QString& text);
    QString OpenDialog(const QString& filter, const QString& title, const QString& directory) override;
    QString NewFileDialog(const QString& filter, const QString& title, const QString& directory) override;
    QString ChooseDirectory(const QString& title, const QString& directory) override;

private:
    enum class Wanted { File, NewFile, Directory };
    [[nodiscard]] QString Choose(const QStringList& filters, const QString& title, const QString& directory,
                                 Wanted wanted);
    [[nodiscard]] QWidget* Owner() const;
    const files::Disk& m_disk;
    QWidget* m_owner = nullptr;
    std::function<void(const QString&)> m_log;
};

/// "*.mdb|Access" as a file dialog wants it: "Access (*.mdb)"; further pairs follow.
[[nodiscard]] QStringList DialogFilters(const QString& filter);

} // namespace vasclip::windows
