#pragma once

#include "platform/conduit/link_session.h"
#include "platform/text/runtime_error.h"

#include <QMap>
#include <QStringList>

namespace vasclip::test {

using namespace Qt::StringLiterals;

/// Keeps what is poked under "topic/item", gives it back, and refuses the item "REFUSE".
class MemoHandler final : public conduit::LinkHandler
{
public:
    QMap<QString, QString> memory;
    QStringList commands;

    QString Request(const QString& topic, const QString& item) override
    {
        if (item == u"REFUSE"_s)
            throw RuntimeError(5, u"I will not say \"REFUSE\""_s);
        if (item == u"BREAK"_s)
            throw std::runtime_error("something broke");
        return memory.value(topic + QLatin1Char('/') + item, u"nothing"_s);
    }

    void Poke(const QString& topic, const QString& item, const QString& text) override
    {
        if (item == u"REFUSE"_s)
            throw RuntimeError(5, u"No such cell"_s);
        memory[topic + QLatin1Char('/') + item] = text;
    }

    void Execute(const QString&, const QString& command) override { commands.append(command); }
};

} // namespace vasclip::test
