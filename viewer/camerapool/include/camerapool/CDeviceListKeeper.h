#pragma once

#include <camerapool/SDeviceRecord.h>

#include <QHash>
#include <QSet>

namespace CameraPool {

// Folds each scan into the list the pool shows. A discovery answer lost on a
// congested link must not make a camera vanish: an open camera stays until its
// own connection says it is lost, any other until it misses a second scan.
// Known cameras keep their place; new ones are added at the end.
class CDeviceListKeeper
{
public:
    static constexpr int MissedScansBeforeGone = 2;

    // openKeys: camera keys of the cameras open in this process.
    DeviceRecordList merge(const DeviceRecordList& scanned, const QSet<QString>& openKeys);

private:
    DeviceRecordList m_records;
    QHash<QString, int> m_missedScans;
};

} // namespace CameraPool
