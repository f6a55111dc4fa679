#include "companion/backend/ErrorOutput.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>

namespace stagehopper::companion {

ErrorOutput::ErrorOutput(int handle) : handle_(handle) {
    // A terminal may take a part of a line and then wait. Opened anew, it can be told not to,
    // which the other programs that write to it do not notice.
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
