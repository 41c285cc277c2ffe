#include <Utilities/LayoutPersistence.h>

#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace {

const QString kVersionKey = QStringLiteral("headerLayoutVersion");
const QString kStateKey = QStringLiteral("headerState");
const QString kPositionKey = QStringLiteral("relativePosition");
const QString kSizeKey = QStringLiteral("size");

QPoint globalTopLeft(const QWidget* widget)
{
    if (!widget)
        return {};
    // A window by its frame, the way move() places it.
    return widget->isWindow() ? widget->pos() : widget->mapToGlobal(QPoint(0, 0));
}

// The window must keep a grip on some screen: a strip along its top that the
// user can take hold of.
bool reachable(const QRect& geometry)
{
    const QRect grip(geometry.topLeft(), QSize(geometry.width(), qMin(geometry.height(), 30)));
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QRect overlap = screen->availableGeometry().intersected(grip);
        if (overlap.width() >= qMin(grip.width(), 50) && overlap.height() > 0)
            return true;
    }
    return false;
}

} // namespace

bool saveHeaderLayout(QSettings* settings, int version, const QHeaderView* header)
{
    if (!settings || !header)
        return false;
    settings->setValue(kVersionKey, version);
    settings->setValue(kStateKey, header->saveState());
    return true;
}

bool restoreHeaderLayout(const QSettings* settings, int version, QHeaderView* header)
{
    if (!settings || !header || !settings->contains(kStateKey))
        return false;
    if (settings->value(kVersionKey).toInt() != version)
        return false;
    return header->restoreState(settings->value(kStateKey).toByteArray());
}

bool saveWidgetPositionAndSize(QSettings* settings, const QWidget* widget, QWidget* reference)
{
    if (!settings || !widget)
        return false;
    settings->setValue(kPositionKey, globalTopLeft(widget) - globalTopLeft(reference));
    settings->setValue(kSizeKey, widget->size());
    return true;
}

// The size comes back even where the position cannot; true only when both did.
bool restoreWidgetPositionAndSize(const QSettings* settings, QWidget* widget, QWidget* reference)
{
    if (!settings || !widget || !settings->contains(kSizeKey))
        return false;
    const QSize size = settings->value(kSizeKey).toSize();
    if (size.isValid())
        widget->resize(size);
    if (!settings->contains(kPositionKey))
        return false;
    const QPoint target = globalTopLeft(reference) + settings->value(kPositionKey).toPoint();
    if (!reachable(QRect(target, widget->size())))
        return false;
    if (widget->isWindow()) {
        widget->move(target);
    } else {
        widget->move(widget->parentWidget() ? widget->parentWidget()->mapFromGlobal(target) : target);
    }
    return true;
}
