#include "map/view.h"

#include "map/messages.h"
#include "platform/text/text.h"

#include <algorithm>
#include <cmath>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace action = street::action;

namespace {

constexpr qint32 kNowhere = 360'000'000;
constexpr double kMillion = 1'000'000;
constexpr double kFeetOfSecond = 101.45;
constexpr double kSecondsOfDegree = 3600;
constexpr double kMargin = 1.4;
constexpr double kZoomStep = 0.1;
constexpr double kTrue = -1;
constexpr double kFalse = 0;
constexpr qint32 kStreetFeatures[] = {7, 4, 5, 6};
constexpr int kFinest = 3;

struct Box
{
    qint32 low = kNowhere, high = -kNowhere;
    void Widen(qint32 value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    [[nodiscard]] qint32 Centre() const { return text::ToInt32((static_cast<double>(low) + high) / 2); }
    [[nodiscard]] double Feet(qint32 factor = 1) const
    {
        return text::ToInt32(std::abs(static_cast<double>(high) - low) * factor * kSecondsOfDegree * kFeetOfSecond /
                             kMillion);
    }
};

void Zoom(MapDesk& desk, double part)
{
    street::StreetControl& map = desk.map;
    map.DoAction(action::kReadCentre);
    map.DoAction(action::kSetCentre);
    map.SetScale(map.Scale() + map.Scale() * part);
}

/// The tool tip's letters with another number behind them.
QString Numbered(const QString& tip, int number)
{
    qsizetype letters = tip.size();
    while (letters > 0 && tip[letters - 1].isDigit())
        --letters;
    return tip.left(letters) + text::Dec(number);
}

void Spin(forms::Control& spinner, forms::TextBox& box, int step)
{
    constexpr double kMost = 999;
    const int number = static_cast<int>(std::clamp(text::Val(box.Text()) + step, 1.0, kMost));
    spinner.SetToolTipText(Numbered(spinner.ToolTipText(), number));
    box.SetText(text::Dec(number));
}

/// What stands in the box; nothing to apply for what is no number of 1 or more.
std::optional<double> NumberIn(const forms::TextBox& box)
{
    const double number = text::Val(box.Text());
    return number >= 1 ? std::optional(number) : std::nullopt;
}

} // namespace

void ClearMap(MapDesk& desk)
{
    desk.map.DoAction(action::kClearPoints);
    desk.state.g_MapResult.Clear();
    desk.state.g_MapPointCount = 0;
    desk.state.g_MapSelectedID = 0;
    desk.state.turnedByHand.clear();
    desk.state.placedFor.clear();
}

void CentreOnPoint(MapDesk& desk, qint32 id)
{
    if (LoadPoint(desk, id))
        desk.map.DoAction(action::kSetCentre);
}

void zoomtopoints(MapDesk& desk, qint32 first, qint32 last, bool limitToCount)
{
    street::StreetControl& map = desk.map;
    if (limitToCount)
        last = std::min(last, desk.state.g_MapPointCount);
    Box latitude, longitude;
    for (qint32 id = first; id <= last; ++id) {
        if (const std::optional<MapPoint> point = LoadPoint(desk, id)) {
            latitude.Widen(point->place.latitude);
            longitude.Widen(point->place.longitude);
        }
    }
    if (latitude.high < latitude.low)
        return;
    map.SetLatitude(latitude.Centre());
    map.SetLongitude(longitude.Centre());
    map.DoAction(action::kSetCentre);

    constexpr double kPi = 3.14159;
    const double height = latitude.Feet();
    const qint32 factor = text::ToInt32(std::cos(kPi * latitude.Centre() / (180 * kMillion)));
    const double width = longitude.Feet(factor);
    const double viewWidth = map.Width();
    const double viewHeight = map.Height();
    if (viewWidth <= 0 || viewHeight <= 0)
        return; // not on the screen yet
    if (width != 0) {
        const bool tall = viewHeight / viewWidth > height / width;
        map.SetScale((tall ? width : height * viewWidth / viewHeight) * kMargin);
    } else if (height == 0) {
        map.SetScale(viewWidth / viewHeight * 1.0 * kMargin);
    }
}

void cmdin_Click(MapDesk& desk)
{
    Zoom(desk, -kZoomStep);
}

void cmdout_Click(MapDesk& desk)
{
    Zoom(desk, kZoomStep);
}

void cmdRefreshMap_Click(MapDesk& desk)
{
    desk.map.Refresh();
}

void ApplyAttribute(MapDesk& desk, qint32 feature, qint32 attribute, double value)
{
    street::StreetControl& map = desk.map;
    map.SetFeature(feature);
    map.SetAttribute(attribute);
    map.SetValue(value);
    map.DoAction(action::kApplyAttribute);
    if (map.Status() < 0)
        desk.ports.prompter.Box(desk.globals.productName, messages::kFailedWith.arg(map.Status()));
}

void ApplyMapDetail(MapDesk& desk)
{
    const int level = desk.globals.mapDetail;
    const bool names = level == 0 || level == kFinest;
    constexpr qint32 kStreets = 7, kNames = 10, kShown = 1;
    ApplyAttribute(desk, kStreets, kNames, names ? kTrue : kFalse);
    ApplyAttribute(desk, kStreets, kShown, level == 1 ? kFalse : kTrue);
    desk.tab.cmdDetail.SetCaption(text::Dec(level == 0 ? kFinest : level));
}

void cmdDetail_Click(MapDesk& desk)
{
    int& level = desk.globals.mapDetail;
    const int now = level == 0 ? kFinest : level;
    level = now <= 1 ? kFinest : now - 1;
    ApplyMapDetail(desk);
    desk.map.Refresh();
}

void spnFontSize_Change(MapDesk& desk, int step)
{
    Spin(desk.tab.spnFontSize, desk.tab.txtfontsize, step);
}

void spnWidth_Change(MapDesk& desk, int step)
{
    Spin(desk.tab.spnWidth, desk.tab.txtwidth, step);
}

void txtfontsize_Change(MapDesk& desk)
{
    if (const std::optional<double> size = NumberIn(desk.tab.txtfontsize)) {
        for (const qint32 feature : kStreetFeatures)
            for (const qint32 attribute : {12, 13})
                ApplyAttribute(desk, feature, attribute, *size);
        desk.map.Refresh();
    }
}

void txtwidth_Change(MapDesk& desk)
{
    if (const std::optional<double> width = NumberIn(desk.tab.txtwidth)) {
        for (const qint32 feature : kStreetFeatures)
            ApplyAttribute(desk, feature, 3, *width);
        desk.map.Refresh();
    }
}

} // namespace vasclip::map
