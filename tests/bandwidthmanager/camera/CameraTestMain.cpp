// The camera backend delivers connection loss and scans through the event
// loop; the configuration dialog needs widgets (offscreen).
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
