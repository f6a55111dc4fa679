#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/UserInterface.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/SimulatedDispatch.h"

namespace stagehopper::simulated {

/// A window as the user sees it.
struct WindowState {
    std::string title;
    platform::Rect contentRect;
    unsigned styleMask = 0;
    platform::Size minimumSize;
    std::shared_ptr<platform::WebView> contentView;
    bool centered = false;
    bool key = false;
    bool visible = false;
    std::weak_ptr<platform::WindowDelegate> delegate;
    /// The application's handle; empty after it was dropped.
    const platform::Window* window = nullptr;
    /// False after it was closed by the user or by dropping its handle.
    bool open = true;
};

/// A panel as the user sees it.
struct PanelState {
    platform::PanelOptions options;
    platform::Rect frame;
    std::shared_ptr<platform::WebView> contentView;
    bool visible = false;
    /// False after its handle was dropped.
    bool open = true;
    int timesOrderedFront = 0;
};

/// A page in a web view, and the application's requests to it.
struct PageState {
    platform::WebViewConfiguration configuration;
    std::filesystem::path file;
    std::filesystem::path readAccess;
    std::vector<std::string> evaluatedScripts;
    platform::Rect frame;
    bool drawsBackground = true;
};

/// The page's side of a web view. Holds nothing strongly: a page without a view still runs here,
/// but its posts are not delivered. The getters need an existing view.
class Page {
public:
    Page(std::weak_ptr<PageState> state, SimulatedDispatch& dispatch)
        : state_(std::move(state)), dispatch_(&dispatch) {}

    /// Posts a text to the handler with this name; it is delivered when the main queue runs.
    void posts(const std::string& handler, std::string_view text) const;
    /// Posts a value that is not a text.
    void postsNonText(const std::string& handler) const;

    /// Whether its view still exists.
    [[nodiscard]] bool isOpen() const { return !state_.expired(); }
    [[nodiscard]] platform::Rect frame() const { return state_.lock()->frame; }
    [[nodiscard]] bool drawsBackground() const { return state_.lock()->drawsBackground; }
    [[nodiscard]] std::filesystem::path file() const { return state_.lock()->file; }
    [[nodiscard]] std::filesystem::path readAccess() const { return state_.lock()->readAccess; }
    [[nodiscard]] std::vector<std::string> evaluatedScripts() const {
        return state_.lock()->evaluatedScripts;
    }
    [[nodiscard]] std::vector<std::string> userScripts() const;
    [[nodiscard]] std::vector<std::string> handlerNames() const;

private:
    void post(platform::ScriptMessage message) const;

    std::weak_ptr<PageState> state_;
    SimulatedDispatch* dispatch_;
};

/// Windows and web views in memory. Main thread only.
class SimulatedUserInterface final : public platform::UserInterface {
public:
    SimulatedUserInterface(Journal& journal, SimulatedDispatch& dispatch)
        : journal_(journal), dispatch_(dispatch) {}

    std::shared_ptr<platform::Window> makeWindow(const platform::WindowOptions& options) override;
    std::shared_ptr<platform::Panel> makePanel(const platform::PanelOptions& options) override;
    std::shared_ptr<platform::WebView> makeWebView(
        const platform::Rect& frame, const platform::WebViewConfiguration& configuration) override;

    /// The window made last; throws if there was none.
    [[nodiscard]] WindowState& window();
    /// The page of web view number `index` in the order of making; throws if there is none.
    [[nodiscard]] Page page(std::size_t index);
    /// All panels ever made, oldest first.
    [[nodiscard]] const std::vector<std::shared_ptr<PanelState>>& panels() const { return panels_; }
    /// The panel made last, and its page; both throw if there was none.
    [[nodiscard]] PanelState& panel();
    [[nodiscard]] Page panelPage();
    /// The user closes the window made last.
    void userClosesWindow();
    /// Called after the user has closed the last window.
    std::function<void()> lastWindowWasClosed;

private:
    Journal& journal_;
    SimulatedDispatch& dispatch_;
    std::vector<std::shared_ptr<WindowState>> windows_;
    std::vector<std::shared_ptr<PanelState>> panels_;
    std::vector<std::weak_ptr<PageState>> pages_;
};

}  // namespace stagehopper::simulated
