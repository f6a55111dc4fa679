#include "companion/backend/log/LogFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace stagehopper::companion {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

bool isOursAlone(const struct stat& file) {
    return S_ISREG(file.st_mode) && file.st_uid == ::geteuid() && file.st_nlink == 1;
}

}  // namespace

LogFile::LogFile(std::string path, std::size_t maxBytes)
    : path_(std::move(path)), maxBytes_(maxBytes) {
    open();
}

LogFile::~LogFile() {
    close();
}

void LogFile::append(std::string_view line) {
    if (handle_ < 0 || !makeRoomFor(line.size())) return;
    // Ignored: the program goes on with a full disk, and has nowhere else to report it.
    [[maybe_unused]] const ssize_t written = ::write(handle_, line.data(), line.size());
}

void LogFile::open() {
    if (path_.empty()) return;
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ignored);
    // Non-blocking: the path may lead to a pipe without a reader.
    handle_ = ::open(path_.c_str(),
                     O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                     ownerOnly);
    struct stat file {};
    if (handle_ < 0) return;
    if (::fstat(handle_, &file) != 0 || !isOursAlone(file)) return close();
    if ((file.st_mode & 07777) != ownerOnly && ::fchmod(handle_, ownerOnly) != 0) close();
}

void LogFile::close() {
    if (handle_ >= 0) ::close(handle_);
    handle_ = -1;
}

bool LogFile::makeRoomFor(std::size_t bytes) {
    struct stat ours {};
    if (::fstat(handle_, &ours) != 0) return false;
    if (static_cast<std::size_t>(ours.st_size) + bytes <= maxBytes_) return true;
    // Another process that writes to the file may have renamed it already.
    struct stat named {};
    const bool isOurs = ::lstat(path_.c_str(), &named) == 0 && named.st_dev == ours.st_dev &&
                        named.st_ino == ours.st_ino;
    if (isOurs && std::rename(path_.c_str(), (path_ + ".1").c_str()) != 0) return false;
    close();
    open();
    return handle_ >= 0;
}

}  // namespace stagehopper::companion
