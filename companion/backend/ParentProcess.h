#pragma once

#include <cstdint>

namespace stagehopper::companion {

/// The process with whose end the backend ends.
/// Thread: any.
class ParentProcess {
public:
    explicit ParentProcess(std::int64_t id);

    bool isGone() const;

private:
    std::int64_t id_;
    /// A real parent's end is seen even when its id is given to another process at once.
    bool isOurs_;
};

}  // namespace stagehopper::companion
