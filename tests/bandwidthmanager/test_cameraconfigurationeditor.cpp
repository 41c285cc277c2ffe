#include "bandwidthcameraconfigitemdelegate.h"
#include "bandwidthcameraconfiguredialog.h"
#include "cameraconfigurationeditor.h"

#include <host/fakes/CModalResponder.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <QPointer>
#include <QSettings>
#include <QSignalSpy>
#include <QTabWidget>

using namespace ParameterFakes;
using HostFakes::CModalResponder;

namespace {

// The button in a cell of the tree, inside the bandwidth dialog.
class ConfigureButton : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QSettings().remove(QStringLiteral("BandwidthCameraConfigureDialog"));
        parameters->addInteger("Width", 640, 16, 4096, 16);
        parameters->setCategoryFeatures("Root", {"Width"});
        button = new CameraConfigurationEditor(parameters, info, &cell);
    }

    QDialog owner;
    QWidget cell{&owner};
    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    Core::CameraPoolComponents::CameraInfoPtr info = HostFakes::CFakeCameraInfo::create("Cam 1", "GEV:Cam 1", "GEV");
    CameraConfigurationEditor* button = nullptr;
    BandwidthCameraConfigItemDelegate delegate;
    CModalResponder responder;
};

// A second click while it is open opens no other; its size outlives it.
TEST_F(ConfigureButton, opensOneDialogAtMostThatKeepsItsSize)
{
    QSignalSpy closed(button, SIGNAL(configureDialogClosed()));
    int dialogsWhileOpen = -1;
    responder.expect([&](QWidget* modal) {
        button->click();
        dialogsWhileOpen = cell.findChildren<BandwidthCameraConfigureDialog*>().size();
        EXPECT_EQ(modal->windowTitle(), QStringLiteral("Features Cam 1"));
        EXPECT_EQ(modal->findChild<QTabWidget*>("tabWidget")->tabText(0), QStringLiteral("Configuration"));
        modal->resize(700, 650);
        CModalResponder::closeWindow()(modal);
    });
    QSize reopened;
    responder.expect([&](QWidget* modal) {
        reopened = modal->size();
        CModalResponder::closeWindow()(modal);
    });

    button->click();
    EXPECT_EQ(dialogsWhileOpen, 1);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_EQ(button->dialog(), nullptr);
    EXPECT_TRUE(cell.findChildren<BandwidthCameraConfigureDialog*>().isEmpty());
    button->click();
    EXPECT_EQ(reopened, QSize(700, 650));
    EXPECT_EQ(responder.seen(), (QStringList{"BandwidthCameraConfigureDialog", "BandwidthCameraConfigureDialog"}));
}

TEST_F(ConfigureButton, firstEditorCloseIsIgnoredTheSecondRejects)
{
    bool openAfterFirst = false;
    bool openAfterSecond = true;
    responder.expect([&](QWidget* modal) {
        emit delegate.closeEditor(button);
        openAfterFirst = modal->isVisible();
        emit delegate.closeEditor(button);
        openAfterSecond = modal->isVisible();
        CModalResponder::closeWindow()(modal);
    });

    button->click();

    EXPECT_TRUE(openAfterFirst);
    EXPECT_FALSE(openAfterSecond);
}

TEST_F(ConfigureButton, deletingTheButtonRejectsAndDeletesTheDialog)
{
    QPointer<QWidget> dialog;
    int rejected = 0;
    responder.expect([&](QWidget* modal) {
        dialog = modal;
        QObject::connect(static_cast<QDialog*>(modal), &QDialog::rejected, [&] { ++rejected; });
        delete button;
    });

    button->click();

    EXPECT_TRUE(dialog.isNull());
    EXPECT_EQ(rejected, 1);
}

TEST(ConfigureButtonWithoutParameters, saysInvalidAndOpensNothing)
{
    CModalResponder responder;
    CameraConfigurationEditor button(nullptr, nullptr);
    button.click();
    EXPECT_EQ(button.text(), QStringLiteral("Invalid!"));
    EXPECT_TRUE(responder.seen().isEmpty());
}

} // namespace
