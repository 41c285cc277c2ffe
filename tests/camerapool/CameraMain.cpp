#include "CFakeCameraNetwork.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdlib>
#include <csignal>

namespace {

void cleanUp()
{
    CFakeCameraNetwork::instance().tearDown();
}

void onSignal(int signal)
{
    cleanUp();
    std::_Exit(128 + signal);
}

} // namespace

int main(int argc, char** argv)
{
    CFakeCameraNetwork& network = CFakeCameraNetwork::instance();
    std::atexit(cleanUp);
    std::signal(SIGTERM, onSignal);
    std::signal(SIGINT, onSignal);
    if (!network.setUp())
        fprintf(stderr, "camerapool_camera_tests: %s\n", qPrintable(network.skipReason()));
    QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    cleanUp();
    return result;
}
