#include "databook/records.h"

#include "common/error_block.h"
#include "common/proper_case.h"
#include "databook/comp_fields.h"
#include "databook/comp_types.h"
#include "databook/messages.h"
#include "platform/text/text.h"
#include "store/store.h"

#include <algorithm>

namespace vasclip::databook {

using common::RoutineScope;

namespace {

const QString kKey = QStringLiteral("CENTRALKEY");
const QString kAddress = QStringLiteral("ADDRESS");
const QString kType = QStringLiteral("APPRSLTYPE");

RecordResult Failed(RecordOutcome outcome, const QString& message)
{
    return {outcome, message};
}

RecordResult Exists(const QString& address)
{
    return Failed(RecordOutcome::Duplicate, kAlreadyExists.arg(text::Trim(address)));
}

RecordResult Missing(const QString& address)
{
    return Failed(RecordOutcome::NotFound, kNoSuchAddress.arg(text::Trim(address)));
}

/// What speaks against an address as a key; the message of a blank one differs by its place.
RecordResult CheckAddress(const store::DataSource& databook, const QString& address, const QString& whenBlank)
{
    const QString key = KeyOf(address);
    const bool hasContent =
        std::any_of(key.cbegin(), key.cend(), [](QChar letter) { return letter.isLetterOrNumber(); });
    if (!hasContent)
        return Failed(RecordOutcome::Blank, whenBlank);
    const engine::Recordset& recordset = databook.Recordset();
    int size = recordset.Fields().at(recordset.FieldIndex(kKey)).size;
    if (const int field = recordset.FieldIndex(kAddress); field >= 0)
        size = std::min(size, recordset.Fields().at(field).size);
    if (key.size() > size)
        return Failed(RecordOutcome::TooLong,
                      kAddressTooLong.arg(text::Trim(address)).arg(key.size()).arg(size));
    return {};
}

bool Find(const forms::Ports& ports, store::DataSource& databook, const QString& address)
{
    return store::FindRecord(ports, databook, KeyOf(address), kKey);
}

void SetSized(store::DataSource& databook, const QString& value, const QString& field)
{
    store::SetFieldData(databook, store::Trim2Size(databook, value, field), field);
}

/// Runs the writes of one operation as a transaction under the central error block: a retry runs all of them
/// again, for a device error takes all of them back. An edit that a failure leaves open is let go.
/// @param address  what the message of a key that somebody else took meanwhile names
template <class Writes>
RecordResult AsOne(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                   Writes&& writes)
{
    RecordResult result = Failed(RecordOutcome::Abandoned, kNothingChanged);
    common::Guarded(ports.prompter, [&] {
        try {
            engine::Transaction transaction(databook.Database());
            writes();
            transaction.Commit();
            result = {};
        } catch (const RuntimeError& failure) {
            if (databook.Recordset().CurrentEditMode() != engine::EditMode::None)
                databook.Recordset().CancelUpdate();
            if (failure.Number() != error::kDuplicateKey)
                throw;
            result = Exists(address);
        }
    });
    return result;
}

/// Stands on the record that was written.
RecordResult Found(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                   const RecordResult& result)
{
    if (result)
        store::Updateandfind(ports, databook, KeyOf(address));
    return result;
}

} // namespace

QString KeyOf(const QString& address)
{
    return text::Folded(address);
}

RecordResult AddRecord(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                       QChar type, int addressCase)
{
    const RoutineScope scope{"CompAddRecord"};
    if (const RecordResult wrong = CheckAddress(databook, address, kEnterAddress); !wrong)
        return wrong;
    const QChar letter = CompTypeLetter(QString(type));
    if (letter.isNull())
        return Failed(RecordOutcome::UnknownType, kUnknownType.arg(type));
    if (Find(ports, databook, address))
        return Exists(address);
    const RecordResult added = AsOne(ports, databook, address, [&] {
        databook.Recordset().AddNew();
        SetSized(databook, KeyOf(address), kKey);
        SetSized(databook, common::AddressInCase(address, addressCase), kAddress);
        store::SetFieldData(databook, QString(letter), kType);
        SetLoadDate2Today(ports, databook);
        QString noDate;
        ErrSetSaleDate(ports, databook, noDate);
        databook.Recordset().Update();
    });
    return Found(ports, databook, address, added);
}

RecordResult DeleteRecord(const forms::Ports& ports, store::DataSource& databook, const QString& address)
{
    const RoutineScope scope{"CompDeleteRecord"};
    if (KeyOf(address).isEmpty())
        return Failed(RecordOutcome::Blank, kEnterAddress);
    if (!Find(ports, databook, address))
        return Missing(address);
    return AsOne(ports, databook, address, [&] { databook.Recordset().Delete(); });
}

RecordResult CopyRecord(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                        const QString& newAddress)
{
    const RoutineScope scope{"CompCopyRecord"};
    if (KeyOf(address).isEmpty())
        return Failed(RecordOutcome::Blank, kEnterAddress);
    if (KeyOf(newAddress) == KeyOf(address))
        return Failed(RecordOutcome::Itself, kRenamedToItself);
    if (const RecordResult wrong = CheckAddress(databook, newAddress, kEnterValidAddress); !wrong)
        return wrong;
    if (Find(ports, databook, newAddress))
        return Exists(newAddress);
    if (!Find(ports, databook, address))
        return Missing(address);

    engine::Recordset& recordset = databook.Recordset();
    const engine::FieldList& fields = recordset.Fields();
    QVariantList values;
    for (int i = 0; i < fields.size(); ++i)
        values.append(fields.at(i).type == engine::FieldType::LongBinary ? QVariant() : recordset.Value(i));
    const RecordResult copied = AsOne(ports, databook, newAddress, [&] {
        recordset.AddNew();
        for (int i = 0; i < fields.size(); ++i)
            if (values.at(i).isValid())
                recordset.SetValue(i, values.at(i));
        SetSized(databook, newAddress, kAddress);
        SetSized(databook, KeyOf(newAddress), kKey);
        for (const QString& photos : {QStringLiteral("FRONT"), QStringLiteral("PHOTOS")})
            if (recordset.FieldIndex(photos) >= 0)
                store::SetFieldData(databook, QStringLiteral(" "), photos);
        recordset.Update();
    });
    return Found(ports, databook, newAddress, copied);
}

RecordResult RenameRecord(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                          const QString& newAddress)
{
    const RoutineScope scope{"CompRenameRecord"};
    if (KeyOf(address).isEmpty())
        return Failed(RecordOutcome::Blank, kEnterAddress);
    if (KeyOf(newAddress) == KeyOf(address))
        return Failed(RecordOutcome::Itself, kRenamedToItself);
    if (const RecordResult wrong = CheckAddress(databook, newAddress, kEnterValidAddress); !wrong)
        return wrong;
    if (Find(ports, databook, newAddress))
        return Exists(newAddress);
    if (!Find(ports, databook, address))
        return Missing(address);
    const RecordResult renamed = AsOne(ports, databook, newAddress, [&] {
        databook.Recordset().Edit();
        SetSized(databook, newAddress, kAddress);
        SetSized(databook, KeyOf(newAddress), kKey);
        databook.Recordset().Update();
    });
    return Found(ports, databook, newAddress, renamed);
}

} // namespace vasclip::databook
