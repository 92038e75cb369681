#include "BookRemoteNotaryViewTest.h"
#include "Components/DropArea.h"
#include "Components/LineInput.h"
#include "Components/PendingFileRow.h"
#include "Screens/Cases.h"

#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class BookRemoteNotaryViewUploads : public BookRemoteNotaryViewTest
{
protected:
    template <typename Event>
    bool sendDrag(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        Event event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(view->findChild<DropArea*>(), &event);
        settle();
        return event.isAccepted();
    }
    void drop(const QList<QUrl>& urls)
    {
        if (sendDrag<QDragEnterEvent>(urls))
            sendDrag<QDropEvent>(urls);
    }

    QList<PendingFileRow*> rows() const
    {
        QList<PendingFileRow*> rows;
        for (PendingFileRow* row : view->findChildren<PendingFileRow*>()) {
            if (row->isVisible())
                rows += row;
        }
        std::sort(rows.begin(), rows.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
        return rows;
    }
    QList<QString> labels() const
    {
        QList<QString> labels;
        for (PendingFileRow* row : rows())
            labels += row->label();
        return labels;
    }
    QList<QString> attachedNames() const
    {
        QList<QString> names;
        for (const DesktopUploadDraft& draft : model->pendingUploads())
            names += draft.fileName();
        return names;
    }
    QWidget* focusedRow() const
    {
        for (PendingFileRow* row : rows()) {
            if (row->isAncestorOf(QApplication::focusWidget()))
                return row;
        }
        return nullptr;
    }
    QScrollArea* page() const { return view->findChild<QScrollArea*>(); }
    QScrollBar* scrollBar() const { return page()->verticalScrollBar(); }
    void scrollTo(int value)
    {
        scrollBar()->setValue(value);
        settle();
    }
};

struct RefusedRow
{
    std::string name;
    /// Makes what is dropped in a folder.
    std::function<QUrl(const QString& folder)> make;
};

class BookRemoteNotaryViewRefused : public BookRemoteNotaryViewUploads,
                                    public testing::WithParamInterface<RefusedRow>
{ };

QUrl local(const QString& path)
{
    return QUrl::fromLocalFile(path);
}

} // namespace

TEST_P(BookRemoteNotaryViewRefused, IsPassedOverAndTheFileBesideItIsTaken)
{
    show();
    drop({GetParam().make(folder.path()), file(u"deed.pdf"_s)});
    EXPECT_EQ(attachedNames(), QList<QString>{u"deed.pdf"_s});
    drop({GetParam().make(folder.path())});
    EXPECT_EQ(attachedNames(), QList<QString>{u"deed.pdf"_s});
}

INSTANTIATE_TEST_SUITE_P(Dropped, BookRemoteNotaryViewRefused,
    testing::Values(RefusedRow{"Folder", [](const QString& folder) { return local(folder); }},
        RefusedRow{"Pipe",
            [](const QString& folder) {
                ::mkfifo(QFile::encodeName(folder + u"/pipe"_s).constData(), 0600);
                return local(folder + u"/pipe"_s);
            }},
        RefusedRow{"Device", [](const QString&) { return local(u"/dev/null"_s); }},
        RefusedRow{"DanglingLink",
            [](const QString& folder) {
                QFile::link(folder + u"/nowhere"_s, folder + u"/link"_s);
                return local(folder + u"/link"_s);
            }},
        RefusedRow{"Missing", [](const QString& folder) { return local(folder + u"/missing.pdf"_s); }},
        RefusedRow{"Http", [](const QString&) { return QUrl(u"http://example.com/a.pdf"_s); }},
        RefusedRow{"Data", [](const QString&) { return QUrl(u"data:text/plain,x"_s); }},
        RefusedRow{"OtherHost", [](const QString&) { return QUrl(u"file://otherhost/etc/hosts"_s); }}),
    ByName());

TEST_F(BookRemoteNotaryViewUploads, ADragOverTheAreaIsKnownToTheModel)
{
    show();
    EXPECT_TRUE(sendDrag<QDragEnterEvent>({file(u"deed.pdf"_s)}));
    EXPECT_TRUE(model->isDropTarget.value());
    QDragLeaveEvent leave;
    QApplication::sendEvent(view->findChild<DropArea*>(), &leave);
    EXPECT_FALSE(model->isDropTarget.value());

    EXPECT_FALSE(sendDrag<QDragEnterEvent>({QUrl(u"http://example.com/a.pdf"_s)}));
    EXPECT_FALSE(model->isDropTarget.value());

    drop({file(u"deed.pdf"_s)});
    EXPECT_FALSE(model->isDropTarget.value());
}

TEST_F(BookRemoteNotaryViewUploads, ChosenFilesAreAttached)
{
    show();
    std::function<void(QList<QUrl>)> chosen;
    view->chooseFiles = [&chosen](QWidget*, const auto& callback) { chosen = callback; };
    EXPECT_FALSE(shows(u"Attached to Booking"_s));
    click(named(u"Choose Files"_s));
    ASSERT_TRUE(chosen);
    chosen({file(u"my_power-of_attorney.pdf"_s), local(folder.path()), file(u"scan.PNG"_s)});
    settle();
    EXPECT_TRUE(shows(u"Attached to Booking"_s));
    EXPECT_EQ(labels(), (QList<QString>{u"my power of attorney"_s, u"scan"_s}));
    EXPECT_EQ(rows().at(0)->type(), u"notarized_document"_s);
    EXPECT_EQ(rows().at(1)->type(), u"supporting_document"_s);
}

TEST_F(BookRemoteNotaryViewUploads, FilesChosenAfterTheScreenHasGoneAreAttachedToo)
{
    show();
    std::function<void(QList<QUrl>)> chosen;
    view->chooseFiles = [&chosen](QWidget*, const auto& callback) { chosen = callback; };
    click(named(u"Choose Files"_s));
    leave();
    chosen({file(u"deed.pdf"_s)});
    EXPECT_EQ(attachedNames(), QList<QString>{u"deed.pdf"_s});
}

TEST_F(BookRemoteNotaryViewUploads, ALabelIsEditedWithoutLosingTheFocus)
{
    show();
    attach({u"deed.pdf"_s, u"map.png"_s});
    LineInput* field = rows().at(1)->labelField();
    EXPECT_EQ(
        field->placeholderText(), u"Document label, e.g. Passport, Power of Attorney, Closing Package"_s);
    type(field, u"City map"_s);
    EXPECT_EQ(QApplication::focusWidget(), field);
    EXPECT_EQ(model->pendingUploads().at(1).label, u"City map"_s);
    EXPECT_EQ(model->pendingUploads().at(0).label, u"deed"_s);

    attach({u"more.txt"_s});
    EXPECT_EQ(QApplication::focusWidget(), field);
    EXPECT_EQ(labels(), (QList<QString>{u"deed"_s, u"City map"_s, u"more"_s}));
}

TEST_F(BookRemoteNotaryViewUploads, ATypeIsPicked)
{
    show();
    attach({u"deed.pdf"_s});
    ComboBox* type = rows().at(0)->typePicker();
    ASSERT_EQ(type->count(), uploadCategories().size());
    for (int index = 0; index < type->count(); ++index)
        EXPECT_EQ(type->itemText(index), uploadCategories().at(index).label);
    type->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(model->pendingUploads().at(0).category, u"apostille_document"_s);
}

TEST_F(BookRemoteNotaryViewUploads, ARemovedRowHandsTheFocusToItsNeighbour)
{
    show();
    attach({u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s});
    const auto remove = [this](const QString& name) {
        named(u"Remove "_s + name)->setFocus();
        press(Qt::Key_Space);
    };
    remove(u"b.pdf"_s);
    EXPECT_EQ(labels(), (QList<QString>{u"a"_s, u"c"_s}));
    EXPECT_EQ(focusedRow(), rows().at(1));
    remove(u"c.pdf"_s);
    EXPECT_EQ(focusedRow(), rows().at(0));
    remove(u"a.pdf"_s);
    EXPECT_EQ(focused(), u"Choose Files"_s);
    EXPECT_FALSE(shows(u"Attached to Booking"_s));
    EXPECT_EQ(model->pendingUploads().size(), 0);
}

TEST_F(BookRemoteNotaryViewUploads, ClearForgetsAllFiles)
{
    show();
    attach({u"a.pdf"_s, u"b.pdf"_s});
    named(u"Clear"_s)->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(model->pendingUploads().size(), 0);
    EXPECT_EQ(focused(), u"Choose Files"_s);
    EXPECT_FALSE(shows(u"Attached to Booking"_s));
}

TEST_F(BookRemoteNotaryViewUploads, NamesLikeMarkupAreShownAsTheyStand)
{
    show();
    attach({u"<b>deed<br>.pdf"_s, u"a & b \"c\".pdf"_s});
    EXPECT_EQ(labels(), (QList<QString>{u"<b>deed<br>"_s, u"a & b \"c\""_s}));
    EXPECT_TRUE(named(u"Remove <b>deed<br>.pdf"_s));
    fillIn();
    click(submitButton());
    answer(1, R"({"id":7})");
    EXPECT_TRUE(shows(u"Uploading 1 of 2: <b>deed<br>.pdf"_s));
    answer(2, "{}");
    answer(3, "{}");
}

TEST_F(BookRemoteNotaryViewUploads, TenThousandFilesTakeAHandfulOfRows)
{
    constexpr int edge = 100;
    constexpr qsizetype handful = 30;
    show();
    // A hundred files, each reached by a hundred paths.
    for (int number = 0; number < edge; ++number) {
        file(u"file%1.txt"_s.arg(number), {});
        QFile::link(folder.path(), folder.filePath(u"way%1"_s.arg(number)));
    }
    QList<QUrl> files;
    for (int number = 0; number < edge * edge; ++number)
        files += local(folder.filePath(u"way%1/file%2.txt"_s.arg(number / edge).arg(number % edge)));
    drop(files);
    EXPECT_EQ(model->pendingUploads().size(), edge * edge);
    EXPECT_LE(rows().size(), handful);

    page()->ensureWidgetVisible(rows().constFirst());
    settle();
    type(rows().constFirst()->labelField(), u"The first"_s);
    rows().at(1)->labelField()->setFocus();
    scrollTo(scrollBar()->maximum());
    EXPECT_LE(rows().size(), handful);
    EXPECT_EQ(rows().constLast()->label(), u"file99"_s);
    EXPECT_FALSE(rows().constLast()->visibleRegion().isEmpty());
    submitButton()->setFocus();
    scrollTo(scrollBar()->maximum() / 2);
    page()->ensureWidgetVisible(rows().constFirst());
    settle();
    EXPECT_EQ(labels().mid(0, 3), (QList<QString>{u"The first"_s, u"file1"_s, u"file2"_s}));
}

TEST_F(BookRemoteNotaryViewUploads, TabGoesThroughMoreRowsThanAreOnScreen)
{
    constexpr int count = 60;
    show({760, 648});
    QList<QUrl> files;
    for (int number = 0; number < count; ++number)
        files += file(u"file%1.txt"_s.arg(number), {});
    drop(files);
    scrollTo(0);
    tabTo(u"Clear"_s);
    for (int number = 0; number < count; ++number) {
        press(Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget()->property("text").toString(), u"file%1"_s.arg(number));
        ASSERT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
        press(Qt::Key_Tab);
        press(Qt::Key_Tab);
    }
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Submit Remote Notary Request"_s);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedRow(), rows().constLast());
}
