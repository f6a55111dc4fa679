#pragma once

#include <map>
#include <optional>
#include <vector>

#include "platform/Workspace.h"
#include "ports/linux/atspi/BusCall.h"

namespace stagehopper::linux_port {

/// A program as it was met last, so that asking whether it still stands so and asking for its
/// windows is one round instead of three.
struct KnownProgram {
    ObjectReference root;
    std::vector<ObjectReference> windows;
};

/// The programs that were met on one connection to the accessibility bus. Main thread only.
class KnownPrograms {
public:
    [[nodiscard]] std::optional<KnownProgram> find(platform::Pid process) const;
    void remember(platform::Pid process, KnownProgram program);
    /// Forgets those whose root is not among these.
    void keepOnly(const std::vector<ObjectReference>& roots);
    void clear() { programs_.clear(); }

private:
    std::map<platform::Pid, KnownProgram> programs_;
};

}  // namespace stagehopper::linux_port
