#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"

#include <QImage>

#include <memory>

namespace vasclip::drops {
class Router;
}

namespace vasclip::shell {

class Program;
class RecordOnShow;
class WindowWants;

/// Drags and drops on the main screen.
class Drags
{
public:
    Drags(Program& program, RecordOnShow& shown, WindowWants& wants);
    ~Drags();

    /// May a drag begin on this control now?
    [[nodiscard]] bool CanStart(const forms::Control& source) const;
    /// A drag begins on a control. @param shift  sum of kShiftMask, kCtrlMask and kAltMask
    drops::Drag Begin(const forms::Control& source, int shift = 0);
    /// Would a drop of this source on this control do something now?
    [[nodiscard]] bool Accepts(const QString& sourceName, const forms::Control& target) const;
    /// The hint line while a drag is over a control goes to lblmsg; an empty target name clears it.
    void DragOver(const QString& sourceName, const QString& targetName);
    /// A drag ended on a control. Nothing happens for a pair without a rule.
    drops::Outcome Drop(const drops::Drag& drag, forms::Control& target);
    /// Files of another program end on a control. @param files  drive paths
    drops::Outcome DropFiles(const QStringList& files, forms::Control& target);
    /// Exchanges two sales comps of the report; the status line tells.
    drops::Outcome SwapComps(int target, int source);
    /// The status line tells of an outcome. What was done walks other records for its icons; the record on
    /// show comes back, or the one that has changed comes.
    drops::Outcome Told(drops::Outcome outcome);

    /// The icon of the drag that lasts; null if the program directory has none.
    [[nodiscard]] QImage DragPicture() const;
    /// Native path of the picture file that a control shows, for other programs; "" without one.
    [[nodiscard]] QString NativeFileOf(const forms::Control& source) const;
    /// Its pixels, upright. @throws RuntimeError 481 for a file that is no picture
    [[nodiscard]] QImage ImageOf(const forms::Control& source) const;

private:
    [[nodiscard]] QString FileOf(const forms::Control& source) const;

    Program& m_program;
    RecordOnShow& m_shown;
    WindowWants& m_wants;
    std::unique_ptr<drops::Router> m_router;
};

} // namespace vasclip::shell
