#pragma once

#include "shell/report_home.h"
#include "windows/guard.h"
#include "windows/main_window.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QTest>

#include <functional>
#include <memory>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

/// Real windows in place of the scripted screens; a base before the program that is handed them.
struct OwnScreens
{
    WindowScreens screens;
};

/// The program of a ReportHome with what its windows need.
class ReportWindows : public shell::ReportHome
{
protected:
    using ReportHome::ReportHome;

    EventGuard guard{doubles.prompter, {}};
    QSettings settings{home.disk.ToNative(u"C:\\window.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};
    std::unique_ptr<MainWindow> mainWindow;

    void StartProgram() { ASSERT_TRUE(guard.Run([&] { main.Form_load(options, splash); })); }
    void MakeMainWindow() { MakeMainWindow(main.drags.Router()); }
    void MakeMainWindow(forms::DropPort& drops)
    {
        mainWindow = std::make_unique<MainWindow>(main.controls, drops, main, guard, theme, settings);
        mainWindow->resize(1366, 768);
    }
};

/// A screen that a menu entry opens, on its real window.
class PlayedScreen : public ReportWindows
{
protected:
    ScreenWindow* window = nullptr; ///< on top, while it stands

    /// Opens a screen as the menu does and plays on its window.
    void PlayOn(const QString& screen, const std::function<void()>& open,
                const std::function<void(forms::Screen& shown)>& script)
    {
        bool whole = false; // the guard takes what is thrown in between
        doubles.screens.Play([this, screen, script, &whole](forms::Screen& shown) {
            EXPECT_EQ(shown.Name(), screen);
            ScreenWindow* const below = window;
            ScreenWindow stands(shown, guard);
            EXPECT_TRUE(stands.Leftovers().isEmpty()) << stands.Leftovers().join(u'\n').toStdString();
            window = &stands;
            stands.show();
            script(shown);
            window = below;
            whole = true;
        });
        guard.Run(open);
        EXPECT_TRUE(whole) << doubles.prompter.Texts().join(u'\n').toStdString();
        EXPECT_TRUE(doubles.screens.Shown().contains(screen)) << doubles.prompter.Texts().join(u'\n').toStdString();
    }
    void PlayOn(const QString& screen, const std::function<void()>& open, const std::function<void()>& script)
    {
        PlayOn(screen, open, [script](forms::Screen&) { script(); });
    }

    template <typename Widget>
    Widget& The(const QString& name) const
    {
        auto* found = window->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }
    void Press(const QString& name) const { QTest::mouseClick(&The<QPushButton>(name), Qt::LeftButton); }
    /// A check or an option, by its mark.
    void Tick(const QString& name) const
    {
        auto& box = The<QAbstractButton>(name);
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    }
    void Type(const QString& name, const QString& text) const
    {
        auto& box = The<QLineEdit>(name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }
    QString Says(const QString& label = u"lblmsg"_s) const { return The<QLabel>(label).text(); }
    QString Text(const QString& name) const { return The<QLineEdit>(name).text(); }
    QStringList Lines(const QString& list = u"lstaccount"_s) const
    {
        const QAbstractItemModel* model = The<QListView>(list).model();
        QStringList lines;
        for (int row = 0; model && row < model->rowCount(); ++row)
            lines.append(model->index(row, 0).data().toString());
        return lines;
    }
    void ClickLine(const QString& list, int row) const
    {
        auto& view = The<QListView>(list);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row, 0)).center());
    }
};

} // namespace vasclip::windows
