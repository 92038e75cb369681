#include "BookRemoteNotaryViewTest.h"
#include "Booking/FeePanel.h"
#include "Clipping.h"
#include "Components/Card.h"
#include "Type.h"

#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

/// Sizes are those of the content, beside the sidebar and below the menu bar.
class BookRemoteNotaryViewLayout : public BookRemoteNotaryViewTest
{
protected:
    void TearDown() override
    {
        Type::followDesktop(13);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    QRect inPage(const QWidget* widget) const { return QRect(widget->mapTo(view, QPoint()), widget->size()); }
    QRect fee() const { return inPage(view->findChild<FeePanel*>()); }
    QRect section(const QString& name) const { return inPage(named(name)); }
    QScrollBar* scrollBar() const { return view->findChild<QScrollArea*>()->verticalScrollBar(); }
};

class BookRemoteNotaryViewSizes : public BookRemoteNotaryViewLayout, public testing::WithParamInterface<QSize>
{ };

} // namespace

TEST_P(BookRemoteNotaryViewSizes, NothingIsClipped)
{
    show(GetParam());
    attach({u"deed.pdf"_s, QString(200, u'x') + u".pdf"_s});
    Clipping::expectNothingClipped(*view);
    model->addSigner();
    model->actUnknown = true;
    model->documentRetrievalOption = u"priority"_s;
    model->uploadProgressText = u"Uploading 1 of 2: "_s + QString(200, u'x');
    settle();
    Clipping::expectNothingClipped(*view);
}

TEST_P(BookRemoteNotaryViewSizes, NoColumnIsWiderThan720)
{
    show(GetParam());
    Clipping::checkAll<Card>(*view, [](const Card* card) { EXPECT_LE(card->width(), 720); });
}

TEST_P(BookRemoteNotaryViewSizes, NothingIsClippedAtTwiceTheTextSize)
{
    Type::followDesktop(26);
    show(GetParam());
    attach({u"deed.pdf"_s, QString(200, u'x') + u".pdf"_s});
    model->actUnknown = true;
    model->uploadProgressText = u"Uploading 1 of 2: "_s + QString(200, u'x');
    settle();
    Clipping::expectNothingClipped(*view);
}

INSTANTIATE_TEST_SUITE_P(Windows, BookRemoteNotaryViewSizes,
    testing::Values(QSize(760, 648), QSize(879, 700), QSize(881, 700), QSize(960, 728), QSize(1150, 700),
        QSize(1680, 1048)),
    [](const auto& size) { return std::to_string(size.param.width()); });

TEST_F(BookRemoteNotaryViewLayout, TheFeeStandsBesideTheColumnOnAWidePage)
{
    show({961, 729});
    EXPECT_EQ(fee().width(), 288);
    EXPECT_EQ(fee().left(), section(u"Contact Information"_s).right() + 1 + 20);
    EXPECT_EQ(fee().top(), section(u"Contact Information"_s).top());
    show({1681, 1048});
    EXPECT_EQ(fee().width(), 320);
    EXPECT_EQ(section(u"Contact Information"_s).width(), 720);
}

TEST_F(BookRemoteNotaryViewLayout, TheFeeStaysInViewWhileTheColumnScrolls)
{
    show();
    scrollBar()->setValue(scrollBar()->maximum() / 2);
    settle();
    EXPECT_EQ(fee().top(), 28);
    scrollBar()->setValue(scrollBar()->maximum());
    settle();
    EXPECT_EQ(fee().top(), 28);
    scrollBar()->setValue(0);
    settle();
    EXPECT_EQ(fee().top(), section(u"Contact Information"_s).top());
}

TEST_F(BookRemoteNotaryViewLayout, OnANarrowPageTheFeeIsARowAfterTheDate)
{
    show({760, 648});
    const QRect date = inPage(named(u"Preferred Date & Time"_s)->parentWidget()->parentWidget());
    EXPECT_EQ(fee().top(), date.bottom() + 1 + 16);
    EXPECT_EQ(fee().width(), section(u"Contact Information"_s).width());
    EXPECT_EQ(fee().left(), section(u"Contact Information"_s).left());
}

TEST_F(BookRemoteNotaryViewLayout, AWindowMayChangeItsSizeBackAndForth)
{
    show({760, 648});
    const QRect narrow = fee();
    named(u"Number of Signatures"_s)->setFocus();
    window.resize(960, 728);
    settle();
    EXPECT_EQ(fee().width(), 288);
    EXPECT_EQ(focused(), u"Number of Signatures"_s);
    window.resize(760, 648);
    settle();
    EXPECT_EQ(fee().size(), narrow.size());
    EXPECT_EQ(focused(), u"Number of Signatures"_s);
}

TEST_F(BookRemoteNotaryViewLayout, FromRightToLeftItIsTheMirrorImage)
{
    show({961, 729});
    const QRect rail = fee();
    const QRect column = section(u"Contact Information"_s);
    QApplication::setLayoutDirection(Qt::RightToLeft);
    show({961, 729});
    EXPECT_EQ(fee(), QStyle::visualRect(Qt::RightToLeft, view->rect(), rail));
    EXPECT_EQ(section(u"Contact Information"_s), QStyle::visualRect(Qt::RightToLeft, view->rect(), column));
}

TEST_F(BookRemoteNotaryViewLayout, TheFeeDoesNotGrowWithTheNumberOfSignatures)
{
    show();
    const QSize few = fee().size();
    model->actCount = 25;
    settle();
    EXPECT_EQ(fee().size(), few);
}

TEST_F(BookRemoteNotaryViewLayout, TheSuccessCardWrapsALongMessage)
{
    show({760, 648});
    model->successMessage = QString(30, u'x') + QString(100, u' ') + QString(u"words "_s).repeated(80);
    settle();
    Clipping::expectNothingClipped(*view);
}
