#include "databook/quick_find.h"

#include "common/error_block.h"
#include "databook/grid.h"
#include "databook/messages.h"
#include "platform/engine/errors.h"
#include "platform/text/counted.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kBits = 64;

} // namespace

const QStringList& QuickFindFields()
{
    static const QStringList fields{fields::CENTRALKEY, fields::ADDRESS, fields::CITY, fields::NEIGHBORHD,
                                    fields::NOTES};
    return fields;
}

QStringList QuickFindWords(QString typed)
{
    typed.remove(QChar(0));
    return typed.simplified().split(u' ', Qt::SkipEmptyParts);
}

QString IndexText(engine::TextIndexTrouble trouble)
{
    switch (trouble) {
    case engine::TextIndexTrouble::Missing:
        return kIndexMissing;
    case engine::TextIndexTrouble::Damaged:
        return kIndexDamaged;
    case engine::TextIndexTrouble::OutOfStep:
        return kIndexOutOfStep;
    case engine::TextIndexTrouble::None:
        break;
    }
    return {};
}

FoundRows::FoundRows(const GridRows& rows)
    : m_rows(rows)
{}

QStringList FoundRows::FieldNames() const
{
    return m_rows.FieldNames();
}

QDate FoundRows::Today() const
{
    return m_rows.Today();
}

QStringList FoundRows::Row(qint64 row) const
{
    const qint64 position = PositionOf(row);
    return position < 0 ? QStringList() : m_rows.Row(position);
}

void FoundRows::Begin(qint64 records)
{
    m_bits.assign(static_cast<std::size_t>((records + kBits - 1) / kBits), 0);
    Count();
}

void FoundRows::Add(qint64 position)
{
    m_bits[static_cast<std::size_t>(position / kBits)] |= quint64{1} << (position % kBits);
}

void FoundRows::Count()
{
    m_before.resize(m_bits.size());
    m_count = 0;
    for (std::size_t i = 0; i < m_bits.size(); ++i) {
        m_before[i] = m_count;
        m_count += std::popcount(m_bits[i]);
    }
}

qint64 FoundRows::PositionOf(qint64 row) const
{
    if (row < 0 || row >= m_count)
        return -1;
    const auto after = std::upper_bound(m_before.begin(), m_before.end(), row);
    const auto word = static_cast<std::size_t>(after - m_before.begin() - 1);
    quint64 bits = m_bits[word];
    for (qint64 skip = row - m_before[word]; skip > 0; --skip)
        bits &= bits - 1;
    return static_cast<qint64>(word) * kBits + std::countr_zero(bits);
}

qint64 FoundRows::RowOf(qint64 position) const
{
    const auto word = static_cast<std::size_t>(position / kBits);
    if (position < 0 || word >= m_bits.size())
        return -1;
    const quint64 bit = quint64{1} << (position % kBits);
    if ((m_bits[word] & bit) == 0)
        return -1;
    return m_before[word] + std::popcount(m_bits[word] & (bit - 1));
}

QuickFind::QuickFind(const forms::Ports& ports, RecordDesk& desk, store::DataSource& datsql, GridRows& rows,
                     common::StatusDesk& status, const common::Globals& globals)
    : m_ports(ports)
    , m_desk(desk)
    , m_datsql(datsql)
    , m_rows(rows)
    , m_status(status)
    , m_globals(globals)
    , m_found(rows)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        try {
            if (!Work())
                m_timer.stop();
        } catch (const RuntimeError& failure) {
            m_timer.stop();
            // Nobody waits for the index: without it the rows themselves are looked through.
            const bool taken = failure.Number() == error::kCouldNotUpdateLocked ||
                               failure.Number() == error::kCouldNotReadLocked;
            if (std::exchange(m_searching, false) || !taken)
                common::ReportError(m_ports.prompter, failure);
        }
    });
    connect(&desk.txtQuickFind, &forms::TextBox::TextChanged, this, &QuickFind::txtQuickFind_Change);
    connect(&datsql, &store::DataSource::Refreshed, this, &QuickFind::SourceChanged);
}

QuickFind::~QuickFind() = default;

void QuickFind::Clear()
{
    m_desk.txtQuickFind.SetText({});
}

void QuickFind::txtQuickFind_Change()
{
    m_again = false;
    m_quiet = false;
    Find();
}

void QuickFind::NarrowAgain()
{
    if (!std::exchange(m_again, false))
        return;
    m_quiet = true;
    Find();
}

void QuickFind::Find()
{
    const common::RoutineScope scope{"txtQuickFind_Change"};
    m_search.words = QuickFindWords(m_desk.txtQuickFind.Text());
    if (m_search.words.isEmpty() || !m_datsql.Bound())
        ShowAll();
    else
        Start();
}

void QuickFind::Start()
{
    if (!m_narrowed)
        m_stood = m_desk.grddatabook.Row();
    else if (m_desk.grddatabook.Row() >= 0)
        m_stood = m_found.PositionOf(m_desk.grddatabook.Row());
    m_narrowed = true;
    m_search.table = m_globals.G_Table;
    m_search.fields = QuickFindFields();
    m_search.afterId = {};
    m_search.milliseconds = kSliceMilliseconds;
    m_searching = true;
    m_found.Begin(m_datsql.Count());
    Step();
    m_timer.start();
}

void QuickFind::Step()
{
    const engine::TextHits hits = m_datsql.Database().FindText(m_search);
    m_search.afterId = hits.lastId;
    for (const qint64 position : m_datsql.PlacesOf(hits.ids)) {
        if (position >= 0)
            m_found.Add(position);
    }
    m_searching = !hits.done;
    const bool first = m_desk.grddatabook.Source() != &m_found;
    if (first || !hits.ids.empty() || hits.done)
        ShowFound();
}

void QuickFind::ShowFound()
{
    m_found.Count();
    QString said = m_status.lblmsg.Caption();
    const forms::Colour colour = m_status.lblmsg.Fore();
    // The record that stood there is not left for another one unless the user asked for others.
    const qint64 row = m_found.RowOf(m_stood);
    m_desk.grddatabook.Rebind(&m_found, m_quiet ? row : std::max<qint64>(row, 0));
    if (!m_quiet) {
        ShowCount();
        return;
    }
    if (m_desk.grddatabook.Row() >= 0 && said.endsWith(kNotAmongShown))
        said.chop(kNotAmongShown.size()); // a later slice has found it
    m_status.lblmsg.Show(said, colour);
}

void QuickFind::ShowCount()
{
    static const text::Counted kFound{u"comp found"_s, u"comps found"_s};
    QString text = kFound(m_found.RowCount()) + (m_searching ? u" so far."_s : u"."_s);
    if (m_told != engine::TextIndexTrouble::None)
        text += u' ' + IndexText(m_told);
    m_status.lblmsg.Show(text, forms::Colour::Blue);
}

void QuickFind::ShowAll()
{
    m_searching = false;
    if (!std::exchange(m_narrowed, false))
        return;
    const qint64 stood =
        m_desk.grddatabook.Row() < 0 ? m_stood : m_found.PositionOf(m_desk.grddatabook.Row());
    m_found.Begin(0);
    m_desk.grddatabook.Rebind(m_datsql.Bound() ? &m_rows : nullptr, std::max<qint64>(stood, 0));
}

void QuickFind::SourceChanged()
{
    m_indexed = false;
    m_searching = false;
    if (!m_narrowed)
        return;
    // The grid was given other records; they are narrowed when whoever did it is done.
    m_found.Begin(0);
    m_stood = -1;
    m_narrowed = false;
    m_again = true;
    QTimer::singleShot(0, this, [this] {
        try {
            if (m_held || !m_again) // whoever gave the grid its records narrows them, or has done so
                return;
            NarrowAgain();
            m_desk.grddatabook.SetRow(std::max<qint64>(m_desk.grddatabook.Row(), 0));
        } catch (const RuntimeError& failure) {
            common::ReportError(m_ports.prompter, failure);
        }
    });
}

bool QuickFind::Work()
{
    if (!m_datsql.Bound())
        return false;
    if (m_searching) {
        Step();
        return true;
    }
    if (!m_indexed)
        KeepIndex();
    return !m_indexed;
}

void QuickFind::KeepIndex()
{
    const engine::TextIndexState state =
        m_datsql.Database().KeepTextIndex(m_globals.G_Table, QuickFindFields(), kSliceMilliseconds);
    m_indexed = state.whole;
    // An index that was never made is told of only while it takes its time; one that was wrong always.
    const bool tell = state.trouble != engine::TextIndexTrouble::Missing || !state.whole;
    const engine::TextIndexTrouble trouble = tell ? state.trouble : engine::TextIndexTrouble::None;
    if (trouble == m_told)
        return;
    m_told = trouble;
    if (m_narrowed && !m_quiet)
        ShowCount();
}

} // namespace vasclip::databook
