#include "ports/linux/FileDescriptor.h"

#include <unistd.h>

#include <cerrno>

namespace stagehopper::linux_port {

FileDescriptor::~FileDescriptor() {
    if (isOpen()) ::close(number_);
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace stagehopper::linux_port
