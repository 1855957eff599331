#pragma once

#include "report_windows.h"
#include "upkeep/frm_import.h"

#include <QRadioButton>

namespace vasclip::windows {

inline const QString kTheirs = u"C:\\DATABOOK\\IMPORT\\THEIRS.MDB"_s;
inline const QByteArray kJpeg("\xFF\xD8\xFF the picture");

/// The import's window, opened by its menu entry over the main screen.
class ImportWindow : public PlayedScreen
{
protected:
    void SetUp() override
    {
        PlayedScreen::SetUp();
        home.MakeDirs(u"C:\\DATABOOK\\IMPORT"_s);
        store::MakeDatabase(engine, kTheirs);
        Add(kTheirs, u"COMPS"_s, {{u"CENTRALKEY"_s, u"12 OAK ST"_s.leftJustified(35)}});
        const auto database = engine.OpenDatabase(kTheirs);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (const QString& number : {u"1"_s, u"2"_s}) {
            rows->AddNew();
            rows->SetValue(u"CENTRALKEY"_s, (number + u" ASH ST"_s).leftJustified(35));
            rows->SetValue(u"PHOTOS"_s, u"FRONT VIEW|0000000%1\r\n"_s.arg(number));
            rows->SetValue(u"FRONTPHOTO"_s, kJpeg);
            rows->Update();
        }
        rows->Close();
        database->Close();
        StartProgram();
    }
    void Play(const std::function<void()>& script)
    {
        PlayOn(u"frm_Import"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 0); }, script);
    }
    QStringList Cells(const QString& grid, int row) const
    {
        const QAbstractItemModel* model = The<QAbstractItemView>(grid).model();
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells.append(model->index(row, column).data().toString());
        return cells;
    }
};

} // namespace vasclip::windows
