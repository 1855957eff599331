#include "app/vasctl/terminal_prompter.h"

#include "app/vasctl/shown_text.h"

#include <QTextStream>

#include <cstdio>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;
using forms::Answer;

namespace {

QList<Answer> ChoicesOf(forms::Buttons buttons)
{
    switch (buttons) {
    case forms::Buttons::Ok:
        return {Answer::Ok};
    case forms::Buttons::OkCancel:
        return {Answer::Ok, Answer::Cancel};
    case forms::Buttons::AbortRetryIgnore:
        return {Answer::Abort, Answer::Retry, Answer::Ignore};
    case forms::Buttons::YesNoCancel:
        return {Answer::Yes, Answer::No, Answer::Cancel};
    case forms::Buttons::YesNo:
        return {Answer::Yes, Answer::No};
    case forms::Buttons::RetryCancel:
        return {Answer::Retry, Answer::Cancel};
    }
    return {Answer::Ok};
}

QString NameOf(Answer answer)
{
    switch (answer) {
    case Answer::Ok:
        return u"ok"_s;
    case Answer::Cancel:
        return u"cancel"_s;
    case Answer::Abort:
        return u"abort"_s;
    case Answer::Retry:
        return u"retry"_s;
    case Answer::Ignore:
        return u"ignore"_s;
    case Answer::Yes:
        return u"yes"_s;
    case Answer::No:
        return u"no"_s;
    }
    return {};
}

bool Declines(Answer answer)
{
    return answer == Answer::No || answer == Answer::Cancel || answer == Answer::Abort;
}

std::optional<Answer> Match(const QList<Answer>& choices, const QString& typed)
{
    const QString wanted = typed.trimmed().toLower();
    if (wanted.isEmpty())
        return std::nullopt;
    for (const Answer answer : choices) {
        if (NameOf(answer).startsWith(wanted))
            return answer;
    }
    return std::nullopt;
}

/// The button that changes least.
Answer Cautious(const QList<Answer>& choices)
{
    for (const Answer wanted : {Answer::No, Answer::Cancel, Answer::Abort}) {
        if (choices.contains(wanted))
            return wanted;
    }
    return choices.first();
}

} // namespace

Answer TerminalPrompter::MsgBox(forms::Buttons buttons, forms::Icon, const QString& title,
                                const QString& text)
{
    m_shown.append(text);
    if (m_beforeBox)
        m_beforeBox();
    QTextStream err(stderr);
    err << Visible(title.isEmpty() ? text : title + u": "_s + text) << Qt::endl;
    const QList<Answer> choices = ChoicesOf(buttons);
    if (choices.size() == 1)
        return choices.first();
    const Answer answer = Choose(choices);
    m_declined = m_declined || Declines(answer);
    return answer;
}

Answer TerminalPrompter::Choose(const QList<Answer>& choices)
{
    QTextStream err(stderr);
    while (!m_answers.isEmpty()) {
        const QString given = m_answers.takeFirst();
        if (const auto answer = Match(choices, given))
            return *answer;
        err << u"The answer '%1' is none of the choices."_s.arg(Visible(given)) << Qt::endl;
        return Cautious(choices);
    }
    if (m_standing == Standing::Yes) {
        // never Retry: a disk that stays full would be tried for ever
        for (const Answer wanted : {Answer::Yes, Answer::Ok}) {
            if (choices.contains(wanted))
                return wanted;
        }
    }
    if (m_standing != Standing::Ask || !m_interactive) {
        const Answer answer = Cautious(choices);
        err << u"Answered '%1'."_s.arg(NameOf(answer)) << Qt::endl;
        return answer;
    }
    QStringList names;
    for (const Answer answer : choices)
        names.append(NameOf(answer));
    QTextStream in(stdin);
    for (;;) {
        err << u"[%1] "_s.arg(names.join(u'/')) << Qt::flush;
        const QString typed = in.readLine();
        if (typed.isNull())
            return Cautious(choices);
        if (const auto answer = Match(choices, typed))
            return *answer;
    }
}

QString TerminalPrompter::OpenDialog(const QString&, const QString& title, const QString&)
{
    if (!m_answers.isEmpty())
        return m_answers.takeFirst();
    if (!m_interactive)
        return {};
    QTextStream err(stderr);
    err << Visible(title) << u": "_s << Qt::flush;
    QTextStream in(stdin);
    return in.readLine();
}

QString TerminalPrompter::ChooseDirectory(const QString& title, const QString& directory)
{
    return OpenDialog({}, title, directory);
}

} // namespace vasclip::vasctl
