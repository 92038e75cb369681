#include "Operations/UploadForm.h"

#include "Http/Fields.h"
#include "Http/Problem.h"
#include "People/Passwords.h"

namespace bridge {

static constexpr std::size_t mostParts = 1000;
static constexpr std::size_t mostFieldBytes = 1 << 20;

UploadForm::UploadForm(const std::string& contentType, std::filesystem::path folder, std::uint64_t largest)
    : folder_(std::move(folder)), left_(largest),
      reader_(contentType,
          {[this](const PartHead& head) { begin(head); },
              [this](const char* bytes, std::size_t size) { take(bytes, size); }, [] {}})
{ }

void UploadForm::feed(const char* bytes, std::size_t size)
{
    if (size > left_)
        throw refusal(413, "That file is larger than this server accepts.");
    left_ -= size;
    reader_.feed(bytes, size);
}

void UploadForm::begin(const PartHead& head)
{
    if (++partCount_ > mostParts)
        throw refusal(413, "Those are more files than this server accepts at once.");
    head_ = head;
    if (head.isFile)
        files_.push_back({head, IncomingFile(folder_)});
    else
        fields_[head.name].clear();
}

void UploadForm::take(const char* bytes, std::size_t size)
{
    if (head_.isFile) {
        files_.back().content.write(bytes, size);
        return;
    }
    fieldBytes_ += size;
    if (fieldBytes_ > mostFieldBytes)
        throw refusal(413, "That form is larger than this server accepts.");
    fields_[head_.name].append(bytes, size);
}

void UploadForm::requireFiles() const
{
    if (!reader_.isComplete())
        throw refusal(400, "The form did not arrive whole. Please try again.");
    if (files_.empty())
        throw invalidField("desktop_files", "Choose at least one file.");
}

// What is said of this one file, else what is said of all.
std::string UploadForm::field(const std::string& name, const std::string& common, std::size_t index) const
{
    const auto own = fields_.find(name + '[' + std::to_string(index) + ']');
    if (own != fields_.end() && !trimmed(own->second).empty())
        return trimmed(own->second);
    const auto shared = fields_.find(common);
    return shared == fields_.end() ? std::string() : trimmed(shared->second);
}

std::vector<Upload> UploadForm::keepFiles()
{
    using Json = nlohmann::json;
    const std::string fields = Json(fields_).dump(-1, ' ', false, Json::error_handler_t::replace);
    std::vector<Upload> uploads;
    for (std::size_t i = 0; i < files_.size(); ++i) {
        Upload upload;
        upload.originalName = files_[i].head.fileName;
        upload.mimeType = files_[i].head.contentType;
        upload.label = field("file_labels", "document_label", i);
        upload.category = field("file_categories", "document_category", i);
        upload.path = files_[i].content.keep();
        upload.byteSize = static_cast<long long>(files_[i].content.size());
        upload.sha256 = files_[i].content.sha256();
        upload.downloadKey = randomText(24);
        upload.fieldsJson = fields;
        uploads.push_back(std::move(upload));
    }
    return uploads;
}

void UploadForm::discardFiles()
{
    for (File& file : files_)
        file.content.discard();
}

} // namespace bridge
