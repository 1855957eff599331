// A second user of a database: does one thing and says so on its output.
//   engine_user HOME C:\FILE.MDB add FIRST COUNT   adds COUNT records, keys from FIRST on
//   engine_user HOME C:\FILE.MDB count KEY TIMES   raises the GLA of KEY by one, TIMES times, until nobody
//   interferes engine_user HOME C:\FILE.MDB set KEY CITY      edits one record engine_user HOME C:\FILE.MDB
//   drop KEY          deletes one record engine_user HOME C:\FILE.MDB hold MODE         opens (shared,
//   exclusive, locked) and waits for a line engine_user HOME C:\FILE.MDB halves            rewrites two long
//   fields to one letter each for ever, with each update

#include "platform/engine/database.h"
#include "platform/engine/errors.h"
#include "support/standing_time.h"

#include <cstdio>
#include <iostream>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

void Say(const char* text)
{
    std::puts(text);
    std::fflush(stdout);
}

void Seek(engine::Recordset& table, const QString& key)
{
    table.SetIndex(u"Centralkey"_s);
    table.Seek(u"="_s, key);
}

int Work(const QStringList& words)
{
    const files::Disk disk(words[1]);
    engine::Engine engine(disk, tests::SomeTime());
    engine.SetLockWait(30000);
    const QString& what = words[3];
    const auto mode =
        what == u"hold" && words[4] == u"exclusive" ? engine::OpenMode::Exclusive : engine::OpenMode::Shared;
    const auto database = engine.OpenDatabase(words[2], mode);
    const auto table = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    if (what == u"add") {
        const int first = words[4].toInt();
        for (int i = first; i < first + words[5].toInt(); ++i) {
            table->AddNew();
            table->SetValue(u"CENTRALKEY"_s, u"KEY %1"_s.arg(i));
            table->Update();
        }
    } else if (what == u"count") {
        for (int i = 0; i < words[5].toInt(); ++i) {
            for (bool done = false; !done;) {
                Seek(*table, words[4]);
                table->Edit();
                table->SetValue(u"GLA"_s, QString::number(table->Value(u"GLA"_s).toInt() + 1));
                try {
                    table->Update();
                    done = true;
                } catch (const RuntimeError& error) {
                    if (error.Number() != error::kDataChanged)
                        throw;
                }
            }
        }
    } else if (what == u"set") {
        Seek(*table, words[4]);
        table->Edit();
        table->SetValue(u"CITY"_s, words[5]);
        table->Update();
    } else if (what == u"drop") {
        Seek(*table, words[4]);
        table->Delete();
    } else if (what == u"hold") {
        if (words[4] == u"locked") {
            database->BeginTrans();
            table->Edit();
            table->SetValue(u"CITY"_s, u"HELD"_s);
            table->Update();
        }
        Say("ready");
        std::string line;
        std::getline(std::cin, line);
    } else if (what == u"halves") {
        Say("ready");
        for (ushort letter = u'A';; letter = letter == u'Z' ? u'A' : letter + 1) {
            table->MoveFirst();
            table->Edit();
            table->SetValue(u"PHOTOS"_s, QString(60'000, QChar(letter)));
            table->SetValue(u"FRONTPHOTO"_s, QByteArray(200'000, static_cast<char>(letter)));
            table->Update();
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    words.resize(std::max<qsizetype>(words.size(), 6));
    try {
        return Work(words);
    } catch (const vasclip::RuntimeError& error) {
        std::printf("error %d %s\n", error.Number(), error.what());
        return 1;
    }
}
