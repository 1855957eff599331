#include "house/program_rules.h"

#include <QRegularExpression>

namespace vasclip::house {

namespace {

constexpr qsizetype kMostLines = 600;

/// A source without what people read in it alone.
QString Code(QString text)
{
    static const QRegularExpression comment(QStringLiteral(R"(//[^\n]*)"));
    return text.remove(comment);
}

void CheckMenus(const QString& path, const QString& code, QStringList& violations)
{
    static const QRegularExpression place(QStringLiteral("^src/(shell|windows)/"));
    static const QRegularExpression table(QStringLiteral("^src/shell/menus\\.(h|cpp)$"));
    static const QRegularExpression number(QStringLiteral(R"(\bindex\s*[!=]=\s*(\d+|k\w+Entry\b))"));
    static const QRegularExpression menu(QStringLiteral(R"(u"mnu\w+"|"mnu\w+"_L1)"));
    if (!place.match(path).hasMatch() || table.match(path).hasMatch())
        return;
    if (const auto found = number.match(code); found.hasMatch())
        violations.append(
            QStringLiteral("%1 asks for the number of a menu entry (%2) outside the table of menus")
                .arg(path, found.captured()));
    if (const auto found = menu.match(code); found.hasMatch())
        violations.append(
            QStringLiteral("%1 names the menu %2 outside the table of menus").arg(path, found.captured()));
}

void CheckTerminal(const QString& path, const QString& code, QStringList& violations)
{
    static const QRegularExpression screen(QStringLiteral(R"(\bfrm_\w+)"));
    if (!path.startsWith(QStringLiteral("src/app/vasctl/")))
        return;
    if (const auto found = screen.match(code); found.hasMatch())
        violations.append(
            QStringLiteral("%1 names the screen %2; vasctl has none").arg(path, found.captured()));
}

void CheckSize(const Sources& sources, const QString& beginning, QStringList& violations)
{
    qsizetype lines = 0;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source)
        if (source.key().startsWith(beginning))
            lines += source.value().count(u'\n');
    if (lines >= kMostLines)
        violations.append(QStringLiteral("%1* has %2 lines; what it does belongs to files of their own")
                              .arg(beginning, QString::number(lines)));
}

} // namespace

QStringList ProgramViolations(const Sources& sources)
{
    QStringList violations;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        const QString code = Code(source.value());
        CheckMenus(source.key(), code, violations);
        CheckTerminal(source.key(), code, violations);
    }
    CheckSize(sources, QStringLiteral("src/shell/frm_main"), violations);
    CheckSize(sources, QStringLiteral("src/windows/main_window"), violations);
    return violations;
}

} // namespace vasclip::house
