#include <QCoreApplication>

#include <gtest/gtest.h>

// Runs tests that need an event loop.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
