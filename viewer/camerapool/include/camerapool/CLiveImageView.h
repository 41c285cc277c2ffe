#pragma once

#include <camerapool/CAravisCamera.h>

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

namespace CameraPool {

// Shows the newest frame of a camera, scaled to fit, refreshed about 30 times
// a second, and reports the frame rate measured from the frames it saw.
class CLiveImageView : public QWidget
{
    Q_OBJECT
public:
    explicit CLiveImageView(QWidget* parent = nullptr);
    ~CLiveImageView() override;

    // Takes an ICamera of the pool; any other camera shows nothing.
    void setCamera(const Plugin::CameraPool::ICameraPtr& camera);
    Plugin::CameraPool::ICameraPtr camera() const { return m_camera; }
    QImage currentImage() const { return m_image; }
    double framesPerSecond() const { return m_fps; }

signals:
    // For a status bar, about once a second: "12.5 fps".
    void frameRateChanged(double framesPerSecond, const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private slots:
    void onRefresh();

private:
    Plugin::CameraPool::ICameraPtr m_camera;
    CAravisCamera* m_aravisCamera = nullptr;
    QImage m_image;
    QTimer m_refreshTimer;
    QElapsedTimer m_rateClock;
    quint64 m_rateBase = 0;
    double m_fps = 0.0;
};

} // namespace CameraPool
