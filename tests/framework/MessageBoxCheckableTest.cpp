#include <Utilities/MessageBoxCheckable.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTimer>

#include <functional>

namespace {

// Answers the box once it shows: ticks or not, then clicks the button.
void answerWhenShown(MessageBoxCheckable& box, std::function<QAbstractButton*()> button, bool tick)
{
    QTimer::singleShot(0, &box, [&box, button, tick] {
        box.checkBoxDoNotShowAgain()->setChecked(tick);
        button()->click();
    });
}

// Fails the test and closes the box if it shows after all.
bool showsWhenExecuted(MessageBoxCheckable& box)
{
    bool shown = false;
    QTimer::singleShot(0, &box, [&box, &shown] {
        shown = box.isVisible();
        box.reject();
    });
    box.exec();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    return shown;
}

void makeQuestion(MessageBoxCheckable& box)
{
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    box.setSaveResultOnButton(QMessageBox::Yes);
}

} // namespace

TEST(MessageBoxCheckable, savesOnlyTheChosenButtonWithTheBoxTicked)
{
    struct SCase
    {
        const char* scenario;
        QMessageBox::StandardButton pressed;
        bool tick;
        bool savedAfterwards;
    };
    const SCase cases[] = {
        {"ticked Yes is saved", QMessageBox::Yes, true, true},
        {"ticked No is not saved", QMessageBox::No, true, false},
        {"Yes without the tick is not saved", QMessageBox::Yes, false, false},
    };
    for (const SCase& row : cases) {
        SCOPED_TRACE(row.scenario);
        const QString key = QStringLiteral("question-") + QLatin1String(row.scenario);
        MessageBoxCheckable::forgetSavedAnswer(key);
        {
            MessageBoxCheckable box(key, nullptr);
            makeQuestion(box);
            answerWhenShown(box, [&box, &row] { return box.button(row.pressed); }, row.tick);
            EXPECT_EQ(box.exec(), int(row.pressed));
            EXPECT_EQ(box.clickedButton(), box.button(row.pressed));
        }
        MessageBoxCheckable again(key, nullptr);
        makeQuestion(again);
        if (row.savedAfterwards) {
            EXPECT_EQ(again.exec(), int(QMessageBox::Yes));
            EXPECT_EQ(again.clickedButton(), again.button(QMessageBox::Yes));
        }
        EXPECT_EQ(showsWhenExecuted(again), !row.savedAfterwards);
    }
}

TEST(MessageBoxCheckable, customButtonComesBackByItsRoleAndPlace)
{
    const QString key = QStringLiteral("custom");
    MessageBoxCheckable::forgetSavedAnswer(key);
    int answered = -1;
    {
        MessageBoxCheckable box(key, nullptr);
        box.addButton(QStringLiteral("First"), QMessageBox::AcceptRole);
        QPushButton* second = box.addButton(QStringLiteral("Second"), QMessageBox::AcceptRole);
        box.addButton(QMessageBox::Cancel);
        box.setSaveResultOnButton(second);
        answerWhenShown(box, [second] { return second; }, true);
        answered = box.exec();
        EXPECT_EQ(box.clickedButton(), second);
    }
    MessageBoxCheckable box(key, nullptr);
    box.addButton(QStringLiteral("First"), QMessageBox::AcceptRole);
    QPushButton* second = box.addButton(QStringLiteral("Second"), QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Cancel);
    bool shown = false;
    QTimer::singleShot(0, &box, [&] {
        shown = box.isVisible();
        box.reject();
    });
    EXPECT_EQ(box.exec(), answered);
    EXPECT_FALSE(shown);
    EXPECT_EQ(box.clickedButton(), second);
    QCoreApplication::processEvents();
}
