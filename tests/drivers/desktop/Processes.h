#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace stagehopper::desktop {

/// Every living process of ours whose environment, as it was at its start, contains `text`.
[[nodiscard]] std::vector<pid_t> processesWithEnvironment(std::string_view text);

/// Whether a process group has a member that is not merely waiting for its parent to take note.
[[nodiscard]] bool isGroupAlive(pid_t group);

/// The name of a process's program, empty when it is gone.
[[nodiscard]] std::string programName(pid_t process);

}  // namespace stagehopper::desktop
