#pragma once

#include <map>
#include <optional>
#include <vector>

#include "platform/Workspace.h"
#include "ports/linux/atspi/BusCall.h"

namespace stagehopper::linux_port {

/// A program as it was found last. With it, one round instead of three checks that the program has
/// not changed and reads its windows.
struct CachedProgram {
    ObjectReference root;
    std::vector<ObjectReference> windows;
};

/// The programs found on one connection to the accessibility bus. Main thread only.
class ProgramCache {
public:
    [[nodiscard]] std::optional<CachedProgram> find(platform::Pid process) const;
    void store(platform::Pid process, CachedProgram program);
    /// Drops every program whose root is not in `roots`.
    void keepOnly(const std::vector<ObjectReference>& roots);
    void clear() { programs_.clear(); }

private:
    std::map<platform::Pid, CachedProgram> programs_;
};

}  // namespace stagehopper::linux_port
