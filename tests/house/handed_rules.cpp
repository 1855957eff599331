#include "house/handed_rules.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vasclip::house {

namespace {

const QString kSrc = u"src/"_s;

/// A source without what people read in it alone.
QString Code(QString text)
{
    static const QRegularExpression comment(uR"(//[^\n]*)"_s);
    return text.remove(comment);
}

/// A test sets the clock, so nobody but its port looks at the wall. How long something takes is another matter.
void CheckClock(const QString& path, const QString& code, QStringList& violations)
{
    // The second stamps files; what they say is compared with it.
    static const QRegularExpression owner(u"^src/(forms/system_ports|platform/files/native_\\w+)\\.cpp$"_s);
    static const QRegularExpression clock(
        uR"(\bQ(?:DateTime|Date|Time)::current\w+|\bstd::time\b|\btime\(\s*(?:nullptr|NULL|0|&)|)"
        uR"(\bsystem_clock\b|\b(?:clock_)?gettime(?:ofday)?\b|\b(?:localtime|gmtime|timespec_get)\w*\(|)"
        uR"(\bGet(?:System|Local)Time\w*\()"_s);
    if (owner.match(path).hasMatch())
        return;
    if (const auto found = clock.match(code); found.hasMatch())
        violations.append(u"%1 asks the system's clock (%2): it is handed a text::TimeSource"_s.arg(
            path, found.captured()));
}

} // namespace

QStringList HandedViolations(const Sources& sources)
{
    QStringList violations;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        if (!source.key().startsWith(kSrc))
            continue;
        const QString code = Code(source.value());
        CheckClock(source.key(), code, violations);
    }
    return violations;
}

} // namespace vasclip::house
