#include "upkeep/clean_texts.h"

#include "common/addresses.h"
#include "common/proper_case.h"
#include "common/text_filters.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "upkeep/maintenance_messages.h"

#include <QSet>

#include <cmath>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kLongestKey = 35;
constexpr qsizetype kLongestName = 32; ///< that has room for "(2)"

QString Numbered(const QString& key)
{
    const qsizetype open = key.indexOf(u'(');
    const qsizetype close = key.indexOf(u')', open + 1);
    if (open < 0 || close < 0)
        return text::Trim(key.left(kLongestName)) + u"(2)"_s;
    const double number = std::min(std::floor(text::Val(key.mid(open + 1, close - open - 1))), 1e9);
    const QString next = u'(' + text::Dec(static_cast<qint64>(number) + 1) + u')';
    return (key.left(open) + next + key.mid(close + 1)).left(kLongestKey);
}

/// A number that has no room any more takes it from the name before it.
QString Shortened(const QString& key, qint64 number)
{
    const QString behind = u'(' + text::Dec(number) + u')';
    const QString name = key.contains(u'(') ? key.left(key.indexOf(u'(')) : key;
    return text::Trim(name.left(kLongestKey - behind.size())) + behind;
}

} // namespace

QString FreeKey(const QString& key, const KeyTest& isThere)
{
    QSet<QString> tried;
    QString name = text::Trim(key);
    while (name.isEmpty() || isThere(name)) {
        tried.insert(name.toUpper());
        name = Numbered(name);
        for (qint64 number = 10; tried.contains(name.toUpper()); ++number)
            name = Shortened(key, number);
    }
    return name;
}

qint64 CleanKeyAndAddress(RowEdit& row, const KeyTest& isThere)
{
    const auto cleaned = [](const QString& held) {
        return text::Trim(common::RemoveIllegalChars(held).left(kLongestKey));
    };
    const QString oldKey = text::Trim(row.Key().left(kLongestKey));
    const QString wanted = cleaned(row.Key());
    qint64 found = 0;
    if (wanted != oldKey) {
        found += row.Key().size() - common::RemoveIllegalChars(row.Key()).size();
        const QString key = FreeKey(wanted, isThere);
        if (key != wanted)
            row.Remark(maintenance::kKeyTaken.arg(wanted, key));
        row.Set(fields::CENTRALKEY, key);
    }
    const QString address = row.Text(fields::ADDRESS);
    if (cleaned(address) != text::Trim(address.left(kLongestKey))) {
        found += address.size() - common::RemoveIllegalChars(address).size();
        row.Set(fields::ADDRESS, cleaned(address));
    }
    return found;
}

qint64 CleanTexts(RowEdit& row, const QStringList& textFields)
{
    qint64 found = 0;
    for (const QString& field : textFields) {
        const QString held = row.Text(field);
        const QString kept = common::RemoveIllegalChars(held);
        found += held.size() - kept.size();
        if (kept.size() != held.size())
            row.Set(field, kept);
    }
    return found;
}

void CorrectAddress(RowEdit& row, AddressFrom from, int addressCase)
{
    if (row.Key().isEmpty()) {
        row.Remark(maintenance::kKeyless);
        row.Remove();
        return;
    }
    const auto inCase = [&](const QString& held) {
        return from == AddressFrom::ProperCase ? common::ProperCase(held) : held.toUpper();
    };
    if (from == AddressFrom::Key)
        row.Set(fields::ADDRESS, common::AddressInCase(row.Key(), addressCase));
    else
        for (const auto field : {fields::ADDRESS, fields::ADDRESS2, fields::CITY, fields::COUNTY})
            row.Set(field, inCase(row.Text(field)));
    const QString held = row.Text(fields::ST);
    const QString state = text::Folded(QString(held).remove(u'.'));
    const bool known = common::IsValidStateCode(state);
    if (!known && !held.isEmpty())
        row.Remark(maintenance::kStateLost.arg(held));
    row.Set(fields::ST, known ? state : QString());
}

} // namespace vasclip::upkeep
