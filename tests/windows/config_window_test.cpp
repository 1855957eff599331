#include "shell/frm_config.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"
#include "windows/guard.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>

// The settings screen in its window: pages, search, keys.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class ConfigWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        const auto absent = [](common::IniFile, const QString&, const QString&, const QString& fallback) {
            return fallback;
        };
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        common::ReadNames(globals, absent);
        common::ReadGlobals(globals, absent);
        common::ReadiniSettings(globals, absent);
        config.Open();
        window.emplace(config, guard);
        window->show();
        QApplication::setActiveWindow(&*window);
        QTest::qWait(20);
    }
    template <class Widget>
    Widget& Get(const QString& name)
    {
        auto* found = window->findChild<Widget*>(name);
        if (found == nullptr)
            throw std::runtime_error(name.toStdString());
        return *found;
    }
    int Page() { return window->findChild<QStackedWidget*>()->currentIndex(); }

    tests::TempHome home;
    tests::TestPorts ports;
    engine::Engine engine{home.disk, tests::SomeTime()};
    EventGuard guard{ports.prompter, {}};
    Theme theme{*qApp, nullptr};
    common::Globals globals;
    shell::frm_Config config{engine, ports.Get(), globals};
    std::optional<ScreenWindow> window;
};

TEST_F(ConfigWindow, TheListAtTheLeftTurnsThePagesByKeys)
{
    auto& list = Get<QListWidget>(u"SSConfig"_s);
    EXPECT_EQ(list.count(), config.SSConfig.Tabs());
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(config.SSConfig.Tab(), 1);
    EXPECT_EQ(Page(), 1);
    EXPECT_TRUE(Get<QLineEdit>(u"txtQuality"_s).isVisible());
    EXPECT_FALSE(Get<QCheckBox>(u"ckbTabMask"_s).isVisible());
}

TEST_F(ConfigWindow, TheSearchShowsOnlyWhatItFoundAndEnterGoesThere)
{
    auto& find = Get<QLineEdit>(u"txtFind"_s);
    QTest::keyClick(&*window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(find.hasFocus());
    QTest::keyClicks(&find, u"arrow"_s);
    EXPECT_EQ(Page(), static_cast<int>(shell::ConfigPage::Map));
    EXPECT_TRUE(Get<QCheckBox>(u"ckbTransparent"_s).isVisible());
    EXPECT_TRUE(Get<QRadioButton>(u"optArrowColor_1"_s).isVisible());
    EXPECT_FALSE(Get<QLineEdit>(u"txtmapquality"_s).isVisible());
    EXPECT_TRUE(Get<QCheckBox>(u"ckbTransparent"_s).parentWidget()->property("found").toBool());
    auto& list = Get<QListWidget>(u"SSConfig"_s);
    EXPECT_TRUE(list.item(0)->isHidden());
    EXPECT_FALSE(list.item(static_cast<int>(shell::ConfigPage::Map))->isHidden());
    QTest::keyClick(&find, Qt::Key_Return);
    EXPECT_TRUE(Get<QCheckBox>(u"ckbTransparent"_s).hasFocus());
    EXPECT_FALSE(config.HasChanged()) << "Enter in the search saves nothing";
    find.clear();
    Q_EMIT find.textEdited({});
    EXPECT_FALSE(list.item(0)->isHidden());
    EXPECT_TRUE(Get<QLineEdit>(u"txtmapquality"_s).isVisible());
    EXPECT_FALSE(Get<QCheckBox>(u"ckbTransparent"_s).parentWidget()->property("found").toBool());
}

TEST_F(ConfigWindow, OneOptionIsOnByClickAndByKey)
{
    config.SSConfig.SetTab(static_cast<int>(shell::ConfigPage::Databook));
    auto& price = Get<QRadioButton>(u"optSort_3"_s);
    QTest::mouseClick(&price, Qt::LeftButton, {}, QPoint(8, price.height() / 2));
    const auto on = [this] {
        QList<int> indices;
        for (int i = 0; i < 7; ++i) {
            auto& control = dynamic_cast<forms::CheckBox&>(*config.controls.Find(u"optSort"_s, i));
            EXPECT_EQ(control.Value(), Get<QRadioButton>(u"optSort_%1"_s.arg(i)).isChecked()) << i;
            if (control.Value())
                indices.append(i);
        }
        return indices;
    };
    EXPECT_EQ(on(), QList<int>{3});
    price.setFocus();
    QTest::keyClick(&price, Qt::Key_Down);
    EXPECT_EQ(on(), QList<int>{4});
    QTest::mouseClick(&Get<QPushButton>(u"cmdCancel"_s), Qt::LeftButton);
    EXPECT_EQ(on(), QList<int>{1}) << "the setting again";
}

TEST_F(ConfigWindow, AWrongNumberKeepsTheFocusAndIsToldBesideTheField)
{
    config.SSConfig.SetTab(static_cast<int>(shell::ConfigPage::Pictures));
    auto& quality = Get<QLineEdit>(u"txtQuality"_s);
    quality.setFocus();
    quality.selectAll();
    QTest::keyClicks(&quality, u"250"_s);
    QTest::keyClick(&quality, Qt::Key_Tab);
    EXPECT_EQ(ports.prompter.Texts(), QStringList{u"Enter a number between 1 and 100"_s});
    EXPECT_TRUE(quality.hasFocus());
    EXPECT_EQ(quality.selectedText(), u"250"_s);
    bool told = false;
    for (const auto* label : quality.parentWidget()->findChildren<QLabel*>())
        told = told || (label->isVisible() && label->text() == u"Enter a number between 1 and 100"_s);
    EXPECT_TRUE(told);
    ports.prompter.Forget();
    QTest::keyClicks(&quality, u"85"_s);
    QTest::keyClick(&quality, Qt::Key_Return);
    EXPECT_TRUE(ports.prompter.AllAnswered());
    EXPECT_EQ(globals.quality, 85) << "Enter saves";
}

TEST_F(ConfigWindow, EscapeAsksForWhatWasChanged)
{
    Get<QCheckBox>(u"ckbTabMask"_s).click();
    ports.prompter.Answer(forms::Answer::No);
    QTest::keyClick(&*window, Qt::Key_Escape);
    EXPECT_FALSE(config.IsOpen());
    EXPECT_EQ(ports.prompter.Boxes().front().title, u"Save Configuration Changes?"_s);
    EXPECT_FALSE(globals.tabMask);
}

TEST_F(ConfigWindow, EveryFieldIsReachedByTab)
{
    for (int page = 0; page < config.SSConfig.Tabs(); ++page) {
        config.SSConfig.SetTab(page);
        QSet<QWidget*> reached;
        Get<QListWidget>(u"SSConfig"_s).setFocus();
        for (int i = 0; i < 60; ++i) {
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
            reached.insert(window->focusWidget());
        }
        for (const auto& field : config.Fields()) {
            if (static_cast<int>(field.about.page) != page)
                continue;
            const forms::Control* control = field.text    ? static_cast<forms::Control*>(field.text.get())
                                            : field.check ? field.check.get()
                                                          : nullptr;
            if (control != nullptr) {
                EXPECT_TRUE(reached.contains(window->Bindings().WidgetOf(*control)))
                    << field.about.control.data();
            }
        }
    }
}

TEST_F(ConfigWindow, ItOpensOverTheMiddleOfItsOwner)
{
    window.reset();
    config.Unload();
    config.End();
    QWidget owner;
    WindowScreens screens;
    screens.SetGuard(&guard);
    screens.SetOwner(&owner);
    for (const QRect& place : {QRect(0, 0, 800, 700), QRect(10, 60, 780, 700)}) {
        owner.setGeometry(place);
        owner.show();
        QApplication::processEvents();
        QPoint middle;
        QTimer::singleShot(50, &owner, [&] {
            if (auto* shown = QApplication::activeModalWidget()) {
                middle = shown->frameGeometry().center();
                shown->close();
            }
        });
        screens.ShowModal(config);
        EXPECT_NEAR(middle.x(), place.center().x(), 2);
        EXPECT_NEAR(middle.y(), place.center().y(), 2);
    }
}

/// Pictures for eyes; see shots_test.cpp.
TEST_F(ConfigWindow, Shots)
{
    const QString wish = qEnvironmentVariable("VASCLIP_SHOTS");
    if (wish.isEmpty())
        GTEST_SKIP() << "set VASCLIP_SHOTS to write the pictures";
    const QString out = wish.contains(u'/') ? wish : u"out/shots"_s;
    ASSERT_TRUE(QDir().mkpath(out));
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR").isEmpty() ? QString() : u"-scaled"_s;
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        const auto save = [&, look = name](const QString& what) {
            QTest::qWait(20);
            EXPECT_TRUE(window->grab().save(u"%1/config-%2-%3%4.png"_s.arg(out, what, look, scale)));
        };
        for (int page = 0; page < config.SSConfig.Tabs(); ++page) {
            config.SSConfig.SetTab(page);
            save(QString::number(page));
        }
        config.SSConfig.SetTab(1);
        dynamic_cast<forms::TextBox&>(*config.controls.Find(u"txtPixelX"_s)).SetText(u"4000"_s);
        save(u"wrong"_s);
        config.txtFind.SetText(u"photo"_s);
        save(u"found"_s);
        config.txtFind.SetText({});
        Q_EMIT config.cmdCancel.Clicked();
    }
    theme.Choose(ThemeChoice::System);
}

} // namespace
} // namespace vasclip::windows
