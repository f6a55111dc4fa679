#include "companion/backend/log/ErrorOutput.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>

namespace stagehopper::companion {

ErrorOutput::ErrorOutput(int handle) : handle_(handle) {
    // A write to a terminal can block in the middle of a line. A descriptor of our own can be made
    // non-blocking without affecting other programs that write to the terminal.
    std::array<char, 256> name{};
    if (::isatty(handle) == 0 || ::ttyname_r(handle, name.data(), name.size()) != 0) return;
    const int own = ::open(name.data(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (own < 0) return;
    handle_ = own;
    isOwn_ = true;
}

ErrorOutput::~ErrorOutput() {
    if (isOwn_) ::close(handle_);
}

void ErrorOutput::write(std::string_view line) const {
    pollfd ready{handle_, POLLOUT, 0};
    if (::poll(&ready, 1, 0) != 1 || (ready.revents & POLLOUT) == 0) return;
    [[maybe_unused]] const ssize_t written = ::write(handle_, line.data(), line.size());
}

}  // namespace stagehopper::companion
