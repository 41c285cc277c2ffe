#include <camerapool/CDeviceListKeeper.h>

#include <camerapool/CameraKey.h>

namespace CameraPool {

DeviceRecordList CDeviceListKeeper::merge(const DeviceRecordList& scanned, const QSet<QString>& openKeys)
{
    QHash<QString, int> scannedIndex;
    for (int index = 0; index < scanned.size(); ++index)
        scannedIndex.insert(cameraKeyOf(scanned.at(index)), index);

    DeviceRecordList merged;
    QHash<QString, int> missedScans;
    QSet<QString> knownKeys;
    for (const SDeviceRecord& known : m_records) {
        const QString key = cameraKeyOf(known);
        knownKeys.insert(key);
        const auto found = scannedIndex.constFind(key);
        if (found != scannedIndex.constEnd()) {
            merged.append(scanned.at(found.value()));
            continue;
        }
        const int misses = m_missedScans.value(key) + 1;
        if (openKeys.contains(key) || misses < MissedScansBeforeGone) {
            merged.append(known);
            missedScans.insert(key, misses);
        }
    }
    for (const SDeviceRecord& record : scanned) {
        if (!knownKeys.contains(cameraKeyOf(record)))
            merged.append(record);
    }
    m_records = merged;
    m_missedScans = missedScans;
    return m_records;
}

} // namespace CameraPool
