#include "ports/posix/PosixFileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <system_error>

#include "ports/posix/FileDescriptor.h"

namespace stagehopper::posix {

namespace {

constexpr mode_t defaultPermissions = 0666;

bool isOrdinaryFile(const FileDescriptor& file) {
    struct stat status {};
    return ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

bool PosixFileSystem::fileExists(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

bool PosixFileSystem::isExecutableFile(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

bool PosixFileSystem::createFile(const std::filesystem::path& path, std::string_view contents) {
    const FileDescriptor file(::open(
        path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, defaultPermissions));
    return file.isOpen() && writeAll(file.number(), contents);
}

bool PosixFileSystem::appendToFile(const std::filesystem::path& path, std::string_view bytes) {
    // Non-blocking: opening a pipe that nobody reads would wait for ever.
    const FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return file.isOpen() && isOrdinaryFile(file) && writeAll(file.number(), bytes);
}

std::filesystem::path PosixFileSystem::resolvingSymlinks(const std::filesystem::path& path) {
    std::error_code error;
    auto resolved = std::filesystem::weakly_canonical(path, error);
    return error ? path : resolved;
}

}  // namespace stagehopper::posix
