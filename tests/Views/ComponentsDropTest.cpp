#include "ComponentsTest.h"

#include "Components/DropArea.h"
#include "Components/LineInput.h"
#include "Components/PendingFileRow.h"
#include "Components/ProgressBar.h"
#include "Components/SecondaryButton.h"

#include <QDragEnterEvent>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

struct AddressRow
{
    std::string name;
    QString address;
    bool taken;
};

class DropAddress : public testing::TestWithParam<AddressRow>
{ };

DropArea* makeArea()
{
    return new DropArea(u"tray.and.arrow.up.fill"_s, u"Drop files for this booking"_s, {u"Any number."_s});
}

bool enter(DropArea* area, const QMimeData& data)
{
    QDragEnterEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(area, &event);
    return event.isAccepted();
}

bool drop(DropArea* area, const QMimeData& data)
{
    QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(area, &event);
    EXPECT_TRUE(!event.isAccepted() || event.dropAction() == Qt::CopyAction);
    return event.isAccepted();
}

} // namespace

TEST_P(DropAddress, IsTakenOnlyWhenItNamesALocalFile)
{
    const std::unique_ptr<DropArea> area(makeArea());
    QSignalSpy drops(area.get(), &DropArea::filesDropped);
    QMimeData data;
    data.setUrls({QUrl(GetParam().address)});
    EXPECT_EQ(enter(area.get(), data), GetParam().taken);
    EXPECT_EQ(drop(area.get(), data), GetParam().taken);
    EXPECT_EQ(drops.size(), GetParam().taken ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Addresses, DropAddress,
    testing::Values(AddressRow{"LocalFile", u"file:///home/ada/deed.pdf"_s, true},
        AddressRow{"Localhost", u"file://localhost/home/ada/deed.pdf"_s, true},
        AddressRow{"OddName", u"file:///home/ada/%22deed%22%20%5C.pdf"_s, true},
        AddressRow{"OtherHost", u"file://server/share/deed.pdf"_s, false},
        AddressRow{"Http", u"http://example.com/deed.pdf"_s, false},
        AddressRow{"Smb", u"smb://server/deed.pdf"_s, false},
        AddressRow{"Data", u"data:text/plain,x"_s, false},
        AddressRow{"Script", u"javascript:alert(1)"_s, false}, AddressRow{"Relative", u"deed.pdf"_s, false},
        AddressRow{"NoPath", u"file:"_s, false}, AddressRow{"Empty", u""_s, false}),
    ByName());

class ComponentsDrop : public ComponentsTest
{ };

TEST_F(ComponentsDrop, TakesTheLocalFilesOfAMixtureInTheirOrder)
{
    auto* area = shown(makeArea());
    QSignalSpy drops(area, &DropArea::filesDropped);
    QMimeData data;
    data.setUrls({QUrl(u"file:///b"_s), QUrl(u"http://example.com/x"_s), QUrl(u"file:///a"_s)});
    EXPECT_TRUE(enter(area, data));
    EXPECT_TRUE(drop(area, data));
    ASSERT_EQ(drops.size(), 1);
    EXPECT_EQ(drops[0][0].value<QList<QUrl>>(), (QList{QUrl(u"file:///b"_s), QUrl(u"file:///a"_s)}));
}

TEST_F(ComponentsDrop, RefusesWhatIsNoAddress)
{
    auto* area = shown(makeArea());
    QMimeData data;
    data.setText(u"file:///home/ada/deed.pdf"_s);
    EXPECT_FALSE(enter(area, data));
    EXPECT_FALSE(drop(area, data));
}

TEST_F(ComponentsDrop, ShowsThatItWouldTakeThem)
{
    auto* area = shown(makeArea());
    const QPoint spot(area->width() / 2, 8);
    const auto idle = pixel(area, spot);
    QMimeData data;
    data.setUrls({QUrl(u"file:///a"_s)});
    enter(area, data);
    EXPECT_EQ(pixel(area, spot), QColor(0xe4, 0xef, 0xff));
    QDragLeaveEvent leave;
    QApplication::sendEvent(area, &leave);
    EXPECT_EQ(pixel(area, spot), idle);
}

TEST_F(ComponentsDrop, APendingFileCanBeEditedPickedAndRemoved)
{
    auto* row = shown(new PendingFileRow(u"doc.fill"_s,
        {u"deed"_s, u"Document label"_s, u"deed.pdf • 3 MB"_s, u"b"_s, u"Remove deed"_s},
        {{u"First"_s, u"a"_s}, {u"Second"_s, u"b"_s}}));
    EXPECT_EQ(row->label(), u"deed"_s);
    EXPECT_EQ(row->type(), u"b"_s);
    QSignalSpy labels(row, &PendingFileRow::labelChanged);
    QSignalSpy types(row, &PendingFileRow::typeChanged);
    QSignalSpy removals(row, &PendingFileRow::removeRequested);
    QTest::keyClick(row->labelField(), Qt::Key_End);
    QTest::keyClicks(row->labelField(), u"s"_s);
    row->typePicker()->setCurrentIndex(0);
    for (auto* button : row->findChildren<QAbstractButton*>())
        button->click();
    EXPECT_EQ(row->label(), u"deeds"_s);
    EXPECT_EQ(types.value(0).value(0).toString(), u"a"_s);
    EXPECT_EQ(labels.size(), 1);
    EXPECT_EQ(removals.size(), 1);
}

struct ProgressRow
{
    std::string name;
    qint64 done;
    qint64 total;
    int permille;
};

class Progress : public testing::TestWithParam<ProgressRow>
{ };

TEST_P(Progress, IsAShareOfTheWhole)
{
    ProgressBar bar(u"Upload"_s);
    bar.setProgress(GetParam().done, GetParam().total);
    EXPECT_EQ(bar.value(), GetParam().permille);
}

INSTANTIATE_TEST_SUITE_P(Shares, Progress,
    testing::Values(ProgressRow{"Nothing", 0, 10, 0}, ProgressRow{"Half", 5, 10, 500},
        ProgressRow{"All", 10, 10, 1000}, ProgressRow{"Beyond", 12, 10, 1000},
        ProgressRow{"TotalUnknown", 0, 0, 0}, ProgressRow{"Negative", -1, 10, 0},
        ProgressRow{"Huge", Q_INT64_C(3) << 40, Q_INT64_C(6) << 40, 500}),
    ByName());
