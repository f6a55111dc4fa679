// From a step on the slide socket to the key in a program in the background: the whole controller
// with the Linux port, against a client that does nothing but read the frame and post the key. A
// measurement begins when the frame has been read (the controller's on the session's thread) and
// ends when the call that posts the key press returns. The 50 ms for which a key is held come after
// that. Needs a desktop.

#include <gtk/gtk.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <thread>
#include <vector>

#include "app/AppController.h"
#include "benchmarks/Percentiles.h"
#include "benchmarks/StepServer.h"
#include "benchmarks/TargetProgramRun.h"
#include "platform/Accessibility.h"
#include "platform/Host.h"
#include "platform/KeyboardEvents.h"
#include "platform/UrlSession.h"
#include "platform/Workspace.h"
#include "ports/linux/LinuxServices.h"
#include "ports/linux/network/BeastUrlSession.h"

namespace stagehopper::benchmarks {
namespace {

using std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int stepsInARun = 250;
constexpr auto keyHold = std::chrono::milliseconds(50);
// No thumb is faster; and what the target still does about the last key is not measured.
constexpr auto betweenSteps = std::chrono::milliseconds(50);
constexpr auto limit = std::chrono::seconds(10);

/// Forwards keys and records when a press has been posted.
class ObservedKeyboard final : public platform::KeyboardEvents {
public:
    explicit ObservedKeyboard(platform::KeyboardEvents& keyboard) : keyboard_(keyboard) {}

    std::unique_ptr<platform::KeyboardEvent> makeKeyboardEvent(platform::VirtualKey key,
                                                               bool keyDown) override {
        // The controller makes both, then posts the press first.
        return keyboard_.makeKeyboardEvent(key, keyDown);
    }
    platform::Outcome postToProcess(platform::Pid process,
                                    const platform::KeyboardEvent& event) override {
        auto outcome = keyboard_.postToProcess(process, event);
        if (!outcome) std::fprintf(stderr, "a key was refused: %s\n", outcome.reason().c_str());
        if (++posted_ % 2 == 1) pressedAt = steady_clock::now();
        return outcome;
    }
    platform::Outcome postToFocus(const platform::KeyboardEvent& event) override {
        return keyboard_.postToFocus(event);
    }
    [[nodiscard]] int keysDone() const { return posted_ / 2; }

    steady_clock::time_point pressedAt;

private:
    platform::KeyboardEvents& keyboard_;
    int posted_ = 0;
};

/// A session of the port that notes when a frame has been read.
class ObservedSession final : public platform::UrlSession {
public:
    void startDataTask(const std::string& url,
                       std::function<void(platform::DataResult)> completion) override {
        session_->startDataTask(url, std::move(completion));
    }
    std::shared_ptr<platform::WebSocketTask> makeWebSocketTask(const std::string& url) override {
        return std::make_shared<Task>(session_->makeWebSocketTask(url), readAt);
    }

    void end() { session_.reset(); }

    std::atomic<steady_clock::time_point> readAt{};

private:
    class Task final : public platform::WebSocketTask {
    public:
        Task(std::shared_ptr<platform::WebSocketTask> task,
             std::atomic<steady_clock::time_point>& readAt)
            : task_(std::move(task)), readAt_(readAt) {}
        void resume() override { task_->resume(); }
        void receive(std::function<void(platform::ReceiveResult)> completion) override {
            task_->receive([this, completion = std::move(completion)](auto result) {
                readAt_ = steady_clock::now();
                completion(std::move(result));
            });
        }
        void sendPing(std::function<void(std::optional<platform::UrlError>)> handler) override {
            task_->sendPing(std::move(handler));
        }
        void cancel(int closeCode) override { task_->cancel(closeCode); }

    private:
        std::shared_ptr<platform::WebSocketTask> task_;
        std::atomic<steady_clock::time_point>& readAt_;
    };

    std::unique_ptr<platform::UrlSession> session_ =
        std::make_unique<linux_port::BeastUrlSession>();
};

/// Keeps the steps' lines off the terminal.
class QuietLog final : public platform::SystemLog {
public:
    void write(std::string_view /*message*/) override {}
};

std::filesystem::path keySink() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "stagehopper_key_sink";
}

bool runUntil(const std::function<bool()>& done) {
    const auto end = steady_clock::now() + limit;
    const auto wake = g_timeout_add(
        1000, [](gpointer) -> gboolean { return TRUE; }, nullptr);
    while (!done() && steady_clock::now() < end) g_main_context_iteration(nullptr, TRUE);
    g_source_remove(wake);
    return done();
}

void runFloor(platform::KeyboardEvents& keyboard, platform::Pid target,
              std::vector<double>& times) {
    StepServer server;
    BareClient client(server.port());
    const auto press = keyboard.makeKeyboardEvent(platform::virtual_key::pageDown, true);
    const auto release = keyboard.makeKeyboardEvent(platform::virtual_key::pageDown, false);
    for (int i = 0; i < stepsInARun; ++i) {
        std::this_thread::sleep_for(betweenSteps);
        server.sendStep();
        client.readFrame();
        const auto readAt = steady_clock::now();
        const auto posted = keyboard.postToProcess(target, *press);
        times.push_back(Milliseconds(steady_clock::now() - readAt).count());
        std::this_thread::sleep_for(keyHold);
        if (!posted || !keyboard.postToProcess(target, *release)) {
            std::fputs("a key was refused\n", stderr);
        }
    }
}

bool runController(linux_port::LinuxServices& services, std::vector<double>& times) {
    StepServer server;
    ObservedKeyboard keyboard(services.platform().keyboardEvents);
    ObservedSession session;
    const auto controller = AppController::create(services.platform(keyboard, session));
    controller->connectNativeSlideSocket("http://127.0.0.1:" + server.port(), "BENCH", "benchmark");
    for (int i = 0; i < stepsInARun; ++i) {
        std::this_thread::sleep_for(betweenSteps);
        server.sendStep();
        if (!runUntil([&] { return keyboard.keysDone() > i; })) return false;
        times.push_back(Milliseconds(keyboard.pressedAt - session.readAt.load()).count());
    }
    controller->cancelNativeSlideSocket("benchmark");
    // Its last completion comes before the observers go.
    session.end();
    return true;
}

void print(const char* name, std::vector<double>& times) {
    std::ranges::sort(times);
    std::printf("%-11s %4zu steps: p50 %6.3f ms, p90 %6.3f ms, p99 %6.3f ms, max %6.3f ms\n", name,
                times.size(), percentile(times, 0.5), percentile(times, 0.9),
                percentile(times, 0.99), times.back());
}

int run(int argc, char** argv) {
    QuietLog log;
    linux_port::LinuxServices services(argc, argv, log);
    if (!services.openDisplay()) {
        std::fputs("no display\n", stderr);
        return 1;
    }
    services.start();
    const auto platform = services.platform();
    const TargetProgramRun target(keySink());
    // The window whose keys are to go elsewhere.
    GtkWidget* front = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_widget_show_all(front);
    if (target.process() == 0 || !runUntil([&] {
            const auto inFront = platform.workspace.frontmostApplication();
            return inFront && inFront->processIdentifier == platform.host.processIdentifier() &&
                   platform.accessibility.isProcessTrusted();
        })) {
        std::fputs("the windows did not come up\n", stderr);
        return 1;
    }

    std::vector<double> floor;
    std::vector<double> controller;
    // In turns, so that both meet the same moods of the machine.
    for (int round = 0; round < 2; ++round) {
        runFloor(platform.keyboardEvents, target.process(), floor);
        if (!runController(services, controller)) {
            std::fputs("a step did not become a key\n", stderr);
            return 1;
        }
    }
    gtk_widget_destroy(front);

    std::puts("frame read -> key press posted to a program in the background");
    print("bare floor", floor);
    print("controller", controller);
    std::printf("ratio       p50 %.1f, p99 %.1f\n",
                percentile(controller, 0.5) / percentile(floor, 0.5),
                percentile(controller, 0.99) / percentile(floor, 0.99));
    return 0;
}

}  // namespace
}  // namespace stagehopper::benchmarks

int main(int argc, char** argv) {
    return stagehopper::benchmarks::run(argc, argv);
}
