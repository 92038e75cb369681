#include "support/RunningBridge.h"

#include "Store/Query.h"

// 2031-05-05 14:00 in New York.
static constexpr std::chrono::milliseconds birth(1'935'770'400'000);

RunningBridge::RunningBridge(const Wishes& wishes)
{
    bridge::Settings settings;
    settings.data = folder_.path();
    settings.port = 0;
    settings.demo = true;
    settings.largestUpload = wishes.largestUpload;
    settings.apiKey = wishes.apiKey;
    settings.verbose = wishes.verbose;
    settings.daily = wishes.daily;
    settings.answerMemory = wishes.answerMemory;
    settings.passwordCost = bridge::PasswordCost::Lowest;
    settings.steadyClock
        = [this] { return bridge::SteadyMoment(birth + std::chrono::milliseconds(elapsed_.load())); };
    settings.clock = [this] {
        return bridge::Moment(birth + std::chrono::milliseconds(elapsed_.load() - setBack_.load()));
    };
    bridge_ = std::make_unique<bridge::Bridge>(settings);
    if (wishes.operations)
        wishes.operations(bridge_->router());
    bridge_->listen();
    thread_ = std::thread([this] { bridge_->run(); });
}

RunningBridge::~RunningBridge()
{
    bridge_->stop();
    thread_.join();
}

long long BridgeTest::book(const std::string& token, const Json& body)
{
    const Reply reply = api.post("/remote-notary/sessions", token, body);
    EXPECT_EQ(reply.status, 201) << reply.text;
    return std::stoll(stored("select max(id) from sessions"));
}

std::string BridgeTest::stored(const std::string& query)
{
    return bridge.service().database.read([&](soci::session& sql) {
        std::string value;
        bridge::Query(sql, query).into(value).next();
        return value;
    });
}
