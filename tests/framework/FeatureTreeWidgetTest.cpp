#include <Utilities/FeatureTreeWidget.h>

#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <QAbstractItemDelegate>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTreeView>

#include <functional>
#include <memory>

using namespace ParameterFakes;

namespace {

// A camera's features in three categories, one feature of each kind, and a
// rate that follows the delay.
class FeatureTree : public ::testing::Test
{
protected:
    void SetUp() override
    {
        parameters->addCategory("Root", {"ImageFormatControl", "TransportLayerControl", "AcquisitionControl"});
        parameters->addCategory("ImageFormatControl", {"Width", "SensorWidth", "PixelFormat", "ReverseX"});
        parameters->addCategory("TransportLayerControl", {"GevSCPD", "GevSCDCT"});
        parameters->addCategory("AcquisitionControl", {"ExposureTime", "DeviceUserID", "TimestampReset", "Timestamp"});
        parameters->addInteger("Width", 640, 16, 4096, 16);
        parameters->addInteger("SensorWidth", 4096, 4096, 4096, 1, "RO");
        parameters->addEnumeration("PixelFormat", "Mono8", {"Mono8", "Mono12"});
        parameters->addBoolean("ReverseX", false);
        parameters->addInteger("GevSCPD", 0, 0, 100000);
        parameters->addInteger("GevSCDCT", 0, 0, 200000000, 1, "RO");
        parameters->setValueLaw("GevSCDCT", [this] {
            return 125000000LL * 2000 / (2000 + parameters->value("GevSCPD").toLongLong());
        });
        parameters->addFloat("ExposureTime", 1000.0, 10.0, 1000000.0);
        parameters->addString("DeviceUserID", "");
        parameters->addCommand("TimestampReset");
        parameters->addInteger("Timestamp", 123456, 0, 1LL << 40, 1, "RO");
        parameters->setAfterWrite("TimestampReset", [this](const QVariant&) { parameters->setValue("Timestamp", 0); });
        parameters->setAfterWrite("ReverseX", [this](const QVariant& on) {
            parameters->setAccessMode("Width", on.toBool() ? "RO" : "RW");
        });
        tree = std::make_unique<FeatureTreeWidget>("Favorites", nullptr, nullptr, 2, false);
        tree->addParameterCollection(parameters);
        model = qobject_cast<QStandardItemModel*>(tree->treeView()->model());
    }

    QModelIndex valueOf(const QString& feature) const
    {
        const QModelIndexList found = model->match(model->index(0, 0), Qt::UserRole + 1, feature, 1,
                                                   Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.first().siblingAtColumn(1);
    }
    QString shown(const QString& feature) const { return valueOf(feature).data().toString(); }
    bool editable(const QString& feature) const { return model->flags(valueOf(feature)) & Qt::ItemIsEditable; }

    // What the view does when the user edits a cell and leaves it.
    void edit(const QString& feature, const std::function<void(QWidget*)>& change)
    {
        const QModelIndex index = valueOf(feature);
        ASSERT_TRUE(editable(feature)) << feature.toStdString();
        QAbstractItemDelegate* delegate = tree->treeView()->itemDelegateForColumn(1);
        QStyleOptionViewItem option;
        std::unique_ptr<QWidget> editor(delegate->createEditor(tree->treeView()->viewport(), option, index));
        ASSERT_NE(editor, nullptr) << feature.toStdString();
        delegate->setEditorData(editor.get(), index);
        change(editor.get());
        delegate->setModelData(editor.get(), model, index);
    }

    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    std::unique_ptr<FeatureTreeWidget> tree;
    QStandardItemModel* model = nullptr;
};

TEST_F(FeatureTree, categoriesAreTheTreeAndFeaturesShowTheirValues)
{
    ASSERT_EQ(model->rowCount(), 3);
    const QModelIndex transport = model->index(1, 0);
    EXPECT_EQ(transport.data().toString(), QStringLiteral("TransportLayerControl"));
    ASSERT_EQ(model->rowCount(transport), 2);
    EXPECT_EQ(model->index(1, 0, transport).data().toString(), QStringLiteral("GevSCDCT"));
    EXPECT_EQ(shown("GevSCDCT"), QStringLiteral("125000000"));
    EXPECT_EQ(shown("PixelFormat"), QStringLiteral("Mono8"));
}

TEST_F(FeatureTree, readOnlyFeaturesAreShownAsSuch)
{
    for (const char* feature : {"SensorWidth", "GevSCDCT"}) {
        SCOPED_TRACE(feature);
        EXPECT_FALSE(editable(feature));
        EXPECT_TRUE(valueOf(feature).data(Qt::FontRole).value<QFont>().italic());
        EXPECT_EQ(valueOf(feature).data(Qt::ToolTipRole).toString(), QStringLiteral("Read only"));
    }
    EXPECT_TRUE(editable("GevSCPD"));
    EXPECT_FALSE(valueOf("GevSCPD").data(Qt::FontRole).value<QFont>().italic());
}

struct SEditCase
{
    const char* scenario;
    QString feature;
    std::function<void(QWidget*)> change;
    QVariant stored;
    QString shown;
};

class FeatureTreeEditing : public FeatureTree, public ::testing::WithParamInterface<SEditCase>
{
};

TEST_P(FeatureTreeEditing, writesTheCameraAndShowsWhatItKept)
{
    const SEditCase& c = GetParam();
    edit(c.feature, c.change);
    EXPECT_EQ(parameters->value(c.feature), c.stored);
    EXPECT_EQ(shown(c.feature), c.shown);
    EXPECT_EQ(parameters->writeCount(c.feature), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, FeatureTreeEditing,
    ::testing::Values(
        SEditCase{"integer_takes_the_nearest_step", "Width",
                  [](QWidget* w) {
                      auto* spin = qobject_cast<QSpinBox*>(w);
                      ASSERT_NE(spin, nullptr);
                      EXPECT_EQ(spin->minimum(), 16);
                      EXPECT_EQ(spin->maximum(), 4096);
                      EXPECT_EQ(spin->singleStep(), 16);
                      EXPECT_EQ(spin->value(), 640);
                      spin->setValue(650);
                  },
                  656, "656"},
        SEditCase{"float", "ExposureTime",
                  [](QWidget* w) {
                      auto* spin = qobject_cast<QDoubleSpinBox*>(w);
                      ASSERT_NE(spin, nullptr);
                      EXPECT_EQ(spin->maximum(), 1000000.0);
                      spin->setValue(2500.5);
                  },
                  2500.5, "2500.5"},
        SEditCase{"enumeration_offers_its_settable_entries", "PixelFormat",
                  [](QWidget* w) {
                      auto* combo = qobject_cast<QComboBox*>(w);
                      ASSERT_NE(combo, nullptr);
                      ASSERT_EQ(combo->count(), 2);
                      EXPECT_EQ(combo->currentText(), QStringLiteral("Mono8"));
                      combo->setCurrentIndex(1);
                  },
                  "Mono12", "Mono12"},
        SEditCase{"string", "DeviceUserID",
                  [](QWidget* w) {
                      auto* line = qobject_cast<QLineEdit*>(w);
                      ASSERT_NE(line, nullptr);
                      line->setText("left camera");
                  },
                  "left camera", "left camera"}),
    [](const ::testing::TestParamInfo<SEditCase>& info) { return std::string(info.param.scenario); });

TEST_F(FeatureTree, writeRefreshesTheFeaturesThatFollowIt)
{
    edit("GevSCPD", [](QWidget* w) { qobject_cast<QSpinBox*>(w)->setValue(8000); });
    EXPECT_EQ(shown("GevSCPD"), QStringLiteral("8000"));
    EXPECT_EQ(shown("GevSCDCT"), QStringLiteral("25000000"));
}

TEST_F(FeatureTree, booleanIsACheckBoxWhoseWriteCanLockAnotherFeature)
{
    ASSERT_TRUE(model->flags(valueOf("ReverseX")) & Qt::ItemIsUserCheckable);
    model->setData(valueOf("ReverseX"), Qt::Checked, Qt::CheckStateRole);

    EXPECT_EQ(parameters->value("ReverseX"), QVariant(true));
    EXPECT_EQ(parameters->writeCount("ReverseX"), 1);
    EXPECT_FALSE(editable("Width"));
    EXPECT_TRUE(valueOf("Width").data(Qt::FontRole).value<QFont>().italic());
}

TEST_F(FeatureTree, commandIsAButton)
{
    auto* button = qobject_cast<QPushButton*>(tree->treeView()->indexWidget(valueOf("TimestampReset")));
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_EQ(parameters->writeCount("TimestampReset"), 1);
    EXPECT_EQ(shown("Timestamp"), QStringLiteral("0"));
}

TEST_F(FeatureTree, refusedWriteKeepsTheCameraValueAndTellsWhy)
{
    parameters->failNext("Width", EScriptedAccess::Write, 1, 0, "device busy");
    edit("Width", [](QWidget* w) { qobject_cast<QSpinBox*>(w)->setValue(1024); });
    EXPECT_EQ(shown("Width"), QStringLiteral("640"));
    EXPECT_TRUE(valueOf("Width").data(Qt::ToolTipRole).toString().contains("device busy"));
}

} // namespace
