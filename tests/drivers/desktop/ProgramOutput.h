#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::desktop {

struct OutputLine {
    std::chrono::steady_clock::time_point arrived;
    bool onStandardError = false;
    std::string text;
};

/// The lines that a program has written so far, both streams in order of arrival. Any thread.
class ProgramOutput {
public:
    void add(OutputLine line);
    /// No more lines will come.
    void end();

    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] std::vector<OutputLine> linesFrom(std::size_t first) const;
    /// How many lines from `first` on contain `text`.
    [[nodiscard]] std::size_t count(std::string_view text, std::size_t first = 0) const;
    /// Waits for a line that contains `text`, at `first` or later; its place.
    [[nodiscard]] std::optional<std::size_t> waitForLine(std::string_view text, Limit limit,
                                                         std::size_t first = 0) const;
    /// Everything, for an error message.
    [[nodiscard]] std::string text() const;

private:
    [[nodiscard]] std::optional<std::size_t> find(std::string_view text, std::size_t first) const;

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::vector<OutputLine> lines_;
    bool ended_ = false;
};

}  // namespace stagehopper::desktop
