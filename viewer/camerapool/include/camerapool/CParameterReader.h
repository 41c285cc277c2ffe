#pragma once

#include <QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace CameraPool {

// The one thread on which the parameter hubs read their cameras. Its queue is
// of the standard library, so the thread sanitiser sees what crosses it. It
// ends with the application: the read under way finishes, the rest is dropped.
class CParameterReader : public QObject
{
    Q_OBJECT
public:
    static CParameterReader& instance();
    ~CParameterReader() override;

    void post(std::function<void()> task);

private:
    CParameterReader();
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_tasks;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace CameraPool
