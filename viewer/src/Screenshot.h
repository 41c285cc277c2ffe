#pragma once

#include <QImage>

namespace Viewer {

// All visible top-level windows drawn where they stand on the screen, the
// active modal window last, so that a dialog shows above its parent.
QImage grabTopLevelWindows();

} // namespace Viewer
