#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// A file that only its user may read. A full file replaces the previous one with ".1" after its
/// name, and a new file begins: together they take at most twice the maximum size.
/// Nothing is written to a symbolic link, to a file with a second name, or to another user's file:
/// strangers cause lines, and these must not end up in a file that is not ours.
/// One thread at a time. Other processes of the user may write to the same file.
class LogFile {
public:
    /// Writes nothing if the path is empty.
    LogFile(std::string path, std::size_t maxBytes);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    void append(std::string_view line);

private:
    void open();
    void close();
    /// False if the file is full and cannot be renamed.
    bool makeRoomFor(std::size_t bytes);

    std::string path_;
    std::size_t maxBytes_;
    int handle_ = -1;
};

}  // namespace stagehopper::companion
