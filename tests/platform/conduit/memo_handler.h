#pragma once

#include "platform/conduit/link_session.h"
#include "platform/text/runtime_error.h"

#include <QMap>
#include <QStringList>

namespace vasclip::test {

/// Keeps what is poked under "topic/item", gives it back, and refuses the item "REFUSE".
class MemoHandler final : public conduit::LinkHandler
{
public:
    QMap<QString, QString> memory;
    QStringList commands;

    QString Request(const QString& topic, const QString& item) override
    {
        if (item == QStringLiteral("REFUSE"))
            throw RuntimeError(5, QStringLiteral("I will not say \"REFUSE\""));
        if (item == QStringLiteral("BREAK"))
            throw std::runtime_error("something broke");
        return memory.value(topic + QLatin1Char('/') + item, QStringLiteral("nothing"));
    }

    void Poke(const QString& topic, const QString& item, const QString& text) override
    {
        if (item == QStringLiteral("REFUSE"))
            throw RuntimeError(5, QStringLiteral("No such cell"));
        memory[topic + QLatin1Char('/') + item] = text;
    }

    void Execute(const QString&, const QString& command) override { commands.append(command); }
};

} // namespace vasclip::test
