#include "CMessageLogPanel.h"

#include "CMessageLogService.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace Viewer {

CMessageLogPanel::CMessageLogPanel(CMessageLogService* service, QWidget* parent)
    : QWidget(parent), m_view(new QTreeView(this))
{
    m_view->setModel(service->model());
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->header()->setStretchLastSection(true);
    m_view->header()->setSectionResizeMode(CMessageLogService::ColumnTime, QHeaderView::ResizeToContents);
    m_view->header()->setSectionResizeMode(CMessageLogService::ColumnSeverity, QHeaderView::ResizeToContents);
    auto* clear = new QPushButton(tr("Clear"), this);
    connect(clear, &QPushButton::clicked, service->model(),
            [model = service->model()] { model->removeRows(0, model->rowCount()); });
    connect(service->model(), &QAbstractItemModel::rowsInserted, this, &CMessageLogPanel::onRowsInserted);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    layout->addWidget(clear, 0, Qt::AlignRight);
}

void CMessageLogPanel::onRowsInserted()
{
    m_view->scrollToBottom();
}

} // namespace Viewer
