#pragma once

#include <string_view>

namespace stagehopper::companion {

/// Writes lines to standard error without blocking: a line is dropped if the reader is too slow.
/// One thread at a time.
class ErrorOutput {
public:
    explicit ErrorOutput(int handle);
    ~ErrorOutput();
    ErrorOutput(const ErrorOutput&) = delete;
    ErrorOutput& operator=(const ErrorOutput&) = delete;

    /// At most 4 KiB: a pipe takes that much either completely or not at all.
    void write(std::string_view line) const;

private:
    int handle_;
    bool isOwn_ = false;
};

}  // namespace stagehopper::companion
