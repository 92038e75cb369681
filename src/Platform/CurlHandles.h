#pragma once

#include <curl/curl.h>

#include <memory>

/// Calls the function with which libcurl frees its objects of one kind.
template <auto Free>
struct CurlCleanup
{
    template <typename T>
    void operator()(T* object) const
    {
        Free(object);
    }
};

using CurlEasy = std::unique_ptr<CURL, CurlCleanup<curl_easy_cleanup>>;
using CurlMulti = std::unique_ptr<CURLM, CurlCleanup<curl_multi_cleanup>>;
using CurlShare = std::unique_ptr<CURLSH, CurlCleanup<curl_share_cleanup>>;
using CurlList = std::unique_ptr<curl_slist, CurlCleanup<curl_slist_free_all>>;
