#include "Uploads/UploadProgress.h"

#include "Bindings.h"
#include "Components/PlainLabel.h"
#include "Components/ProgressBar.h"
#include "Layouts.h"
#include "Uploads/UploadsModel.h"

using namespace Qt::StringLiterals;

static constexpr int underText = 8;

UploadProgress::UploadProgress(UploadsModel& model, QWidget* parent) : QWidget(parent)
{
    auto* text = new PlainLabel({}, Type::small, Brand::steel);
    text->setFit(PlainLabel::Fit::elide);
    auto* bar = new ProgressBar(u"Upload progress"_s);
    setLayout(Layouts::column(underText, {text, bar}));
    follow(this, model.uploadProgressText, [this, text](const QString& line) {
        text->setText(line);
        setVisible(!line.isEmpty());
    });
    follow(bar, model.uploadProgress, [bar](double share) {
        constexpr int parts = 10'000;
        bar->setProgress(static_cast<qint64>(share * parts), parts);
    });
}
