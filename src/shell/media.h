#pragma once

namespace vasclip::shell {

class Program;

// What the menus lead to around the capture directory: the trash, copying, finding, views.

void ShowTrash(Program& program);
void CopyFromFloppy(Program& program);
void CopyFromReader(Program& program);
void CopyFromRom(Program& program);
/// The directory chosen becomes the capture directory, also of later runs.
void FindPhotos(Program& program);
void ShowGeneralViews(Program& program);

} // namespace vasclip::shell
