#include <camerapool/CLiveImageView.h>

#include <camerapool/PixelConversion.h>

#include <QPainter>

namespace CameraPool {

CLiveImageView::CLiveImageView(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(160, 120);
    m_refreshTimer.setInterval(33);
    connect(&m_refreshTimer, &QTimer::timeout, this, &CLiveImageView::onRefresh);
}

CLiveImageView::~CLiveImageView()
{
    setCamera({});
}

void CLiveImageView::setCamera(const Plugin::CameraPool::ICameraPtr& camera)
{
    if (m_aravisCamera)
        m_aravisCamera->setFrameCopyEnabled(false);
    m_camera = camera;
    m_aravisCamera = qobject_cast<CAravisCamera*>(camera.data());
    m_image = QImage();
    m_fps = 0.0;
    if (m_aravisCamera) {
        m_aravisCamera->setFrameCopyEnabled(true);
        m_rateBase = m_aravisCamera->grabbedCount();
        m_rateClock.start();
        m_refreshTimer.start();
    } else {
        m_refreshTimer.stop();
    }
    update();
}

void CLiveImageView::onRefresh()
{
    if (!m_aravisCamera)
        return;
    if (const CFrameExchange::SFrame* frame = m_aravisCamera->takeLatestFrame()) {
        m_image = toDisplayImage(frame->data.data(), frame->size, frame->width, frame->height, frame->pixelFormat);
        update();
    }
    if (m_rateClock.elapsed() >= 1000) {
        const quint64 grabbed = m_aravisCamera->grabbedCount();
        m_fps = double(grabbed - m_rateBase) * 1000.0 / double(m_rateClock.restart());
        m_rateBase = grabbed;
        emit frameRateChanged(m_fps, tr("%1 fps").arg(m_fps, 0, 'f', 1));
    }
}

void CLiveImageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (m_image.isNull())
        return;
    const QImage scaled = m_image.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter.drawImage((width() - scaled.width()) / 2, (height() - scaled.height()) / 2, scaled);
}

} // namespace CameraPool
