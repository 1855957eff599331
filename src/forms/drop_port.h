#pragma once

#include "forms/controls.h"

#include <QImage>
#include <QStringList>

namespace vasclip::forms {

/// What the window asks when something is dragged. The window knows no rule: it forwards names and controls.
class DropPort
{
public:
    virtual ~DropPort() = default;
    /// May a drag begin on this control now?
    [[nodiscard]] virtual bool IsSource(const Control& source) const = 0;
    /// A drag begins. @param shift  sum of kShiftMask, kCtrlMask and kAltMask
    virtual void Begin(const Control& source, int shift)
    {
        Q_UNUSED(source)
        Q_UNUSED(shift)
    }
    /// Would a drop of this source on this control do something now?
    /// @param source  name of the control the drag began on, "grddatabook"
    [[nodiscard]] virtual bool Accepts(const QString& source, const Control& target) const = 0;
    /// Does a drop of this source on this control, a grid, go to a row of it? The highlight then follows the
    /// pointer, and TakeRow comes before the drop.
    [[nodiscard]] virtual bool AimsAtRow(const QString& source, const Control& target) const
    {
        Q_UNUSED(source)
        Q_UNUSED(target)
        return false;
    }
    /// The record that the drop was let go on becomes the highlighted one.
    /// @param row  -1 if the rows have changed under the pointer; @param key  of the record that it showed there
    /// @return false if that row is no longer that record: the drop is off, which has been told
    virtual bool TakeRow(int row, const QString& key)
    {
        Q_UNUSED(row)
        Q_UNUSED(key)
        return false;
    }
    /// A drag hovers over a control: the hint goes to the status line. An empty target clears it.
    virtual void DragOver(const QString& source, const QString& target) = 0;
    /// The drag ended on a control. Runs after the toolkit's own drag loop is over, so it may ask questions.
    virtual void Drop(Control& source, Control& target) = 0;

    /// The file that a control shows, for other programs: a native path, "" without one.
    [[nodiscard]] virtual QString FileOf(const Control& source) const
    {
        Q_UNUSED(source)
        return {};
    }
    /// The pixels of that file; asked for only when another program wants them.
    [[nodiscard]] virtual QImage ImageOf(const Control& source) const
    {
        Q_UNUSED(source)
        return {};
    }
    /// The icon of the drag that lasts; null for the desktop's own.
    [[nodiscard]] virtual QImage DragIcon() const { return {}; }
    /// Would files of another program do something on this control?
    [[nodiscard]] virtual bool AcceptsFiles(const Control& target) const
    {
        Q_UNUSED(target)
        return false;
    }
    /// They ended there. @param files  native paths; empty if no file was among what came
    virtual void DropFiles(const QStringList& files, Control& target)
    {
        Q_UNUSED(files)
        Q_UNUSED(target)
    }
};

} // namespace vasclip::forms
