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

/// The whole program on the recorded system, put together as its entry point does it; only its
/// files are in memory. Beside it what a tester of messages looks at: lines of the journal, when
/// and on which queue they came. Main thread only.
class MacStage : public recording::RecordedTest {
protected:
    static constexpr const char* resources = "/Applications/Stagehopper.app/Contents/Resources";
    static constexpr const char* backend =
        "/Applications/Stagehopper.app/Contents/Resources/StagehopperBackend-arm64";
    static constexpr const char* logFile = "/tmp/stagehopper_debug.log";

    /// With the pages in their place, a route and a ping; no backend.
    MacStage();
    /// Whatever the program has left behind ends too: its processes, its requests, its delays.
    void dropProgram() override;

    /// As far as the entry point goes before it runs the loop.
    void make();
    /// And the launch, with everything that is due then.
    void launch();
    /// As the entry point: until the program is terminated. Its exit status.
    int run();
    /// As the end of the entry point.
    void drop();
    /// The controller alone goes; the system still knows the port's objects.
    void dropController() { app.reset(); }

    static void runUntilIdle() { recording::queues::runUntilIdle(); }
    static void advance(double seconds) { recording::queues::advance(seconds); }

    /// The user chooses to quit, and everything that is due happens.
    void userQuits();
    void userClosesPanel();
    /// The panel's page posts a text, and everything that is due happens.
    void pagePosts(std::string_view text);
    [[nodiscard]] recording::WebPage& panelPage() const { return world.pages.at(0); }

    /// Puts a backend beside the pages; each start of it behaves like that.
    void installBackend(recording::ProgramFile program);
    /// One that serves a port from its start to its end.
    void installServingBackend(int port);
    /// A server that lists one meeting with a guest, in that room.
    void serveMeeting(int port, const std::string& roomCode);

    /// What the journal and the log hold so far counts no longer.
    void forget();
    [[nodiscard]] static std::vector<std::string> lines() { return recording::journal().lines(); }
    /// Those that hold this text.
    [[nodiscard]] static std::vector<std::string> lines(std::string_view part);
    /// On which queue the last such line happened; empty when there is none.
    [[nodiscard]] static std::string queueOf(std::string_view part);
    /// When; throws when there is none.
    [[nodiscard]] static double timeOf(std::string_view part);
    /// Diagnostic messages in the system's log, without their tag, that begin with this word.
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
