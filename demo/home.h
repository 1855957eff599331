#pragma once

#include <QString>

#include <functional>

namespace vasclip::demo {

inline constexpr int kUsualComps = 520;

struct HomeOptions
{
    QString directory; ///< native path; made if it is not there
    int comps = kUsualComps;
    bool force = false; ///< makes a complete demo home anew, with all that was changed in it lost
};

enum class HomeOutcome { Made, WasComplete };

/// Makes the demo home, or leaves a complete one as it is. What an interrupted run left behind is made anew; the
/// home of another version is moved aside first.
/// @param say  gets a line of progress at a time
/// @throws RuntimeError when the directory holds other files than a demo home's, when a program works on it,
/// or when something cannot be written; the home then counts as unfinished
HomeOutcome MakeHome(const HomeOptions& options, const std::function<void(const QString& line)>& say);

} // namespace vasclip::demo
