#include "upkeep/address_twins.h"

#include "databook/same_house.h"
#include "platform/street/address_parser.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"
#include "upkeep/import_plan.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kBetweenSteps = 512; ///< records
const QString kLooking = u"Looking for the same addresses"_s;

/// "123 OAK" for each word of a street's name: a cheap look before an address is parsed.
QStringList HintsOf(const street::Address& address)
{
    QStringList hints;
    for (const QString& word : address.street.base.split(u' ', Qt::SkipEmptyParts))
        hints.append(QString::number(address.number.value) + u' ' + word.left(3));
    return hints;
}

} // namespace

void AddressTwins::Want(const QString& name, const QString& address, const QString& city)
{
    const street::Address parsed = street::ParseAddress(address);
    const QString house = databook::HouseOf(parsed);
    if (house.isEmpty())
        return;
    for (auto found = m_wanted.constFind(house); found != m_wanted.cend() && found.key() == house; ++found)
        if (KeyMark(found->name) != KeyMark(name) && databook::SameTown(found->city, text::Trim(city)))
            m_among.insert(name, m_among.value(found->name, found->name));
    m_wanted.insert(house, {name, text::Trim(city)});
    for (const QString& hint : HintsOf(parsed))
        m_hints.insert(hint);
    m_numbers.insert(QString::number(parsed.number.value));
}

bool AddressTwins::Hinted(const QString& written) const
{
    qsizetype end = 0;
    while (end < written.size() && written[end].isDigit())
        ++end;
    if (end == 0)
        return written.contains(u'-') || (!written.isEmpty() && written[0].isLetter()); // "N65W1234", "12-34": parse
    if (!m_numbers.contains(QString::fromRawData(written.constData(), end)))
        return false;
    const QString number = written.left(end) + u' ';
    for (qsizetype at = end; at < written.size();) {
        while (at < written.size() && !written[at].isLetterOrNumber())
            ++at;
        const qsizetype from = at;
        while (at < written.size() && written[at].isLetterOrNumber())
            ++at;
        if (at == from)
            break;
        const QString word = written.mid(from, at - from).toUpper();
        if (m_hints.contains(number + word.left(3)))
            return true;
        const QString ordinal = street::OrdinalOf(word);
        if (!ordinal.isEmpty() && m_hints.contains(number + ordinal.left(3)))
            return true;
    }
    return false;
}

QHash<QString, QString> AddressTwins::Find(const TransferDesk& desk, const WorkStep& step) const
{
    QHash<QString, QString> twins;
    if (m_wanted.isEmpty())
        return twins;
    const store::Rows rows =
        store::ReadRows(desk.databook, u"SELECT %1, %2, %3 FROM [%4]"_s.arg(fields::CENTRALKEY, fields::ADDRESS,
                                                                           fields::CITY, desk.globals.G_Table));
    for (qint64 at = 0; at < rows.Count(); ++at) {
        if (at % kBetweenSteps == 0 && !step(at, rows.Count(), kLooking))
            break;
        const auto record = rows.At(at);
        if (!record)
            continue;
        const QString key = record->Values().at(0).toString();
        const QString address = record->Values().at(1).toString();
        const QString& written = text::Trim(address).isEmpty() ? key : address;
        if (!Hinted(written))
            continue;
        const QString house = databook::HouseOf(written);
        for (auto found = m_wanted.constFind(house); found != m_wanted.cend() && found.key() == house; ++found)
            if (KeyMark(found->name) != KeyMark(key) && databook::SameTown(found->city, record->Values().at(2).toString()))
                twins.insert(found->name, text::RTrim(key));
    }
    return twins;
}

} // namespace vasclip::upkeep
