#pragma once

#include <QImage>

namespace CameraPool {

// A frame as Aravis gives it, made displayable: mono formats as grey, packed
// RGB/BGR as colour, 8-bit Bayer by 2x2 blocks. Formats it does not know
// show their first bytes as grey. Null for a frame too short for its size.
QImage toDisplayImage(const quint8* data, size_t size, int width, int height, quint32 pixelFormat);

} // namespace CameraPool
