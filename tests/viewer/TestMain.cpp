#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("BwmTests"));
    QCoreApplication::setApplicationName(QStringLiteral("viewer_tests"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
