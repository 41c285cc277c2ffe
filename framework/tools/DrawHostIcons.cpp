// Draws the host's status images into the folder given as the argument.
// Run by hand after changing a drawing; the PNGs are kept in Resources/.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace {

QImage canvas(int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

QImage info32()
{
    QImage image = canvas(32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x1c, 0x4f, 0x9c), 1.5));
    p.setBrush(QColor(0x2f, 0x74, 0xd0));
    p.drawEllipse(QRectF(1.5, 1.5, 29, 29));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QRectF(14, 6.5, 4, 4));
    p.drawRoundedRect(QRectF(14, 13, 4, 13), 1, 1);
    return image;
}

QImage warning16()
{
    QImage image = canvas(16);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath triangle;
    triangle.moveTo(8, 1);
    triangle.lineTo(15, 14.5);
    triangle.lineTo(1, 14.5);
    triangle.closeSubpath();
    p.setPen(QPen(Qt::black, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(QColor(0xf5, 0xc2, 0x18));
    p.drawPath(triangle);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    p.drawRect(QRectF(7.2, 5, 1.6, 5));
    p.drawRect(QRectF(7.2, 11, 1.6, 1.6));
    return image;
}

QImage error16()
{
    QImage image = canvas(16);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x8e, 0x12, 0x12), 1));
    p.setBrush(QColor(0xd9, 0x26, 0x26));
    p.drawEllipse(QRectF(0.5, 0.5, 15, 15));
    p.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(5, 5), QPointF(11, 11));
    p.drawLine(QPointF(11, 5), QPointF(5, 11));
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    if (argc < 2)
        return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const bool ok = info32().save(folder.filePath(QStringLiteral("Info_32.png")))
                    && warning16().save(folder.filePath(QStringLiteral("Warning_16_black.png")))
                    && error16().save(folder.filePath(QStringLiteral("Error_16.png")));
    return ok ? 0 : 1;
}
