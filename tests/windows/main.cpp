#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
#ifdef Q_OS_WIN // nobody says there how the letters of no screen are fitted to pixels, and they would come out wider than any screen's
    QFont letters = QApplication::font();
    letters.setHintingPreference(QFont::PreferNoHinting);
    QApplication::setFont(letters);
#endif
    return RUN_ALL_TESTS();
}
