#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/AppController.h"
#include "ports/simulated/Desktop.h"

namespace stagehopper {

/// The real controller on a simulated desktop, with access to the diagnostic lines, the keys that
/// arrived and the journal.
class Stage {
public:
    /// A desktop with the program's pages in place and accessibility granted; not launched yet.
    /// `portRows` are the slide applications that exist on this port only.
    explicit Stage(std::vector<platform::SlideApplication> portRows = {});

    simulated::Desktop desktop;
    std::shared_ptr<AppController> app;

    /// Starts the program and forgets the lines of the launch.
    void launch();
    /// The panel page posts a text to "bridge". Runs all due work.
    void pagePosts(std::string_view text);
    /// A step without a sequence tag. Runs all due work.
    void step(std::string_view direction);

    /// Diagnostic lines since the last `forget`, without their tag: "event detail".
    [[nodiscard]] std::vector<std::string> lines() const;
    /// The `lines` that begin with this event word.
    [[nodiscard]] std::vector<std::string> lines(std::string_view event) const;
    /// Messages that went only to the system log, since the last `forget`, without their
    /// "Stagehopper: ".
    [[nodiscard]] std::vector<std::string> systemLines() const;
    /// The debug log file as it is now.
    [[nodiscard]] std::string logFile();
    void forget();

    /// Installs a backend beside the pages. Each start of it behaves like `program`.
    void installBackend(simulated::ProgramFile program);
    /// A backend that serves a port from its start to its end.
    void installServingBackend(int port);
    /// A server on this port that lists these meetings; each is a JSON object.
    simulated::Server& serveMeetings(int port, const std::string& meetings);

    static constexpr const char* backendPath = "/app/Resources/StagehopperBackend-arm64";
    static constexpr const char* logPath = "/tmp/stagehopper_debug.log";

private:
    [[nodiscard]] std::vector<std::string> messages(std::string_view tag) const;

    std::size_t forgotten_ = 0;
};

}  // namespace stagehopper
