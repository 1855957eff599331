#pragma once

#include "platform/conduit/conduit.h"
#include "platform/text/runtime_error.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>
#include <utility>

namespace vasclip::test {

using namespace Qt::StringLiterals;

/// A conduit without a forms program: it writes down what was done to it and answers from a script.
///
/// The log reads {"mode 0", "topic KEL|SMITH", "mode 2", "item URAR|14|2", "text 1.2 Mi. NW", "poke"}; a
/// request is "request", a macro "execute " and the command. Reading a member is not logged. The rules of the
/// real one hold: a topic assigned while open is error 287, an exchange without a conversation error 293.
class RecordingConduit final : public conduit::Conduit
{
public:
    QStringList log;
    /// What is poked arrives here: {"topic", "item", "text"}.
    QList<QStringList> pokes;
    /// The commands of LinkExecute in order.
    QStringList commands;
    /// When set, sees every entry before it is logged and may throw to let that step fail.
    std::function<void(const QString& entry)> before;
    /// The answer to a request that no script line covers.
    QString unscripted;
    /// False plays a forms program that is not running: mode 2 is error 282.
    bool running = true;

    /// A standing answer to every request of `item` on `topic` (both without regard to case).
    void Answer(const QString& topic, const QString& item, const QString& text)
    {
        m_standing[Key(topic, item)] = text;
    }

    /// An answer that serves one request and comes before the standing one; several queue up.
    void AnswerOnce(const QString& topic, const QString& item, const QString& text)
    {
        m_once[Key(topic, item)].append(text);
    }

    /// The next time this log entry comes up (for instance "poke" or "item UA5|3|4"), it fails instead.
    void FailOnce(const QString& entry, int number, const QString& description)
    {
        m_failures.append({entry, RuntimeError(number, description)});
    }

    /// The log so far; the log is empty afterwards.
    [[nodiscard]] QStringList Take() { return std::exchange(log, {}); }

    [[nodiscard]] QString Text() const override { return m_text; }

    void SetText(const QString& text) override
    {
        Note(u"text "_s + text);
        m_text = text;
    }

    [[nodiscard]] QString LinkTopic() const override { return m_topic; }

    void SetLinkTopic(const QString& topic) override
    {
        Note(u"topic "_s + topic);
        if (m_mode != 0)
            throw RuntimeError(error::kLinkTopicOpen,
                               u"The topic cannot be changed while the conversation is open"_s);
        m_topic = topic;
    }

    [[nodiscard]] QString LinkItem() const override { return m_item; }

    void SetLinkItem(const QString& item) override
    {
        Note(u"item "_s + item);
        m_item = item;
    }

    [[nodiscard]] qint16 LinkMode() const override { return m_mode; }

    void SetLinkMode(qint16 mode) override
    {
        Note(u"mode "_s + QString::number(mode));
        if (mode != 0 && !running)
            throw RuntimeError(error::kLinkNoAnswer, u"No forms program answered"_s);
        m_mode = mode;
    }

    void LinkRequest() override
    {
        Exchange(u"request"_s);
        const QString key = Key(m_topic, m_item);
        if (const auto once = m_once.find(key); once != m_once.end() && !once->isEmpty())
            m_text = once->takeFirst();
        else
            m_text = m_standing.value(key, unscripted);
    }

    void LinkPoke() override
    {
        Exchange(u"poke"_s);
        pokes.append({m_topic, m_item, m_text});
    }

    void LinkExecute(const QString& command) override
    {
        Exchange(u"execute "_s + command);
        commands.append(command);
    }

private:
    static QString Key(const QString& topic, const QString& item)
    {
        return (topic + QChar(0) + item).toUpper();
    }

    void Exchange(const QString& entry)
    {
        Note(entry);
        if (m_mode == 0)
            throw RuntimeError(conduit::kNoConversation, u"No conversation is open"_s);
    }

    void Note(const QString& entry)
    {
        if (before)
            before(entry);
        log.append(entry);
        for (qsizetype i = 0; i < m_failures.size(); ++i) {
            if (m_failures[i].first != entry)
                continue;
            const RuntimeError failure = m_failures.takeAt(i).second;
            if (failure.Number() == error::kLinkTimeOut || failure.Number() == error::kLinkPeerGone)
                m_mode = 0;
            throw RuntimeError(failure);
        }
    }

    QString m_text, m_topic, m_item;
    qint16 m_mode = 0;
    QHash<QString, QString> m_standing;
    QHash<QString, QStringList> m_once;
    QList<std::pair<QString, RuntimeError>> m_failures;
};

} // namespace vasclip::test
