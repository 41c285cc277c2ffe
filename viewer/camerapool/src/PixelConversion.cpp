#include <camerapool/PixelConversion.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

namespace {

QImage mono16(const quint8* data, int width, int height, int significantBits)
{
    QImage image(width, height, QImage::Format_Grayscale8);
    const auto* pixels = reinterpret_cast<const quint16*>(data);
    for (int y = 0; y < height; ++y) {
        quint8* line = image.scanLine(y);
        for (int x = 0; x < width; ++x)
            line[x] = quint8(pixels[size_t(y) * width + x] >> (significantBits - 8));
    }
    return image;
}

QImage bayer8(const quint8* data, int width, int height, int redX, int redY)
{
    QImage image(width, height, QImage::Format_RGB888);
    for (int y = 0; y < height; ++y) {
        quint8* line = image.scanLine(y);
        const int y0 = y & ~1;
        for (int x = 0; x < width; ++x) {
            const int x0 = x & ~1;
            auto at = [&](int dx, int dy) {
                const int sx = qMin(x0 + dx, width - 1);
                const int sy = qMin(y0 + dy, height - 1);
                return data[size_t(sy) * width + sx];
            };
            const quint8 red = at(redX, redY);
            const quint8 blue = at(1 - redX, 1 - redY);
            const quint8 green = quint8((at(1 - redX, redY) + at(redX, 1 - redY)) / 2);
            line[3 * x] = red;
            line[3 * x + 1] = green;
            line[3 * x + 2] = blue;
        }
    }
    return image;
}

} // namespace

QImage toDisplayImage(const quint8* data, size_t size, int width, int height, quint32 pixelFormat)
{
    if (!data || width <= 0 || height <= 0)
        return {};
    const size_t pixels = size_t(width) * size_t(height);
    const int bits = ARV_PIXEL_FORMAT_BIT_PER_PIXEL(pixelFormat);
    if (size < pixels * size_t(qMax(8, bits)) / 8)
        return {};
    switch (pixelFormat) {
    case ARV_PIXEL_FORMAT_MONO_8:
        return QImage(data, width, height, width, QImage::Format_Grayscale8).copy();
    case ARV_PIXEL_FORMAT_MONO_10:
        return mono16(data, width, height, 10);
    case ARV_PIXEL_FORMAT_MONO_12:
        return mono16(data, width, height, 12);
    case ARV_PIXEL_FORMAT_MONO_16:
        return mono16(data, width, height, 16);
    case ARV_PIXEL_FORMAT_RGB_8_PACKED:
        return QImage(data, width, height, 3 * width, QImage::Format_RGB888).copy();
    case ARV_PIXEL_FORMAT_BGR_8_PACKED:
        return QImage(data, width, height, 3 * width, QImage::Format_RGB888).rgbSwapped();
    case ARV_PIXEL_FORMAT_BAYER_RG_8:
        return bayer8(data, width, height, 0, 0);
    case ARV_PIXEL_FORMAT_BAYER_GR_8:
        return bayer8(data, width, height, 1, 0);
    case ARV_PIXEL_FORMAT_BAYER_GB_8:
        return bayer8(data, width, height, 0, 1);
    case ARV_PIXEL_FORMAT_BAYER_BG_8:
        return bayer8(data, width, height, 1, 1);
    default:
        return QImage(data, width, height, width, QImage::Format_Grayscale8).copy();
    }
}

} // namespace CameraPool
