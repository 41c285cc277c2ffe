#include "CMessageLogService.h"

#include <Core/Logging/Logging.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>

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

TEST(MessageLogService, messagesFromOtherThreadsArriveOnTheGuiThread)
{
    CMessageLogService log;
    QThread* worker = QThread::create([&log] { log.addMessage(1, "worker", "from afar", QDateTime()); });
    worker->start();
    worker->wait();
    delete worker;
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
