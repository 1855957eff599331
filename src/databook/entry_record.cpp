#include "databook/entry_record.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "common/given_up.h"
#include "common/text_filters.h"
#include "databook/comp_fields.h"
#include "databook/messages.h"
#include "databook/number_text.h"
#include "platform/engine/errors.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/store.h"

#include <algorithm>
#include <utility>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

constexpr int kFieldsTold = 8;

QString OnlyNumeric(const QString& text)
{
    QString kept;
    for (const QChar letter : text)
        if (common::IsNumericChar(QString(letter)))
            kept.append(letter);
    return kept;
}

/// What was typed is worth a second try: another user's lock is asked about and does not end the program.
template <class Step>
void WaitingForOthers(Step&& step)
{
    try {
        step();
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kCouldNotUpdateLocked)
            throw;
        throw RuntimeError(error::kCouldNotReadLocked, failure.Description());
    }
}

} // namespace

QString DigitsOrZero(const QString& text)
{
    const QString kept = OnlyNumeric(text);
    return kept.isEmpty() ? u"0"_s : kept;
}

QString ReturnRentalAge(const QString& text)
{
    return OnlyNumeric(text.left(4));
}

EntryRecord::EntryRecord(const EntryDesk& desk, const EntryForm& form, const QString& centralKey)
    : datDatabook(desk.engine, u"datDatabook"_s)
    , m_desk(desk)
    , m_form(form)
    , m_key(text::Folded(centralKey))
{}

bool EntryRecord::Open()
{
    if (datDatabook.Bound())
        return true;
    if (m_desk.opened != nullptr)
        datDatabook.ShareDatabase(*m_desk.opened);
    store::Connect2mdb(m_desk.ports, datDatabook, m_desk.databook, m_desk.table,
                       store::SourceKind::Table);
    if (!store::FindRecord(m_desk.ports, datDatabook, m_key, store::kKeyIndex))
        return false;
    Read();
    return true;
}

bool EntryRecord::Updatable() const
{
    return datDatabook.Updatable();
}

bool EntryRecord::Has(const QString& field) const
{
    return datDatabook.Bound() && datDatabook.FieldIndex(field) >= 0;
}

int EntryRecord::Size(const QString& field) const
{
    return datDatabook.Bound() ? store::SizeOf(datDatabook, field) : 0;
}

QString EntryRecord::Text(const QString& field) const
{
    return m_texts.value(field);
}

void EntryRecord::SetText(const QString& field, const QString& text)
{
    if (m_read.contains(field))
        m_texts.insert(field, text);
}

/// The record as it is stored now, and a new edit of it.
void EntryRecord::Read()
{
    Begin();
    m_read.clear();
    for (const engine::Field& field : datDatabook.Fields())
        if (field.type == engine::FieldType::Text || field.type == engine::FieldType::Memo)
            m_read.insert(field.name.toUpper(), store::GetFieldData(datDatabook, field.name));
    m_texts = m_read;
    m_key = text::Folded(m_read.value(store::kKeyIndex)); // somebody else may have renamed it
    m_theirsUntold = false;
}

void EntryRecord::Begin()
{
    store::Change::Drop(datDatabook);
    if (Updatable())
        store::Change::Begin(datDatabook, kEditWords);
}

bool EntryRecord::IsChanged(const QString& field) const
{
    return text::Trim(m_texts.value(field)) != m_read.value(field);
}

std::optional<EntryRecord::Refusal> EntryRecord::Refused() const
{
    for (auto text = m_texts.cbegin(); text != m_texts.cend(); ++text)
        if (WantsNumber(text.key()) && OnForm(text.key()) && IsChanged(text.key()) &&
            !PlainNumber(text.value(), text.key()))
            return Refusal{text.key(), NoNumberText(text::Trim(text.value()), text.key())};
    return std::nullopt;
}

bool EntryRecord::Changed() const
{
    return std::any_of(m_texts.keyBegin(), m_texts.keyEnd(),
                       [this](const QString& field) { return IsChanged(field); });
}

bool EntryRecord::OnForm(const QString& field) const
{
    return Has(field) &&
           std::any_of(m_form.groups.begin(), m_form.groups.end(), [&](const EntryGroup& group) {
               return std::any_of(group.fields.begin(), group.fields.end(),
                                  [&](const EntryField& row) { return row.field == field; });
           });
}

Stored EntryRecord::Save()
{
    const RoutineScope scope{"cmdSave_Click"};
    return Write(false);
}

Stored EntryRecord::SaveForExit()
{
    const RoutineScope scope{"cmdExit_Click"};
    return Write(true);
}

void EntryRecord::Cancel()
{
    store::Change::Drop(datDatabook);
}

Stored EntryRecord::Write(bool leaving)
{
    const QHash<QString, QString> texts = m_texts;
    for (;;) {
        bool done = false;
        bool theirs = std::exchange(m_theirsUntold, false);
        try {
            if (!theirs)
                common::Guarded(m_desk.ports.prompter, [&] {
                    m_texts = texts;
                    WaitingForOthers([&] {
                        store::Change::Begin(datDatabook, kEditWords);
                        Put(leaving);
                        store::Change::StoreOpen(datDatabook);
                    });
                    done = true;
                });
        } catch (const RuntimeError& failure) {
            m_texts = texts;
            if (failure.Number() == error::kRecordDeleted) {
                m_desk.ports.prompter.Box(store::kPlainTitle, kDeletedMeanwhile.arg(m_key));
                return Stored::Kept;
            }
            if (failure.Number() == error::kCouldNotReadLocked) {
                common::TakeGivenUp(); // told already
                return Stored::Kept;
            }
            if (failure.Number() != error::kDataChanged)
                throw;
            theirs = true;
        }
        if (done)
            break;
        m_texts = texts;
        if (!theirs) {
            m_desk.ports.prompter.Box(store::kPlainTitle, kNotStored);
            return Stored::Kept;
        }
        const Stored decision = AskAboutTheirs();
        if (decision != Stored::Done)
            return decision;
    }
    m_stored = true;
    store::Updateandfind(m_desk.ports, datDatabook, store::GetFieldData(datDatabook, store::kKeyIndex));
    Read();
    return Stored::Done;
}

/// Tells that somebody else stored the record meanwhile. @return Done to store over it
Stored EntryRecord::AskAboutTheirs()
{
    store::Change::Drop(datDatabook);
    QStringList both;
    for (auto read = m_read.cbegin(); read != m_read.cend(); ++read) {
        const QString theirs = store::GetFieldData(datDatabook, read.key());
        const QString mine = text::Trim(m_texts.value(read.key()));
        if (theirs != read.value() && mine != read.value() && mine != theirs)
            both.append(kBothChanged.arg(read.key(), mine, theirs));
    }
    both.sort();
    if (both.size() > kFieldsTold) {
        both.resize(kFieldsTold);
        both.append(u"..."_s);
    }
    const QString told = both.isEmpty() ? kNoneInBoth : both.join(u'\n');
    switch (m_desk.ports.prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Exclamation,
                                         store::kPlainTitle, kTheirsOrMine.arg(m_key, told))) {
    case forms::Answer::Yes:
        return Stored::Done;
    case forms::Answer::No:
        dateNotes.clear();
        Read();
        return Stored::TookTheirs;
    default:
        Begin();
        m_theirsUntold = true;
        return Stored::Kept;
    }
}

void EntryRecord::Put(bool leaving)
{
    for (auto text = m_texts.cbegin(); text != m_texts.cend(); ++text)
        if (IsChanged(text.key()))
            store::SetFieldData(datDatabook, text::Trim(text.value()), text.key());
    const QString today = text::Format(Today().startOfDay(), u"mm/dd/yyyy"_s);
    if (Has(fields::MODIFIEDDATE))
        store::SetFieldData(datDatabook, common::FixDate(today, Today()), fields::MODIFIEDDATE);
    PutDates(leaving);
    PutNumbers(leaving);
}

/// Each date goes with its serial.
void EntryRecord::PutDates(bool leaving)
{
    const QString date = QString(m_form.dateField);
    if (leaving) {
        SetLoadDate2Today(m_desk.ports, datDatabook);
        RepairLoadDate(m_desk.ports, datDatabook);
    }
    const QString saleDate = fields::SALEDATE;
    const bool noSaleDate = Has(saleDate) && store::GetFieldData(datDatabook, saleDate).isEmpty();
    if (OnForm(date) && (IsChanged(date) || (leaving && noSaleDate))) {
        QString dateText = text::Trim(m_texts.value(date));
        ErrSetSaleDate(m_desk.ports, datDatabook, dateText);
        if (date != saleDate && IsChanged(date)) // the lease date plays its part and is kept itself
            store::SetFieldData(datDatabook, store::GetFieldData(datDatabook, saleDate), date);
    } else if (leaving && Has(saleDate)) { // what was not touched keeps its text, be it no date
        const QString serial = SerialText(store::GetFieldData(datDatabook, saleDate), Today());
        if (!serial.isEmpty())
            store::SetFieldData(datDatabook, serial, fields::SALESERIAL);
    }
    if (leaving || IsChanged(fields::LOADDATE))
        store::SetFieldData(datDatabook,
                            SerialText(store::GetFieldData(datDatabook, fields::LOADDATE), Today()),
                            fields::LOADSERIAL);
}

/// An age of "12.5" is a number already; of anything else the digits count.
QString EntryRecord::AgeDigits(const QString& text) const
{
    const QString number = PlainNumber(text, fields::AGE).value_or(QString());
    return !number.isEmpty() ? number : DigitsOrZero(m_form.rentalAge ? ReturnRentalAge(text) : text);
}

/// Prices and areas are stored as plain numbers on every road; what was not touched keeps its text.
void EntryRecord::PutNumbers(bool leaving)
{
    const QString price = fields::SELLINGPR, gla = fields::GLA, age = fields::AGE;
    const auto plain = [this](const QString& field) {
        const QString text = store::GetFieldData(datDatabook, field);
        return PlainNumber(text, field).value_or(text);
    };
    for (const QString& field : {price, gla}) {
        if (!OnForm(field))
            continue;
        const QString number = plain(field);
        if (leaving && number.isEmpty())
            store::SetFieldData(datDatabook, u"0"_s, field);
        else if (leaving || IsChanged(field))
            store::SetFieldData(datDatabook, number, field);
    }
    if (leaving && OnForm(age)) {
        const QString text = store::GetFieldData(datDatabook, age);
        if (text.isEmpty() || IsChanged(age))
            store::SetFieldData(datDatabook, AgeDigits(text), age);
    }
    if (OnForm(price) && OnForm(gla) && (leaving || IsChanged(price) || IsChanged(gla))) {
        const QString perArea = PriceGla(plain(price), plain(gla));
        store::SetFieldData(datDatabook, perArea.left(Size(fields::PRICEGLA)), fields::PRICEGLA);
    }
}

} // namespace vasclip::databook
