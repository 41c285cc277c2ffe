#include <camerapool/CDeviceListKeeper.h>

#include <gtest/gtest.h>

using namespace CameraPool;

namespace {

// A scan as a string: one GigE camera per letter, its address after a colon ("A B:2").
DeviceRecordList scan(const QString& text)
{
    DeviceRecordList records;
    for (const QString& entry : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        SDeviceRecord record;
        record.protocol = QStringLiteral("GigEVision");
        record.id = entry.section(QLatin1Char(':'), 0, 0);
        record.address = entry.section(QLatin1Char(':'), 1);
        records.append(record);
    }
    return records;
}

QString shown(const DeviceRecordList& records)
{
    QStringList entries;
    for (const SDeviceRecord& record : records)
        entries << (record.address.isEmpty() ? record.id : record.id + QLatin1Char(':') + record.address);
    return entries.join(QLatin1Char(' '));
}

struct SScanCase
{
    const char* scenario;
    std::vector<const char*> scans;
    const char* open;
    const char* expected;  // after the last scan
};

class DeviceListKeeperTest : public testing::TestWithParam<SScanCase>
{
};

} // namespace

TEST_P(DeviceListKeeperTest, ShowsWhatTheScansSay)
{
    const SScanCase& c = GetParam();
    QSet<QString> open;
    for (const QString& key : QString::fromLatin1(c.open).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        open.insert(key);
    CDeviceListKeeper keeper;
    DeviceRecordList result;
    for (const char* text : c.scans)
        result = keeper.merge(scan(QString::fromLatin1(text)), open);
    EXPECT_EQ(shown(result).toStdString(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Scans, DeviceListKeeperTest,
    testing::Values(SScanCase{"oneLostAnswerKeepsTheCamera", {"A B C", "A C"}, "", "A B C"},
                    SScanCase{"twoMissedScansRemoveIt", {"A B C", "A C", "A C"}, "", "A C"},
                    SScanCase{"anAnswerInBetweenStartsTheCountAgain", {"A B", "A", "A B", "A"}, "", "A B"},
                    SScanCase{"anOpenCameraStaysThroughAnySilence", {"A B", "A", "A", "A", "A"}, "B", "A B"},
                    SScanCase{"knownCamerasKeepTheirPlace", {"A B C", "C D B A"}, "", "A B C D"},
                    SScanCase{"aChangedRecordReplacesTheOld", {"A:1 B:1", "B:2 A:1"}, "", "A:1 B:2"},
                    SScanCase{"emptyScansEmptyTheList", {"A", "", ""}, "", ""}),
    [](const testing::TestParamInfo<SScanCase>& info) { return info.param.scenario; });
