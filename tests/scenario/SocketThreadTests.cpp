// The slide socket with completions on a real thread, as in real sessions. Thread sanitizer finds
// the faults.

#include <gtest/gtest.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "app/AppController.h"
#include "ports/simulated/Desktop.h"

namespace stagehopper {
namespace {

/// Answers at once, on its own thread: requests with a meeting, receives with a step.
class BusySession final : public platform::UrlSession {
public:
    BusySession() : thread_([this] { work(); }) {}
    ~BusySession() override {
        {
            const std::lock_guard lock(mutex_);
            closed_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }
    BusySession(const BusySession&) = delete;
    BusySession& operator=(const BusySession&) = delete;

    void startDataTask(const std::string& url,
                       std::function<void(platform::DataResult)> completion) override {
        const std::string body =
            R"({"meetings":[{"roomCode":"AB12","roomName":"","createdAt":1,"participants":)"
            R"([{"userId":"phone","displayName":"","role":"guest"}]}]})";
        // Ports above the first are silent, so that a scan ends at once.
        if (url.find(":3000/") == std::string::npos) return;
        post([completion = std::move(completion), body] {
            completion({.response = platform::HttpResponse{200, body}, .error = {}});
        });
    }
    std::shared_ptr<platform::WebSocketTask> makeWebSocketTask(const std::string& /*url*/) override;

    void post(platform::Task task) {
        {
            const std::lock_guard lock(mutex_);
            tasks_.push_back(std::move(task));
        }
        changed_.notify_all();
    }

    std::atomic<int> messages{0};

private:
    void work() {
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, [this] { return closed_ || !tasks_.empty(); });
            if (closed_) return;
            auto task = std::move(tasks_.front());
            tasks_.pop_front();
            lock.unlock();
            task();
            task = nullptr;
            lock.lock();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<platform::Task> tasks_;
    bool closed_ = false;
    std::thread thread_;
};

class BusySocket final : public platform::WebSocketTask {
public:
    explicit BusySocket(BusySession& session) : session_(session) {}
    void resume() override {}
    void receive(std::function<void(platform::ReceiveResult)> completion) override {
        const auto number = ++session_.messages;
        session_.post([completion = std::move(completion), number] {
            if (number % 50 == 0) return completion(platform::UrlError{"lost"});
            completion(platform::WebSocketMessage{
                platform::WebSocketMessage::Kind::text,
                R"({"type":"slide_nav","direction":"x","seq":)" + std::to_string(number) + "}"});
        });
    }
    void sendPing(std::function<void(std::optional<platform::UrlError>)> pongHandler) override {
        session_.post(
            [pongHandler = std::move(pongHandler)] { pongHandler(platform::UrlError{"no pong"}); });
    }
    void cancel(int /*closeCode*/) override {}

private:
    BusySession& session_;
};

std::shared_ptr<platform::WebSocketTask> BusySession::makeWebSocketTask(
    const std::string& /*url*/) {
    return std::make_shared<BusySocket>(*this);
}

TEST(SocketThread, ConnectionsMayOpenAndCloseWhileMessagesArrive) {
    using namespace std::chrono_literals;
    simulated::Desktop desktop;
    BusySession session;
    auto platform = desktop.platform();
    const platform::Platform threaded{
        .accessibility = platform.accessibility,
        .application = platform.application,
        .childProcesses = platform.childProcesses,
        .clock = platform.clock,
        .dispatch = platform.dispatch,
        .fileSystem = platform.fileSystem,
        .host = platform.host,
        .json = platform.json,
        .keyboardEvents = platform.keyboardEvents,
        .screens = platform.screens,
        .systemLog = platform.systemLog,
        .text = platform.text,
        .urlSession = session,
        .userInterface = platform.userInterface,
        .workspace = platform.workspace,
        .slideApplications = {},
    };
    const auto app = AppController::create(threaded);
    const auto end = std::chrono::steady_clock::now() + 20s;
    for (int round = 0; session.messages < 2000; ++round) {
        ASSERT_LT(std::chrono::steady_clock::now(), end);
        app->connectNativeSlideSocket("http://127.0.0.1:3000", round % 3 == 0 ? "AB12" : "CD34",
                                      "test");
        if (round % 7 == 0) app->cancelNativeSlideSocket("test");
        desktop.advance(20s);
        std::this_thread::yield();
    }
    app->applicationWillTerminate();
}

}  // namespace
}  // namespace stagehopper
