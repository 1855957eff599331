#pragma once

#include "transfer_home.h"

#include "support/error_number.h"
#include "support/xlsx_file.h"
#include "upkeep/list_presets.h"
#include "upkeep/rehearsal.h"

namespace vasclip::upkeep {

/// Lists beside the Databook of TransferHome.
class ListHome : public TransferHome
{
protected:
    const QString csv = u"C:\\EXPORT\\IN.CSV"_s;
    const QString book = u"C:\\EXPORT\\IN.XLSX"_s;

    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
    }
    ListProposal Look(const QString& file, const ListChoice& choice = {})
    {
        return LookAtList(Desk(), ListFile(disk, file), choice);
    }
    ImportOrder Order(const QString& file, const ListLook& look)
    {
        const auto list = std::make_shared<const ListFile>(disk, file);
        return OrderOf(std::make_shared<const ListSource>(Desk(), list, look, Step()));
    }
    ImportResult Import(const QString& file, const ListChoice& choice = {})
    {
        return ImportTable(Desk(), Order(file, Look(file, choice).look), Step());
    }
    QString Stored(const QString& comp, const QString& field) { return Field(path, table, comp, field).toString(); }
    static QStringList FieldsOf(const ListLook& look)
    {
        QStringList fields;
        for (const ListColumn& column : look.columns)
            fields.append(column.field);
        return fields;
    }
};

} // namespace vasclip::upkeep
