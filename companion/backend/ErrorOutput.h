#pragma once

#include <string_view>

namespace stagehopper::companion {

/// Writes lines to standard error as long as they are read there; others are dropped, so that a
/// reader that stands still does not stop the program.
/// Thread: one at a time.
class ErrorOutput {
public:
    explicit ErrorOutput(int handle);
    ~ErrorOutput();
    ErrorOutput(const ErrorOutput&) = delete;
    ErrorOutput& operator=(const ErrorOutput&) = delete;

    /// Up to 4 KiB: a pipe takes so much whole or not at all.
    void write(std::string_view line) const;

private:
    int handle_;
    bool isOwn_ = false;
};

}  // namespace stagehopper::companion
