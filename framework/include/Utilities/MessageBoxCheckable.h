#pragma once

#include <QMessageBox>
#include <QString>

class QCheckBox;

// A message box with "Do not show this again". The answer given with the box
// ticked, on one of the chosen buttons, is saved under the settings key; from
// then on exec() returns it without showing the box, and clickedButton()
// gives the saved button.
class MessageBoxCheckable : public QMessageBox
{
    Q_OBJECT
public:
    MessageBoxCheckable(const QString& settingsKey, QWidget* parent);

    void setSaveResultOnButton(QFlags<QMessageBox::StandardButton> buttons);
    void setSaveResultOnButton(QAbstractButton* button);

    int exec() override;
    QAbstractButton* clickedButton() const;

    QCheckBox* checkBoxDoNotShowAgain() const { return m_checkBox; }
    static void forgetSavedAnswer(const QString& settingsKey);

private:
    QString m_settingsKey;
    QCheckBox* m_checkBox = nullptr;
    QFlags<QMessageBox::StandardButton> m_saveOnStandard;
    QList<QAbstractButton*> m_saveOnButtons;
    QAbstractButton* m_savedButton = nullptr;
};
