#include "FeatureTreeValueDelegate.h"

#include <Core/Exception/BaseException.h>
#include <GenICam/GenericException.h>
#include <ParameterCollection/IEnumerationParameter.h>
#include <ParameterCollection/IFloatParameter.h>
#include <ParameterCollection/IIntegerParameter.h>
#include <ParameterCollection/IStringParameter.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSpinBox>

#include <limits>

using namespace ParameterCollection;

namespace {

bool fitsInt(qint64 value)
{
    return value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
}

// Call from a catch block.
QString describeCurrentException()
{
    try {
        throw;
    } catch (const GenICam_3_1_Dorvik_zenta::GenericException& e) {
        return QString::fromUtf8(e.GetDescription());
    } catch (const std::exception& e) {
        return QString::fromUtf8(e.what());
    } catch (const Core::Exception::BaseException& e) {
        return e.text();
    } catch (...) {
        return QStringLiteral("unknown failure");
    }
}

} // namespace

CFeatureTreeValueDelegate::CFeatureTreeValueDelegate(ParameterLookup lookup, WriteDone done, QObject* parent)
    : QStyledItemDelegate(parent), m_lookup(std::move(lookup)), m_done(std::move(done))
{
}

QWidget* CFeatureTreeValueDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                                 const QModelIndex& index) const
{
    const ParameterPtr parameter = m_lookup(index);
    if (!parameter)
        return QStyledItemDelegate::createEditor(parent, option, index);
    try {
        if (auto* integer = qobject_cast<IIntegerParameter*>(parameter.data())) {
            const qint64 minimum = integer->getMin();
            const qint64 maximum = integer->getMax();
            if (fitsInt(minimum) && fitsInt(maximum)) {
                auto* spin = new QSpinBox(parent);
                spin->setRange(int(minimum), int(maximum));
                spin->setSingleStep(int(qBound<qint64>(1, integer->getInc(), std::numeric_limits<int>::max())));
                return spin;
            }
            auto* edit = new QLineEdit(parent);
            edit->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("-?\\d{1,19}")), edit));
            return edit;
        }
        if (auto* floating = qobject_cast<IFloatParameter*>(parameter.data())) {
            auto* spin = new QDoubleSpinBox(parent);
            spin->setDecimals(4);
            spin->setRange(floating->getMin(), floating->getMax());
            spin->setSuffix(floating->unit().isEmpty() ? QString() : QLatin1Char(' ') + floating->unit());
            return spin;
        }
        if (auto* enumeration = qobject_cast<IEnumerationParameter*>(parameter.data())) {
            auto* combo = new QComboBox(parent);
            for (const auto& entry : enumeration->getSettableValues())
                combo->addItem(QString::fromStdString(entry));
            return combo;
        }
        if (qobject_cast<IStringParameter*>(parameter.data()))
            return new QLineEdit(parent);
    } catch (...) {
        m_done(index, describeCurrentException());
    }
    return nullptr;
}

void CFeatureTreeValueDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const ParameterPtr parameter = m_lookup(index);
    if (!parameter) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    try {
        if (auto* integer = qobject_cast<IIntegerParameter*>(parameter.data())) {
            if (auto* spin = qobject_cast<QSpinBox*>(editor))
                spin->setValue(int(integer->getValue()));
            else if (auto* edit = qobject_cast<QLineEdit*>(editor))
                edit->setText(QString::number(integer->getValue()));
        } else if (auto* floating = qobject_cast<IFloatParameter*>(parameter.data())) {
            if (auto* spin = qobject_cast<QDoubleSpinBox*>(editor))
                spin->setValue(floating->getValue());
        } else if (auto* enumeration = qobject_cast<IEnumerationParameter*>(parameter.data())) {
            if (auto* combo = qobject_cast<QComboBox*>(editor))
                combo->setCurrentText(QString::fromStdString(enumeration->getValue()));
        } else if (auto* text = qobject_cast<IStringParameter*>(parameter.data())) {
            if (auto* edit = qobject_cast<QLineEdit*>(editor))
                edit->setText(text->getValue());
        }
    } catch (...) {
        m_done(index, describeCurrentException());
    }
}

void CFeatureTreeValueDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const ParameterPtr parameter = m_lookup(index);
    if (!parameter) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    QString error;
    try {
        if (auto* integer = qobject_cast<IIntegerParameter*>(parameter.data())) {
            // Off-increment values go to the nearest the camera takes.
            if (auto* spin = qobject_cast<QSpinBox*>(editor))
                integer->setValue(spin->value(), CorrectionNearest);
            else if (auto* edit = qobject_cast<QLineEdit*>(editor))
                integer->setValue(edit->text().toLongLong(), CorrectionNearest);
        } else if (auto* floating = qobject_cast<IFloatParameter*>(parameter.data())) {
            if (auto* spin = qobject_cast<QDoubleSpinBox*>(editor))
                floating->setValue(spin->value(), CorrectionNearest);
        } else if (auto* enumeration = qobject_cast<IEnumerationParameter*>(parameter.data())) {
            if (auto* combo = qobject_cast<QComboBox*>(editor))
                enumeration->setValue(combo->currentText().toStdString());
        } else if (auto* text = qobject_cast<IStringParameter*>(parameter.data())) {
            if (auto* edit = qobject_cast<QLineEdit*>(editor))
                text->setValue(edit->text());
        }
    } catch (...) {
        error = describeCurrentException();
    }
    m_done(index, error);
}
