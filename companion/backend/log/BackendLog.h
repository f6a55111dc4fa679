#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "companion/backend/limits/LineBudget.h"
#include "companion/backend/log/ErrorOutput.h"
#include "companion/backend/log/LogFile.h"

namespace stagehopper::companion {

/// Writes one line for each event, to standard error and to a file of limited size. Never pass it a
/// secret, a client's private id, a query, or the unknown path of a request, which can contain all
/// of these. One thread at a time.
class BackendLog {
public:
    /// What causes a line, and how many lines it may cause.
    enum class Cause {
        /// The program itself: no limit.
        program,
        /// A client in a room, or one that may create a meeting: 1,200 an hour.
        participant,
        /// Any sender of a request: one a second and 60 an hour.
        stranger,
    };

    struct Settings {
        std::size_t maxBytes = 1024 * 1024;
        /// The file descriptor of standard error.
        int errorOutput = 2;
        std::function<TimePoint()> now = std::chrono::steady_clock::now;
    };

    /// Writes to standard error alone if the path is empty or cannot be written.
    BackendLog(std::string path, Settings settings);
    explicit BackendLog(std::string path) : BackendLog(std::move(path), Settings()) {}
    /// Writes how many lines were left out and not yet reported.
    ~BackendLog();
    BackendLog(const BackendLog&) = delete;
    BackendLog& operator=(const BackendLog&) = delete;

    /// `detail` may contain any input: it is escaped and cannot break the line. Lines beyond the
    /// limit of the cause are left out; the next line written contains their number.
    void line(std::string_view event, std::string_view detail, Cause cause = Cause::program);

private:
    LineBudget* budgetOf(Cause cause);
    void write(std::string_view event, const std::string& detail);

    LogFile file_;
    ErrorOutput errorOutput_;
    std::function<TimePoint()> now_;
    LineBudget participants_{1200, 1200};
    LineBudget strangers_{1, 60};
};

/// The first 300 bytes of the text, with control and non-ASCII characters as \xNN. Any thread.
[[nodiscard]] std::string escaped(std::string_view text);

}  // namespace stagehopper::companion
