#pragma once

#include "databook/comp_fields.h"
#include "support/databook_home.h"
#include "upkeep/frm_del_date.h"
#include "upkeep/frm_maintenance.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

/// A Databook, the screen of the repairs, and what stands in the records afterwards.
class MaintenanceHome : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    common::Globals globals;
    std::unique_ptr<frm_Maintenance> screen;

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.G_UserDir = u"C:\\VAS2000\\"_s;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        for (const QString& directory : {u"C:\\VAS2000"_s, u"C:\\JPG"_s})
            disk.MkDir(directory);
    }
    [[nodiscard]] RepairDesk Desk() { return {ports, source, globals, disk}; }
    void Open()
    {
        Bind(source);
        screen = std::make_unique<frm_Maintenance>(MaintenanceDesk{.repair = Desk()});
        screen->Open();
    }
    void Comp(const QString& name, Values values = {})
    {
        values.prepend({key, name.leftJustified(35)});
        AddRow(values);
    }
    void Yes() { doubles.prompter.Answer(forms::Answer::Yes); }
    void Click(forms::Button& button) { Q_EMIT button.Clicked(); }
    void Erase(forms::Button& button, const QString& date)
    {
        doubles.screens.Play([date](forms::Screen& asks) {
            auto& dialog = dynamic_cast<frm_DelDate&>(asks);
            dialog.txtDate.SetText(date);
            Q_EMIT (date.isEmpty() ? dialog.cmdCancel : dialog.cmdOK).Clicked();
        });
        Click(button);
    }
    [[nodiscard]] QString Field(const QString& comp, const QString& field) const
    {
        const auto record = store::ReadRecord(source, comp);
        return record ? record->Text(field) : u"<no record>"_s;
    }
    [[nodiscard]] QStringList Keys() const
    {
        QStringList keys;
        store::Rows rows = store::ReadRows(source, u"SELECT CENTRALKEY FROM COMPS"_s);
        while (const auto record = rows.Next())
            keys.append(record->Text(u"CENTRALKEY"_s));
        return keys;
    }
    [[nodiscard]] QStringList Lines() const
    {
        QStringList lines;
        for (int i = 0; i < screen->lstaccount.ListCount(); ++i)
            lines.append(screen->lstaccount.List(i));
        return lines;
    }
    [[nodiscard]] bool HasFile(const QString& path) const { return disk.FileExists(path); }
};

} // namespace vasclip::upkeep
