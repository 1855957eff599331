#include "house/program_rules.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vasclip::house {

namespace {

constexpr qsizetype kMostLines = 600;

/// A source without what people read in it alone.
QString Code(QString text)
{
    static const QRegularExpression comment(uR"(//[^\n]*)"_s);
    return text.remove(comment);
}

void CheckMenus(const QString& path, const QString& code, QStringList& violations)
{
    static const QRegularExpression place(u"^src/(shell|windows)/"_s);
    static const QRegularExpression table(u"^src/shell/menus\\.(h|cpp)$"_s);
    static const QRegularExpression number(uR"(\bindex\s*[!=]=\s*(\d+|k\w+Entry\b))"_s);
    static const QRegularExpression menu(uR"(u"mnu\w+"|"mnu\w+"_L1)"_s);
    if (!place.match(path).hasMatch() || table.match(path).hasMatch())
        return;
    if (const auto found = number.match(code); found.hasMatch())
        violations.append(u"%1 asks for the number of a menu entry (%2) outside the table of menus"_s.arg(
            path, found.captured()));
    if (const auto found = menu.match(code); found.hasMatch())
        violations.append(u"%1 names the menu %2 outside the table of menus"_s.arg(path, found.captured()));
}

void CheckTerminal(const QString& path, const QString& code, QStringList& violations)
{
    // The map's rules work on the controls of its tab, also where nothing shows them.
    static const QRegularExpression screen(uR"(\bfrm_(?!MapTab\b)\w+)"_s);
    if (!path.startsWith(u"src/app/vasctl/"_s))
        return;
    if (const auto found = screen.match(code); found.hasMatch())
        violations.append(u"%1 names the screen %2; vasctl has none"_s.arg(path, found.captured()));
}

/// One program has one disk and one engine, which it owns.
void CheckOwner(const QString& path, const QString& code, QStringList& violations)
{
    static const QRegularExpression made(uR"(\b(files::Disk|engine::Engine)\s+\w+\s*[;({])"_s);
    if (!path.startsWith(u"src/"_s) || path.startsWith(u"src/platform/"_s) || path.startsWith(u"src/shell/program."_s))
        return;
    if (const auto found = made.match(code); found.hasMatch())
        violations.append(u"%1 makes %2 of its own: the program has one"_s.arg(path, found.captured(1)));
}

void CheckSize(const Sources& sources, const QString& beginning, QStringList& violations)
{
    qsizetype lines = 0;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source)
        if (source.key().startsWith(beginning))
            lines += source.value().count(u'\n');
    if (lines >= kMostLines)
        violations.append(u"%1* has %2 lines; what it does belongs to files of their own"_s.arg(
            beginning, QString::number(lines)));
}

} // namespace

QStringList ProgramViolations(const Sources& sources)
{
    QStringList violations;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        const QString code = Code(source.value());
        CheckMenus(source.key(), code, violations);
        CheckTerminal(source.key(), code, violations);
        CheckOwner(source.key(), code, violations);
    }
    CheckSize(sources, u"src/shell/frm_main"_s, violations);
    CheckSize(sources, u"src/windows/main_window"_s, violations);
    return violations;
}

} // namespace vasclip::house
