#pragma once

class BandwidthTreeWidget;
namespace Plugin::BandwidthManager {
class CBandwidthHistoryPlot;
}
class QCheckBox;
class QComboBox;
class QDialog;
class QFrame;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSpacerItem;
class QSpinBox;
class QVBoxLayout;

// The widgets of BandwidthDialog, laid out as a designer form would be.
// setupUi takes the tree from the caller, so that a dialog can host a tree
// with scripted rows.
struct Ui_BandwidthDialog
{
    QVBoxLayout* verticalLayout = nullptr;
    BandwidthTreeWidget* treeBandwidth = nullptr;
    Plugin::BandwidthManager::CBandwidthHistoryPlot* plotHistory = nullptr;
    QHBoxLayout* horizontalLayout = nullptr;
    QSpacerItem* horizontalSpacer = nullptr;
    QPushButton* btnCheckHost = nullptr;
    QPushButton* btnExport = nullptr;
    QPushButton* btnReset = nullptr;
    QFrame* frameHint = nullptr;
    QGridLayout* gridLayout = nullptr;
    QLabel* labelHintIcon = nullptr;
    QLabel* labelHintText = nullptr;
    QLabel* labelHintText2 = nullptr;
    QLabel* labelHintIcon2 = nullptr;
    QHBoxLayout* horizontalLayout_3 = nullptr;
    QCheckBox* checkStopAfter = nullptr;
    QSpinBox* spinTime = nullptr;
    QComboBox* comboTimeUnits = nullptr;
    QSpacerItem* horizontalSpacer_3 = nullptr;
    QHBoxLayout* horizontalLayout_2 = nullptr;
    QPushButton* btnStart = nullptr;
    QPushButton* btnStop = nullptr;
    QSpacerItem* horizontalSpacer_2 = nullptr;
    QPushButton* btnClose = nullptr;

    void setupUi(QDialog* BandwidthDialog, BandwidthTreeWidget* tree);
    void retranslateUi(QDialog* BandwidthDialog);
};

namespace Ui {
struct BandwidthDialog : Ui_BandwidthDialog
{
};
} // namespace Ui
