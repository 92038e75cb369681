#pragma once

#include "Bridge.h"
#include "support/Api.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

/// A server in this process, on a free port of 127.0.0.1, with the demo data and a clock of the test's own.
class RunningBridge
{
public:
    struct Wishes
    {
        std::uint64_t largestUpload = 64 << 20;
        std::string apiKey;
        bool verbose = false;
        bridge::DailyLimits daily = {};
        std::size_t answerMemory = 256 << 20;
        /// Adds operations of the test's own.
        std::function<void(bridge::Router&)> operations;
    };

    RunningBridge() : RunningBridge(Wishes()) { }
    explicit RunningBridge(const Wishes& wishes);
    ~RunningBridge();

    void letPass(std::chrono::milliseconds time) { elapsed_ += time.count(); }

    /// The time of day is corrected, while time itself goes on.
    void setClockBack(std::chrono::milliseconds time) { setBack_ += time.count(); }

    bridge::Service& service() { return bridge_->service(); }
    const std::filesystem::path& data() const { return folder_.path(); }
    int port() const { return bridge_->port(); }
    Api api() const { return {port(), data()}; }

private:
    TemporaryFolder folder_;
    std::atomic<long long> elapsed_ = 0;
    std::atomic<long long> setBack_ = 0;
    std::unique_ptr<bridge::Bridge> bridge_;
    std::thread thread_;
};

/// Tests against a fresh server.
class BridgeTest : public testing::Test
{
protected:
    static constexpr const char* client = "priya.raman@example.com";
    static constexpr const char* otherClient = "tomas.alder@example.com";
    static constexpr const char* business = "helen.brandt@example.com";
    static constexpr const char* notary = "samuel.adeyemi@example.com";
    static constexpr const char* otherNotary = "marta.kowal@example.com";
    /// Also a notary.
    static constexpr const char* admin = "maya.whitfield@example.com";

    std::string tokenOf(const std::string& email) const { return api.tokenOf(email); }

    /// Books the session and returns its id, wherever the answer told it.
    long long book(const std::string& token, const Json& body = bookingBody());

    /// A single value of the database.
    std::string stored(const std::string& query);

    RunningBridge bridge;
    Api api = bridge.api();
};
