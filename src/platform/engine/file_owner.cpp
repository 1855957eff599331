#include "platform/engine/file_owner.h"

#include "platform/engine/process.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSysInfo>

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kSumDigits = 8;
constexpr qint64 kDaysOfOthers = 7;

QString OwnMachine()
{
    const QByteArray sum = QCryptographicHash::hash(QSysInfo::machineHostName().toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(sum.toHex().left(kSumDigits));
}

bool IsSumDigit(QChar letter)
{
    return (letter >= u'0' && letter <= u'9') || (letter >= u'a' && letter <= u'f');
}

} // namespace

FileOwner FileOwner::Own()
{
    FileOwner own{OwnProcess(), OwnMachine()};
    own.length = own.Mark().size();
    return own;
}

FileOwner FileOwner::In(QStringView text)
{
    FileOwner owner;
    while (owner.length < text.size() && text[owner.length] >= u'0' && text[owner.length] <= u'9')
        ++owner.length;
    owner.process = text.first(owner.length).toLongLong();
    const QStringView rest = text.sliced(owner.length);
    if (owner.process <= 0 || rest.size() <= kSumDigits || rest[0] != u'_')
        return owner;
    const QStringView sum = rest.sliced(1, kSumDigits);
    if (std::all_of(sum.begin(), sum.end(), IsSumDigit)) {
        owner.machine = sum.toString();
        owner.length += 1 + kSumDigits;
    }
    return owner;
}

QString FileOwner::Mark() const
{
    const QString number = QString::number(process);
    return machine.isEmpty() ? number : number + u'_' + machine;
}

bool FileOwner::HasLeft(const QString& native, const QDateTime& now) const
{
    if (process <= 0)
        return false;
    if (machine == OwnMachine())
        return process == OwnProcess() || !IsAlive(process, {});
    const bool running = machine.isEmpty() && process != OwnProcess() && IsAlive(process, {});
    return !running && QFileInfo(native).lastModified().daysTo(now) >= kDaysOfOthers;
}

} // namespace vasclip::engine
