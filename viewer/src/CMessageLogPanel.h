#pragma once

#include <QWidget>

class QTreeView;

namespace Viewer {

class CMessageLogService;

class CMessageLogPanel : public QWidget
{
    Q_OBJECT
public:
    CMessageLogPanel(CMessageLogService* service, QWidget* parent = nullptr);

    QTreeView* view() const { return m_view; }

private slots:
    void onRowsInserted();

private:
    QTreeView* m_view;
};

} // namespace Viewer
