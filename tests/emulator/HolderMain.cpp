// Takes control of a camera and keeps it until killed; the heartbeat test kills it.
#include "AravisClient.h"

#include <cstdio>
#include <unistd.h>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 1;
    std::string error;
    auto camera = gigeemu::test::openCamera(argv[1], error);
    if (!camera || !arv_gv_device_is_controller(ARV_GV_DEVICE(arv_camera_get_device(camera.get())))) {
        std::fprintf(stderr, "holder: %s\n", error.c_str());
        return 1;
    }
    std::fprintf(stderr, "gige-emulator: control held on %s\n", argv[1]);
    for (;;)
        pause();
}
