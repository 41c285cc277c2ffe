#pragma once

class QHeaderView;
class QSettings;
class QWidget;

// Column order, widths and visibility of a header, under the settings' current group.
// A stored layout of another version is ignored.
bool saveHeaderLayout(QSettings* settings, int version, const QHeaderView* header);
bool restoreHeaderLayout(const QSettings* settings, int version, QHeaderView* header);

// Position relative to the reference widget, and size. A position that would
// put the widget off every screen now present is not restored.
bool saveWidgetPositionAndSize(QSettings* settings, const QWidget* widget, QWidget* reference);
bool restoreWidgetPositionAndSize(const QSettings* settings, QWidget* widget, QWidget* reference);
