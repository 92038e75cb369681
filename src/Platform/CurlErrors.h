#pragma once

#include "WebSession.h"

#include <curl/curl.h>

/// libcurl's reason for a failed transfer in the vocabulary of the pipeline.
TransportError::Code transportCode(CURLcode code);
