#include "photos/gen_views.h"

#include "common/error_block.h"
#include "common/ini_list.h"

namespace vasclip::photos {

void AddGenViews2CBO(forms::ListBox& lstGenViews, const forms::ControlArray<forms::ComboBox>& cboGeneral,
                     const files::Disk& disk, const common::Globals& globals)
{
    const common::RoutineScope scope{"AddGenViews2CBO"};
    lstGenViews.Clear();
    common::LoadList(lstGenViews, disk, common::GeneralViews(globals));
    for (int i = cboGeneral.First(); i <= cboGeneral.Last(); ++i)
        cboGeneral(i).SetItems(lstGenViews.Items());
}

} // namespace vasclip::photos
