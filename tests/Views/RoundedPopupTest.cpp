#include "RoundedPopup.h"

#include <gtest/gtest.h>

TEST(RoundedPopup, CutsOffItsCornersAndNothingElse)
{
    constexpr QSize size(120, 80);
    const QRegion left = RoundedPopup::cut(size, 10);
    EXPECT_EQ(left.boundingRect(), QRect(QPoint(), size)) << "the middles of its edges are there";
    const QPoint corners[] = {{0, 0}, {119, 0}, {0, 79}, {119, 79}};
    for (const QPoint corner : corners) {
        EXPECT_FALSE(left.contains(corner)) << corner.x() << ", " << corner.y();
        const QPoint inwards(corner.x() == 0 ? 1 : -1, corner.y() == 0 ? 1 : -1);
        EXPECT_FALSE(left.contains(corner + inwards));
        EXPECT_TRUE(left.contains(corner + 4 * inwards));
    }
    EXPECT_EQ(left.intersected(QRect(0, 10, 120, 60)), QRegion(0, 10, 120, 60)) << "between the corners";
}

TEST(RoundedPopup, OfNoSizeIsNothing)
{
    EXPECT_TRUE(RoundedPopup::cut({}, 10).isEmpty());
    EXPECT_TRUE(RoundedPopup::cut({10, 0}, 10).isEmpty());
}
