#include "upkeep/archive_fields.h"

#include "store/fields.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kNoField = u"%1: the archive has no field %2, which holds \"%3\"; the record stays. Let everybody close the "
                         u"archive and archive again"_s;
const QString kOtherKind = u"%1: the archive's field %2 is of a kind that does not take \"%3\"; the record stays"_s;

/// Is the text a number that such a field has room for? Any other one would be cut to the number that it begins with.
bool IsNumberFor(engine::FieldType type, const QString& text)
{
    bool isNumber = false;
    switch (type) {
    case engine::FieldType::Long:
    case engine::FieldType::Currency:
        static_cast<void>(text.toInt(&isNumber));
        break;
    case engine::FieldType::Integer:
        static_cast<void>(text.toShort(&isNumber));
        break;
    case engine::FieldType::Single:
    case engine::FieldType::Double:
        static_cast<void>(text.toDouble(&isNumber));
        break;
    default:
        break;
    }
    return isNumber;
}

} // namespace

ArchiveFields::ArchiveFields(const store::DataSource& databook, const store::DataSource& archive)
{
    const engine::FieldList here = databook.Fields();
    for (const engine::Field& field : here)
        (archive.FieldIndex(field.name) >= 0 ? m_both : m_lacking).append(field.name.toUpper());
    m_lacking.removeAll(QString(fields::FRONTPHOTO)); // its picture goes as a file
    for (const engine::Field& field : archive.Fields()) {
        const int at = databook.FieldIndex(field.name);
        const bool isText = field.type == engine::FieldType::Text || field.type == engine::FieldType::Memo;
        const bool isPicture = field.type == engine::FieldType::LongBinary || field.type == engine::FieldType::Binary;
        if (at < 0 && !isPicture) // a picture in the row goes with the record that it shows
            m_own.append(field.name.toUpper());
        if (at >= 0 && !isText && !isPicture && here.at(at).type != field.type)
            m_otherKind.append({field.name.toUpper(), field.type});
    }
}

QString ArchiveFields::WhyNot(const QString& key, const store::Record& record) const
{
    for (const QString& field : m_lacking)
        if (const QString held = record.Text(field); !held.isEmpty())
            return kNoField.arg(key, field, held);
    for (const auto& [field, type] : m_otherKind)
        if (const QString held = record.Text(field); !held.isEmpty() && !IsNumberFor(type, held))
            return kOtherKind.arg(key, field, held);
    return {};
}

} // namespace vasclip::upkeep
