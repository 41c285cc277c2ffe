// Widget tests need a QApplication; settings go to Qt's test folders so that
// no test reads or writes the user's own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("BandwidthManagerTests"));
    QCoreApplication::setApplicationName(QStringLiteral("bandwidthmanager_tests"));
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
