#pragma once

#include "forms/screen.h"
#include "windows/binder.h"

#include <QDialog>
#include <QLatin1StringView>
#include <QPointer>

#include <memory>
#include <span>

namespace vasclip::windows {

class EventGuard;

/// Lays out the widgets of a screen on an empty dialog; each bears its control's object name.
using ScreenLayout = void (*)(QDialog& window, forms::Screen& screen);

struct ScreenEntry
{
    QLatin1StringView name; ///< of the screen, "frm_Rename"
    ScreenLayout layout;
};

/// Every screen that has a window, one line each in screens.cpp.
[[nodiscard]] std::span<const ScreenEntry> Screens();

/// The window of a screen, bound to its controls by their names.
class ScreenWindow : public QDialog
{
    Q_OBJECT
public:
    /// @throws RuntimeError 3219 for a screen without a layout
    ScreenWindow(forms::Screen& screen, EventGuard& guard, QWidget* parent = nullptr);
    /// Of the screen, and of its companion if it has one.
    [[nodiscard]] QStringList Leftovers() const;
    [[nodiscard]] Binder& Bindings() { return m_binder; }
    void reject() override; ///< Esc and the window's cross close the screen by its own rule

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    forms::Screen& m_screen;
    EventGuard& m_guard;
    Binder m_binder;
    std::unique_ptr<Binder> m_companion;
};

/// Shows screens as modal windows over the program's active one.
class WindowScreens : public forms::ScreenPort
{
public:
    void SetGuard(EventGuard* guard) { m_guard = guard; }
    void SetOwner(QWidget* owner) { m_owner = owner; }
    void ShowModal(forms::Screen& screen) override;
    void UnloadAllForms() override;

private:
    EventGuard* m_guard = nullptr;
    QPointer<QWidget> m_owner;
    QList<QPointer<ScreenWindow>> m_open; ///< the last one stands before the others
};

} // namespace vasclip::windows
