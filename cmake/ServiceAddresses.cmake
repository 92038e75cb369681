# The addresses a service gives to its own build of the client.
set(QUORVEL_WEBSITE_URL "https://localhost:8443" CACHE STRING "The website; the bridge lies below it")
set(QUORVEL_SECURE_TOKEN_URL "https://localhost:8443" CACHE STRING "Host of the token endpoint /v1/token")
set(QUORVEL_SUPPORT_EMAIL "support@localhost" CACHE STRING "Address opened by Contact Support")
set(QUORVEL_PROPERTY_LIST "${CMAKE_SOURCE_DIR}/packaging/GoogleService-Info.plist"
    CACHE FILEPATH "The property list that holds the service's web API key")
# Software centres show the pictures of docs/pictures from here.
set(QUORVEL_SCREENSHOTS_URL "${QUORVEL_WEBSITE_URL}/quorvel/pictures" CACHE STRING "Where the pictures are served")

# A password or a token must never travel in the clear, so no other scheme can be built in.
foreach(address QUORVEL_WEBSITE_URL QUORVEL_SECURE_TOKEN_URL)
    if(NOT ${address} MATCHES "^https://[^/?#@ ]+/*$")
        message(FATAL_ERROR "${address} must be https://HOST[:PORT], but is \"${${address}}\"")
    endif()
endforeach()
if(NOT QUORVEL_SUPPORT_EMAIL MATCHES "^[^@ ?&]+@[^@ ?&]+$")
    message(FATAL_ERROR "QUORVEL_SUPPORT_EMAIL is not an e-mail address: \"${QUORVEL_SUPPORT_EMAIL}\"")
endif()
