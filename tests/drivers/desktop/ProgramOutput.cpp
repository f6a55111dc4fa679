#include "tests/drivers/desktop/ProgramOutput.h"

#include <algorithm>

namespace stagehopper::desktop {

void ProgramOutput::add(OutputLine line) {
    const std::lock_guard lock(mutex_);
    lines_.push_back(std::move(line));
    changed_.notify_all();
}

void ProgramOutput::end() {
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

std::size_t ProgramOutput::size() const {
    const std::lock_guard lock(mutex_);
    return lines_.size();
}

std::vector<OutputLine> ProgramOutput::linesFrom(std::size_t first) const {
    const std::lock_guard lock(mutex_);
    const auto start = std::min(first, lines_.size());
    return {lines_.begin() + static_cast<std::ptrdiff_t>(start), lines_.end()};
}

std::size_t ProgramOutput::count(std::string_view text, std::size_t first) const {
    const auto lines = linesFrom(first);
    return static_cast<std::size_t>(std::count_if(
        lines.begin(), lines.end(),
        [text](const OutputLine& line) { return line.text.find(text) != std::string::npos; }));
}

std::optional<std::size_t> ProgramOutput::find(std::string_view text, std::size_t first) const {
    for (std::size_t i = first; i < lines_.size(); ++i) {
        if (lines_[i].text.find(text) != std::string::npos) return i;
    }
    return std::nullopt;
}

std::optional<std::size_t> ProgramOutput::waitForLine(std::string_view text, Limit limit,
                                                      std::size_t first) const {
    std::unique_lock lock(mutex_);
    std::optional<std::size_t> found;
    changed_.wait_for(lock, limit, [&] {
        found = find(text, first);
        return found || ended_;
    });
    return found;
}

std::string ProgramOutput::text() const {
    std::string all;
    for (const auto& line : linesFrom(0)) all += line.text + '\n';
    return all;
}

}  // namespace stagehopper::desktop
