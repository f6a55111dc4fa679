#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "platform/Clock.h"
#include "platform/Workspace.h"

namespace stagehopper::platform {

/// What the system knows about this process and its user. Any thread.
class Host {
public:
    virtual ~Host() = default;
    /// This program's own identity, in the form of `RunningApplication::bundleIdentifier`.
    virtual std::optional<std::string> bundleIdentifier() = 0;
    /// The resource directory of the installed program; absent if it has none.
    virtual std::optional<std::filesystem::path> bundleResourceDirectory() = 0;
    /// The command line; the first entry is the executable's path.
    virtual std::vector<std::string> arguments() = 0;
    virtual std::filesystem::path currentDirectory() = 0;
    /// Of two variables with the same name the first, as a lookup by name returns. Variables
    /// without a name may be left out; so may those that are not UTF-8 if the system delivers
    /// texts.
    virtual Environment environment() = 0;
    virtual Pid processIdentifier() = 0;
    /// A fresh random UUID: 36 characters, upper case, with hyphens.
    virtual std::string makeUuid() = 0;
    /// The local time of day with seconds and without a date, in the format of the user's locale.
    virtual std::string localizedTime(Date date) = 0;
};

}  // namespace stagehopper::platform
