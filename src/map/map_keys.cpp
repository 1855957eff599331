#include "map/map_keys.h"

#include "map/anchors.h"
#include "map/arrange_arrows.h"
#include "map/rotate.h"
#include "map/selection.h"

namespace vasclip::map {

namespace {

constexpr int kCapsLock = 20;
constexpr int kLeft = 37, kUp = 38, kRight = 39, kDown = 40;
constexpr double kStepPixels = 4;

bool Move(MapDesk& desk, int keyCode, double pixels)
{
    if (desk.state.g_MapSelectedID == 0)
        return false;
    switch (keyCode) {
    case kLeft:
        MoveSelectedBy(desk, -pixels, 0);
        return true;
    case kRight:
        MoveSelectedBy(desk, pixels, 0);
        return true;
    case kUp:
        MoveSelectedBy(desk, 0, pixels);
        return true;
    case kDown:
        MoveSelectedBy(desk, 0, -pixels);
        return true;
    default:
        return false;
    }
}

} // namespace

bool mapview_KeyDown(MapDesk& desk, int keyCode, int shift)
{
    if (keyCode == kCapsLock) {
        desk.state.selectionLocked = true;
        return true;
    }
    if (shift == forms::kAltMask && keyCode == 'C') {
        cmdClearPoint_Click(desk);
        return true;
    }
    if (shift == forms::kCtrlMask) {
        if (keyCode == 'R') {
            cmdRotate_Click(desk);
            return true;
        }
        if (keyCode == 'A') {
            cmdAnchorOne_Click(desk);
            return true;
        }
        if (keyCode == 'G') {
            cmdArrange_Click(desk);
            return true;
        }
        return Move(desk, keyCode, kStepPixels);
    }
    return shift == (forms::kCtrlMask | forms::kShiftMask) && Move(desk, keyCode, 1);
}

void mapview_KeyUp(MapDesk& desk, int keyCode)
{
    if (keyCode == kCapsLock)
        desk.state.selectionLocked = false;
}

} // namespace vasclip::map
