#include "tests/drivers/phone/DebuggerPipe.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr int browserReadsAt = 3;
constexpr int browserWritesAt = 4;

}  // namespace

DebuggerPipe::DebuggerPipe() {
    // A socket rather than two pipes: writing to a browser that is gone is then an error that we
    // can report, and not a signal that ends us.
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw DesktopError("no connection to a browser could be made");
    }
    ourEnd_ = ends[0];
    browserEnd_ = ends[1];
}

DebuggerPipe::~DebuggerPipe() {
    closeBrowserEnd();
    close(ourEnd_);
}

std::vector<HandedDescriptor> DebuggerPipe::browserEnd() const {
    return {{browserEnd_, browserReadsAt}, {browserEnd_, browserWritesAt}};
}

void DebuggerPipe::closeBrowserEnd() {
    if (browserEnd_ >= 0) close(std::exchange(browserEnd_, -1));
}

nlohmann::json DebuggerPipe::call(const std::string& method, const nlohmann::json& parameters,
                                  Limit limit) {
    const int id = ++lastCall_;
    nlohmann::json message{{"id", id}, {"method", method}, {"params", parameters}};
    if (!session_.empty()) message["sessionId"] = session_;
    answer_ = nullptr;
    send(message.dump());
    if (!listenUntil([this] { return !answer_.is_null(); }, limit)) {
        throw DesktopError("the browser did not answer " + method);
    }
    const auto answer = std::exchange(answer_, nullptr);
    if (answer.contains("error")) {
        throw DesktopError(method + ": " + answer["error"].value("message", "refused"));
    }
    return answer.value("result", nlohmann::json::object());
}

bool DebuggerPipe::listenUntil(const std::function<bool()>& condition, Limit limit) {
    const Deadline deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (!readSome(deadline)) return false;
        takeMessages();
    }
    return true;
}

void DebuggerPipe::send(const std::string& message) {
    // With the zero byte that ends it.
    std::string_view rest(message.c_str(), message.size() + 1);
    while (!rest.empty()) {
        const auto count = ::send(ourEnd_, rest.data(), rest.size(), MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) throw DesktopError("the browser is gone");
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
}

bool DebuggerPipe::readSome(Deadline deadline) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (left.count() < 0) return false;
    pollfd watched{ourEnd_, POLLIN, 0};
    if (poll(&watched, 1, static_cast<int>(left.count())) <= 0) return true;
    std::array<char, 65536> bytes{};
    const auto count = read(ourEnd_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) return true;
    if (count <= 0) throw DesktopError("the browser is gone");
    incoming_.append(bytes.data(), static_cast<std::size_t>(count));
    return true;
}

void DebuggerPipe::takeMessages() {
    for (auto end = incoming_.find('\0'); end != std::string::npos; end = incoming_.find('\0')) {
        const auto message = nlohmann::json::parse(std::string_view(incoming_).substr(0, end));
        incoming_.erase(0, end + 1);
        if (message.value("id", 0) == lastCall_) answer_ = message;
        if (message.contains("method") && handler_) {
            handler_(message["method"], message.value("params", nlohmann::json::object()));
        }
    }
}

}  // namespace stagehopper::desktop
