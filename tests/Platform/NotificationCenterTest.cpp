#include "NotificationCenter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NotificationCenterTest, TellsEveryObserverAtOnce)
{
    NotificationCenter center;
    QStringList heard;
    QObject::connect(&center, &NotificationCenter::posted, &center, [&](const QString& n) { heard += n; });
    QObject::connect(&center, &NotificationCenter::posted, &center, [&](const QString& n) { heard += n; });
    center.post(u"a"_s);
    EXPECT_EQ(heard, (QStringList{u"a"_s, u"a"_s}));
}

TEST(NotificationCenterTest, IsSharedByTheProcess)
{
    EXPECT_EQ(&NotificationCenter::shared(), &NotificationCenter::shared());
    NotificationCenter other;
    EXPECT_NE(&other, &NotificationCenter::shared());
}
