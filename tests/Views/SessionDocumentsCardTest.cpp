#include "Components/DropArea.h"
#include "Components/LineInput.h"
#include "Components/PendingFileRow.h"
#include "Components/PlainLabel.h"
#include "Components/ProgressBar.h"
#include "Components/SecondaryButton.h"
#include "Launch.h"
#include "Palette.h"
#include "Screens/Cases.h"
#include "SessionCardsTest.h"
#include "Sessions/SessionDocumentRow.h"
#include "SymbolsOn.h"

#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QScrollBar>

#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class SessionDocumentsCardTest : public SessionCardsTest
{
protected:
    template <typename Row>
    QList<Row*> rows() const
    {
        QList<Row*> rows;
        for (auto* row : window->findChildren<Row*>()) {
            if (row->isVisible())
                rows += row;
        }
        std::sort(rows.begin(), rows.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
        return rows;
    }
    static QList<QString> texts(const QWidget* row)
    {
        QList<QString> texts;
        for (const PlainLabel* label : row->findChildren<PlainLabel*>())
            texts += label->text();
        return texts;
    }
    DropArea* dropArea() const { return window->findChild<DropArea*>(); }
    template <typename Event>
    bool sendDrag(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        Event event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(dropArea(), &event);
        settle();
        return event.isAccepted();
    }
    void drop(const QList<QUrl>& urls)
    {
        if (sendDrag<QDragEnterEvent>(urls))
            sendDrag<QDropEvent>(urls);
        window->activateWindow();
        settle();
    }
    Button* uploadButton() const { return control<Button>(u"Upload Files to Session"_s); }
    QList<QString> pendingNames() const
    {
        QList<QString> names;
        for (const DesktopUploadDraft& draft : documents->pendingUploads())
            names += draft.fileName();
        return names;
    }
    static QByteArray manyDocuments(int count)
    {
        QByteArray json;
        for (int id = 1; id <= count; ++id) {
            const QByteArray number = QByteArray::number(id);
            json += (id > 1 ? "," : "") + QByteArray(R"({"id":)") + number + R"(,"label":"Document )" + number
                + "\"" + (id % 3 == 0 ? R"(,"uploaded_by_name":"Priya")" : "")
                + R"(,"pdf_url":"https://h.example/)" + number + R"("})";
        }
        return "[" + json + "]";
    }
    QScrollBar* bar() const { return window->verticalScrollBar(); }
};

} // namespace

TEST_F(SessionDocumentsCardTest, ShowsItsTexts)
{
    documents->setDocuments({});
    show();
    for (const QString& text : {u"Session Documents"_s,
             u"Drag and drop files into this session and label exactly what each item is."_s,
             u"No files have been uploaded into this session yet."_s, u"Drop session files here"_s,
             u"PDFs, images, Word files, Excel files, text files, and common office documents will upload "
             u"into "
             "this remote notary session."_s,
             u"The desktop app does not impose a file-count limit. Your server upload settings still control "
             "maximum file size."_s})
        EXPECT_TRUE(shows(text)) << text.toStdString();
    EXPECT_FALSE(shows(u"Ready to Upload"_s));
    EXPECT_NE(control<Button>(u"Choose Files for This Session"_s), nullptr);
    ASSERT_NE(uploadButton(), nullptr);
    EXPECT_FALSE(uploadButton()->isEnabled());
}

TEST_F(SessionDocumentsCardTest, ADocumentShowsWhatItIsAndWhoBroughtIt)
{
    show();
    documents->setDocuments({documentOf(R"({"id": 1, "document_name": "Deed", "file_size": 2400000,
        "file_name": "deed.pdf", "created_at": "2026-03-09", "uploaded_by_name": "Priya Raman"})"),
        documentOf(R"({"id": 2, "label": "Map"})")});
    settle();
    EXPECT_FALSE(shows(u"No files have been uploaded into this session yet."_s));
    ASSERT_EQ(rows<SessionDocumentRow>().size(), 2);
    EXPECT_EQ(texts(rows<SessionDocumentRow>().at(0)),
        (QList<QString>{u"Deed"_s, u"deed.pdf • 2.4 MB • 2026-03-09"_s, u"Priya Raman"_s}));
    EXPECT_EQ(texts(rows<SessionDocumentRow>().at(1)), (QList<QString>{u"Map"_s, u"Document"_s}));
    documents->setDocuments({});
    settle();
    EXPECT_TRUE(shows(u"No files have been uploaded into this session yet."_s));
}

class SessionDocumentNames : public SessionDocumentsCardTest, public testing::WithParamInterface<QString>
{ };

TEST_P(SessionDocumentNames, AreShownAsTheyStand)
{
    show();
    JSONObject raw = JSONValue::parse(
        QJsonDocument(QJsonObject{{u"document_name"_s, GetParam()}, {u"file_name"_s, GetParam()},
                          {u"uploaded_by_name"_s, GetParam()}, {u"pdf_url"_s, u"https://h.example/1"_s}})
            .toJson())
                         ->object()
                         .value();
    documents->setDocuments({{1, raw}});
    settle();
    ASSERT_EQ(rows<SessionDocumentRow>().size(), 1);
    const SessionDocumentRow* row = rows<SessionDocumentRow>().constFirst();
    EXPECT_EQ(texts(row), (QList<QString>{GetParam(), GetParam(), GetParam()}));
    EXPECT_EQ(row->accessibleName(), GetParam());
    EXPECT_LE(row->width(), window->viewport()->width());
    EXPECT_EQ(row->height(),
        SessionDocumentRow::heightOf(documents->documents().constFirst(), SessionDocumentRow::Divider::none));
    EXPECT_TRUE(row->openButton()->visibleRegion().contains(row->openButton()->rect().center()));
}

INSTANTIATE_TEST_SUITE_P(Names, SessionDocumentNames,
    testing::Values(u"<b>deed</b><br>&amp;.pdf"_s, u"../../x"_s, u"n"_s.repeated(300) + u".pdf"_s,
        u"\u202egpj.exe\u202c"_s, u"\u05de\u05e1\u05de\u05da.pdf"_s, u"a\nb\tc.pdf"_s, u"a • b"_s));

TEST_F(SessionDocumentsCardTest, OpenHandsTheAddressOver)
{
    show();
    documents->setDocuments({documentOf(R"({"id": 1, "label": "Deed", "pdf_url": "https://h.example/1"})"),
        documentOf(R"({"id": 2, "label": "Map", "pdf_url": "https://h.example/2"})"),
        documentOf(R"({"id": 3, "label": "Trap", "pdf_url": "file:///etc/passwd"})")});
    settle();
    click(control(u"Open Map"_s));
    EXPECT_EQ(systemOpen.websites, QList<QUrl>{QUrl(u"https://h.example/2"_s)});
    control(u"Open Deed"_s)->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(systemOpen.websites.size(), 2);
    EXPECT_EQ(systemOpen.websites.constLast(), QUrl(u"https://h.example/1"_s));
    EXPECT_FALSE(control(u"Open Trap"_s)->isEnabled());
    click(control(u"Open Trap"_s));
    EXPECT_EQ(systemOpen.websites.size(), 2);
}

TEST_F(SessionDocumentsCardTest, AReloadKeepsTheFocusedRow)
{
    show();
    documents->setDocuments({documentOf(R"({"id": 1, "label": "Deed", "pdf_url": "https://h.example/1"})"),
        documentOf(R"({"id": 2, "label": "Map", "pdf_url": "https://h.example/2"})")});
    settle();
    control(u"Open Map"_s)->setFocus();
    documents->setDocuments({documentOf(R"({"id": 1, "label": "Deed", "pdf_url": "https://h.example/1"})"),
        documentOf(R"({"id": 2, "label": "Map", "pdf_url": "https://h.example/2"})"),
        documentOf(R"({"id": 3, "label": "Passport", "pdf_url": "https://h.example/3"})")});
    settle();
    EXPECT_EQ(focused(), u"Open Map"_s);
    documents->setDocuments({documentOf(R"({"id": 1, "label": "Deed", "pdf_url": "https://h.example/1"})"),
        documentOf(R"({"id": 3, "label": "Passport", "pdf_url": "https://h.example/3"})")});
    settle();
    EXPECT_EQ(focused(), u"Open Passport"_s);
}

TEST_F(SessionDocumentsCardTest, AThousandDocumentsTakeAHandfulOfRows)
{
    constexpr int count = 1'000;
    constexpr int handful = 30;
    show();
    launch(documents->loadDocuments());
    settle();
    answer(0, manyDocuments(count));
    ASSERT_EQ(documents->documents().size(), count);
    EXPECT_LE(rows<SessionDocumentRow>().size(), handful);
    QList<QString> seen;
    for (int place = 0; place < bar()->maximum(); place += bar()->pageStep() / 2) {
        bar()->setValue(place);
        settle();
        ASSERT_LE(rows<SessionDocumentRow>().size(), handful);
        for (const SessionDocumentRow* row : rows<SessionDocumentRow>()) {
            if (!row->visibleRegion().isEmpty() && !seen.contains(row->accessibleName()))
                seen += row->accessibleName();
        }
    }
    ASSERT_EQ(seen.size(), count);
    for (int id = 1; id <= count; ++id)
        EXPECT_EQ(seen.at(id - 1), u"Document %1"_s.arg(id));
}

TEST_F(SessionDocumentsCardTest, TabGoesThroughTheDocumentsInOrder)
{
    show();
    launch(documents->loadDocuments());
    settle();
    answer(0, manyDocuments(50));
    control(u"Send Message"_s)->setFocus(Qt::TabFocusReason);
    for (int id = 1; id <= 50; ++id) {
        press(Qt::Key_Tab);
        ASSERT_EQ(focused(), u"Open Document %1"_s.arg(id));
        ASSERT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
    }
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Choose Files for This Session"_s);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), u"Open Document 50"_s);
}

TEST_F(SessionDocumentsCardTest, ADragOverTheAreaIsKnownToTheModel)
{
    show();
    EXPECT_TRUE(sendDrag<QDragEnterEvent>({file(u"deed.pdf"_s)}));
    EXPECT_TRUE(documents->isDropTarget.value());
    QDragLeaveEvent leave;
    QApplication::sendEvent(dropArea(), &leave);
    EXPECT_FALSE(documents->isDropTarget.value());
    EXPECT_FALSE(sendDrag<QDragEnterEvent>({QUrl(u"http://example.com/a.pdf"_s)}));
    EXPECT_FALSE(documents->isDropTarget.value());
    EXPECT_TRUE(sendDrag<QDragEnterEvent>({file(u"deed.pdf"_s)}));
    close();
    EXPECT_FALSE(documents->isDropTarget.value());
}

TEST_F(SessionDocumentsCardTest, TheAreaLooksAsItsModelSays)
{
    show();
    const QPoint spot(dropArea()->width() / 2, 6);
    const auto ground = [this, spot] { return dropArea()->grab().toImage().pixelColor(spot); };
    EXPECT_EQ(ground(), Palette::color(Brand::panel));
    documents->isDropTarget = true;
    EXPECT_EQ(ground(), Palette::color(Brand::paleBlue));
    documents->isDropTarget = false;
    EXPECT_EQ(ground(), Palette::color(Brand::panel));
}

TEST_F(SessionDocumentsCardTest, FilesThatWaitShowTheirKind)
{
    show();
    drop({file(u"map.xlsx"_s), file(u"photo.jpg"_s)});
    EXPECT_THAT(symbolsOn(*window), testing::IsSupersetOf({u"tablecells.fill"_s, u"photo.fill"_s}));
}

TEST_F(SessionDocumentsCardTest, AListThatCouldNotBeLoadedIsAskedForAgain)
{
    show();
    EXPECT_TRUE(shows(u"Loading files..."_s));
    EXPECT_FALSE(shows(u"No files have been uploaded into this session yet."_s));
    launch(documents->loadDocuments());
    settle();
    fail(0);
    EXPECT_EQ(alert()->title(), u"Cannot Load Files"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(shows(u"The files could not be loaded."_s));
    EXPECT_FALSE(shows(u"No files have been uploaded into this session yet."_s));
    drop({file(u"deed.pdf"_s)});
    EXPECT_TRUE(uploadButton()->isEnabled());
    click(control(u"Try Again to Load the Files"_s));
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/7/documents"_s);
    answer(1, "[]");
    EXPECT_TRUE(shows(u"No files have been uploaded into this session yet."_s));
    EXPECT_FALSE(shows(u"The files could not be loaded."_s));
}

TEST_F(SessionDocumentsCardTest, DroppedFilesWaitUnderTheirHeading)
{
    show();
    drop({file(u"my_power-of_attorney.pdf"_s, QByteArray(2'400'000, 'x')), QUrl::fromLocalFile(folder.path()),
        file(u"scan.PNG"_s)});
    drop({file(u"scan.PNG"_s)});
    EXPECT_TRUE(shows(u"Ready to Upload"_s));
    ASSERT_EQ(rows<PendingFileRow>().size(), 2);
    const PendingFileRow* first = rows<PendingFileRow>().constFirst();
    EXPECT_EQ(first->label(), u"my power of attorney"_s);
    EXPECT_EQ(first->type(), u"notarized_document"_s);
    EXPECT_TRUE(texts(first).contains(u"my_power-of_attorney.pdf • 2.4 MB"_s));
    EXPECT_TRUE(uploadButton()->isEnabled());
    click(control(u"Clear"_s));
    EXPECT_FALSE(shows(u"Ready to Upload"_s));
    EXPECT_FALSE(uploadButton()->isEnabled());
    EXPECT_EQ(requestCount(), 0);
}

TEST_F(SessionDocumentsCardTest, ChosenFilesAreAddedEvenAfterTheCardHasGone)
{
    show();
    std::function<void(QList<QUrl>)> chosen;
    documentsCard->chooseFiles = [&chosen](QWidget*, const auto& callback) { chosen = callback; };
    click(control(u"Choose Files for This Session"_s));
    ASSERT_TRUE(chosen);
    chosen({file(u"deed.pdf"_s), QUrl::fromLocalFile(folder.path())});
    settle();
    EXPECT_EQ(rows<PendingFileRow>().size(), 1);
    close();
    chosen({file(u"map.png"_s)});
    EXPECT_EQ(pendingNames(), (QList<QString>{u"deed.pdf"_s, u"map.png"_s}));
}

TEST_F(SessionDocumentsCardTest, ADraftIsLabelledTypedAndRemoved)
{
    show();
    drop({file(u"deed.pdf"_s), file(u"map.png"_s), file(u"more.txt"_s)});
    LineInput* label = rows<PendingFileRow>().at(1)->labelField();
    label->setFocus();
    QTest::keySequence(label, QKeySequence::SelectAll);
    type(u"City map"_s);
    EXPECT_EQ(documents->pendingUploads().at(1).label, u"City map"_s);
    rows<PendingFileRow>().at(1)->typePicker()->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(documents->pendingUploads().at(1).category, u"apostille_document"_s);
    control(u"Remove map.png"_s)->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(pendingNames(), (QList<QString>{u"deed.pdf"_s, u"more.txt"_s}));
    EXPECT_TRUE(rows<PendingFileRow>().at(1)->isAncestorOf(QApplication::focusWidget()));
    control(u"Clear"_s)->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(focused(), u"Choose Files for This Session"_s);
}

TEST_F(SessionDocumentsCardTest, UploadsOneFileAfterAnotherAndSaysHowFar)
{
    show();
    drop({file(u"a.pdf"_s, QByteArray(30, 'a')), file(u"<b>b.pdf"_s, QByteArray(10, 'b'))});
    QTest::mouseClick(uploadButton(), Qt::LeftButton);
    QTest::mouseDClick(uploadButton(), Qt::LeftButton);
    settle();
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"POST /remote-notary/sessions/7/documents"_s);
    EXPECT_TRUE(shows(u"Uploading 1 of 2: a.pdf"_s));
    EXPECT_TRUE(uploadButton()->isLoading());
    auto* progress = control<ProgressBar>(u"Upload progress"_s);
    ASSERT_NE(progress, nullptr);
    webSession->reportProgress(0, 20, 30);
    settle();
    EXPECT_EQ(progress->value(), progress->maximum() / 3) << "two thirds of the first of two files";
    answer(0, "{}");
    EXPECT_TRUE(shows(u"Uploading 2 of 2: <b>b.pdf"_s));
    EXPECT_EQ(rows<PendingFileRow>().size(), 2);
    answer(1, "{}");
    EXPECT_TRUE(shows(u"Upload complete."_s));
    EXPECT_FALSE(uploadButton()->isLoading());
    EXPECT_FALSE(uploadButton()->isEnabled());
    EXPECT_FALSE(shows(u"Ready to Upload"_s));
    answer(2, R"([{"id": 1, "label": "a"}, {"id": 2, "label": "b"}])");
    EXPECT_EQ(rows<SessionDocumentRow>().size(), 2);
}

TEST_F(SessionDocumentsCardTest, AFailedUploadIsSaidAndTheRestGoesWithTheNextPress)
{
    show();
    drop({file(u"a.pdf"_s), file(u"b.pdf"_s)});
    click(uploadButton());
    answer(0, "{}");
    answer(1, R"({"message": "Too large."})", 413);
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->accessibleName(), u"Cannot Upload File"_s);
    answer(2, R"([{"id": 1, "label": "a"}])");
    press(Qt::Key_Escape);
    EXPECT_EQ(rows<SessionDocumentRow>().size(), 1);
    ASSERT_EQ(rows<PendingFileRow>().size(), 1);
    EXPECT_EQ(rows<PendingFileRow>().constFirst()->label(), u"b"_s);
    click(uploadButton());
    ASSERT_EQ(requestCount(), 4);
    EXPECT_TRUE(shows(u"Uploading 1 of 1: b.pdf"_s));
    answer(3, "{}");
    answer(4, "[]");
}

TEST_F(SessionDocumentsCardTest, ThousandsOfPendingFilesTakeAHandfulOfRows)
{
    show();
    QList<QUrl> files;
    for (int number = 0; number < 2'000; ++number)
        files += QUrl::fromLocalFile(folder.filePath(u"file%1.txt"_s.arg(number)));
    documents->addUploads(files);
    settle();
    EXPECT_LE(rows<PendingFileRow>().size(), 30);
    bar()->setValue(bar()->maximum());
    settle();
    EXPECT_EQ(rows<PendingFileRow>().constLast()->label(), u"file1999"_s);
    EXPECT_FALSE(rows<PendingFileRow>().constLast()->visibleRegion().isEmpty());
}

TEST_F(SessionDocumentsCardTest, ACardThatGoesInTheMiddleOfAnUploadDisturbsNothing)
{
    show();
    drop({file(u"a.pdf"_s), file(u"b.pdf"_s)});
    click(uploadButton());
    close();
    webSession->reportProgress(0, 3, 7);
    answer(0, "{}");
    show();
    EXPECT_TRUE(shows(u"Uploading 2 of 2: b.pdf"_s));
    EXPECT_TRUE(uploadButton()->isLoading());
    answer(1, "{}");
    answer(2, "[]");
    EXPECT_TRUE(shows(u"Upload complete."_s));
}

TEST_F(SessionDocumentsCardTest, TheCardMayBeTheLastToHoldItsModel)
{
    show();
    drop({file(u"a.pdf"_s)});
    const std::weak_ptr<SessionDocumentsModel> gone = documents;
    documents.reset();
    close();
    EXPECT_TRUE(gone.expired());
    documents = std::make_shared<SessionDocumentsModel>(context, 7);
}
