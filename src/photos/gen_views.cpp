#include "photos/gen_views.h"

#include "common/error_block.h"
#include "common/ini_list.h"
#include "photos/view_name.h"

namespace vasclip::photos {

void LoadGenViews(forms::ListBox& list, const files::Disk& disk, const common::Globals& globals)
{
    const int first = list.ListCount();
    common::LoadList(list, disk, common::GeneralViews(globals));
    for (int i = first; i < list.ListCount(); ++i)
        if (const QString clean = CleanView(list.List(i)); clean != list.List(i))
            list.SetItem(i, clean);
}

void AddGenViews2CBO(forms::ListBox& lstGenViews, const forms::ControlArray<forms::ComboBox>& cboGeneral,
                     const files::Disk& disk, const common::Globals& globals)
{
    const common::RoutineScope scope{"AddGenViews2CBO"};
    lstGenViews.Clear();
    LoadGenViews(lstGenViews, disk, globals);
    for (int i = cboGeneral.First(); i <= cboGeneral.Last(); ++i)
        cboGeneral(i).SetItems(lstGenViews.Items());
}

} // namespace vasclip::photos
