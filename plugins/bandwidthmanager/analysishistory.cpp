#include "analysishistory.h"

#include <algorithm>
#include <map>

namespace Plugin::BandwidthManager {

namespace {

constexpr double MegabytesPerByte = 1e-6;

} // namespace

CAnalysisHistory::CAnalysisHistory(size_t maxPointsPerCamera)
    : m_maxPoints(std::max<size_t>(maxPointsPerCamera, 2))
{
}

void CAnalysisHistory::clear()
{
    m_cameras.clear();
    m_adapters.clear();
    m_lastSeconds = 0.0;
}

const SCameraHistory* CAnalysisHistory::camera(const QString& key) const
{
    const auto found = std::find_if(m_cameras.begin(), m_cameras.end(),
                                    [&key](const SCameraHistory& history) { return history.key == key; });
    return found == m_cameras.end() ? nullptr : &*found;
}

const SCameraHistory* CAnalysisHistory::adapterTotal(const QString& adapterKey) const
{
    const auto found = std::find_if(m_adapters.begin(), m_adapters.end(),
                                    [&adapterKey](const SCameraHistory& history) { return history.key == adapterKey; });
    return found == m_adapters.end() ? nullptr : &*found;
}

void CAnalysisHistory::append(std::vector<SCameraHistory>& series, const QString& key, const QString& name,
                              const QString& adapterKey, const SBandwidthSample& sample, double seconds)
{
    auto found = std::find_if(series.begin(), series.end(), [&key](const SCameraHistory& history) { return history.key == key; });
    if (found == series.end()) {
        series.push_back(SCameraHistory{key, name, adapterKey, {}});
        found = series.end() - 1;
    }
    found->name = name;
    found->adapterKey = adapterKey;
    found->points.push_back(pointOf(seconds, sample, found->points.empty() ? nullptr : &found->points.back()));
    if (found->points.size() >= m_maxPoints)
        halve(found->points);
}

SHistoryPoint CAnalysisHistory::pointOf(double seconds, const SBandwidthSample& sample, const SHistoryPoint* previous)
{
    SHistoryPoint point;
    point.seconds = seconds;
    point.bandwidthMBs = float(double(sample.bandwidth) * MegabytesPerByte);
    point.payloadMBs = float(double(sample.payloadReceived) * MegabytesPerByte);
    point.fpsSent = float(sample.fpsSent);
    point.fpsReceived = float(sample.fpsReceived);
    point.images = sample.images;
    point.errors = sample.errors;
    point.connectionLost = sample.connectionLost;
    // A reset of the statistics starts the count again: what it shows then is new.
    const quint64 before = previous && previous->errors <= sample.errors ? previous->errors : 0;
    point.newErrors = quint32(std::min<quint64>(sample.errors - before, 0xffffffffu));
    return point;
}

void CAnalysisHistory::record(double seconds, const std::vector<SCameraReading>& readings)
{
    m_lastSeconds = seconds;
    std::map<QString, size_t> rank;
    std::map<QString, SBandwidthSample> totals;
    for (const SCameraReading& reading : readings) {
        rank.emplace(reading.key, rank.size());
        append(m_cameras, reading.key, reading.name, reading.adapterKey, reading.sample, seconds);
        SBandwidthSample& total = totals[reading.adapterKey];
        total.bandwidth += reading.sample.bandwidth;
        total.payloadReceived += reading.sample.payloadReceived;
        total.images += reading.sample.images;
        total.errors += reading.sample.errors;
        total.fpsSent += reading.sample.fpsSent;
        total.fpsReceived = -1.0;
    }
    for (const auto& total : totals)
        append(m_adapters, total.first, total.first, total.first, total.second, seconds);
    // The tree's order for those read now; the others keep their place among them.
    std::map<QString, size_t> position;
    const size_t stride = m_cameras.size() + 1;
    size_t before = 0;
    for (size_t index = 0; index < m_cameras.size(); ++index) {
        const auto found = rank.find(m_cameras[index].key);
        if (found != rank.end())
            before = (found->second + 1) * stride;
        position[m_cameras[index].key] = found != rank.end() ? before : before + index + 1;
    }
    std::stable_sort(m_cameras.begin(), m_cameras.end(), [&position](const SCameraHistory& a, const SCameraHistory& b) {
        return position[a.key] < position[b.key];
    });
}

void CAnalysisHistory::markLost(const QString& key, double seconds)
{
    const auto found = std::find_if(m_cameras.begin(), m_cameras.end(),
                                    [&key](const SCameraHistory& history) { return history.key == key; });
    if (found == m_cameras.end() || found->points.empty() || found->points.back().connectionLost)
        return;
    SHistoryPoint lost = found->points.back();
    lost.seconds = std::max(seconds, lost.seconds);
    lost.bandwidthMBs = 0.0f;
    lost.payloadMBs = 0.0f;
    lost.fpsSent = 0.0f;
    lost.fpsReceived = 0.0f;
    lost.newErrors = 0;
    lost.connectionLost = true;
    found->points.push_back(lost);
    if (found->points.size() >= m_maxPoints)
        halve(found->points);
}

void CAnalysisHistory::halve(std::vector<SHistoryPoint>& points)
{
    // Rates are averaged over the time each point stands for: the run starts at 0.
    const auto mean = [](float a, double wa, float b, double wb) { return float((a * wa + b * wb) / (wa + wb)); };
    size_t out = 0;
    double start = 0.0;
    for (size_t in = 0; in + 1 < points.size(); in += 2) {
        const SHistoryPoint& first = points[in];
        SHistoryPoint merged = points[in + 1];
        double wa = first.seconds - start;
        double wb = merged.seconds - first.seconds;
        if (wa <= 0 || wb <= 0)
            wa = wb = 1.0;
        start = merged.seconds;
        merged.bandwidthMBs = mean(first.bandwidthMBs, wa, merged.bandwidthMBs, wb);
        merged.payloadMBs = mean(first.payloadMBs, wa, merged.payloadMBs, wb);
        merged.fpsSent = mean(first.fpsSent, wa, merged.fpsSent, wb);
        if (first.fpsReceived >= 0 && merged.fpsReceived >= 0)
            merged.fpsReceived = mean(first.fpsReceived, wa, merged.fpsReceived, wb);
        merged.newErrors = quint32(std::min<quint64>(quint64(first.newErrors) + merged.newErrors, 0xffffffffu));
        merged.connectionLost = first.connectionLost || merged.connectionLost;
        points[out++] = merged;
    }
    if (points.size() % 2 != 0)
        points[out++] = points.back();
    points.resize(out);
}

} // namespace Plugin::BandwidthManager
