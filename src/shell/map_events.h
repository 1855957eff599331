#pragma once

#include "forms/controls.h"
#include "map/map_port.h"

#include <QObject>

#include <functional>

namespace vasclip::shell {

class MapParts;
class Program;

/// Who hears the map tab's controls, and what is done on the drawn map.
class MapEvents : public QObject, public map::MapPort
{
    Q_OBJECT
public:
    MapEvents(Program& program, forms::TabControl& tabSource);

    street::StreetMap& Engine() override;
    bool Shown() override;
    void OnOtherMaps(std::function<void()> heard) override { m_otherMaps = std::move(heard); }
    bool PointClicked(qint32 id) override;
    void PointDropped(qint32 id, street::Place place) override;
    void GroundClicked(street::Place place) override;
    QString DistanceOfLine(int line) const override;
    void Drawn() override;
    void AnchorAllOff() override;
    void Step(const QString& spinner, int step) override;
    bool KeyDown(int keyCode, int shift) override;
    void KeyUp(int keyCode) override;

    /// The directory of the maps has others now.
    void TakeOtherMaps();

private:
    void WireButtons();
    void WireBoxes();
    /// A gesture that needs maps: says so where there are none.
    void Do(const std::function<void()>& gesture);
    [[nodiscard]] bool MapOnShow() const;
    void ShowProblems();

    Program& m_program;
    MapParts& m_parts;
    forms::TabControl& m_tabSource;
    bool m_told = false; ///< missing files are told once
    bool m_ready = false;
    std::function<void()> m_otherMaps;
};

} // namespace vasclip::shell
