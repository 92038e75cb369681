#include "Uploads/PendingUploads.h"

#include "Components/PlainLabel.h"
#include "Components/QuietButton.h"
#include "Layouts.h"
#include "Spacing.h"
#include "Uploads/UploadsModel.h"

#include <QApplication>

using namespace Qt::StringLiterals;

PendingUploads::PendingUploads(UploadsModel& model, const QString& heading, PendingFileList::Detail detail,
    QScrollArea& page, QWidget& fallback, QWidget* parent)
    : QWidget(parent), model_(model), fallback_(fallback)
{
    auto* clear = new QuietButton(u"Clear"_s);
    files_ = new PendingFileList(detail, page);
    auto* header = Layouts::row(Spacing::buttons, {new PlainLabel(heading, Type::sub)});
    header->addStretch();
    header->addWidget(clear);
    auto* column = Layouts::column(Spacing::fieldsDown);
    column->addLayout(header);
    column->addWidget(files_);
    setLayout(column);

    connect(clear, &Button::clicked, &model_, &UploadsModel::clearUploads);
    connect(files_, &PendingFileList::labelEdited, &model_, &UploadsModel::setUploadLabel);
    connect(files_, &PendingFileList::categoryPicked, &model_, &UploadsModel::setUploadCategory);
    connect(files_, &PendingFileList::removeRequested, &model_, &UploadsModel::removeUpload);
    connect(&model_, &UploadsModel::uploadsChanged, this, &PendingUploads::showFiles);
    showFiles();
}

void PendingUploads::showFiles()
{
    const QList<DesktopUploadDraft>& drafts = model_.pendingUploads();
    // Before its place disappears: a focus left to itself would move on to the button that submits.
    if (drafts.isEmpty() && isAncestorOf(QApplication::focusWidget()))
        fallback_.setFocus(Qt::OtherFocusReason);
    files_->setDrafts(drafts);
    setVisible(!drafts.isEmpty());
}
