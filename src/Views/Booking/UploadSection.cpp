#include "Booking/UploadSection.h"

#include "Bindings.h"
#include "Booking/BookRemoteNotaryModel.h"
#include "Booking/PendingFileList.h"
#include "Components/DropArea.h"
#include "Components/PlainLabel.h"
#include "Components/ProgressBar.h"
#include "Components/QuietButton.h"
#include "Components/SecondaryButton.h"
#include "Components/SectionTitle.h"
#include "Layouts.h"

#include <QApplication>
#include <QDragEnterEvent>

using namespace Qt::StringLiterals;

static constexpr int underProgressText = 8;

namespace {

/// Tells the model while files hover over it.
class BookingDropArea : public DropArea
{
public:
    explicit BookingDropArea(BookRemoteNotaryModel& model)
        : DropArea(u"tray.and.arrow.up.fill"_s, u"Drop files for this booking"_s,
            {u"PDFs, images, Word files, Excel files, and common office documents can be attached before "
             "submission."_s,
                u"No desktop file-count limit. Your server controls maximum upload size."_s}),
          model_(model)
    { }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        DropArea::dragEnterEvent(event);
        model_.isDropTarget = event->isAccepted();
    }
    void dragLeaveEvent(QDragLeaveEvent* event) override
    {
        DropArea::dragLeaveEvent(event);
        model_.isDropTarget = false;
    }
    void dropEvent(QDropEvent* event) override
    {
        model_.isDropTarget = false;
        DropArea::dropEvent(event);
    }

private:
    BookRemoteNotaryModel& model_;
};

} // namespace

UploadSection::UploadSection(BookRemoteNotaryModel& model, QScrollArea& page) : model_(model)
{
    add(new SectionTitle(u"Upload Documents"_s,
        u"Add files now and they will upload automatically into the session after the booking is created."_s));
    for (QWidget* part : {makeDropArea(), makeAttached(page), makeProgress()})
        content()->addWidget(part);
    content()->setSpacing(Spacing::fieldsDown);
    connect(&model_, &BookRemoteNotaryModel::uploadsChanged, this, &UploadSection::showAttached);
    showAttached();
}

QWidget* UploadSection::makeDropArea()
{
    auto* area = new BookingDropArea(model_);
    choose_ = new SecondaryButton(u"Choose Files"_s, u"plus.circle.fill"_s);
    area->addButton(choose_);
    connect(choose_, &Button::clicked, this, &UploadSection::filesWanted);
    connect(area, &DropArea::filesDropped, this, &UploadSection::filesDropped);
    return area;
}

QWidget* UploadSection::makeAttached(QScrollArea& page)
{
    auto* clear = new QuietButton(u"Clear"_s);
    files_ = new PendingFileList(
        u"Document label, e.g. Passport, Power of Attorney, Closing Package"_s, *clear, page);
    connect(clear, &Button::clicked, this, [this] { model_.clearUploads(); });
    connect(files_, &PendingFileList::labelEdited, &model_, &BookRemoteNotaryModel::setUploadLabel);
    connect(files_, &PendingFileList::categoryPicked, &model_, &BookRemoteNotaryModel::setUploadCategory);
    connect(files_, &PendingFileList::removeRequested, &model_, &BookRemoteNotaryModel::removeUpload);

    auto* header = Layouts::row(Spacing::buttons, {new PlainLabel(u"Attached to Booking"_s, Type::sub)});
    header->addStretch();
    header->addWidget(clear);
    auto* column = Layouts::column(Spacing::fieldsDown);
    column->addLayout(header);
    column->addWidget(files_);
    attached_ = Layouts::holding(column);
    return attached_;
}

QWidget* UploadSection::makeProgress()
{
    auto* text = new PlainLabel({}, Type::small, Brand::steel);
    text->setFit(PlainLabel::Fit::elide);
    auto* bar = new ProgressBar(u"Upload progress"_s);
    QWidget* progress = Layouts::holding(Layouts::column(underProgressText, {text, bar}));
    follow(progress, model_.uploadProgressText, [progress, text](const QString& line) {
        text->setText(line);
        progress->setVisible(!line.isEmpty());
    });
    follow(bar, model_.uploadProgress, [bar](double share) {
        constexpr int parts = 10'000;
        bar->setProgress(static_cast<qint64>(share * parts), parts);
    });
    return progress;
}

void UploadSection::showAttached()
{
    const QList<DesktopUploadDraft>& drafts = model_.pendingUploads();
    // Before its place disappears: a focus left to itself would move on to the button that submits.
    if (drafts.isEmpty() && attached_->isAncestorOf(QApplication::focusWidget()))
        choose_->setFocus(Qt::OtherFocusReason);
    files_->setDrafts(drafts);
    attached_->setVisible(!drafts.isEmpty());
}
