#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace stagehopper {

namespace platform {
class WebView;
class Window;
}  // namespace platform

/// A port under test, with the actions of its user and its surroundings. One per test.
class PortHarness {
public:
    virtual ~PortHarness() = default;

    virtual platform::Platform platform() = 0;
    /// Runs the main thread in the port's time until `done` holds. False if the limit is reached
    /// first.
    virtual bool runUntil(const std::function<bool()>& done,
                          std::chrono::seconds limit = std::chrono::seconds{10}) = 0;

    /// The user closes this window.
    virtual void userCloses(platform::Window& window) = 0;
    /// Loads an empty page and waits until its scripts can run.
    virtual void loadEmptyPage(platform::WebView& view) = 0;
    /// The page of this view posts a text, or a number, to a handler.
    virtual void pagePosts(platform::WebView& view, std::string_view handler,
                           std::string_view text) = 0;
    virtual void pagePostsNumber(platform::WebView& view, std::string_view handler) = 0;

    /// An empty directory for this test.
    virtual std::filesystem::path temporaryDirectory() = 0;
    /// Other programs' changes to the file system, and its contents.
    virtual void plantFile(const std::filesystem::path& path, std::string_view contents) = 0;
    virtual void plantLink(const std::filesystem::path& path,
                           const std::filesystem::path& target) = 0;
    /// Adds a second name for a file.
    virtual void plantHardLink(const std::filesystem::path& path,
                               const std::filesystem::path& target) = 0;
    virtual std::string contentsOf(const std::filesystem::path& path) = 0;
    /// An ordinary file that the user may execute, with any contents.
    virtual void plantExecutable(const std::filesystem::path& path) = 0;

    /// Programs of this system, to be run without arguments: one that exits at once with this
    /// status, one that writes this text and exits with 0, and one that runs until the request to
    /// end and then ends by it.
    virtual std::filesystem::path programThatExits(int status) = 0;
    virtual std::filesystem::path programThatWrites(std::string_view text) = 0;
    virtual std::filesystem::path programThatRunsUntilTerminated() = 0;
    /// An executable file that the system cannot run.
    virtual std::filesystem::path notAProgram() = 0;
};

/// Each port's test program defines it.
std::unique_ptr<PortHarness> makePortHarness();

}  // namespace stagehopper
