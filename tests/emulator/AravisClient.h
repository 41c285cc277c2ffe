#pragma once

#include <arv.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace gigeemu::test {

struct SGObjectUnref {
    void operator()(void* p) const { g_object_unref(p); }
};
using CameraPtr = std::unique_ptr<ArvCamera, SGObjectUnref>;

CameraPtr openCamera(const std::string& id, std::string& error);
std::int64_t integerFeature(ArvCamera* camera, const char* name);
double floatFeature(ArvCamera* camera, const char* name);
// Names of every feature under Root that cannot be read.
std::vector<std::string> unreadableRootFeatures(ArvCamera* camera);

struct SGrabResult {
    int complete = 0;
    int failed = 0;
    int badPattern = 0;
    std::vector<std::uint64_t> arrivalNs;
    std::string error;
    double framesPerSecond(int skip) const;
};

// Streams until `frames` buffers came back or a pop times out.
SGrabResult grab(ArvCamera* camera, int frames, int popTimeoutMs = 2000);

} // namespace gigeemu::test
