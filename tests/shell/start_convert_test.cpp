#include "start_home.h"

#include "platform/engine/convert.h"
#include "shell/convert_offer.h"
#include "support/exclusive_lock.h"
#include "support/genuine_files.h"
#include "support/unix.h"

#include <QDir>
#include <QFile>

// A Databook that the start finds damaged or in another kind of file.

namespace vasclip::shell {
namespace {

/// A Databook of 200 records, one of whose pages is broken.
class DamagedStart : public StartSequence
{
protected:
    const QString book = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
    QByteArray before;

    void SetUp() override
    {
        StartSequence::SetUp();
        {
            const auto database = engine.OpenDatabase(book);
            const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
            engine::Transaction together(*database);
            for (int i = 0; i < 200; ++i) {
                rows->AddNew();
                rows->SetValue(u"CENTRALKEY"_s, u"%1 OAK ST"_s.arg(i, 4, 10, QChar(u'0')));
                rows->SetValue(u"ADDRESS"_s, u"%1 Oak St"_s.arg(i, 4, 10, QChar(u'0')));
                rows->SetValue(u"NOTES"_s, QString(120, u'n'));
                rows->Update();
            }
            together.Commit();
            rows->Close();
            database->Close();
        }
        before = home.disk.ReadWhole(book);
        const qsizetype page = before.indexOf("0100 Oak St") / 4096 * 4096;
        ASSERT_GT(page, 0);
        before.replace(page, 4096, QByteArray(4096, '\x5A'));
        home.disk.WriteWhole(book, before);
    }
};

TEST_F(DamagedStart, IsOpenForReadingOnlyWhenThatIsWanted)
{
    doubles.prompter.Answer(forms::Answer::Cancel);
    Load();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().title, u"Databook Damaged"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(book + u" is damaged: "_s));
    EXPECT_FALSE(main.sources.datDatabook.Recordset().Updatable());
    EXPECT_EQ(main.records.grddatabook.CurrentText(u"CENTRALKEY"_s).trimmed(), u"0000 OAK ST"_s)
        << "what is whole is shown";
    main.CheckDatabook(engine::CheckDepth::Quiet);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << "told once";
    EXPECT_THROW(main.sources.datDatabook.Recordset().AddNew(), RuntimeError);
    main.Form_Unload();
    EXPECT_TRUE(home.disk.ReadWhole(book) == before);
}

TEST_F(DamagedStart, InAnOrderToo)
{
    Set(u"PREFERENCES"_s, u"SORTGRID"_s, u"1"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    Load();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << "told once";
    EXPECT_EQ(main.records.grddatabook.CurrentText(u"CENTRALKEY"_s).trimmed(), u"0000 OAK ST"_s);
    EXPECT_EQ(main.globals.mapDetail, 3);
}

TEST_F(DamagedStart, WhatCanBeReadBecomesANewDatabookThatTheProgramGoesOnWith)
{
    home.MakeDirs(u"C:\\SAFE"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.AnswerDialog({}); // no directory: asked again
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.AnswerDialog(u"C:\\SAFE"_s);
    Load();
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u" were copied to C:\\SAFE\\DATABOOK_COPY.MDB."_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"0100 OAK ST: lost"_s));
    EXPECT_EQ(main.sources.datsql.DatabaseName(), u"C:\\SAFE\\DATABOOK_COPY.MDB"_s);
    EXPECT_TRUE(main.sources.datDatabook.Recordset().Updatable());
    EXPECT_GT(main.sources.datDatabook.Recordset().RecordCount(), 150);
    EXPECT_EQ(Stored(u"DATADIR"_s, u"DIRECTORIES"_s), u"C:\\SAFE\\"_s);
    EXPECT_EQ(Stored(u"DATAFILE"_s, u"DIRECTORIES"_s), u"DATABOOK_COPY.MDB"_s);
    EXPECT_TRUE(home.disk.ReadWhole(book) == before);
    main.Form_Unload();
    Program tomorrowProgram{home.disk.Home(), {conduit, ports}};
    frm_Main tomorrow{tomorrowProgram};
    doubles.prompter.Forget();
    tomorrow.Form_load(options, splash);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

/// A Databook of ten records that is a genuine Access file.
class AccessStart : public StartSequence
{
protected:
    const QString book = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
    const QString kept = u"C:\\DATABOOK\\DATABOOK_ACCESS.MDB"_s;
    QByteArray before;

    void SetUp() override
    {
        StartSequence::SetUp();
        {
            const auto database = engine.OpenDatabase(book);
            const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
            for (int i = 0; i < 10; ++i) {
                rows->AddNew();
                rows->SetValue(u"CENTRALKEY"_s, u"%1 OAK ST"_s.arg(i));
                rows->SetValue(u"ADDRESS"_s, u"%1 Oak St"_s.arg(i));
                rows->SetValue(u"SELLINGPR"_s, QString::number((i * 7 % 10) * 9000));
                rows->SetValue(u"FRONTPHOTO"_s, QByteArray(1 + i * 3000, '\xD8'));
                rows->Update();
            }
            rows->Close();
            database->Close();
        }
        MakeAccess(book);
        before = home.disk.ReadWhole(book);
    }
    void MakeAccess(const QString& path)
    {
        engine::Conversion wanted{.source = path, .target = u"C:\\MADE.MDB"_s, .to = engine::DatabaseKind::Access};
        ASSERT_TRUE(engine::ConvertDatabase(engine, wanted));
        home.disk.Kill(path);
        home.disk.Name(wanted.target, path);
    }
};

TEST_F(AccessStart, BecomesAVasclipDatabookWhenThatIsWantedAndIsKept)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    Load();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U);
    EXPECT_TRUE(doubles.prompter.Boxes()[0].text.startsWith(book + u" is an Access database."_s));
    EXPECT_TRUE(doubles.prompter.Boxes()[0].text.contains(kept));
    EXPECT_TRUE(doubles.prompter.Boxes()[1].text.contains(u"10 records"_s));
    EXPECT_EQ(home.disk.ReadWhole(kept), before);
    EXPECT_TRUE(main.sources.datDatabook.Recordset().Updatable());
    EXPECT_EQ(main.sources.datDatabook.Recordset().RecordCount(), 10);
    EXPECT_EQ(main.sources.datDatabook.Recordset().Fields().at(main.sources.datDatabook.FieldIndex(u"SELLINGPR"_s)).sortsAs,
              engine::SortsAs::Number);
    main.Form_Unload();
    Program tomorrowProgram{home.disk.Home(), {conduit, ports}};
    frm_Main tomorrow{tomorrowProgram};
    doubles.prompter.Forget();
    tomorrow.Form_load(options, splash);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "it is asked no more";
}

TEST_F(AccessStart, WhatOnlyTheOldFileHasIsSaidWithItsName)
{
    if (tests::GenuineFiles().isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    const QString queries = u"C:\\DATABOOK\\QUERIES.MDB"_s;
    ASSERT_TRUE(tests::CopyGenuineFile(u"queryTestV2003.mdb"_s, home.disk.ToNative(queries)));
    const QByteArray old = home.disk.ReadWhole(queries);
    doubles.prompter.Answer(forms::Answer::Yes);
    OfferConversion(program, queries, u"Table1"_s);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U) << doubles.prompter.Texts().join(u'\n').toStdString();
    const QString said = doubles.prompter.Last().text;
    EXPECT_TRUE(said.contains(u"\nOnly C:\\DATABOOK\\QUERIES_ACCESS.MDB has the saved query "_s)) << said.toStdString();
    EXPECT_EQ(said.count(u"the saved query "_s), 9);
    EXPECT_FALSE(said.contains(u"old file"_s)) << said.toStdString();
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\DATABOOK\\QUERIES_ACCESS.MDB"_s), old);
}

TEST_F(AccessStart, IsOpenForReadingOnlyWhenThatIsWanted)
{
    doubles.prompter.Answer(forms::Answer::No);
    Load();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_FALSE(main.sources.datDatabook.Recordset().Updatable());
    EXPECT_EQ(main.records.grddatabook.CurrentText(u"CENTRALKEY"_s).trimmed(), u"0 OAK ST"_s);
    main.Form_Unload();
    EXPECT_EQ(home.disk.ReadWhole(book), before);
    EXPECT_FALSE(home.disk.FileExists(kept));
}

TEST_F(AccessStart, OneThatIsOpenInAccessIsNotTakenFromUnderIt)
{
    home.Put(u"C:\\DATABOOK\\DATABOOK.LDB"_s, "HOST1");
    doubles.prompter.Answer(forms::Answer::Yes);
    Load();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U) << doubles.prompter.Texts().join(u'\n').toStdString();
    EXPECT_TRUE(doubles.prompter.Boxes()[1].text.startsWith(
        book + u" is open in another program, as the file C:\\DATABOOK\\DATABOOK.LDB beside it tells. "_s))
        << doubles.prompter.Boxes()[1].text.toStdString();
    EXPECT_EQ(main.sources.datDatabook.Recordset().RecordCount(), 10);
    EXPECT_FALSE(main.sources.datDatabook.Recordset().Updatable());
    EXPECT_EQ(home.disk.ReadWhole(book), before);
    EXPECT_FALSE(home.disk.FileExists(kept));
}

TEST_F(AccessStart, IsNotOfferedInAHomeForLookingNorWithoutItsTable)
{
    OfferConversion(program, book, u"NOSUCH"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    options.homeIsReadOnly = true;
    Load();
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << doubles.prompter.Texts().join(u'\n').toStdString();
    EXPECT_EQ(home.disk.ReadWhole(book), before);
}

TEST_F(AccessStart, OneThatCanNotBeOpenedIsToldAndStays)
{
    home.Put(book, before.left(1000));
    OfferConversion(program, book, u"COMPS"_s);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"it breaks off in its first 1000 bytes"_s)) << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(home.disk.ReadWhole(book), before.left(1000));
}

TEST_F(AccessStart, OfADamagedOneWhatIsMissingIsShownBeforeItsPlaceIsTaken)
{
    QByteArray hurt = before;
    for (qsizetype at = hurt.indexOf("Oak St"); at > 0; at = hurt.indexOf("Oak St", at + 1)) // each page with rows of comps
        for (qsizetype entry = at / 4096 * 4096 + 14, row = 0; row < 3; ++row, entry += 2) {
            hurt[entry] = 1;
            hurt[entry + 1] = 0;
        }
    home.Put(book, hurt);
    for (const bool goOn : {false, true}) {
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Yes);
        doubles.prompter.Answer(goOn ? forms::Answer::Yes : forms::Answer::No);
        OfferConversion(program, book, u"COMPS"_s);
        ASSERT_GE(doubles.prompter.Boxes().size(), 2U) << doubles.prompter.Texts().join(u'\n').toStdString();
        const tests::ShownBox asked = doubles.prompter.Boxes().at(1);
        EXPECT_EQ(asked.icon, forms::Icon::Exclamation);
        EXPECT_TRUE(asked.text.startsWith(u"Not all of "_s + book + u" can be read:\ntable COMPS, row 0 of page "_s)) << asked.text.toStdString();
        EXPECT_TRUE(asked.text.endsWith(u"Go on with what can be read? The Access database is kept in any case."_s));
        EXPECT_EQ(home.disk.FileExists(kept), goOn);
        EXPECT_EQ(home.disk.ReadWhole(goOn ? kept : book), hurt);
    }
}

TEST_F(AccessStart, AFullDirectoryOfNamesAndAMappingAreNoTrouble)
{
    home.Put(kept, "somebody's");
    MakeAccess(u"C:\\VAS2000\\Comp2Kel.mdb"_s);
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    Load();
    EXPECT_EQ(home.disk.ReadWhole(kept), "somebody's");
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\DATABOOK\\DATABOOK_ACCESS2.MDB"_s), before);
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VAS2000\\Comp2Kel_ACCESS.mdb"_s));
    EXPECT_TRUE(main.sources.datComp2Kel_CURRENT.Recordset().Updatable());
}

} // namespace
} // namespace vasclip::shell
