#pragma once

#include "Http/MultipartReader.h"
#include "Work/UploadStore.h"
#include "Work/Uploads.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace bridge {

/// A form with files, taken in as it comes: files go straight to the disk, text fields are kept.
class UploadForm
{
public:
    /// \param largest  of the whole body, in bytes
    /// \throws Problem 400 when the media type is no form
    UploadForm(const std::string& contentType, std::filesystem::path folder, std::uint64_t largest);

    /// \throws Problem 413 beyond the largest size, with too many parts or too many fields, 422 when a file's
    ///     name is too long, 400 when it is no form; std::system_error when the disk refuses
    void feed(const char* bytes, std::size_t size);

    /// \throws Problem 400 when the form ended early, 422 when it has no file
    void requireFiles() const;

    /// The bytes that have come.
    long long size() const { return static_cast<long long>(size_); }

    /// Makes the files durable. What their documents are called follows from the fields.
    /// \throws Problem 422 when a description is too long; std::system_error
    std::vector<Upload> keepFiles();

    /// Takes keepFiles() back.
    void discardFiles();

private:
    struct File
    {
        PartHead head;
        IncomingFile content;
    };

    void begin(const PartHead& head);
    void take(const char* bytes, std::size_t size);
    void countField(std::size_t size);
    std::string fieldsJson() const;
    std::string field(const std::string& name, const std::string& common, std::size_t index) const;

    std::filesystem::path folder_;
    std::uint64_t largest_;
    std::uint64_t size_ = 0;
    MultipartReader reader_;
    PartHead head_;
    std::size_t partCount_ = 0;
    std::size_t fieldBytes_ = 0;
    std::map<std::string, std::string> fields_;
    std::vector<File> files_;
};

} // namespace bridge
