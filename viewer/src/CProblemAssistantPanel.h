#pragma once

#include <QWidget>

class QLabel;
class QListWidget;
class QVBoxLayout;

namespace Viewer {

class CProblemAssistantService;

// The problems by identifier; the current one shows its description and the
// solutions attached to it, whose links run the solution.
class CProblemAssistantPanel : public QWidget
{
    Q_OBJECT
public:
    CProblemAssistantPanel(CProblemAssistantService* service, QWidget* parent = nullptr);

    void showProblem(const QString& id);
    QList<QLabel*> solutionLabels() const { return m_solutionLabels; }
    QListWidget* problemList() const { return m_list; }

private slots:
    void onCurrentProblemChanged();

private:
    CProblemAssistantService* m_service;
    QListWidget* m_list;
    QLabel* m_description;
    QVBoxLayout* m_solutionsLayout;
    QList<QLabel*> m_solutionLabels;
};

} // namespace Viewer
