#include <QApplication>
#include <QCoreApplication>

#include <gtest/gtest.h>

// One entry for every test program: Qt loads its SQL driver plugins only when an application
// object exists. Widget test programs are built with HOARD_TEST_WIDGETS and need a
// QApplication, which the offscreen platform gives them without a display.
int main(int argc, char** argv) {
#ifdef HOARD_TEST_WIDGETS
    QApplication app(argc, argv);
#else
    QCoreApplication app(argc, argv);
#endif
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
