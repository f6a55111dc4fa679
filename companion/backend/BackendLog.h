#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "companion/backend/ErrorOutput.h"
#include "companion/backend/LineBudget.h"
#include "companion/backend/LogFile.h"

namespace stagehopper::companion {

/// One line for each thing that happened, to standard error and to a file of bounded size.
/// Never give it a secret, a client's private id, a query, or the unknown path of a request, where
/// all of these may stand.
/// Thread: one at a time.
class BackendLog {
public:
    /// What can bring about a line, and how many in an hour.
    enum class Cause {
        /// The program itself: each line is written.
        program,
        /// Who is in a room, or may make one: 1,200.
        participant,
        /// Anybody who can send a request: one in a second, 60.
        stranger,
    };

    struct Settings {
        std::size_t maxBytes = 1024 * 1024;
        /// Where standard error is.
        int errorOutput = 2;
        std::function<TimePoint()> now = std::chrono::steady_clock::now;
    };

    /// Without a path, or when it cannot be written, standard error alone has to do.
    BackendLog(std::string path, Settings settings);
    explicit BackendLog(std::string path) : BackendLog(std::move(path), Settings()) {}
    /// Tells how many lines were left out and not yet told.
    ~BackendLog();
    BackendLog(const BackendLog&) = delete;
    BackendLog& operator=(const BackendLog&) = delete;

    /// What came from outside may stand in `detail`: it cannot break the line. A line beyond the
    /// cause's number is left out; the next one that is written tells how many.
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

/// The text with control characters and what is no ASCII written as \xNN, up to 300 bytes.
/// Thread: any; pure.
std::string escaped(std::string_view text);

}  // namespace stagehopper::companion
