#pragma once

#include <QFrame>

class QGridLayout;
class QVBoxLayout;

namespace vasclip::map {
class MapPort;
}

namespace vasclip::windows {

class EventGuard;
class MapView;

/// The map tab: the drawn map, and beside it what is placed, drawn, found and sent. Its widgets bear the names of the
/// tab's controls.
class MapPane : public QFrame
{
    Q_OBJECT
public:
    MapPane(map::MapPort& port, EventGuard& guard, QWidget* parent = nullptr);

    [[nodiscard]] MapView& View() const { return *m_view; }

private:
    [[nodiscard]] QWidget* MakePanel();
    [[nodiscard]] QWidget* MakeDetails();
    QVBoxLayout* AddGroup(QVBoxLayout& rows, const QString& title);
    [[nodiscard]] QWidget* MakeSpinner(const QString& name);
    void AddSized(QVBoxLayout& rows, const QString& words, const QString& box, const QString& spinner);

    map::MapPort& m_port;
    EventGuard& m_guard;
    MapView* m_view = nullptr;
};

} // namespace vasclip::windows
