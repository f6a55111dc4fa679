#include "ports/posix/PosixFileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <system_error>

#include "ports/posix/FileDescriptor.h"

namespace stagehopper::posix {

namespace {

constexpr mode_t defaultPermissions = 0666;

/// An ordinary file of this user's, under this name alone: we do not write to files planted by
/// others, neither to their own files nor to a second name of one of ours.
bool isOursAlone(const FileDescriptor& file) {
    struct stat status {};
    return ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_nlink == 1 && status.st_uid == ::geteuid();
}

}  // namespace

bool PosixFileSystem::fileExists(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

bool PosixFileSystem::isExecutableFile(const std::filesystem::path& path) {
    return ::access(path.c_str(), X_OK) == 0;
}

bool PosixFileSystem::createFile(const std::filesystem::path& path, std::string_view contents) {
    // Appending: others may write to it as soon as it is there.
    const FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
               defaultPermissions));
    return file.isOpen() && writeAll(file.number(), contents);
}

bool PosixFileSystem::appendToFile(const std::filesystem::path& path, std::string_view bytes) {
    // Non-blocking: opening a pipe without a reader would block forever.
    const FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return file.isOpen() && isOursAlone(file) && writeAll(file.number(), bytes);
}

std::filesystem::path PosixFileSystem::resolvingSymlinks(const std::filesystem::path& path) {
    std::error_code error;
    auto resolved = std::filesystem::weakly_canonical(path, error);
    return error ? path : resolved;
}

}  // namespace stagehopper::posix
