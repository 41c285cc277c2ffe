#include <camerapool/CParameterReader.h>

#include <QCoreApplication>

namespace CameraPool {

CParameterReader& CParameterReader::instance()
{
    // Owned by the application, whose end stops the thread.
    static CParameterReader* reader = new CParameterReader;
    return *reader;
}

CParameterReader::CParameterReader() : QObject(QCoreApplication::instance()), m_thread([this] { run(); }) {}

CParameterReader::~CParameterReader()
{
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        dropped.swap(m_tasks);
    }
    m_wake.notify_one();
    m_thread.join();
}

void CParameterReader::post(std::function<void()> task)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_wake.notify_one();
}

void CParameterReader::run()
{
    for (;;) {
        std::function<void()> task;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_wake.wait(lock, [this] { return m_stopping || !m_tasks.empty(); });
            if (m_stopping)
                return;
            task = std::move(m_tasks.front());
            m_tasks.pop_front();
        }
        task();
    }
}

} // namespace CameraPool
