#include "databook/records.h"

#include "common/error_block.h"
#include "common/proper_case.h"
#include "databook/comp_fields.h"
#include "databook/comp_types.h"
#include "databook/messages.h"
#include "photos/photo_files.h"
#include "photos/photo_lists.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/store.h"
#include "store/transaction.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using common::RoutineScope;

namespace {

const QString kKey = fields::CENTRALKEY;
const QString kAddress = fields::ADDRESS;
const QString kType = fields::APPRSLTYPE;

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

bool IsUnseen(QChar letter)
{
    const QChar::Category category = letter.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

/// What speaks against an address as a key; the message of a blank one differs by its place.
RecordResult CheckAddress(const store::DataSource& databook, const QString& address, const QString& whenBlank)
{
    const QString key = KeyOf(address);
    const bool hasContent =
        std::any_of(key.cbegin(), key.cend(), [](QChar letter) { return letter.isLetterOrNumber(); });
    if (!hasContent)
        return Failed(RecordOutcome::Blank, whenBlank);
    if (std::any_of(key.cbegin(), key.cend(), IsUnseen))
        return Failed(RecordOutcome::Invalid, kEnterValidAddress);
    int size = store::SizeOf(databook, kKey);
    if (const engine::Field* field = store::FindField(databook, kAddress))
        size = std::min(size, field->size);
    if (key.size() > size)
        return Failed(RecordOutcome::TooLong,
                      kAddressTooLong.arg(text::Trim(address), text::Dec(key.size()), text::Dec(size)));
    return {};
}

bool Find(const forms::Ports& ports, store::DataSource& databook, const QString& address)
{
    return store::FindRecord(ports, databook, KeyOf(address), kKey);
}

/// Stands on the record of an address that is to be copied or renamed, unless something speaks against it.
RecordResult FindForNewAddress(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                               const QString& newAddress)
{
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
    return {};
}

void SetSized(store::DataSource& databook, const QString& value, const QString& field)
{
    store::SetFieldData(databook, store::Trim2Size(databook, value, field), field);
}

/// Runs the writes of one operation as a transaction under the central error block: a retry runs all of them
/// again, for a device error takes all of them back.
/// @param address  the record at work, for the message that somebody else deleted it meanwhile
/// @param taken    the address that it gets, for the message that somebody else took it meanwhile
template <class Writes>
RecordResult AsOne(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                   const QString& taken, Writes&& writes)
{
    RecordResult result = Failed(RecordOutcome::Abandoned, kNothingChanged);
    common::Guarded(ports.prompter, [&] {
        try {
            store::Transaction transaction(databook);
            writes();
            transaction.Commit();
            result = {};
        } catch (const RuntimeError& failure) {
            if (failure.Number() == error::kDuplicateKey)
                result = Exists(taken);
            else if (failure.Number() == error::kRecordDeleted)
                result = Missing(address);
            else
                throw;
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
    const RecordResult added = AsOne(ports, databook, address, address, [&] {
        store::Change change(databook, store::Change::NewRecord{}, kAddWords.arg(KeyOf(address)));
        SetSized(databook, KeyOf(address), kKey);
        SetSized(databook, common::AddressInCase(address, addressCase), kAddress);
        store::SetFieldData(databook, QString(letter), kType);
        SetLoadDate2Today(ports, databook);
        QString noDate;
        ErrSetSaleDate(ports, databook, noDate);
        change.Store();
    });
    return Found(ports, databook, address, added);
}

RecordResult DeleteRecord(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                          const PictureStore& pictures)
{
    const RoutineScope scope{"CompDeleteRecord"};
    if (KeyOf(address).isEmpty())
        return Failed(RecordOutcome::Blank, kEnterAddress);
    if (!Find(ports, databook, address))
        return Missing(address);
    QStringList stems;
    const RecordResult deleted = AsOne(ports, databook, address, address, [&] {
        stems.clear();
        for (const auto& [view, stem] : photos::ParsePhotos(store::GetFieldData(databook, fields::PHOTOS)))
            stems.append(stem);
        store::Change::Delete(databook, kDeleteWords.arg(KeyOf(address)));
    });
    if (!deleted)
        return deleted;
    const QStringList left = photos::DeletePhotos(ports, pictures.disk, pictures.photoDir, stems);
    if (left.isEmpty())
        return deleted;
    return {RecordOutcome::Done, kPicturesLeft.arg(KeyOf(address), left.join(u", "_s))};
}

RecordResult CopyRecord(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                        const QString& newAddress)
{
    const RoutineScope scope{"CompCopyRecord"};
    if (const RecordResult wrong = FindForNewAddress(ports, databook, address, newAddress); !wrong)
        return wrong;

    const engine::FieldList& fields = databook.Fields();
    const RecordResult copied = AsOne(ports, databook, address, newAddress, [&] {
        QVariantList values;
        for (const engine::Field& field : fields)
            values.append(field.type == engine::FieldType::LongBinary ? QVariant() : databook.Value(field.name));
        store::Change change(databook, store::Change::NewRecord{},
                             kCopyWords.arg(KeyOf(address), KeyOf(newAddress)));
        for (int i = 0; i < fields.size(); ++i)
            if (values.at(i).isValid())
                change.Set(fields.at(i).name, values.at(i));
        SetSized(databook, newAddress, kAddress);
        SetSized(databook, KeyOf(newAddress), kKey);
        for (const auto photos : {fields::FRONT, fields::PHOTOS})
            if (databook.FieldIndex(photos) >= 0)
                store::SetFieldData(databook, u" "_s, photos);
        change.Store();
    });
    return Found(ports, databook, newAddress, copied);
}

RecordResult RenameRecord(const forms::Ports& ports, store::DataSource& databook, const QString& address,
                          const QString& newAddress)
{
    const RoutineScope scope{"CompRenameRecord"};
    if (const RecordResult wrong = FindForNewAddress(ports, databook, address, newAddress); !wrong)
        return wrong;
    const RecordResult renamed = AsOne(ports, databook, address, newAddress, [&] {
        store::Change change(databook, kRenameWords.arg(KeyOf(address), KeyOf(newAddress)));
        SetSized(databook, newAddress, kAddress);
        SetSized(databook, KeyOf(newAddress), kKey);
        change.Store();
    });
    return Found(ports, databook, newAddress, renamed);
}

} // namespace vasclip::databook
