#include "Sessions/SessionDocumentsCard.h"

#include "Accessibility.h"
#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/PrimaryButton.h"
#include "Components/SecondaryButton.h"
#include "Components/SectionTitle.h"
#include "FileChooser.h"
#include "Launch.h"
#include "Sessions/SessionDocumentList.h"
#include "Sessions/SessionDocumentsModel.h"
#include "Sessions/SessionPartState.h"
#include "Uploads/PendingUploads.h"
#include "Uploads/UploadDropArea.h"
#include "Uploads/UploadProgress.h"

#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

static void chooseSessionFiles(QWidget* over, std::function<void(QList<QUrl>)> chosen)
{
    const FileChooser::Texts texts{u"Choose Files for This Session"_s, u"Add Files"_s};
    FileChooser::open(over, texts, std::move(chosen));
}

SessionDocumentsCard::SessionDocumentsCard(
    std::shared_ptr<SessionDocumentsModel> model, QScrollArea& page, QWidget* parent)
    : Card(Spacing::card, parent), chooseFiles(chooseSessionFiles), model_(std::move(model))
{
    const QString title = u"Session Documents"_s;
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(title);
    add(new SectionTitle(
        title, u"Drag and drop files into this session and label exactly what each item is."_s));
    addDocuments(page);
    addDropArea();
    add(new PendingUploads(*model_, u"Ready to Upload"_s, PendingFileList::Detail::shown, page, *choose_));
    add(new UploadProgress(*model_));
    addUploadButton();
    content()->setSpacing(Spacing::fieldsDown);
}

SessionDocumentsCard::~SessionDocumentsCard()
{
    // What shows the model goes before it: this card may be the last to hold it.
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
    // Nobody tells when a drag ends over an area that is gone.
    model_->isDropTarget = false;
}

void SessionDocumentsCard::addDocuments(QScrollArea& page)
{
    auto* state = new SessionPartState(
        {u"Loading files..."_s, u"No files have been uploaded into this session yet."_s,
            u"The files could not be loaded."_s, u"Try Again to Load the Files"_s});
    auto* list = new SessionDocumentList(page);
    add(state);
    add(list);
    connect(state, &SessionPartState::againRequested, this, [this] { launch(model_->loadDocuments()); });
    connect(list, &SessionDocumentList::openRequested, model_.get(), &SessionDocumentsModel::openUpload);
    const auto showState = [&model = *model_, state] {
        state->show(model.isLoaded.value(), model.isMissing.value(), model.documents().isEmpty());
    };
    const auto showDocuments = [this, list, showState] {
        list->setDocuments(model_->documents());
        list->setVisible(!model_->documents().isEmpty());
        showState();
    };
    connect(model_.get(), &SessionDocumentsModel::documentsChanged, this, showDocuments);
    showDocuments();
    follow(state, model_->isLoaded, [showState](bool) { showState(); });
    follow(state, model_->isMissing, [showState](bool) { showState(); });
}

void SessionDocumentsCard::addDropArea()
{
    auto* area = new UploadDropArea(*model_, u"icloud.and.arrow.up.fill"_s, u"Drop session files here"_s,
        {u"PDFs, images, Word files, Excel files, text files, and common office documents will upload into "
         "this remote notary session."_s,
            u"The desktop app does not impose a file-count limit. Your server upload settings still control "
            "maximum file size."_s});
    choose_ = new SecondaryButton(u"Choose Files for This Session"_s);
    choose_->setWraps(true);
    area->addButton(choose_);
    connect(choose_, &Button::clicked, this, &SessionDocumentsCard::choose);
    connect(area, &DropArea::filesDropped, model_.get(), &UploadsModel::addRegularFiles);
    add(area);
}

void SessionDocumentsCard::choose()
{
    chooseFiles(this, [model = model_](const QList<QUrl>& files) { model->addRegularFiles(files); });
}

void SessionDocumentsCard::addUploadButton()
{
    auto* upload = new PrimaryButton(u"Upload Files to Session"_s);
    upload->setWraps(true);
    connect(upload, &Button::clicked, this, [this] { launch(model_->uploadPendingFiles()); });
    follow(upload, model_->isUploadingFiles, [upload](bool uploading) { upload->setLoading(uploading); });
    const auto enable = [this, upload] { upload->setEnabled(!model_->pendingUploads().isEmpty()); };
    connect(model_.get(), &UploadsModel::uploadsChanged, upload, enable);
    enable();
    content()->addWidget(upload, 0, Qt::AlignTrailing);
}

void SessionDocumentsCard::showEvent(QShowEvent* event)
{
    Card::showEvent(event);
    // Only now is the window known that an alert goes over.
    if (!std::exchange(wasShown_, true))
        presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
}
