// What a rehearsal is called to people.

#include "upkeep/rehearsal.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNamed = 3;

} // namespace

QString NameOf(RowKind kind)
{
    switch (kind) {
    case RowKind::New:
        return u"new"_s;
    case RowKind::Changed:
        return u"changed"_s;
    case RowKind::Same:
        return u"same"_s;
    case RowKind::Twin:
        return u"same address"_s;
    case RowKind::Refused:
        return u"refused"_s;
    }
    return {};
}

QString NameOf(RowChoice choice)
{
    switch (choice) {
    case RowChoice::Add:
        return u"add"_s;
    case RowChoice::KeepMine:
        return u"keep mine"_s;
    case RowChoice::TakeTheirs:
        return u"take theirs"_s;
    case RowChoice::FillBlanks:
        return u"fill blanks"_s;
    }
    return {};
}

QString WordsOf(const RehearsalResult& result)
{
    if (!result.done)
        return result.stopped ? u"Canceled: the Databook is as it was."_s : u"Nothing came in: the Databook is as it was."_s;
    QString words = u"Records added: %1, changed: %2."_s.arg(result.added).arg(result.changed) + WordsOf(result.pictures);
    if (!result.undone.isEmpty())
        words += u" Not done: "_s + result.undone.mid(0, kNamed).join(u"; "_s) +
                 (result.undone.size() > kNamed ? u"; and %1 more."_s.arg(result.undone.size() - kNamed) : u"."_s);
    words += DamageWords(result.damage);
    return words;
}

QStringList LeftOutOf(const RehearsalResult& result)
{
    return result.damage + result.undone + result.pictures.notSaved;
}

QString SummaryOf(const Rehearsal& rehearsal)
{
    QStringList parts;
    for (const RowKind kind : {RowKind::New, RowKind::Changed, RowKind::Same, RowKind::Twin, RowKind::Refused})
        parts.append(NameOf(kind) + u": "_s + QString::number(rehearsal.Count(kind)));
    return parts.join(u", "_s);
}

} // namespace vasclip::upkeep
