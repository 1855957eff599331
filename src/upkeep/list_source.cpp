#include "upkeep/list_source.h"

#include "common/paths.h"
#include "platform/engine/file_owner.h"
#include "platform/engine/process.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/transaction.h"
#include "upkeep/code_pages.h"
#include "upkeep/csv_text.h"
#include "upkeep/list_headings.h"
#include "upkeep/list_values.h"

#include <QFile>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

const QString ListSource::kTable = u"COMPS"_s;

namespace {

constexpr qint64 kTurn = 500;
const QString kReading = u"Reading line %1"_s;
const QString kWords = u"Read a line"_s;
const QString kMark = u"LIST.incoming"_s;
const QString kUtf8 = u"UTF-8"_s;
const QString kChanged = u"%1 was changed since it was read. Import it again to have its refused lines"_s;

/// A name that is not in use; what processes that were killed have left goes.
QString NewFile(const TransferDesk& desk)
{
    const QString directory = common::CkRSlash(desk.globals.G_UserDir);
    for (const QString& name : desk.Disk().Dir(directory + kMark + u"*"_s, files::ReadOnly)) {
        const auto owner = engine::FileOwner::In(QStringView(name).sliced(kMark.size()));
        const QString native = desk.Disk().ToNative(directory + name);
        if (owner.process != engine::OwnProcess() && owner.HasLeft(native, desk.ports.clock.Now()))
            QFile::remove(native);
    }
    const QString own = directory + kMark + engine::FileOwner::Own().Mark();
    QString file = own;
    for (int more = 2; desk.Disk().Found(file, files::ReadOnly | files::Hidden); ++more)
        file = own + u"_%1"_s.arg(more);
    return file;
}

} // namespace

ListSource::ListSource(const TransferDesk& desk, std::shared_ptr<const ListFile> file, const ListLook& look, const WorkStep& step)
    : m_desk(desk)
    , m_list(std::move(file))
    , m_look(look)
    , m_file(NewFile(desk))
{
    try {
        Fill(step);
    } catch (...) {
        Remove();
        throw;
    }
}

ListSource::~ListSource()
{
    Remove();
}

void ListSource::Remove() const
{
    QFile::remove(m_desk.Disk().ToNative(m_file));
}

QStringList ListSource::MakeTable() const
{
    engine::TableDef table{.name = kTable, .fields = {}, .indexes = {}};
    QStringList names{fields::CENTRALKEY, fields::SALESERIAL, fields::LOADSERIAL};
    for (const ListColumn& column : m_look.columns)
        if (!column.field.isEmpty() && !names.contains(column.field))
            names.append(column.field);
    for (const QString& name : std::as_const(names))
        table.fields.append({.name = name, .type = engine::FieldType::Memo});
    const auto made = m_desk.Engine().CreateDatabase(m_file);
    made->CreateTable(table);
    made->Close();
    return names;
}

void ListSource::Fill(const WorkStep& step)
{
    const QStringList names = MakeTable();
    for (const ListColumn& column : std::as_const(m_look.columns))
        if (column.field.isEmpty() && BareHeading(column.heading) != kReasonHeading)
            m_leftBehind.append(column.heading);
    store::DataSource data(m_desk.Engine(), u"DATTEMP"_s);
    data.Open(m_file, kTable, store::SourceKind::Table);
    store::Transaction whole(data);
    const auto reader = m_list->Open(m_look);
    const LineMaker maker(m_look, !m_list->IsWorkbook(), m_desk.ports.clock.Today());
    for (qint64 lines = 0;; ++lines) {
        m_stopped = lines % kTurn == 0 && !step(reader->At(), reader->Size(), kReading.arg(lines + 1));
        const auto line = m_stopped ? std::nullopt : reader->Next();
        if (!line)
            break;
        if (line->number <= m_look.headingLine)
            continue;
        const ReadLine made = maker.Make(*line);
        if (!made.fault.isEmpty()) {
            m_refused.append({{}, line->number, text::Trim(made.values.value(fields::CENTRALKEY)), made.fault});
            continue;
        }
        store::Change change(data, store::Change::NewRecord{}, kWords);
        for (const QString& name : names)
            if (const QString value = made.values.value(name); !value.isEmpty())
                change.Set(name, value);
        change.Store();
        m_lines.push_back(line->number);
    }
    whole.Commit();
}

QByteArray ListSource::Refusals(const QHash<qint64, QString>& reasons) const
{
    if (m_list->HasChanged())
        throw RuntimeError(error::kPathFileAccess, kChanged.arg(Original()));
    const QString codePage = m_list->IsWorkbook() ? kUtf8 : m_look.codePage;
    const QChar delimiter = m_list->IsWorkbook() ? QChar(u',') : m_look.delimiter;
    qint64 lost = 0;
    QByteArray bytes = MarkOf(codePage);
    const auto write = [&](QStringList values, const QString& reason) {
        values.resize(std::max(values.size(), m_look.columns.size()));
        for (qsizetype i = m_look.columns.size() - 1; i >= 0; --i)
            if (BareHeading(m_look.columns.at(i).heading) == kReasonHeading)
                values.removeAt(i); // of an earlier time
        bytes += Encoded(CsvLine(values + QStringList{reason}, delimiter), codePage, lost);
    };
    QStringList headings;
    for (const ListColumn& column : m_look.columns)
        headings.append(column.heading);
    write(headings, kReasonHeading);
    const auto reader = m_list->Open(m_look);
    while (const auto line = reader->Next()) {
        const auto reason = reasons.constFind(line->number);
        if (reason == reasons.cend())
            continue;
        QStringList values;
        for (const ListCell& cell : line->cells)
            values.append(cell.text);
        write(values, *reason);
    }
    return bytes;
}

/// The headings of the columns that a field's value comes from; a key may come from the address.
QString ListSource::HeadingOf(const QString& field) const
{
    QStringList headings;
    for (const ListColumn& column : m_look.columns)
        if (!field.isEmpty() && (column.field == field || (field == fields::CENTRALKEY && column.field == fields::ADDRESS)))
            headings.append(column.heading);
    return headings.join(u", "_s);
}

void ListSource::NameLines(ImportPlan& plan) const
{
    for (RefusedRow& row : plan.refused) {
        row.table.clear();
        row.place = LineOf(row.place - 1);
        if (const QString heading = HeadingOf(row.field); !heading.isEmpty())
            row.why.prepend(heading + u": "_s);
    }
}

} // namespace vasclip::upkeep
