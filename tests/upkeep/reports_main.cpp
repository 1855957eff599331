#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication app(argc, argv); // fonts
    return RUN_ALL_TESTS();
}
