#include "upkeep/list_file.h"

#include "platform/sheet/sheet_reader.h"
#include "platform/sheet/workbook.h"
#include "platform/text/runtime_error.h"
#include "upkeep/code_pages.h"
#include "upkeep/csv_text.h"

#include <algorithm>
#include <span>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kNoText = u"%1 is no text file, as it holds bytes that no text has. Choose another file"_s;
const QString kOtherPage = u"%1 is no text in the code page %2. Choose another one"_s;
constexpr QLatin1StringView kTexts[] = {".csv"_L1, ".txt"_L1, ".tsv"_L1};
constexpr QLatin1StringView kBooks[] = {".xlsx"_L1, ".xlsm"_L1, ".xls"_L1, ".xlsb"_L1, ".ods"_L1};

bool EndsIn(const QString& file, std::span<const QLatin1StringView> endings)
{
    return std::ranges::any_of(
        endings, [&](QLatin1StringView ending) { return file.endsWith(ending, Qt::CaseInsensitive); });
}

class TextLines : public ListReader
{
public:
    TextLines(const QString& text, QChar delimiter)
        : m_size(text.size())
        , m_reader(text, delimiter)
    {}
    std::optional<ListLine> Next() override
    {
        const auto values = m_reader.Next();
        if (!values && !m_reader.Fault().isEmpty())
            throw RuntimeError(error::kUnrecognisedDatabase, m_reader.Fault());
        if (!values)
            return std::nullopt;
        ListLine line{m_reader.Line(), {}};
        line.cells.reserve(values->size());
        for (const QString& value : *values)
            line.cells.append({value});
        return line;
    }
    qint64 At() const override { return m_reader.At(); }
    qint64 Size() const override { return m_size; }

private:
    qint64 m_size;
    CsvReader m_reader;
};

class SheetLines : public ListReader
{
public:
    explicit SheetLines(std::unique_ptr<sheet::SheetReader> reader)
        : m_reader(std::move(reader))
    {}
    std::optional<ListLine> Next() override
    {
        const auto row = m_reader->Next();
        if (!row)
            return std::nullopt;
        ListLine line{row->number, {}};
        line.cells.reserve(row->cells.size());
        for (const sheet::Cell& cell : row->cells)
            line.cells.append({cell.text, cell.kind == sheet::Cell::Kind::Value,
                               cell.kind == sheet::Cell::Kind::Error ? cell.text : QString()});
        return line;
    }
    qint64 At() const override { return m_reader->At(); }
    qint64 Size() const override { return m_reader->Size(); }

private:
    std::unique_ptr<sheet::SheetReader> m_reader;
};

} // namespace

bool IsListName(const QString& file)
{
    return EndsIn(file, kTexts) || EndsIn(file, kBooks);
}

QStringList ListPatterns()
{
    return {u"*.csv"_s, u"*.txt"_s, u"*.tsv"_s, u"*.xlsx"_s, u"*.xlsm"_s};
}

QStringList SheetsOf(const files::Disk& disk, const QString& file)
{
    return EndsIn(file, kBooks) ? sheet::Workbook(disk.ToNative(file)).Sheets() : QStringList();
}

ListFile::ListFile(const files::Disk& disk, const QString& file)
    : m_disk(disk)
    , m_file(file)
    , m_size(disk.FileLen(file))
    , m_time(disk.FileDateTime(file))
{
    if (EndsIn(file, kBooks))
        m_book = std::make_unique<sheet::Workbook>(disk.ToNative(file));
    else
        m_bytes = disk.ReadWhole(file);
    if (QString page; m_bytes.contains('\0') && Decoded(m_bytes, {}, &page) && page != CodePageOf(u"UTF-16"_s))
        throw RuntimeError(error::kUnrecognisedDatabase, kNoText.arg(file));
}

ListFile::~ListFile() = default;

QStringList ListFile::Sheets() const
{
    return m_book ? m_book->Sheets() : QStringList();
}

const QString& ListFile::TextIn(const QString& codePage) const
{
    const auto known = m_texts.constFind(codePage);
    if (known != m_texts.cend())
        return *known;
    const std::optional<QString> text = Decoded(m_bytes, codePage);
    if (!text)
        throw RuntimeError(error::kUnrecognisedDatabase, kOtherPage.arg(m_file, codePage));
    if (text->contains(QChar::Null))
        throw RuntimeError(error::kUnrecognisedDatabase, kNoText.arg(m_file));
    return *m_texts.insert(codePage, *text);
}

void ListFile::Guess(ListLook& look) const
{
    if (look.codePage.isEmpty())
        (void)Decoded(m_bytes, {}, &look.codePage);
    look.delimiter = DelimiterOf(TextIn(look.codePage));
}

std::unique_ptr<ListReader> ListFile::Open(const ListLook& look) const
{
    if (m_book)
        return std::make_unique<SheetLines>(m_book->Open(look.sheet));
    return std::make_unique<TextLines>(TextIn(look.codePage), look.delimiter);
}

bool ListFile::HasChanged() const
{
    return !m_disk.FileExists(m_file) || m_disk.FileLen(m_file) != m_size || m_disk.FileDateTime(m_file) != m_time;
}

} // namespace vasclip::upkeep
