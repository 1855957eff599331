#pragma once

#include "forms/ports.h"
#include "support/scripted_screens.h"

#include <gtest/gtest.h>

#include <QList>

#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <vector>

namespace vasclip::tests {

/// A box as it was shown.
struct ShownBox
{
    forms::Buttons buttons = forms::Buttons::Ok;
    forms::Icon icon = forms::Icon::None;
    QString title;
    QString text;
    bool operator==(const ShownBox&) const = default;
};

inline void PrintTo(const ShownBox& box, std::ostream* out)
{
    *out << "box(buttons " << static_cast<int>(box.buttons) << ", icon " << static_cast<int>(box.icon)
         << ", \"" << box.title.toStdString() << "\", \"" << box.text.toStdString() << "\")";
}

struct FileDialog
{
    QString filter, title, directory;
    bool operator==(const FileDialog&) const = default;
};

/// Records every box and answers from a queue. A box with the OK button alone needs no answer; any other box
/// without a scripted answer fails the test, unless AnswerAlways has set a default.
class ScriptedPrompter : public forms::Prompter
{
public:
    void Answer(forms::Answer answer) { m_answers.push_back(answer); }
    void Log(const QString& line) override { logged.append(line); }
    QStringList logged;
    void AnswerAlways(forms::Answer answer) { m_default = answer; }
    void AnswerDialog(const QString& path) { m_paths.push_back(path); }

    [[nodiscard]] const std::vector<ShownBox>& Boxes() const { return m_boxes; }
    [[nodiscard]] const std::vector<FileDialog>& Dialogs() const { return m_dialogs; }
    [[nodiscard]] QStringList Texts() const
    {
        QStringList texts;
        for (const ShownBox& box : m_boxes)
            texts << box.text;
        return texts;
    }
    /// The last box; an empty one (and a failed test) if there was none.
    [[nodiscard]] ShownBox Last() const
    {
        if (m_boxes.empty()) {
            ADD_FAILURE() << "no box was shown";
            return {};
        }
        return m_boxes.back();
    }
    [[nodiscard]] bool AllAnswered() const { return m_answers.empty() && m_paths.empty(); }
    void Forget()
    {
        m_boxes.clear();
        m_dialogs.clear();
    }

    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title,
                         const QString& text) override
    {
        m_boxes.push_back({buttons, icon, title, text});
        if (buttons == forms::Buttons::Ok)
            return forms::Answer::Ok;
        if (!m_answers.empty()) {
            const forms::Answer answer = m_answers.front();
            m_answers.pop_front();
            return answer;
        }
        if (m_default)
            return *m_default;
        ADD_FAILURE() << "nobody answers \"" << title.toStdString() << "\": " << text.toStdString();
        return Closed(buttons);
    }

    QString OpenDialog(const QString& filter, const QString& title, const QString& directory) override
    {
        return Chosen({filter, title, directory});
    }
    /// A directory is a dialog without a filter.
    QString ChooseDirectory(const QString& title, const QString& directory) override
    {
        return Chosen({{}, title, directory});
    }

private:
    QString Chosen(const FileDialog& dialog)
    {
        m_dialogs.push_back(dialog);
        const QString& title = dialog.title;
        if (m_paths.empty()) {
            ADD_FAILURE() << "nobody chooses a file for \"" << title.toStdString() << "\"";
            return {};
        }
        const QString path = m_paths.front();
        m_paths.pop_front();
        return path;
    }
    static forms::Answer Closed(forms::Buttons buttons)
    {
        switch (buttons) {
        case forms::Buttons::YesNo:
            return forms::Answer::No;
        case forms::Buttons::AbortRetryIgnore:
            return forms::Answer::Abort;
        default:
            return forms::Answer::Cancel;
        }
    }

    std::deque<forms::Answer> m_answers;
    std::optional<forms::Answer> m_default;
    std::deque<QString> m_paths;
    std::vector<ShownBox> m_boxes;
    std::vector<FileDialog> m_dialogs;
};

/// Counts the turns of the queue; `onTurn` lets something happen within one.
class FakePump : public forms::EventPump
{
public:
    void DoEvents() override
    {
        ++turns;
        if (onTurn)
            onTurn();
    }
    int turns = 0;
    std::function<void()> onTurn;
};

/// Stands at a settable time; a wait moves it and is recorded; `onWait` lets something happen within one.
class FakeClock : public forms::Clock
{
public:
    [[nodiscard]] QDateTime Now() const override { return now; }
    void Wait(double seconds) override
    {
        waits.push_back(seconds);
        if (seconds > 0)
            now = now.addMSecs(static_cast<qint64>(seconds * 1000));
        if (onWait)
            onWait();
    }
    QDateTime now{QDate(2024, 5, 17), QTime(10, 30)};
    std::vector<double> waits;
    std::function<void()> onWait;
};

/// Gives the numbers of a sequence, then begins again; 0.5 without one.
class FakeRandom : public forms::RandomSource
{
public:
    [[nodiscard]] double Rnd() override
    {
        if (sequence.empty())
            return 0.5;
        return sequence[drawn++ % sequence.size()];
    }
    std::vector<double> sequence;
    std::size_t drawn = 0;
};

class FakeWindow : public forms::WindowPort
{
public:
    void AppActivate() override { ++activations; }
    void SetHourglass(bool on) override
    {
        hourglass = on;
        hourglassLog.push_back(on);
    }
    int activations = 0;
    bool hourglass = false;
    std::vector<bool> hourglassLog;
};

/// All ports of one test.
struct TestPorts
{
    ScriptedPrompter prompter;
    FakePump pump;
    FakeClock clock;
    FakeRandom random;
    FakeWindow window;
    ScriptedScreens screens;
    [[nodiscard]] forms::Ports Get() { return {prompter, pump, clock, random, window, screens}; }
};

} // namespace vasclip::tests
