#include "benchmarks/TargetProgramRun.h"

#include <gio/gunixinputstream.h>
#include <poll.h>

#include <cstdlib>

namespace stagehopper::benchmarks {

namespace {

constexpr int readyLimitMilliseconds = 10'000;

bool becomesReady(GSubprocess* program) {
    auto* output = G_UNIX_INPUT_STREAM(g_subprocess_get_stdout_pipe(program));
    pollfd waited{g_unix_input_stream_get_fd(output), POLLIN, 0};
    return poll(&waited, 1, readyLimitMilliseconds) == 1 && (waited.revents & POLLIN) != 0;
}

}  // namespace

TargetProgramRun::TargetProgramRun(const std::filesystem::path& executable) {
    constexpr auto flags = static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE |
                                                         G_SUBPROCESS_FLAGS_STDOUT_PIPE);
    program_ = g_subprocess_new(flags, nullptr, executable.c_str(), nullptr);
    if (program_ == nullptr || !becomesReady(program_)) return;
    process_ = std::atoi(g_subprocess_get_identifier(program_));
}

TargetProgramRun::~TargetProgramRun() {
    if (program_ == nullptr) return;
    g_output_stream_close(g_subprocess_get_stdin_pipe(program_), nullptr, nullptr);
    g_subprocess_wait(program_, nullptr, nullptr);
    g_object_unref(program_);
}

}  // namespace stagehopper::benchmarks
