#include "comboslider.h"
#include "zentaqtspinbox.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QVBoxLayout>

namespace {

// Values land on the grid that starts at the minimum, from the user's slider as from setValue.
TEST(ComboSlider, userMovesAndSetValueLandOnTheGrid)
{
    const struct { const char* scenario; int minimum, maximum, step, input, expected; } cases[] = {
        {"step 5 from 1 puts 8 on 6", 1, 125, 5, 8, 6},
        {"value on the grid stays", 1, 125, 5, 11, 11},
        {"step 0 keeps an off-grid value", 1, 125, 0, 8, 8},
        {"step 0 only clamps to the maximum", 1, 125, 0, 300, 125},
        {"grid starts at the minimum not at 0", 3, 100, 10, 27, 23}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scenario);
        ComboSlider combo;
        combo.setRangeAndStep(c.minimum, c.maximum, c.step);
        combo.setValue(c.input);
        EXPECT_EQ(combo.value(), c.expected);
        EXPECT_EQ(combo.spinBox()->value(), c.expected);

        combo.setValue(c.expected == c.minimum ? c.maximum : c.minimum);
        QSignalSpy spy(&combo, SIGNAL(valueChanged(int)));
        combo.slider()->setValue(c.input);
        ASSERT_EQ(spy.count(), 1);
        EXPECT_EQ(spy.at(0).at(0).toInt(), c.expected);
        EXPECT_EQ(combo.spinBox()->value(), c.expected);
    }
}

TEST(ComboSlider, programmaticChangesSendNoValueChanged)
{
    ComboSlider combo;
    combo.setRangeAndStep(1, 125, 1);
    combo.setValue(100);
    QSignalSpy values(&combo, SIGNAL(valueChanged(int)));
    QSignalSpy ranges(&combo, SIGNAL(rangeChanged(int, int)));

    combo.setRangeAndStep(1, 50, 4); // the slider has to move down to 49
    EXPECT_EQ(combo.value(), 49);
    EXPECT_EQ(combo.spinBox()->value(), 49);
    combo.setValue(10);
    EXPECT_EQ(combo.value(), 9);
    combo.setRange(20, 30);
    EXPECT_EQ(combo.value(), 20);

    EXPECT_EQ(values.count(), 0);
    ASSERT_EQ(ranges.count(), 2);
    EXPECT_EQ(ranges.at(1), (QVariantList{20, 30}));
    EXPECT_EQ(combo.toolTip(), QStringLiteral("Range: 20..30 (Increment: 4)"));
}

TEST(ComboSlider, pageUpMovesByThePageStep)
{
    ComboSlider combo;
    combo.setRangeAndStep(0, 1000, 1);
    combo.setPageStep(25);
    combo.setValue(100);
    QSignalSpy spy(&combo, SIGNAL(valueChanged(int)));

    QTest::keyClick(combo.spinBox(), Qt::Key_PageUp);
    EXPECT_EQ(combo.value(), 125);
    QTest::keyClick(combo.spinBox(), Qt::Key_PageDown);
    QTest::keyClick(combo.spinBox(), Qt::Key_PageDown);
    EXPECT_EQ(combo.value(), 75);
    QTest::keyClick(combo.spinBox(), Qt::Key_Up);
    EXPECT_EQ(combo.value(), 76);
    EXPECT_EQ(spy.count(), 4); // every step applies at once
}

// Typed values in a dialog with a default button, as the tree sits in the bandwidth dialog: Escape restores
// the text, Enter applies the value (a typed one above the maximum once as the maximum) without closing it.
TEST(ComboSlider, typedValuesInADialog)
{
    const struct { const char* typed; Qt::Key key; QString text; QVariantList sent; } cases[] = {
        {"77", Qt::Key_Escape, "40", {}}, {"60", Qt::Key_Return, "60", {60}}, {"1250", Qt::Key_Enter, "125", {125}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        QDialog dialog;
        auto* layout = new QVBoxLayout(&dialog);
        auto* combo = new ComboSlider(&dialog);
        auto* button = new QPushButton(QStringLiteral("OK"), &dialog);
        button->setDefault(true);
        layout->addWidget(combo);
        layout->addWidget(button);
        combo->setRangeAndStep(1, 125, 1);
        combo->setValue(40);
        dialog.show();
        combo->spinBox()->setFocus();
        QSignalSpy clicked(button, SIGNAL(clicked()));
        QSignalSpy rejected(&dialog, SIGNAL(rejected()));
        QSignalSpy values(combo, SIGNAL(valueChanged(int)));
        combo->spinBox()->selectAll();
        QTest::keyClicks(combo->spinBox(), QLatin1String(c.typed));
        QTest::keyClick(combo->spinBox(), c.key);
        emit combo->spinBox()->editingFinished(); // as when the focus leaves

        EXPECT_EQ(combo->spinBox()->text(), c.text);
        EXPECT_EQ(clicked.count() + rejected.count(), 0);
        EXPECT_TRUE(dialog.isVisible());
        QVariantList sent;
        for (const QList<QVariant>& signal : values)
            sent << signal.at(0);
        EXPECT_EQ(sent, c.sent);
    }
}

} // namespace
