#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// A file that only its user may read. When it is full it is renamed, with ".1" behind its name, in
/// place of the one before, and begins anew: what is there takes twice its size at most.
/// It is not written to when it is a link, when another name leads to it, or when it belongs to
/// another user: lines that strangers cause would end up in a file that is not ours.
/// Thread: one at a time. Other processes of the user may write to the same file.
class LogFile {
public:
    /// With an empty path nothing is written.
    LogFile(std::string path, std::size_t maxBytes);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    void append(std::string_view line);

private:
    void open();
    void close();
    /// False when the file is full and cannot be renamed.
    bool makeRoomFor(std::size_t bytes);

    std::string path_;
    std::size_t maxBytes_;
    int handle_ = -1;
};

}  // namespace stagehopper::companion
