#include "CMessageLogService.h"

#include <Core/Logging/Logging.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QIcon>
#include <QStandardItem>
#include <QThread>

#include <thread>

using namespace Viewer;

namespace {

QDateTime timeOfRow(CMessageLogService& log, int row)
{
    return log.model()->item(row, CMessageLogService::ColumnTime)->data(Qt::UserRole).toDateTime();
}

} // namespace

TEST(MessageLogService, nullTimestampBecomesTheTimeOfArrival)
{
    CMessageLogService log;
    const QDateTime given(QDate(2024, 3, 1), QTime(12, 30));
    const QDateTime before = QDateTime::currentDateTime();
    log.addMessage(CMessageLogService::SeverityError, "Plug-in", "arrived now", QDateTime());
    const QDateTime after = QDateTime::currentDateTime();
    log.addMessage(CMessageLogService::SeverityInfo, "Plug-in", "stamped", given);

    ASSERT_EQ(log.model()->rowCount(), 2);
    EXPECT_GE(timeOfRow(log, 0), before);
    EXPECT_LE(timeOfRow(log, 0), after);
    EXPECT_EQ(timeOfRow(log, 1), given);
    EXPECT_EQ(log.model()->item(0, CMessageLogService::ColumnMessage)->text(), QStringLiteral("arrived now"));
    EXPECT_EQ(log.model()->item(0, CMessageLogService::ColumnSeverity)->data(Qt::UserRole).toInt(),
              int(CMessageLogService::SeverityError));
}

struct SSeverityCase
{
    int severity;
    const char* text;
    const char* icon;
};

class Severity : public ::testing::TestWithParam<SSeverityCase>
{
};

// The numbers are the log levels the plug-ins pass: 1 is information, not a warning.
TEST_P(Severity, showsTheLevelThePluginMeant)
{
    const SSeverityCase& c = GetParam();
    CMessageLogService log;
    log.addMessage(c.severity, "Bandwidth Manager", "text", QDateTime());
    const QStandardItem* level = log.model()->item(0, CMessageLogService::ColumnSeverity);
    EXPECT_EQ(level->text(), QString::fromLatin1(c.text));
    EXPECT_EQ(level->icon().pixmap(16).toImage(),
              QIcon(QStringLiteral(":/zentaviewercomponents/Resources/%1").arg(c.icon)).pixmap(16).toImage());
}

INSTANTIATE_TEST_SUITE_P(MessageLogService, Severity,
                         ::testing::Values(SSeverityCase{Core::Logging::LogLevelFailure, "Failure", "Error_16.png"},
                                           SSeverityCase{Core::Logging::LogLevelInfo, "Information", "Info_32.png"},
                                           SSeverityCase{Core::Logging::LogLevelWarning, "Warning", "Warning_16_black.png"},
                                           SSeverityCase{Core::Logging::LogLevelError, "Error", "Error_16.png"}));

TEST(MessageLogService, messagesFromOtherThreadsArriveOnTheGuiThread)
{
    CMessageLogService log;
    std::thread worker([&log] { log.addMessage(1, "worker", "from afar", QDateTime()); });
    worker.join();
    EXPECT_EQ(log.model()->rowCount(), 0) << "rows are added by the GUI thread only";
    QCoreApplication::processEvents();
    ASSERT_EQ(log.model()->rowCount(), 1);
    EXPECT_TRUE(timeOfRow(log, 0).isValid());
}

TEST(MessageLogService, followsErrorEntriesOfTheLog)
{
    CMessageLogService log;
    log.followLogErrors();
    Core::Logging::setStderrEnabled(false);
    const quint64 category = Core::Logging::getCatId("zenta.viewer.tests.log");
    Core::Logging::createLogEntry(Core::Logging::LogLevelInfo, category, "only information");
    Core::Logging::createLogEntry(Core::Logging::LogLevelError, category, "a failure to show");
    Core::Logging::setStderrEnabled(true);
    ASSERT_EQ(log.model()->rowCount(), 1);
    EXPECT_EQ(log.model()->item(0, CMessageLogService::ColumnSource)->text(),
              QStringLiteral("zenta.viewer.tests.log"));
    EXPECT_EQ(log.model()->item(0, CMessageLogService::ColumnMessage)->text(), QStringLiteral("a failure to show"));
}
