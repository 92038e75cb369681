#include "support/Api.h"

#include <gtest/gtest.h>

#include <csignal>

std::string Reply::header(const std::string& name) const
{
    const auto found = headers.find(name);
    return found == headers.end() ? std::string() : found->second;
}

Api::Api(int port, const std::filesystem::path& data) : port_(port), authority_(data / "tls" / "ca.pem")
{
    // OpenSSL writes to connections that a server killed meanwhile has reset: a test is to get no answer
    // then, rather than to die with the server.
    std::signal(SIGPIPE, SIG_IGN);
}

std::unique_ptr<httplib::SSLClient> Api::client() const
{
    auto client = std::make_unique<httplib::SSLClient>("127.0.0.1", port_);
    client->set_ca_cert_path(authority_.c_str());
    client->set_read_timeout(60);
    client->set_keep_alive(true);
    return client;
}

Reply Api::send(
    const std::string& method, const std::string& path, const std::string& token, const Json& body) const
{
    return sendText(method, path, token, "application/json", body.is_null() ? std::string() : body.dump());
}

Reply Api::sendText(const std::string& method, const std::string& path, const std::string& token,
    const std::string& contentType, const std::string& body) const
{
    httplib::Request request;
    request.method = method;
    request.path = path.rfind("//", 0) == 0 ? path.substr(1) : "/mobile-bridge/v1" + path;
    request.headers = {{"Accept", "application/json"}, {"Content-Type", contentType}};
    if (!token.empty())
        request.headers.emplace("Authorization", "Bearer " + token);
    request.body = body;

    const auto connection = client();
    const httplib::Result result = connection->send(request);
    Reply reply;
    if (!result) {
        reply.text = "no answer: " + httplib::to_string(result.error());
        return reply;
    }
    reply.status = result->status;
    reply.text = result->body;
    reply.headers = result->headers;
    const Json parsed = Json::parse(result->body, nullptr, false);
    if (!parsed.is_discarded())
        reply.body = parsed;
    return reply;
}

Reply Api::renew(const std::string& refreshToken, const std::string& key) const
{
    return sendText("POST", "//v1/token?key=" + key, {}, "application/x-www-form-urlencoded",
        "grant_type=refresh_token&refresh_token=" + refreshToken);
}

Reply Api::signIn(const std::string& email, const std::string& password) const
{
    return post("/auth/password-login", {},
        {{"email", email}, {"password", password}, {"role_hint", "auto"}, {"platform", "macos_desktop"}});
}

std::string Api::tokenOf(const std::string& email, const std::string& password) const
{
    const Reply reply = signIn(email, password);
    EXPECT_EQ(reply.status, 200) << email << ": " << reply.text;
    return reply.status == 200 ? reply.body.at("firebase").at("idToken").get<std::string>() : std::string();
}

std::string formBody(
    const std::vector<std::pair<std::string, std::string>>& fields, const std::vector<FormFile>& files)
{
    const std::string delimiter = "--Boundary-6A1F";
    std::string body;
    for (const auto& [name, value] : fields)
        body += delimiter + "\r\nContent-Disposition: form-data; name=\"" + name + "\"\r\n\r\n" + value
            + "\r\n";
    for (const FormFile& file : files)
        body += delimiter + "\r\nContent-Disposition: form-data; name=\"" + file.field + "\"; filename=\""
            + file.name + "\"\r\nContent-Type: " + file.type + "\r\n\r\n" + file.content + "\r\n";
    return body + delimiter + "--\r\n";
}

std::vector<std::pair<std::string, std::string>> desktopFields(
    const std::string& label, const std::string& category, std::size_t files)
{
    std::vector<std::pair<std::string, std::string>> fields{{"source", "macos_desktop_drag_drop"},
        {"document_label", label}, {"document_category", category}, {"file_count", std::to_string(files)}};
    for (std::size_t i = 0; i < files; ++i) {
        fields.emplace_back("file_labels[" + std::to_string(i) + ']', label);
        fields.emplace_back("file_categories[" + std::to_string(i) + ']', category);
    }
    return fields;
}

Json bookingBody()
{
    return {{"contact_name", "Priya Raman"}, {"contact_email", "priya.raman@example.com"},
        {"contact_phone", "(555) 010-0142"}, {"appointment_asap", false},
        {"document_retrieval_option", "priority"}, {"document_type", "Jurat / Affidavit"},
        {"notary_act_unknown", false}, {"notary_act_count", 2}, {"remote_signing_details", "An affidavit."},
        {"requires_witness", true}, {"needs_apostille", false}, {"notes", "Please call first."},
        {"signer_count", 2}, {"timezone", "America/New_York"}, {"booking_source", "macos_desktop"},
        {"preferred_date", "2031-05-06"}, {"preferred_time", "2:05 PM"},
        {"signer_names", {"Priya Raman", "Arun Raman"}},
        {"signer_emails", {"priya.raman@example.com", "arun@example.com"}},
        {"signer_phones", {"", "555 0102"}}, {"signer_id_types", {"Passport", "State ID"}},
        {"signer_id_expirations", {"2032-01-01", "2033-02-02"}}};
}
