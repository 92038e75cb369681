#pragma once

#include <httplib.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <memory>
#include <string>

using Json = nlohmann::json;

/// What came back: status 0 when nothing did.
struct Reply
{
    int status = 0;
    /// Null when the body is no JSON.
    Json body;
    std::string text;
    httplib::Headers headers;

    std::string header(const std::string& name) const;
};

/// A client of the bridge that trusts only its certificate.
class Api
{
public:
    Api(int port, const std::filesystem::path& data);

    /// \param path  below the base of the operations, or from the root when it begins with "//"
    /// \param body  sent as JSON unless it is null
    Reply send(const std::string& method, const std::string& path, const std::string& token = {},
        const Json& body = nullptr) const;

    Reply get(const std::string& path, const std::string& token = {}) const
    {
        return send("GET", path, token);
    }
    Reply post(const std::string& path, const std::string& token, const Json& body = nullptr) const
    {
        return send("POST", path, token, body);
    }
    Reply remove(const std::string& path, const std::string& token, const Json& body = nullptr) const
    {
        return send("DELETE", path, token, body);
    }

    /// A body of any kind.
    Reply sendText(const std::string& method, const std::string& path, const std::string& token,
        const std::string& contentType, const std::string& body) const;

    /// Exchanges a refresh token.
    Reply renew(const std::string& refreshToken, const std::string& key = "quorvel-local-development") const;

    /// The whole answer to signing in.
    Reply signIn(const std::string& email, const std::string& password = "quorvel-demo") const;

    /// The ID token; signing in must succeed.
    std::string tokenOf(const std::string& email, const std::string& password = "quorvel-demo") const;

    std::unique_ptr<httplib::SSLClient> client() const;

private:
    int port_;
    std::string authority_;
};

/// One file of a form.
struct FormFile
{
    std::string name;
    std::string type;
    std::string content;
    std::string field = "desktop_files[]";
};

inline constexpr const char* formType = "multipart/form-data; boundary=Boundary-6A1F";

/// A form as the desktop client writes it: names as they are, without any escape.
std::string formBody(
    const std::vector<std::pair<std::string, std::string>>& fields, const std::vector<FormFile>& files);

/// The fields that the desktop client sends with its files.
std::vector<std::pair<std::string, std::string>> desktopFields(
    const std::string& label, const std::string& category, std::size_t files);

/// The least that books a session.
Json bookingBody();
