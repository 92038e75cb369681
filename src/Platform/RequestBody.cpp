#include "RequestBody.h"

void RequestBody::append(QByteArray bytes)
{
    size_ += bytes.size();
    parts_ += std::move(bytes);
}

void RequestBody::append(File file)
{
    size_ += file.size;
    parts_ += std::move(file);
}
