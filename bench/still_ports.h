#pragma once

#include "forms/ports.h"

#include <QDateTime>

#include <cstdio>

namespace vasclip::bench {

/// Nobody answers: what is said goes to the error output, every question gets the same answer.
class Nobody : public forms::Prompter
{
public:
    explicit Nobody(forms::Answer answer = forms::Answer::Cancel)
        : m_answer(answer)
    {}
    forms::Answer MsgBox(forms::Buttons, forms::Icon, const QString& title, const QString& text) override
    {
        std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
        return m_answer;
    }
    QString OpenDialog(const QString&, const QString&, const QString&) override { return {}; }
    QString ChooseDirectory(const QString&, const QString&) override { return {}; }

private:
    forms::Answer m_answer;
};

class NoEvents : public forms::EventPump
{
public:
    void DoEvents() override {}
};

/// Always the same morning, and no waiting.
class StoppedClock : public forms::Clock
{
public:
    [[nodiscard]] QDateTime Now() const override { return QDateTime(QDate(2024, 5, 17), QTime(9, 0)); }
    void Wait(double) override {}
};

class FixedNumber : public forms::RandomSource
{
public:
    [[nodiscard]] double Rnd() override { return 0.5; }
};

class NoWindow : public forms::WindowPort
{
public:
    void AppActivate() override {}
    void SetHourglass(bool) override {}
};

} // namespace vasclip::bench
