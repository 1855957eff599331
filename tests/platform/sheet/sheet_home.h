#pragma once

#include "platform/sheet/sheet_reader.h"
#include "platform/sheet/workbook.h"
#include "support/error_number.h"
#include "support/xlsx_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vasclip::sheet {

using namespace Qt::StringLiterals;

/// A directory for spreadsheet files, and what one of them holds.
class SheetHome : public testing::Test
{
protected:
    QTemporaryDir home;
    const QString file = home.filePath(u"list.xlsx"_s);

    void Write(const QByteArray& bytes) const
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(out.write(bytes), bytes.size());
    }
    /// The cells' texts by the number of their row; errors begin with "!".
    [[nodiscard]] QMap<qint64, QStringList> Rows(const QString& sheet) const
    {
        const Workbook book(file);
        const auto reader = book.Open(sheet);
        QMap<qint64, QStringList> rows;
        while (const auto row = reader->Next()) {
            QStringList texts;
            for (const Cell& cell : row->cells)
                texts.append((cell.kind == Cell::Kind::Error ? u"!"_s : QString()) + cell.text);
            rows.insert(row->number, texts);
        }
        return rows;
    }
    [[nodiscard]] QStringList RowOf(const QByteArray& cells, const tests::XlsxFile& like = {}) const
    {
        tests::XlsxFile made = like;
        made.sheets = {{"One", "<row r=\"1\">" + cells + "</row>"}};
        Write(made.Bytes());
        return Rows(u"One"_s).value(1);
    }
    /// Why a file can't be read; "" for one that can, to its last row.
    [[nodiscard]] QString WhyNot() const
    {
        return tests::ThrownBy([&] {
                   const Workbook book(file);
                   for (const QString& sheet : book.Sheets())
                       (void)Rows(sheet);
                   return 0;
               })
            .words;
    }
};

} // namespace vasclip::sheet
