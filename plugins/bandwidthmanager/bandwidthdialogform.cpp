#include "bandwidthdialogform.h"

#include "bandwidthhistoryplot.h"
#include "bandwidthtreewidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpacerItem>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

void setupHintText(QLabel* label, const char* objectName)
{
    label->setObjectName(QString::fromLatin1(objectName));
    label->setMinimumSize(QSize(0, 50));
    label->setCursor(QCursor(Qt::IBeamCursor));
    label->setFrameShape(QFrame::NoFrame);
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    label->setMargin(4);
    label->setOpenExternalLinks(true);
    label->setTextInteractionFlags(Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
}

void setupHintIcon(QLabel* label, const char* objectName)
{
    label->setObjectName(QString::fromLatin1(objectName));
    label->setMinimumSize(QSize(24, 24));
    label->setMaximumSize(QSize(24, 24));
}

QSpacerItem* makeHorizontalSpacer()
{
    return new QSpacerItem(40, 20, QSizePolicy::MinimumExpanding, QSizePolicy::Minimum);
}

} // namespace

void Ui_BandwidthDialog::setupUi(QDialog* BandwidthDialog, BandwidthTreeWidget* tree)
{
    if (BandwidthDialog->objectName().isEmpty())
        BandwidthDialog->setObjectName(QString::fromUtf8("BandwidthDialog"));
    BandwidthDialog->setWindowModality(Qt::WindowModal);
    BandwidthDialog->resize(1150, 780);
    BandwidthDialog->setMinimumSize(QSize(960, 540));
    BandwidthDialog->setSizeGripEnabled(true);
    BandwidthDialog->setModal(true);

    verticalLayout = new QVBoxLayout(BandwidthDialog);
    verticalLayout->setObjectName(QString::fromUtf8("verticalLayout"));

    treeBandwidth = tree;
    treeBandwidth->setParent(BandwidthDialog);
    treeBandwidth->setObjectName(QString::fromUtf8("treeBandwidth"));
    treeBandwidth->setMinimumSize(QSize(600, 150));
    treeBandwidth->setContextMenuPolicy(Qt::NoContextMenu);
    treeBandwidth->setEditTriggers(QAbstractItemView::NoEditTriggers);
    treeBandwidth->setRootIsDecorated(false);
    treeBandwidth->setUniformRowHeights(true);
    treeBandwidth->setAllColumnsShowFocus(true);
    treeBandwidth->setColumnCount(1);
    treeBandwidth->header()->setVisible(true);
    treeBandwidth->header()->setHighlightSections(false);
    treeBandwidth->header()->setStretchLastSection(false);
    verticalLayout->addWidget(treeBandwidth, 3);

    plotHistory = new Plugin::BandwidthManager::CBandwidthHistoryPlot(BandwidthDialog);
    plotHistory->setMinimumSize(QSize(600, 120));
    verticalLayout->addWidget(plotHistory, 2);

    horizontalLayout = new QHBoxLayout();
    horizontalLayout->setObjectName(QString::fromUtf8("horizontalLayout"));
    horizontalSpacer = makeHorizontalSpacer();
    horizontalLayout->addItem(horizontalSpacer);
    btnCheckHost = new QPushButton(BandwidthDialog);
    btnCheckHost->setObjectName(QString::fromUtf8("btnCheckHost"));
    btnCheckHost->setMinimumSize(QSize(112, 23));
    horizontalLayout->addWidget(btnCheckHost);
    btnExport = new QPushButton(BandwidthDialog);
    btnExport->setObjectName(QString::fromUtf8("btnExport"));
    btnExport->setMinimumSize(QSize(112, 23));
    horizontalLayout->addWidget(btnExport);
    btnReset = new QPushButton(BandwidthDialog);
    btnReset->setObjectName(QString::fromUtf8("btnReset"));
    btnReset->setMinimumSize(QSize(112, 23));
    horizontalLayout->addWidget(btnReset);
    verticalLayout->addLayout(horizontalLayout);

    frameHint = new QFrame(BandwidthDialog);
    frameHint->setObjectName(QString::fromUtf8("frameHint"));
    frameHint->setMinimumSize(QSize(0, 62));
    frameHint->setFrameShape(QFrame::Box);
    frameHint->setFrameShadow(QFrame::Raised);
    gridLayout = new QGridLayout(frameHint);
    gridLayout->setObjectName(QString::fromUtf8("gridLayout"));
    labelHintIcon = new QLabel(frameHint);
    setupHintIcon(labelHintIcon, "labelHintIcon");
    gridLayout->addWidget(labelHintIcon, 1, 0, 1, 1);
    labelHintText = new QLabel(frameHint);
    setupHintText(labelHintText, "labelHintText");
    gridLayout->addWidget(labelHintText, 1, 1, 1, 1);
    labelHintText2 = new QLabel(frameHint);
    setupHintText(labelHintText2, "labelHintText2");
    gridLayout->addWidget(labelHintText2, 0, 1, 1, 1);
    labelHintIcon2 = new QLabel(frameHint);
    setupHintIcon(labelHintIcon2, "labelHintIcon2");
    gridLayout->addWidget(labelHintIcon2, 0, 0, 1, 1);
    verticalLayout->addWidget(frameHint);

    horizontalLayout_3 = new QHBoxLayout();
    horizontalLayout_3->setObjectName(QString::fromUtf8("horizontalLayout_3"));
    checkStopAfter = new QCheckBox(BandwidthDialog);
    checkStopAfter->setObjectName(QString::fromUtf8("checkStopAfter"));
    horizontalLayout_3->addWidget(checkStopAfter);
    spinTime = new QSpinBox(BandwidthDialog);
    spinTime->setObjectName(QString::fromUtf8("spinTime"));
    spinTime->setMinimumSize(QSize(70, 0));
    spinTime->setFrame(true);
    horizontalLayout_3->addWidget(spinTime);
    comboTimeUnits = new QComboBox(BandwidthDialog);
    comboTimeUnits->addItem(QString());
    comboTimeUnits->addItem(QString());
    comboTimeUnits->addItem(QString());
    comboTimeUnits->addItem(QString());
    comboTimeUnits->setObjectName(QString::fromUtf8("comboTimeUnits"));
    comboTimeUnits->setEnabled(true);
    comboTimeUnits->setMinimumSize(QSize(80, 0));
    horizontalLayout_3->addWidget(comboTimeUnits);
    horizontalSpacer_3 = makeHorizontalSpacer();
    horizontalLayout_3->addItem(horizontalSpacer_3);
    verticalLayout->addLayout(horizontalLayout_3);

    horizontalLayout_2 = new QHBoxLayout();
    horizontalLayout_2->setObjectName(QString::fromUtf8("horizontalLayout_2"));
    btnStart = new QPushButton(BandwidthDialog);
    btnStart->setObjectName(QString::fromUtf8("btnStart"));
    btnStart->setMinimumSize(QSize(105, 23));
    horizontalLayout_2->addWidget(btnStart);
    btnStop = new QPushButton(BandwidthDialog);
    btnStop->setObjectName(QString::fromUtf8("btnStop"));
    btnStop->setMinimumSize(QSize(105, 23));
    horizontalLayout_2->addWidget(btnStop);
    horizontalSpacer_2 = makeHorizontalSpacer();
    horizontalLayout_2->addItem(horizontalSpacer_2);
    btnClose = new QPushButton(BandwidthDialog);
    btnClose->setObjectName(QString::fromUtf8("btnClose"));
    btnClose->setMinimumSize(QSize(75, 23));
    horizontalLayout_2->addWidget(btnClose);
    verticalLayout->addLayout(horizontalLayout_2);

    QWidget::setTabOrder(treeBandwidth, btnCheckHost);
    QWidget::setTabOrder(btnCheckHost, btnExport);
    QWidget::setTabOrder(btnExport, btnReset);
    QWidget::setTabOrder(btnReset, checkStopAfter);
    QWidget::setTabOrder(checkStopAfter, spinTime);
    QWidget::setTabOrder(spinTime, comboTimeUnits);
    QWidget::setTabOrder(comboTimeUnits, btnStart);
    QWidget::setTabOrder(btnStart, btnStop);
    QWidget::setTabOrder(btnStop, btnClose);

    retranslateUi(BandwidthDialog);

    btnStart->setDefault(true);

    QMetaObject::connectSlotsByName(BandwidthDialog);
}

void Ui_BandwidthDialog::retranslateUi(QDialog* BandwidthDialog)
{
    BandwidthDialog->setWindowTitle(QCoreApplication::translate("BandwidthDialog", "Bandwidth Manager", nullptr));
    QTreeWidgetItem* headerItem = treeBandwidth->headerItem();
    headerItem->setText(0, QCoreApplication::translate("BandwidthDialog", "Headers will be added by widgetcode", nullptr));
    btnCheckHost->setText(QCoreApplication::translate("BandwidthDialog", "Check &Host...", nullptr));
    btnExport->setText(QCoreApplication::translate("BandwidthDialog", "E&xport...", nullptr));
    btnReset->setText(QCoreApplication::translate("BandwidthDialog", "&Reset Statistics", nullptr));
    labelHintIcon->setText(QString());
    labelHintText->setText(QCoreApplication::translate(
        "BandwidthDialog", "<html><head/><body><p>Hint Text<br/>Row 2<br/>Row 3</p></body></html>", nullptr));
    labelHintText2->setText(QCoreApplication::translate(
        "BandwidthDialog", "<html><head/><body><p>Hint Text<br/>Row 2<br/>Row 3</p></body></html>", nullptr));
    labelHintIcon2->setText(QString());
    checkStopAfter->setText(QCoreApplication::translate("BandwidthDialog", "Stop analysis &after", nullptr));
    comboTimeUnits->setItemText(0, QCoreApplication::translate("BandwidthDialog", "Second(s)", nullptr));
    comboTimeUnits->setItemText(1, QCoreApplication::translate("BandwidthDialog", "Minute(s)", nullptr));
    comboTimeUnits->setItemText(2, QCoreApplication::translate("BandwidthDialog", "Hour(s)", nullptr));
    comboTimeUnits->setItemText(3, QCoreApplication::translate("BandwidthDialog", "Day(s)", nullptr));
    btnStart->setText(QCoreApplication::translate("BandwidthDialog", "&Start Analysis", nullptr));
    btnStop->setText(QCoreApplication::translate("BandwidthDialog", "S&top Analysis", nullptr));
    btnClose->setText(QCoreApplication::translate("BandwidthDialog", "Close", nullptr));
}
