#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Screens.h"
#include "platform/Window.h"
#include "platform/Workspace.h"

namespace stagehopper::platform {
class ChildProcess;
class Panel;
class Timer;
class WebSocketTask;
class WebView;
class WorkItem;
}  // namespace stagehopper::platform

namespace stagehopper {

class BridgeHandler;
class TitleMatcher;
enum class SlideDirection;
struct KeyStrategy;
struct SlideTargetCandidate;

/// The application: its and its panel's delegate, the owner of all its state, and every operation
/// on it.
///
/// This header is the table of contents; the bodies are in the folders of their subsystems.
/// Main thread only, unless an operation's comment says otherwise. No operation throws or reports
/// failure to its caller: failures are logged, or ignored if the operation's comment states it.
///
/// The entry point holds the only strong reference. Work that outlives a call holds the controller
/// weakly and does nothing after the controller is gone.
class AppController final : public platform::ApplicationDelegate,
                            public platform::WindowDelegate,
                            public platform::ScreenObserver,
                            public std::enable_shared_from_this<AppController> {
public:
    static std::shared_ptr<AppController> create(platform::Platform platform);
    ~AppController() override;
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    // --- Life cycle (app/Lifecycle.cpp) -----------------------------------------------------

    /// The start-up sequence.
    void applicationDidFinishLaunching() override;
    /// Always true: closing the panel quits.
    bool applicationShouldTerminateAfterLastWindowClosed() override;
    /// The shut-down sequence. Blocks until the backend has exited.
    void applicationWillTerminate() override;
    /// Removes the overlay when the panel window closes.
    void windowWillClose(const platform::Window* window) override;

    // --- Diagnostic log (app/DiagnosticLog.cpp) ---------------------------------------------

    /// Writes one line to the system log and to the debug log file. Any thread. If the file cannot
    /// be written, the line is dropped without a report.
    void slideNavLog(std::string_view event, std::string_view detail);

    // --- Panel window and bridge (app/PanelWindow.cpp, app/BridgeCommands.cpp) --------------

    /// The directory that holds the pages: the bundle's, else "Resources" beside the executable,
    /// else, unchecked, "Resources" in the working directory.
    std::filesystem::path resourceDir();
    /// Creates and shows the panel window and starts loading its page.
    void buildPanelWindow();
    /// Acts on one text posted by the panel page. Unknown texts are ignored.
    void handleBridgeRaw(std::string_view raw);

    // --- Overlay (app/OverlayWindow.cpp) ----------------------------------------------------

    /// Shows the overlay above everything on the main screen; creates it if necessary. Does nothing
    /// without a screen.
    void showOverlay();
    /// Removes the overlay and its page, if there is one.
    void destroyOverlay();
    /// Fits the overlay to the main screen.
    void screenDidChange() override;

    // --- Backend (backend/BackendSupervisor.cpp, backend/HealthProbe.cpp) -------------------

    /// Tries once to start the backend executable `name` in `resourceDir`. Does nothing after the
    /// third attempt in a series. Writes the outcome to the system log.
    void attemptLaunchBundledBackend(const std::filesystem::path& resourceDir,
                                     const std::string& name);
    /// Ends the backend that this program started, and starts no other until the user asks for one.
    /// Returns at once; a background task waits for the end.
    void stopBundledBackendFromUser();
    /// Whether a healthy backend listens on this port of the loopback interface. Blocks for up to
    /// 0.35 s. Any thread except the URL session's.
    bool healthCheckLocalPort(std::int64_t port);
    /// "http://127.0.0.1:PORT" of the first healthy port from 3000 to 3050. Blocks
    /// during each probe.
    std::optional<std::string> firstHealthyLocalBackendBaseURL();

    // --- Network tuning (network/AwdlControl.cpp, network/WifiKeepAlive.cpp) ----------------

    /// Whether Apple Wireless Direct Link is on; absent if the system cannot be asked. Blocks: not
    /// for the main thread.
    std::optional<bool> isAWDLUp();
    /// Switches AWDL off through an administrator prompt, in the background.
    void disableAWDLIfNeeded();
    /// Waits up to 45 s for a healthy backend and then switches AWDL off.
    void scheduleAwdlOptimizationAfterBackendReady();
    /// Starts the prompt that switches AWDL on again. Does not wait for the answer.
    void restoreAWDL();
    /// The gateway of the first default route; absent when there is none. Blocks.
    std::optional<std::string> getDefaultGateway();
    /// Starts the ping that keeps the Wi-Fi link awake.
    void startWifiKeepAlive();

    // --- Meeting discovery (slidechannel/MeetingDiscovery.cpp) ------------------------------

    /// Looks for the active meeting now and every 4 s. Failures are not reported.
    void startNativeSlideDiscovery();
    /// One round: asks the backend, chooses a meeting, connects. Does nothing while another round
    /// is running.
    void discoverActiveMeetingAndConnectIfNeeded();

    // --- Slide socket (slidechannel/SlideSocket.cpp, slidechannel/SlideMessageHandling.cpp) -

    /// Joins the room on this server unless it is joined already. `reason` is for the log.
    void connectNativeSlideSocket(const std::string& serverUrl, const std::string& roomCode,
                                  std::string_view reason);
    /// Drops the connection, if there is one, and stops its pings.
    void cancelNativeSlideSocket(std::string_view reason);
    /// Schedules a reconnect in 1 s. It replaces a pending one.
    void scheduleNativeSlideSocketReconnect(const std::string& serverUrl,
                                            const std::string& roomCode, std::string_view reason);
    /// Pings the room's connection every 15 s.
    void startNativeSlidePingLoop(const std::string& roomCode);
    /// Waits for the next message while this room is joined. Main thread and the URL session's
    /// queue.
    void receiveNativeSlideSocketMessages(const std::string& expectedRoomCode);
    /// Acts on one text from the room. Unknown texts are ignored.
    void handleNativeSlideSocketText(std::string_view text);

    // --- Slide events (presentation/SlideIntake.cpp) ----------------------------------------

    /// Takes a slide step from any channel: drops repeats, logs it, and passes it on.
    /// Any thread, but one call at a time. An event with an empty `seq` is never a repeat.
    void consumeSlideEvent(std::string_view direction, std::string_view seq,
                           std::string_view source);
    /// Posts the step to the main queue, even from the main thread. Any thread.
    void pptSlide(std::string_view direction);
    /// Checks direction and accessibility trust, then steps.
    void pptSlideOnMainQueue(std::string_view direction);

    // --- Slide target (presentation/SlideTarget.cpp) ----------------------------------------

    /// The running program to step: the previous one, else the one in front, else the one whose
    /// row has the lowest priority number. Absent when no known program has a titled window.
    std::optional<SlideTargetCandidate> resolveSlideTargetCandidate(
        const std::optional<std::string>& selfBundleId,
        const std::optional<platform::RunningApplication>& front);
    /// Rank of a program among the slide applications, lower first; absent without a row.
    static std::optional<int> slideBundlePriority(const platform::SlideApplication* row);
    /// Trimmed, non-empty titles of a process's windows, in the system's order.
    std::vector<std::string> windowTitles(platform::Pid pid);
    /// Whether a window with this title shows slides, by the rule in the row of its program.
    bool isLikelyPresentationWindow(std::string_view title, const platform::SlideApplication& row);

    // --- Menu path (presentation/MenuPath.cpp) ----------------------------------------------

    /// Presses the program's own "next" or "previous" menu item. True only if an enabled item was
    /// pressed. Logs every other outcome, except that no menu titles are known.
    bool pressSlideMenuCommand(const SlideTargetCandidate& candidate, SlideDirection direction);
    /// The titles by which the program's slide commands are found; null if none are known.
    static const platform::SlideMenuTitles* slideMenuStrategy(
        const platform::SlideApplication* row);
    /// The top-level menus with a preferred title, or all of them if none has one.
    static std::vector<platform::UIElementRef> menuRootCandidates(
        const platform::UIElement& menuBar, const TitleMatcher& preferred);
    /// The first matching menu item, depth first, in reading order; null if there is none. Searches
    /// `elements` and `depth` levels below them; searches nothing if `depth` is negative.
    static platform::UIElementRef findMenuItem(const std::vector<platform::UIElementRef>& elements,
                                               const TitleMatcher& wanted, int depth);
    /// An attribute as text; absent if it is unreadable or has another type.
    static std::optional<std::string> axStringAttribute(const platform::UIElement& element,
                                                        platform::AccessibilityAttribute attribute);
    /// An attribute as an element; null if it is unreadable or has another type.
    static platform::UIElementRef axElementAttribute(const platform::UIElement& element,
                                                     platform::AccessibilityAttribute attribute);
    /// An attribute as a list of elements, without entries of other types; empty if it is
    /// unreadable or not a list.
    static std::vector<platform::UIElementRef> axChildrenAttribute(
        const platform::UIElement& element, platform::AccessibilityAttribute attribute);

    // --- Slide step (presentation/SlideStep.cpp) --------------------------------------------

    /// Steps the presentation: by its menu if its program is in front; otherwise, or if the menu
    /// fails, by a key to its process.
    void resolveSlideTargetAndSend(SlideDirection direction);
    /// Steps this candidate. `front` is the program that has the focus.
    void sendSlideStep(const SlideTargetCandidate& candidate,
                       const std::optional<platform::RunningApplication>& front,
                       SlideDirection direction);

    // --- Accessibility permission (presentation/AccessibilityPermission.cpp) ----------------

    /// Raises the system's trust prompt, once per run, with the panel in front.
    void requestAccessibilityIfNeeded();
    /// Asks the panel page to show its hints, at most once in `slideAccessibilityHintThrottle`.
    void showSlideAccessibilityHintThrottled();

private:
    explicit AppController(platform::Platform platform);

    void enableSlideControl();
    void openAccessibilitySettings();
    void hideOverlay();
    /// Connects the slide socket now and the overlay's page half a second later.
    void connectOverlayAndSocket(const std::string& serverUrl, const std::string& roomCode);
    /// The frame of the screen that the overlay covers; absent without a screen.
    std::optional<platform::Rect> overlayFrame();

    /// Starts a series of launches unless a healthy backend answers.
    void launchBackendUnlessHealthy();
    /// Whether another launch is left in the series and the user has not stopped the backend.
    [[nodiscard]] bool mayLaunchBundledBackend() const;
    void bundledBackendDidExit(const std::filesystem::path& resourceDir, const std::string& name,
                               std::int32_t status);
    void scheduleBundledBackendRetry(const std::filesystem::path& resourceDir,
                                     const std::string& name);
    void waitForBackendThenDisableAWDL();
    /// Starts an AppleScript; null if the runner could not be started.
    std::shared_ptr<platform::ChildProcess> startAppleScript(std::string_view script);

    void nativeSlideSocketDidFail(const std::string& expectedRoomCode, std::string_view error);
    void pingNativeSlideSocket(const std::string& roomCode);
    void nativeSlidePingDidFail(const std::string& roomCode, std::string_view error);
    /// Posts one key press and release, 50 ms apart.
    void sendSlideKey(platform::Pid process, const KeyStrategy& strategy, SlideDirection direction);
    void rememberSlideTarget(const SlideTargetCandidate& candidate);

    platform::Platform platform_;

    /// Protects the members of the slide socket that the URL session's queue reads. Only the main
    /// thread writes them, with the lock held; it may read them without the lock.
    std::mutex nativeSlideSocketMutex_;

    // The whole state. Names and order are fixed.
    // Atomic members are also read on other threads, where a stale value is harmless.

    std::shared_ptr<platform::Window> panelWindow;
    std::shared_ptr<platform::WebView> panelWebView;
    std::shared_ptr<platform::Panel> overlayWindow;
    std::shared_ptr<platform::WebView> overlayWebView;
    std::shared_ptr<BridgeHandler> bridge;
    std::shared_ptr<platform::ChildProcess> keepAliveProcess;
    std::shared_ptr<platform::ChildProcess> backendProcess;
    /// Set once when shut-down begins. Work that arrives later starts nothing new.
    std::atomic<bool> appIsTerminating{false};
    std::int64_t bundledBackendLaunchAttempt = 0;
    std::int64_t maxBundledBackendLaunchAttempts = 3;
    std::atomic<bool> bundledBackendUserStopped{false};
    std::atomic<bool> awdlDisabled{false};
    std::optional<platform::Date> lastSlideAccessibilityHintAt;
    /// Seconds.
    double slideAccessibilityHintThrottle = 4.0;
    bool didRequestAccessibilityPrompt = false;
    /// The process and the product of the previous step; never cleared.
    std::optional<platform::Pid> lastSlideTargetPID;
    std::optional<std::string> lastSlideTargetBundleId;
    /// Of the last accepted event that had a sequence tag.
    std::optional<std::string> lastSlideEventSeq;
    std::optional<platform::Date> lastSlideEventAt;
    std::shared_ptr<platform::WebSocketTask> nativeSlideSocket;
    std::optional<std::string> nativeSlideSocketRoomCode;
    std::optional<std::string> nativeSlideSocketServerUrl;
    /// Our identity in a room, one per process: "overlay-native-1F3A9C0B".
    std::string nativeSlideSocketUserId;
    std::unique_ptr<platform::Timer> nativeSlideDiscoveryTimer;
    std::atomic<bool> nativeSlideDiscoveryInFlight{false};
    std::unique_ptr<platform::WorkItem> nativeSlideReconnectWorkItem;
    std::unique_ptr<platform::Timer> nativeSlidePingTimer;
};

}  // namespace stagehopper
