#include "Operations/UploadForm.h"

#include "Http/Fields.h"
#include "Http/Problem.h"

namespace bridge {

static constexpr std::size_t mostParts = 1000;
static constexpr std::size_t mostFieldBytes = 256 << 10; // names and values of all that are no files
static constexpr std::size_t longestName = 200; // of a field, and of a media type

UploadForm::UploadForm(const std::string& contentType, std::filesystem::path folder, std::uint64_t largest)
    : folder_(std::move(folder)), largest_(largest),
      reader_(contentType,
          {[this](const PartHead& head) { begin(head); },
              [this](const char* bytes, std::size_t size) { take(bytes, size); }, [] {}})
{ }

void UploadForm::feed(const char* bytes, std::size_t size)
{
    if (size > largest_ - size_)
        throw refusal(413, "That file is larger than this server accepts.");
    size_ += size;
    reader_.feed(bytes, size);
}

void UploadForm::begin(const PartHead& head)
{
    if (++partCount_ > mostParts)
        throw refusal(413, "Those are more files than this server accepts at once.");
    if (head.name.size() > longestName || head.contentType.size() > longestName)
        throw refusal(400, "The form could not be read.");
    head_ = head;
    if (head.isFile) {
        head_.fileName = shortEnough("desktop_files", cleaned(head.fileName), Fields::shortText);
        files_.push_back({head_, IncomingFile(folder_)});
    } else {
        countField(head.name.size());
        fields_[head.name].clear();
    }
}

void UploadForm::take(const char* bytes, std::size_t size)
{
    if (head_.isFile) {
        files_.back().content.write(bytes, size);
        return;
    }
    countField(size);
    fields_[head_.name].append(bytes, size);
}

void UploadForm::countField(std::size_t size)
{
    fieldBytes_ += size;
    if (fieldBytes_ > mostFieldBytes)
        throw refusal(413, "That form is larger than this server accepts.");
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
        return shortEnough(name, cleaned(trimmed(own->second)), Fields::shortText);
    const auto shared = fields_.find(common);
    return shared == fields_.end() ? std::string()
                                   : shortEnough(common, cleaned(trimmed(shared->second)), Fields::shortText);
}

std::string UploadForm::fieldsJson() const
{
    nlohmann::json object = nlohmann::json::object();
    for (const auto& [name, value] : fields_)
        object[cleaned(name)] = cleaned(value);
    return object.dump();
}

std::vector<Upload> UploadForm::keepFiles()
{
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
        upload.downloadKey = newDownloadKey();
        if (i == 0)
            upload.fieldsJson = fieldsJson();
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
