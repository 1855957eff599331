#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    const QCoreApplication program(argc, argv); // finds the picture plugins
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
