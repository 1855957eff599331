#pragma once

#include "support/databook_home.h"
#include "upkeep/frm_crystal.h"
#include "upkeep/frm_report_preview.h"

#include <QDir>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

/// A Databook whose search is printed, and a place for files.
class PrintHome : public tests::DatabookHome
{
protected:
    common::Globals globals;
    store::DataSource datsql{engine, u"datsql"_s};
    QString statement;
    QTemporaryDir out;
    const QString pdf = out.filePath(u"r.pdf"_s);

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.G_UserDir = u"C:\\USER\\"_s;
        globals.G_DataDir = u"C:\\"_s;
        globals.G_DataFile = u"DATABOOK.MDB"_s;
        globals.G_Table = table;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        disk.MkDir(u"C:\\USER"_s);
        disk.MkDir(u"C:\\JPG"_s);
    }
    void Comps(int count)
    {
        QList<Values> rows;
        for (int i = 1; i <= count; ++i)
            rows.append({{key, u"%1 OAK ST"_s.arg(i)},
                         {u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)},
                         {u"CITY"_s, i % 2 ? u"Marlow"_s : u"Tannery"_s},
                         {u"PHOTOS"_s, i == 1 ? u"FRONT VIEW|GONE0001\r\n"_s : u" "_s}});
        AddRows(rows);
    }
    [[nodiscard]] std::unique_ptr<frm_Crystal> Make(const QString& sql, bool narrowed = false)
    {
        statement = sql;
        datsql.Open(path, sql, store::SourceKind::Query);
        auto screen = std::make_unique<frm_Crystal>(Desk(), datsql, statement, narrowed);
        screen->Open();
        return screen;
    }
    [[nodiscard]] ReportDesk Desk() { return {ports, engine, disk, globals, path}; }
    [[nodiscard]] qint64 Filled(const QString& file)
    {
        const auto database = engine.OpenDatabase(u"C:\\USER\\"_s + file, engine::OpenMode::ReadOnly);
        return store::CountRows(*database, table);
    }
    void Click(forms::Button& button) { Q_EMIT button.Clicked(); }
    /// Prints, and does this on the preview.
    void Print(frm_Crystal& screen, const std::function<void(frm_ReportPreview&)>& visit)
    {
        bool came = false;
        doubles.screens.Play([&](forms::Screen& shown) {
            came = true;
            visit(dynamic_cast<frm_ReportPreview&>(shown));
            shown.Unload();
        });
        Click(screen.cmdPrint);
        EXPECT_TRUE(came) << "no preview came up";
    }
    [[nodiscard]] QStringList Files() const { return QDir(out.path()).entryList(QDir::Files); }
};

} // namespace vasclip::upkeep
