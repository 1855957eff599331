#pragma once

#include <QObject>

namespace vasclip::shell {

struct MenuPoint;
class Program;
class RecordOnShow;

/// Record, view and file name of the selected photo of the record on show.
[[nodiscard]] QString ShownPhoto(const Program& program);

/// The photos of the record on show: their lists, their buttons, what their pop-up menu leads to.
class RecordPhotos : public QObject
{
    Q_OBJECT
public:
    /// @param point  over what the pop-up menus open
    RecordPhotos(Program& program, RecordOnShow& shown, const MenuPoint& point);

    void CmdDeletePhoto_Click();
    void CmdRenamePhotoView_Click();
    /// Does what was chosen in the menu to the photo over which it opened. With another one on show by now nothing is
    /// done, which is told.
    void FromMenu(void (RecordPhotos::*choice)());

private:
    bool StandOnShownPhoto();

    Program& m_program;
    RecordOnShow& m_shown;
    const MenuPoint& m_point;
};

} // namespace vasclip::shell
