#include "Screenshot.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>

namespace Viewer {

QImage grabTopLevelWindows()
{
    QList<QWidget*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && !widget->isMinimized() && widget->windowType() != Qt::Desktop
            && widget->windowType() != Qt::ToolTip)
            windows.append(widget);
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && windows.removeAll(modal) > 0)
        windows.append(modal);

    QRect area;
    for (const QWidget* window : qAsConst(windows))
        area |= window->frameGeometry();
    if (const QScreen* screen = QGuiApplication::primaryScreen(); area.isEmpty() && screen)
        area = screen->geometry();
    if (area.isEmpty())
        return {};
    QImage image(area.size(), QImage::Format_ARGB32);
    image.fill(QColor(0x3a, 0x3f, 0x44));
    QPainter painter(&image);
    for (QWidget* window : qAsConst(windows))
        painter.drawPixmap(window->geometry().topLeft() - area.topLeft(), window->grab());
    return image;
}

} // namespace Viewer
