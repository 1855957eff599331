#include "photos/photo_owners.h"

#include "photos/photo_lists.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

PhotoOwners::PhotoOwners(const store::DataSource& databook, QString table)
    : m_databook(databook)
    , m_table(std::move(table))
{}

QString PhotoOwners::Of(const QString& stem)
{
    if (!m_read && m_databook.Bound()) {
        store::Rows rows = store::ReadRows(m_databook, u"SELECT CENTRALKEY, PHOTOS FROM ["_s + m_table + u']');
        while (const auto record = rows.Next()) {
            const QString key = record->Text(fields::CENTRALKEY);
            for (const auto& [view, named] : ParsePhotos(record->Value(fields::PHOTOS).toString()))
                m_keys.insert(text::Folded(named), key);
        }
        m_read = true;
    }
    return m_keys.value(text::Folded(stem));
}

} // namespace vasclip::photos
