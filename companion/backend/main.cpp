// Lets phones turn the slides: serves the pages, the meetings and their rooms.
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "companion/backend/limits/ConnectionLimits.h"
#include "companion/backend/server/Server.h"

namespace {

using namespace stagehopper::companion;

std::optional<std::string> environment(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

/// The default limit of open files is lower than the number of connections.
void allowEnoughFiles() {
    // Twice: connections beyond the limit need a descriptor as well, for their response.
    constexpr rlim_t needed = 2 * ConnectionLimits::maxConnections + 64;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= needed) return;
    limit.rlim_cur = std::min(needed, limit.rlim_max);
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

int run(int count, char** values) {
    const auto read = readOptions({values + 1, values + count}, environment);
    if (const auto* wrong = std::get_if<std::string>(&read)) {
        std::fprintf(stderr, "%s\n", wrong->c_str());
        return 2;
    }
    auto options = std::get<Options>(read);
    if (options.pages.empty()) {
        options.pages = std::filesystem::absolute(values[0]).parent_path().string();
    }
    // The program goes on if the reader of its log ends.
    std::signal(SIGPIPE, SIG_IGN);
    allowEnoughFiles();
    BackendLog log(options.logFile);
    const Pages pages(options.pages);
    for (const std::string& name : pages.missing()) log.line("page_missing", name);
    return serve(options, pages, log);
}

}  // namespace

int main(int count, char** values) {
    try {
        return run(count, values);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 70;
    }
}
