#include "formsbook/forms.h"
#include "link/form_table.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

// The forms that the stand-in offers are the forms that the link opens: a code on one side alone would end
// Vasclip at a refresh, or never be met.
TEST(SameForms, StandInTheFormsBookAndInTheLinksTable)
{
    QStringList offered;
    for (const formsbook::Form& form : formsbook::Forms())
        offered << form.code;
    QStringList opened;
    for (const QLatin1StringView row : link::FormTable())
        opened << row.left(row.indexOf('='_L1));
    EXPECT_EQ(offered.size(), 66);
    EXPECT_EQ(offered, opened);
    for (const QString& code : offered)
        EXPECT_TRUE(link::IsApprovedForm(code)) << code.toStdString();
}

} // namespace
