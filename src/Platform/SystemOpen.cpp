#include "SystemOpen.h"

using namespace Qt::StringLiterals;

bool isSafeWebsite(const QUrl& url)
{
    const bool isWeb = url.scheme() == "https"_L1 || url.scheme() == "http"_L1;
    return url.isValid() && isWeb && !url.host().isEmpty() && !url.authority().contains(u'@');
}
