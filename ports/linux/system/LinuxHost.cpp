#include "ports/linux/system/LinuxHost.h"

#include <glib.h>
#include <unistd.h>

#include <chrono>
#include <clocale>
#include <ctime>
#include <string_view>
#include <system_error>

#include "ports/linux/glib/GlibPointers.h"
#include "ports/linux/system/MediumTime.h"
#include "ports/linux/system/ProgramNames.h"

namespace stagehopper::linux_port {

LinuxHost::LinuxHost(int argumentCount, const char* const* arguments)
    : arguments_(arguments, arguments + argumentCount) {}

std::optional<std::string> LinuxHost::bundleIdentifier() {
    return applicationId;
}

std::optional<std::filesystem::path> LinuxHost::bundleResourceDirectory() {
    // Not the first argument: the parent process may set it to anything.
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return std::nullopt;
    auto directory = executable.parent_path().parent_path() / "share" / programName;
    if (!std::filesystem::is_directory(directory, error)) return std::nullopt;
    return directory;
}

std::filesystem::path LinuxHost::currentDirectory() {
    std::error_code error;
    return std::filesystem::current_path(error);
}

platform::Environment LinuxHost::environment() {
    platform::Environment variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        const auto nameEnd = text.find('=');
        if (nameEnd == 0 || nameEnd == std::string_view::npos) continue;
        // The first of two entries with one name counts, as in getenv.
        variables.emplace(text.substr(0, nameEnd), text.substr(nameEnd + 1));
    }
    return variables;
}

platform::Pid LinuxHost::processIdentifier() {
    return ::getpid();
}

std::string LinuxHost::makeUuid() {
    const TextPointer lowerCase(g_uuid_string_random());
    const TextPointer upperCase(g_ascii_strup(lowerCase.get(), -1));
    return upperCase.get();
}

std::string LinuxHost::localizedTime(platform::Date date) {
    const std::time_t seconds =
        std::chrono::floor<std::chrono::seconds>(date.time_since_epoch()).count();
    std::tm local{};
    // Reads the time zone again: it changes when a computer travels.
    tzset();
    if (localtime_r(&seconds, &local) == nullptr) return {};
    return mediumTime(std::setlocale(LC_TIME, nullptr), local);
}

}  // namespace stagehopper::linux_port
