#include "tests/drivers/desktop/Processes.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace stagehopper::desktop {

namespace {

/// Empty if the process ends before or during the read, which a stream buffer reports by an
/// exception; the operator catches it.
std::string contentsOf(const std::filesystem::path& file) {
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream contents;
    contents << stream.rdbuf();
    return contents.str();
}

std::filesystem::path folderOf(pid_t process) {
    return "/proc/" + std::to_string(process);
}

std::vector<pid_t> allProcesses() {
    std::vector<pid_t> found;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", ignored)) {
        const std::string name = entry.path().filename();
        pid_t process = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
        if (error == std::errc{} && end == name.data() + name.size()) found.push_back(process);
    }
    return found;
}

}  // namespace

std::vector<pid_t> processesWithEnvironment(std::string_view text) {
    auto found = allProcesses();
    // A zombie's environment is empty: it is dead already.
    std::erase_if(found, [text](pid_t process) {
        return contentsOf(folderOf(process) / "environ").find(text) == std::string::npos;
    });
    return found;
}

bool isGroupAlive(pid_t group) {
    const auto processes = allProcesses();
    return std::any_of(processes.begin(), processes.end(), [group](pid_t process) {
        // "pid (name) state parent group ...", where the name may hold anything.
        const std::string status = contentsOf(folderOf(process) / "stat");
        std::istringstream fields(status.substr(status.rfind(')') + 1));
        char state = 'X';
        pid_t parent = 0;
        pid_t itsGroup = 0;
        fields >> state >> parent >> itsGroup;
        return itsGroup == group && state != 'Z' && state != 'X';
    });
}

std::string programName(pid_t process) {
    std::string name = contentsOf(folderOf(process) / "comm");
    while (!name.empty() && name.back() == '\n') name.pop_back();
    return name;
}

}  // namespace stagehopper::desktop
