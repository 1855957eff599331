#include "platform/files/wildcard.h"

namespace vasclip::files {

namespace {

/// One pass with one way back, to the last star: no pattern takes longer than name times pattern.
bool Matches(QStringView name, QStringView pattern)
{
    qsizetype n = 0;
    qsizetype p = 0;
    qsizetype starAt = -1;
    qsizetype resumeAt = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starAt = p++;
            resumeAt = n;
        } else if (p < pattern.size() && pattern[p] == u'?' && name[n] != u'.') {
            ++p;
            ++n;
        } else if (p < pattern.size() && pattern[p] == u'?') {
            ++p;
        } else if (p < pattern.size() && pattern[p] == name[n]) {
            ++p;
            ++n;
        } else if (starAt >= 0) {
            p = starAt + 1;
            n = ++resumeAt;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && (pattern[p] == u'*' || pattern[p] == u'?'))
        ++p;
    return p == pattern.size();
}

} // namespace

QString FoldedName(const QString& name)
{
    QString folded = name;
    for (QChar& c : folded)
        c = c.unicode() < 128 ? QChar(char16_t(c >= u'a' && c <= u'z' ? c.unicode() - 32 : c.unicode()))
                              : c.toUpper();
    return folded;
}

bool HasWildcard(const QString& text)
{
    return text.contains(u'*') || text.contains(u'?');
}

bool MatchesPattern(QStringView name, QStringView pattern)
{
    if (pattern == u"*.*" || pattern == u"*")
        return true;
    if (pattern.endsWith(u'.'))
        return !name.contains(u'.') && Matches(name, pattern.chopped(1));
    return Matches(name, pattern);
}

} // namespace vasclip::files
