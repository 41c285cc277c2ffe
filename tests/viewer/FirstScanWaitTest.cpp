#include "CFirstScanWait.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

using Viewer::CFirstScanWait;

namespace {

// Stands for the pool's enumeration service.
class CScanner : public QObject
{
    Q_OBJECT
signals:
    void scanFinished();
};

struct SWaitCase
{
    const char* scenario;
    bool withPool;
    int scansAfterMs; // -1: none
    int expectedAfterMs;
};

class FirstScanWait : public ::testing::TestWithParam<SWaitCase>
{
};

TEST_P(FirstScanWait, settlesOnceAtTheFirstScanOrTheLimit)
{
    const SWaitCase& c = GetParam();
    CScanner scanner;
    CFirstScanWait wait(c.withPool ? &scanner : nullptr, 300);
    QSignalSpy settled(&wait, &CFirstScanWait::settled);
    int waited = 0;
    const auto waitUntil = [&](int ms) {
        QTest::qWait(ms - waited);
        waited = ms;
    };
    if (c.expectedAfterMs > 0) {
        waitUntil(c.expectedAfterMs / 2);
        EXPECT_EQ(settled.count(), 0) << "not before the scan or the limit";
    }
    if (c.scansAfterMs >= 0) {
        waitUntil(c.scansAfterMs);
        emit scanner.scanFinished();
    }
    waitUntil(c.expectedAfterMs + 100);
    EXPECT_EQ(settled.count(), 1);
    emit scanner.scanFinished();
    QTest::qWait(400);
    EXPECT_EQ(settled.count(), 1) << "once only";
}

INSTANTIATE_TEST_SUITE_P(Viewer, FirstScanWait,
                         ::testing::Values(SWaitCase{"first_scan_opens_it", true, 50, 50},
                                           SWaitCase{"a_silent_pool_is_waited_for_up_to_the_limit", true, -1, 300},
                                           SWaitCase{"no_pool_opens_it_at_once", false, -1, 0}),
                         [](const auto& info) { return std::string(info.param.scenario); });

} // namespace

#include "FirstScanWaitTest.moc"
