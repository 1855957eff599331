#pragma once

#include "report_windows.h"
#include "store/convert.h"
#include "upkeep/frm_import.h"

#include <QRadioButton>

namespace vasclip::windows {

inline const QString kTheirs = u"C:\\DATABOOK\\IMPORT\\THEIRS.MDB"_s;
inline const QByteArray kJpeg("\xFF\xD8\xFF the picture");

/// An Access file beside the other office's, of which a third is gone. @return how many comps it had
inline int MakeCutFile(engine::Engine& engine, const QString& target)
{
    const QString whole = u"C:\\WHOLE.MDB"_s;
    store::MakeDatabase(engine, whole);
    const auto database = engine.OpenDatabase(whole);
    const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    constexpr int kComps = 400;
    engine::Transaction together(*database);
    for (int i = 0; i < kComps; ++i) {
        rows->AddNew();
        rows->SetValue(u"CENTRALKEY"_s, u"%1 LONG RD"_s.arg(i).leftJustified(35));
        rows->SetValue(u"CITY"_s, u"Cedar"_s);
        rows->Update();
    }
    together.Commit();
    rows->Close();
    database->Close();
    EXPECT_TRUE(store::ConvertDatabase(engine, {.source = whole, .target = target, .to = engine::DatabaseKind::Access}));
    QFile file(engine.Disk().ToNative(target));
    EXPECT_TRUE(file.resize(file.size() * 2 / 3));
    return kComps;
}

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

/// The rehearsal over the import's window.
class RehearseWindow : public ImportWindow
{
protected:
    void SetUp() override
    {
        ImportWindow::SetUp();
        const auto database = engine.OpenDatabase(kTheirs);
        database->Execute(u"UPDATE [COMPS] SET CITY = 'THEIRS', ZIP = '97001' WHERE CENTRALKEY = '12 OAK ST'"_s);
        database->Close();
    }
    void Rehearse(const std::function<void()>& script)
    {
        Play([&] {
            ClickLine(u"filexport"_s, 0);
            Tick(u"ckbCopy"_s);
            PlayOn(u"frm_Rehearse"_s, [&] { Press(u"cmdRehearse"_s); }, script);
        });
    }
    void ClickRow(int row) const
    {
        auto& view = The<QAbstractItemView>(u"grdrows"_s);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row, 0)).center());
    }
    void Option(int choice) const
    {
        auto& option = The<QRadioButton>(u"optChoice_%1"_s.arg(choice));
        QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
    }
    QString City(const QString& key)
    {
        const auto database = engine.OpenDatabase(shell::kDatabook);
        const auto rows = database->OpenRecordset(u"SELECT CITY FROM COMPS WHERE CENTRALKEY = '%1'"_s.arg(key),
                                                  engine::RecordsetType::Dynaset);
        return rows->Eof() ? u"none"_s : rows->Value(u"CITY"_s).toString();
    }
};

} // namespace vasclip::windows
