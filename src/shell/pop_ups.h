#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"
#include "shell/menu_point.h"

#include <functional>

namespace vasclip::shell {

class Drags;
struct Menus;
class Program;

/// Clicks on slots, icons and data boxes, and the pop-up menus over slots and pictures.
class PopUps : public QObject
{
    Q_OBJECT
public:
    PopUps(Program& program, Drags& drags, Menus& menus);

    /// The menu that the right button opens over a control, its captions set; nullptr for none. What it leads
    /// to is done to that control.
    forms::Menu* MenuOver(const forms::Control& control);
    [[nodiscard]] const MenuPoint& Point() const { return m_point; }

    /// What is done to a slot.
    using SlotWork = std::function<drops::Outcome(drops::DropDesk& desk, link::SlotRef slot)>;
    /// A choice about the slot over which the menu opened.
    /// @param atWork  what the gauge says of it; sending where nothing else is said
    void OnSlot(const char* menu, const SlotWork& work, const QString& atWork = {});
    /// The same about its photo. With another photo there by now nothing is done, which is told.
    void OnPhoto(const char* menu, const SlotWork& work);
    /// The sales comp over which the menu opened and another one change places.
    void Swap(int comp);

private:
    void SetCorrectPicMenuText(bool subject);
    [[nodiscard]] QString WhyOtherSlotPhoto() const;
    void OfferSwap(const forms::Control& slot);

    Program& m_program;
    Drags& m_drags;
    Menus& m_menus;
    MenuPoint m_point;
    int m_swapComp = 0;      ///< the comp over which the swap was offered
    QStringList m_swapShown; ///< what comps 1 to 9 showed then
};

} // namespace vasclip::shell
