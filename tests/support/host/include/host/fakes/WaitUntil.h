#pragma once

#include <QElapsedTimer>
#include <QTest>

namespace HostFakes {

// Runs the event loop until the condition holds; false when the time is up.
// Use it with ASSERT_TRUE: QTRY_VERIFY only returns from a gtest body on timeout.
template <class TCondition>
bool waitUntil(TCondition condition, int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > timeoutMs)
            return false;
        QTest::qWait(20);
    }
    return true;
}

} // namespace HostFakes
