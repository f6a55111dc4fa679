#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/AppController.h"
#include "ports/simulated/Desktop.h"

namespace stagehopper {

/// The real controller on a simulated desktop, and what a tester looks at: the diagnostic lines,
/// the keys that arrived, the journal.
class Stage {
public:
    /// A desktop with the program's pages in place and accessibility granted; not launched yet.
    /// `portRows` are the slide applications that exist on this port only.
    explicit Stage(std::vector<platform::SlideApplication> portRows = {});

    simulated::Desktop desktop;
    std::shared_ptr<AppController> app;

    /// Starts the program; what it logged so far is forgotten.
    void launch();
    /// The panel page posts a text to "bridge", and everything due is run.
    void pagePosts(std::string_view text);
    /// A step without a sequence tag, and everything due is run.
    void step(std::string_view direction);

    /// Diagnostic lines since the last `forget`, without their tag: "event detail".
    [[nodiscard]] std::vector<std::string> lines() const;
    /// Those of `lines` that begin with this event word.
    [[nodiscard]] std::vector<std::string> lines(std::string_view event) const;
    /// The debug log file as it is now.
    [[nodiscard]] std::string logFile();
    void forget();

    static constexpr const char* logPath = "/tmp/stagehopper_debug.log";

private:
    std::size_t forgotten_ = 0;
};

}  // namespace stagehopper
