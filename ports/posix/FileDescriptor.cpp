#include "ports/posix/FileDescriptor.h"

#include <unistd.h>

#include <array>
#include <cerrno>

namespace stagehopper::posix {

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

std::string readToEnd(int file) {
    std::string bytes;
    std::array<char, 4096> piece{};
    for (;;) {
        const auto count = ::read(file, piece.data(), piece.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return bytes;
        bytes.append(piece.data(), static_cast<std::size_t>(count));
    }
}

}  // namespace stagehopper::posix
