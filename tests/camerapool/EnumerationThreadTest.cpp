#include <camerapool/CAravisWorker.h>
#include <camerapool/CameraPoolServices.h>

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QThread>

using namespace CameraPool;

namespace {

QSharedPointer<CCameraEnumerationService> scannedService(bool emulation)
{
    auto service = QSharedPointer<CCameraEnumerationService>::create(emulation, 0);
    QSignalSpy finished(service.data(), &CCameraEnumerationService::scanFinished);
    EXPECT_TRUE(finished.wait(10000));
    return service;
}

QStringList layerNames(const CCameraEnumerationService& service)
{
    QStringList names;
    for (const auto& layer : service.transportLayers())
        names << layer->name();
    return names;
}

} // namespace

TEST(EnumerationThread, ScansOffTheGuiThreadEmulationOnlyWhenEnabledAndAnUnchangedRescanIsSilent)
{
    const auto off = scannedService(false);
    EXPECT_EQ(layerNames(*off), (QStringList{"DorvikGigE", "DorvikUsb"}));
    QThread* updater = CAravisWorker::lastListUpdateThread();
    ASSERT_NE(updater, nullptr);
    EXPECT_NE(updater, QThread::currentThread());

    const auto on = scannedService(true);
    ASSERT_EQ(layerNames(*on), (QStringList{"DorvikGigE", "DorvikUsb", "CamEmu"}));
    const auto emulated = on->transportLayers().at(2)->cameras();
    ASSERT_FALSE(emulated.isEmpty());
    EXPECT_EQ(emulated.first()->deviceClass(), "CamEmu");
    EXPECT_EQ(emulated.first()->key(), "Fake_1");

    QSignalSpy changed(on.data(), &CCameraEnumerationService::enumerationChanged);
    QSignalSpy finished(on.data(), &CCameraEnumerationService::scanFinished);
    on->onRefresh();
    ASSERT_TRUE(finished.wait(10000));
    EXPECT_EQ(changed.count(), 0);
}

TEST(EnumerationThread, OpensAnEmulatedCameraAndReadsItsNodes)
{
    const SCameraPoolServices services = createCameraPoolServices({true, 0});
    QSignalSpy finished(services.enumeration.data(), &CCameraEnumerationService::scanFinished);
    ASSERT_TRUE(finished.wait(10000));
    const CCameraInfoPtr info = services.enumeration->findCamera(QStringLiteral("Fake_1"));
    ASSERT_TRUE(info);
    const auto collection = services.parameters->parameterCollection(info);
    ASSERT_TRUE(collection);
    EXPECT_EQ(services.enumeration->openCameras().size(), 1);
    const auto width = collection->getIntegerParameter(QStringLiteral("Width"));
    ASSERT_TRUE(width);
    width->setValue(333, ParameterCollection::CorrectionNearest);
    EXPECT_EQ(width->getValue(), 333);
}
