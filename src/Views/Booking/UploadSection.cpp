#include "Booking/UploadSection.h"

#include "Booking/BookRemoteNotaryModel.h"
#include "Components/SecondaryButton.h"
#include "Components/SectionTitle.h"
#include "Uploads/PendingUploads.h"
#include "Uploads/UploadDropArea.h"
#include "Uploads/UploadProgress.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

UploadSection::UploadSection(BookRemoteNotaryModel& model, QScrollArea& page)
{
    auto* choose = new SecondaryButton(u"Choose Files"_s, u"plus.circle.fill"_s);
    editable_ = {new SectionTitle(u"Upload Documents"_s,
                     u"Add files now and they will upload automatically into the session after the booking "
                     "is created."_s),
        makeDropArea(model, choose),
        new PendingUploads(model, u"Attached to Booking"_s, PendingFileList::Detail::hidden, page, *choose)};
    for (QWidget* part : std::as_const(editable_))
        add(part);
    add(new UploadProgress(model));
    content()->setSpacing(Spacing::fieldsDown);
}

void UploadSection::setLocked(bool locked)
{
    for (QWidget* part : std::as_const(editable_))
        part->setEnabled(!locked);
}

QWidget* UploadSection::makeDropArea(BookRemoteNotaryModel& model, SecondaryButton* choose)
{
    auto* area = new UploadDropArea(model, u"tray.and.arrow.up.fill"_s, u"Drop files for this booking"_s,
        {u"PDFs, images, Word files, Excel files, and common office documents can be attached before "
         "submission."_s,
            u"No desktop file-count limit. Your server controls maximum upload size."_s});
    area->addButton(choose);
    connect(choose, &Button::clicked, this, &UploadSection::filesWanted);
    connect(area, &DropArea::filesDropped, this, &UploadSection::filesDropped);
    return area;
}
