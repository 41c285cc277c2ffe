#include <Utilities/LayoutPersistence.h>

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QSettings>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeView>

namespace {

struct STreeWithColumns
{
    STreeWithColumns() : model(0, 4)
    {
        view.setModel(&model);
        view.header()->setStretchLastSection(false);
    }
    QStandardItemModel model;
    QTreeView view;
};

} // namespace

TEST(LayoutPersistence, headerRoundTripHonoursTheVersion)
{
    QTemporaryDir folder;
    QSettings settings(folder.filePath("layout.ini"), QSettings::IniFormat);
    STreeWithColumns before;
    before.view.header()->resizeSection(1, 123);
    before.view.header()->moveSection(3, 0);
    before.view.header()->hideSection(2);

    STreeWithColumns fresh;
    EXPECT_FALSE(restoreHeaderLayout(&settings, 7, fresh.view.header())) << "nothing stored yet";
    ASSERT_TRUE(saveHeaderLayout(&settings, 7, before.view.header()));

    STreeWithColumns otherVersion;
    EXPECT_FALSE(restoreHeaderLayout(&settings, 6, otherVersion.view.header()));
    EXPECT_EQ(otherVersion.view.header()->visualIndex(3), 3);

    STreeWithColumns after;
    ASSERT_TRUE(restoreHeaderLayout(&settings, 7, after.view.header()));
    EXPECT_EQ(after.view.header()->sectionSize(1), 123);
    EXPECT_EQ(after.view.header()->visualIndex(3), 0);
    EXPECT_TRUE(after.view.header()->isSectionHidden(2));
}

TEST(LayoutPersistence, positionFollowsTheReferenceAndStaysOnScreen)
{
    QTemporaryDir folder;
    QSettings settings(folder.filePath("window.ini"), QSettings::IniFormat);
    QWidget reference;
    reference.setGeometry(100, 100, 300, 200);
    QWidget window;
    window.resize(250, 180);
    window.move(150, 170);
    ASSERT_TRUE(saveWidgetPositionAndSize(&settings, &window, &reference));

    reference.move(200, 120);
    QWidget restored;
    ASSERT_TRUE(restoreWidgetPositionAndSize(&settings, &restored, &reference));
    EXPECT_EQ(restored.pos(), QPoint(250, 190));
    EXPECT_EQ(restored.size(), QSize(250, 180));

    // The reference went to a screen that is no longer there.
    reference.move(100000, 100000);
    QWidget stranded;
    stranded.move(40, 30);
    EXPECT_FALSE(restoreWidgetPositionAndSize(&settings, &stranded, &reference));
    EXPECT_EQ(stranded.pos(), QPoint(40, 30));
    EXPECT_EQ(stranded.size(), QSize(250, 180));
}
