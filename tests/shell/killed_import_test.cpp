// What an import has left that was killed before its rows were stored goes when its Databook is opened.

#include "shell/report_home.h"

#include "support/killed_import.h"

namespace vasclip::shell {

namespace {

using KilledImport = ReportHome;

TEST_F(KilledImport, IsUndoneByTheNextStart)
{
    const tests::KilledImport left(home.disk.ToNative(kDatabook), home.disk.ToNative(u"C:\\JPG"_s));
    ASSERT_TRUE(left.IsThere());
    Load();
    EXPECT_TRUE(left.IsUndone());
}

TEST_F(KilledImport, IntoAnotherDatabookWaitsForThatOne)
{
    const QString other = u"C:\\DATABOOK\\OTHER.MDB"_s;
    engine.CopyDatabase(kDatabook, other);
    const tests::KilledImport left(home.disk.ToNative(other), home.disk.ToNative(u"C:\\JPG"_s));
    Load();
    EXPECT_TRUE(left.IsThere());
    ASSERT_TRUE(main.databookInUse.SwitchDatabook(u"C:\\DATABOOK\\"_s, u"OTHER.MDB"_s));
    EXPECT_TRUE(left.IsUndone());
}

TEST_F(KilledImport, StaysInAHomeForLookingAlone)
{
    const tests::KilledImport left(home.disk.ToNative(kDatabook), home.disk.ToNative(u"C:\\JPG"_s));
    options.homeIsReadOnly = true;
    Load();
    EXPECT_TRUE(left.IsThere());
}

} // namespace

} // namespace vasclip::shell
