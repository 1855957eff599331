#include <gtest/gtest.h>

#include <QCoreApplication>

// The loader of thumbnails hands its pictures over through the event loop.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
