#include "CProblemAssistantPanel.h"
#include "CProblemAssistantService.h"

#include <Plugin/ProblemAssistant/CActionBasedSolution.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QSignalSpy>

using namespace Viewer;

TEST(ProblemAssistant, listsTheKnownProblemsByIdentifier)
{
    CProblemAssistantService service;
    QStringList ids;
    for (const Plugin::ProblemAssistant::Problem& problem : service.problems()) {
        ids.append(problem.id);
        EXPECT_FALSE(problem.title.isEmpty()) << problem.id.toStdString();
    }
    EXPECT_EQ(ids, QStringList({"1000", "1001", "2000", "2010", "2020", "2030", "2040", "3000", "3001", "3002"}));
}

TEST(ProblemAssistant, followingTheLinkOfASolutionTriggersItsAction)
{
    CProblemAssistantService service;
    CProblemAssistantPanel panel(&service);
    QAction action("Bandwidth Manager");
    QSignalSpy triggered(&action, &QAction::triggered);
    service.addSolution(Plugin::ProblemAssistant::SolutionPtr(new Plugin::ProblemAssistant::CActionBasedSolution(
        "Bandwidth Manager<br>The <a href=\"#\">Bandwidth Manager</a> helps.", &action, {"2000", "3001"}, nullptr)));

    panel.showProblem("1000");
    ASSERT_EQ(panel.solutionLabels().size(), 1);
    EXPECT_EQ(panel.solutionLabels().first()->text(), QStringLiteral("No solution is known for this problem."));

    panel.showProblem("3001");
    ASSERT_EQ(panel.solutionLabels().size(), 1);
    QLabel* label = panel.solutionLabels().first();
    EXPECT_TRUE(label->text().contains(QStringLiteral("<a href=\"#\">")));
    EXPECT_TRUE(label->textInteractionFlags().testFlag(Qt::LinksAccessibleByMouse));
    emit label->linkActivated(QStringLiteral("#"));
    EXPECT_EQ(triggered.count(), 1);
}
