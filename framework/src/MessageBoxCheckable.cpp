#include <Utilities/MessageBoxCheckable.h>

#include <QCheckBox>
#include <QSettings>

namespace {

QString settingsPath(const QString& key)
{
    return QStringLiteral("MessageBoxCheckable/") + key;
}

} // namespace

MessageBoxCheckable::MessageBoxCheckable(const QString& settingsKey, QWidget* parent)
    : QMessageBox(parent), m_settingsKey(settingsKey), m_checkBox(new QCheckBox(tr("Do not show this again")))
{
    setCheckBox(m_checkBox);
}

void MessageBoxCheckable::setSaveResultOnButton(QFlags<QMessageBox::StandardButton> buttons)
{
    m_saveOnStandard = buttons;
}

void MessageBoxCheckable::setSaveResultOnButton(QAbstractButton* button)
{
    if (button && !m_saveOnButtons.contains(button))
        m_saveOnButtons.append(button);
}

int MessageBoxCheckable::exec()
{
    m_savedButton = nullptr;
    QSettings settings;
    settings.beginGroup(settingsPath(m_settingsKey));
    if (settings.contains(QStringLiteral("result"))) {
        const int result = settings.value(QStringLiteral("result")).toInt();
        const int standard = settings.value(QStringLiteral("standardButton")).toInt();
        if (standard != QMessageBox::NoButton) {
            m_savedButton = button(QMessageBox::StandardButton(standard));
        } else {
            // A custom button is known again by its role and its place among the custom buttons of that role.
            const int role = settings.value(QStringLiteral("role")).toInt();
            int index = settings.value(QStringLiteral("index")).toInt();
            for (QAbstractButton* candidate : buttons()) {
                if (standardButton(candidate) == QMessageBox::NoButton && buttonRole(candidate) == role
                    && index-- == 0) {
                    m_savedButton = candidate;
                    break;
                }
            }
        }
        return result;
    }

    const int result = QMessageBox::exec();
    QAbstractButton* clicked = QMessageBox::clickedButton();
    if (!clicked || !m_checkBox->isChecked())
        return result;
    const QMessageBox::StandardButton standard = standardButton(clicked);
    const bool save = (standard != QMessageBox::NoButton && m_saveOnStandard.testFlag(standard))
                      || m_saveOnButtons.contains(clicked);
    if (!save)
        return result;
    settings.setValue(QStringLiteral("result"), result);
    settings.setValue(QStringLiteral("standardButton"), int(standard));
    if (standard == QMessageBox::NoButton) {
        const ButtonRole role = buttonRole(clicked);
        int index = 0;
        for (QAbstractButton* candidate : buttons()) {
            if (candidate == clicked)
                break;
            if (standardButton(candidate) == QMessageBox::NoButton && buttonRole(candidate) == role)
                ++index;
        }
        settings.setValue(QStringLiteral("role"), int(role));
        settings.setValue(QStringLiteral("index"), index);
    }
    return result;
}

QAbstractButton* MessageBoxCheckable::clickedButton() const
{
    return m_savedButton ? m_savedButton : QMessageBox::clickedButton();
}

void MessageBoxCheckable::forgetSavedAnswer(const QString& settingsKey)
{
    QSettings().remove(settingsPath(settingsKey));
}
