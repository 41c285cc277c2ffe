#pragma once

#include "sbandwidthsample.h"

#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <vector>

namespace Plugin::BandwidthManager {

// What one camera showed at one tick of an analysis.
struct SHistoryPoint
{
    double seconds = 0.0;
    float bandwidthMBs = 0.0f;
    float payloadMBs = 0.0f;
    float fpsSent = 0.0f;
    // -1 while not measured, as in the sample.
    float fpsReceived = -1.0f;
    quint64 images = 0;
    quint64 errors = 0;
    // Errors counted since the point before: where the plot marks them.
    quint32 newErrors = 0;
    bool connectionLost = false;
};

struct SCameraReading
{
    QString key;
    QString name;
    QString adapterKey;
    SBandwidthSample sample;
};

struct SCameraHistory
{
    QString key;
    QString name;
    QString adapterKey;
    std::vector<SHistoryPoint> points;
};

// The whole run, camera by camera. Memory is bounded by halving: when a
// camera's series reaches the cap, neighbouring points merge in pairs (rates
// averaged, counters and losses kept), so a long run keeps its shape at a
// coarser step and the newest points stay at the tick's resolution.
class CAnalysisHistory
{
public:
    // 14400 points: an hour at 4 ticks a second before the first halving; 8 cameras take under 6 MB.
    static constexpr size_t DefaultMaxPoints = 14400;

    explicit CAnalysisHistory(size_t maxPointsPerCamera = DefaultMaxPoints);

    void clear();
    // The readings of one tick in the tree's order; a camera missing from a
    // tick keeps its series and its place.
    void record(double seconds, const std::vector<SCameraReading>& readings);
    // Ends a camera's series with a point that shows the loss; nothing for a camera without one.
    void markLost(const QString& key, double seconds);

    const std::vector<SCameraHistory>& cameras() const { return m_cameras; }
    const SCameraHistory* camera(const QString& key) const;
    // Per adapter, the sum of its cameras' rates at each tick (key and adapterKey: the adapter's).
    const std::vector<SCameraHistory>& adapterTotals() const { return m_adapters; }
    const SCameraHistory* adapterTotal(const QString& adapterKey) const;
    size_t maxPointsPerCamera() const { return m_maxPoints; }
    double lastSeconds() const { return m_lastSeconds; }

private:
    static SHistoryPoint pointOf(double seconds, const SBandwidthSample& sample, const SHistoryPoint* previous);
    static void halve(std::vector<SHistoryPoint>& points);
    void append(std::vector<SCameraHistory>& series, const QString& key, const QString& name, const QString& adapterKey,
                const SBandwidthSample& sample, double seconds);

    size_t m_maxPoints;
    double m_lastSeconds = 0.0;
    std::vector<SCameraHistory> m_cameras;
    std::vector<SCameraHistory> m_adapters;
};

} // namespace Plugin::BandwidthManager
