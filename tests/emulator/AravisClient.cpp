#include "AravisClient.h"

#include <functional>

namespace gigeemu::test {

CameraPtr openCamera(const std::string& id, std::string& error)
{
    GError* e = nullptr;
    ArvCamera* c = arv_camera_new(id.c_str(), &e);
    if (!c) {
        error = e ? e->message : "no camera";
        g_clear_error(&e);
    }
    return CameraPtr(c);
}

std::int64_t integerFeature(ArvCamera* camera, const char* name)
{
    return arv_camera_get_integer(camera, name, nullptr);
}

double floatFeature(ArvCamera* camera, const char* name)
{
    return arv_camera_get_float(camera, name, nullptr);
}

std::vector<std::string> unreadableRootFeatures(ArvCamera* camera)
{
    ArvGc* gc = arv_device_get_genicam(arv_camera_get_device(camera));
    std::vector<std::string> bad;
    std::function<void(const char*)> walk = [&](const char* name) {
        ArvGcNode* node = arv_gc_get_node(gc, name);
        if (!node) {
            bad.push_back(std::string(name) + " (missing)");
            return;
        }
        if (ARV_IS_GC_CATEGORY(node)) {
            for (const GSList* f = arv_gc_category_get_features(ARV_GC_CATEGORY(node)); f; f = f->next)
                walk(static_cast<const char*>(f->data));
            return;
        }
        if (ARV_IS_GC_COMMAND(node))
            return;
        GError* e = nullptr;
        const char* value = arv_gc_feature_node_get_value_as_string(ARV_GC_FEATURE_NODE(node), &e);
        if (e || !value)
            bad.push_back(std::string(name) + ": " + (e ? e->message : "no value"));
        g_clear_error(&e);
    };
    walk("Root");
    return bad;
}

double SGrabResult::framesPerSecond(int skip) const
{
    if (int(arrivalNs.size()) < skip + 2)
        return 0;
    return double(arrivalNs.size() - skip - 1) * 1e9 / double(arrivalNs.back() - arrivalNs[skip]);
}

SGrabResult grab(ArvCamera* camera, int frames, int popTimeoutMs)
{
    SGrabResult r;
    GError* e = nullptr;
    ArvStream* stream = arv_camera_create_stream(camera, nullptr, nullptr, &e);
    if (!stream) {
        r.error = e ? e->message : "no stream";
        g_clear_error(&e);
        return r;
    }
    const guint payload = arv_camera_get_payload(camera, nullptr);
    for (int i = 0; i < 16; ++i)
        arv_stream_push_buffer(stream, arv_buffer_new(payload, nullptr));
    arv_camera_start_acquisition(camera, &e);
    if (e) {
        r.error = e->message;
        g_clear_error(&e);
    }
    while (r.error.empty() && r.complete + r.failed < frames) {
        ArvBuffer* b = arv_stream_timeout_pop_buffer(stream, guint64(popTimeoutMs) * 1000);
        if (!b) {
            r.error = "timeout after " + std::to_string(r.complete + r.failed) + " frames";
            break;
        }
        if (arv_buffer_get_status(b) == ARV_BUFFER_STATUS_SUCCESS) {
            ++r.complete;
            r.arrivalNs.push_back(arv_buffer_get_system_timestamp(b));
            size_t size = 0;
            const auto* data = static_cast<const std::uint8_t*>(arv_buffer_get_data(b, &size));
            const int w = arv_buffer_get_image_width(b);
            const int h = arv_buffer_get_image_height(b);
            const guint64 id = arv_buffer_get_frame_id(b);
            bool ok = size >= size_t(w) * size_t(h);
            for (int y = 0; ok && y < h; ++y)
                for (int x = 0; ok && x < w; ++x)
                    ok = data[y * w + x] == std::uint8_t(x + y + id);
            r.badPattern += ok ? 0 : 1;
        } else {
            ++r.failed;
        }
        arv_stream_push_buffer(stream, b);
    }
    arv_camera_stop_acquisition(camera, nullptr);
    g_object_unref(stream);
    return r;
}

} // namespace gigeemu::test
