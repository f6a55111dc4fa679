#pragma once

#include <cstdint>

namespace stagehopper::companion {

/// The process that the backend must not outlive. Any thread.
class ParentProcess {
public:
    explicit ParentProcess(std::int64_t id);

    [[nodiscard]] bool isGone() const;

private:
    std::int64_t id_;
    /// The end of a real parent is detected even if another process gets its id at once.
    bool isOurs_;
};

}  // namespace stagehopper::companion
