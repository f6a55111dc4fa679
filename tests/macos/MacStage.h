#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/AppController.h"
#include "ports/macos/Services.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/simulated/SimulatedFileSystem.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper {

/// The whole program on the recorded system, assembled as in its entry point; only its files are in
/// memory. Also gives tests the lines of the journal, with their times and queues. Main thread
/// only.
class MacStage : public recording::RecordedTest {
protected:
    static constexpr const char* resources = "/Applications/Stagehopper.app/Contents/Resources";
    static constexpr const char* backend =
        "/Applications/Stagehopper.app/Contents/Resources/StagehopperBackend-arm64";
    static constexpr const char* logFile = "/tmp/stagehopper_debug.log";

    /// With pages, a route tool and a ping tool; without a backend.
    MacStage();
    void dropProgram() override { drop(); }

    /// The steps of the entry point before it runs the loop.
    void make();
    /// Also launches, with all work that is due then.
    void launch();
    /// Runs the loop as the entry point does, until the program is terminated. Returns its exit
    /// status.
    int run();
    /// The end of the entry point.
    void drop();
    /// Destroys only the controller; the system still knows the port's objects.
    void dropController() { app.reset(); }

    static void runUntilIdle() { recording::queues::runUntilIdle(); }
    static void advance(double seconds) { recording::queues::advance(seconds); }

    /// The user quits, and all work that is due runs.
    void userQuits();
    void userClosesPanel();
    /// The panel's page posts a text, and all work that is due runs.
    void pagePosts(std::string_view text);
    [[nodiscard]] recording::WebPage& panelPage() const { return world.pages.at(0); }

    /// Adds a backend beside the pages; each start of it behaves as given.
    void installBackend(recording::ProgramFile program);
    /// A backend that serves a port from its start to its end.
    void installServingBackend(int port);
    /// A server that lists one meeting with a guest, in that room.
    void serveMeeting(int port, const std::string& roomCode);

    /// Ignores the journal and the log up to now.
    void forget();
    [[nodiscard]] static std::vector<std::string> lines() { return recording::journal().lines(); }
    /// The lines that contain this text.
    [[nodiscard]] static std::vector<std::string> lines(std::string_view part);
    /// The queue of the last such line; empty if there is none.
    [[nodiscard]] static std::string queueOf(std::string_view part);
    /// The time of the last such line; throws if there is none.
    [[nodiscard]] static double timeOf(std::string_view part);
    /// Diagnostic messages in the system's log that begin with this word, without their tag.
    [[nodiscard]] std::vector<std::string> diagnostics(std::string_view event = "") const;

    /// Only between `make` and `drop`.
    [[nodiscard]] macos_port::Services& services() const { return *services_; }

    simulated::SimulatedFileSystem files;
    std::shared_ptr<AppController> app;

private:
    [[nodiscard]] static const recording::JournalEntry* entryWith(std::string_view part);

    std::unique_ptr<cocoa::AutoreleasePool> pool_;
    std::unique_ptr<macos_port::Services> services_;
};

}  // namespace stagehopper
