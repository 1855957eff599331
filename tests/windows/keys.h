#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

namespace vasclip::windows {

/// No window manager does it here.
inline bool Activate(QWidget& shown)
{
    return QTest::qWaitFor([&] {
        if (QApplication::activeWindow() == &shown)
            return true;
        shown.activateWindow();
        return false;
    });
}

/// Does what opens a screen, and works on it; a screen that is left open is closed.
inline void OnScreen(QWidget& window, const QString& screen, const std::function<void()>& open,
                     const std::function<void(QWidget& shown)>& work)
{
    bool came = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const QPointer<QWidget> shown = QApplication::activeModalWidget();
        if (!shown)
            return;
        watch.stop();
        came = true;
        EXPECT_EQ(shown->objectName(), screen);
        ASSERT_TRUE(Activate(*shown));
        work(*shown);
        if (shown && shown->isVisible())
            shown->close();
    });
    watch.start(20);
    open();
    EXPECT_TRUE(came) << screen.toStdString() << " did not come up";
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

/// Types what a key does wherever the focus is.
inline void Keys(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWidget* focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    QTest::keyClick(focus, Qt::Key(key), modifiers);
}

inline void Type(const QString& text)
{
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), text);
}

} // namespace vasclip::windows
