#include "shell/adjust.h"

#include "common/error_block.h"
#include "photos/capture_desk.h"
#include "photos/frm_double.h"
#include "platform/text/text.h"
#include "shell/program.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

std::pair<QString, bool> Adjust(Program& program, const QString& path)
{
    photos::frm_Double screen({program.Ports(), program.Disk(), program.globals, program.Loader()}, path);
    program.Ports().screens.ShowModal(screen);
    return {screen.Result().isEmpty() ? path : screen.Result(), screen.RefreshThumbs()};
}

void SlotPhoto_DblClick(Program& program, forms::PictureBox& slot)
{
    const common::RoutineScope scope{"SlotPhoto_DblClick"};
    const QString path = text::Trim(program.SlotTable().ErrGetPict(slot));
    if (path.isEmpty()) {
        program.Prompter().Box(program.globals.productName, u"The photo box is empty."_s);
        return;
    }
    const auto [shown, refresh] = Adjust(program, path);
    if (text::Folded(program.SlotTable().ErrGetPict(slot)) ==
        text::Folded(path)) // else another photo has come on show
        program.Loader().ErrLoadThumb(slot, shown);
    if (refresh)
        program.Capture().RefreshCapture();
}

} // namespace vasclip::shell
