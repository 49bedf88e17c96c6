#include <QCoreApplication>

#include <gtest/gtest.h>

// One entry for every test program: Qt loads its SQL driver plugins only when an application
// object exists.
int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
