#include "ports/simulated/SimulatedUserInterface.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace stagehopper::simulated {

namespace {

/// Once in a window's life.
void tellDelegate(WindowState& window) {
    if (!std::exchange(window.open, false)) return;
    if (const auto delegate = window.delegate.lock()) delegate->windowWillClose(window.window);
}

class SimulatedWindow final : public platform::Window {
public:
    SimulatedWindow(Journal& journal, std::shared_ptr<WindowState> state)
        : journal_(journal), state_(std::move(state)) {
        state_->window = this;
    }
    ~SimulatedWindow() override {
        tellDelegate(*state_);
        state_->window = nullptr;
        state_->open = state_->visible = false;
        state_->contentView.reset();
    }
    SimulatedWindow(const SimulatedWindow&) = delete;
    SimulatedWindow& operator=(const SimulatedWindow&) = delete;

    void setTitle(std::string_view title) override { state_->title = title; }
    void setMinimumSize(platform::Size size) override { state_->minimumSize = size; }
    void setContentView(const std::shared_ptr<platform::WebView>& view) override {
        state_->contentView = view;
    }
    void setDelegate(std::weak_ptr<platform::WindowDelegate> delegate) override {
        state_->delegate = std::move(delegate);
    }
    void center() override { state_->centered = true; }
    void makeKeyAndOrderFront() override {
        state_->key = state_->visible = true;
        journal_.add("window \"" + state_->title + "\" shown");
    }

private:
    Journal& journal_;
    std::shared_ptr<WindowState> state_;
};

class SimulatedPanel final : public platform::Panel {
public:
    SimulatedPanel(Journal& journal, std::shared_ptr<PanelState> state)
        : journal_(journal), state_(std::move(state)) {}
    ~SimulatedPanel() override {
        state_->open = state_->visible = false;
        state_->contentView.reset();
        journal_.add("panel closed");
    }
    SimulatedPanel(const SimulatedPanel&) = delete;
    SimulatedPanel& operator=(const SimulatedPanel&) = delete;

    void setContentView(const std::shared_ptr<platform::WebView>& view) override {
        state_->contentView = view;
    }
    void orderFrontRegardless() override {
        state_->visible = true;
        ++state_->timesOrderedFront;
        journal_.add("panel ordered front");
    }
    void orderOut() override {
        state_->visible = false;
        journal_.add("panel ordered out");
    }
    void setFrame(const platform::Rect& frame) override {
        state_->frame = frame;
        journal_.add("panel moved");
    }

private:
    Journal& journal_;
    std::shared_ptr<PanelState> state_;
};

class SimulatedWebView final : public platform::WebView {
public:
    SimulatedWebView(Journal& journal, std::shared_ptr<PageState> state)
        : journal_(journal), state_(std::move(state)) {}

    void loadFile(const std::filesystem::path& file,
                  const std::filesystem::path& readAccess) override {
        state_->file = file;
        state_->readAccess = readAccess;
        journal_.add("page " + file.string() + " loaded");
    }
    void evaluateJavaScript(std::string_view script) override {
        state_->evaluatedScripts.emplace_back(script);
        journal_.add("script evaluated: " + std::string(script));
    }
    void setDrawsBackground(bool drawsBackground) override {
        state_->drawsBackground = drawsBackground;
    }
    void setFrame(const platform::Rect& frame) override { state_->frame = frame; }

private:
    Journal& journal_;
    std::shared_ptr<PageState> state_;
};

}  // namespace

void Page::posts(const std::string& handler, std::string_view text) const {
    post({handler, std::string(text)});
}

void Page::postsNonText(const std::string& handler) const {
    post({handler, std::nullopt});
}

void Page::post(platform::ScriptMessage message) const {
    dispatch_->asyncMain([weak = state_, message = std::move(message)] {
        const auto state = weak.lock();
        if (!state) return;
        const auto handler = state->configuration.messageHandlers.find(message.name);
        if (handler == state->configuration.messageHandlers.end()) return;
        // The handler may close the view that holds it.
        const auto held = handler->second;
        held->didReceive(message);
    });
}

std::vector<std::string> Page::userScripts() const {
    std::vector<std::string> sources;
    for (const auto& script : state_.lock()->configuration.userScripts) {
        sources.push_back(script.source);
    }
    return sources;
}

std::vector<std::string> Page::handlerNames() const {
    std::vector<std::string> names;
    for (const auto& [name, handler] : state_.lock()->configuration.messageHandlers) {
        names.push_back(name);
    }
    return names;
}

std::shared_ptr<platform::Window> SimulatedUserInterface::makeWindow(
    const platform::WindowOptions& options) {
    auto state = std::make_shared<WindowState>();
    state->contentRect = options.contentRect;
    state->styleMask = options.styleMask;
    windows_.push_back(state);
    return std::make_shared<SimulatedWindow>(journal_, std::move(state));
}

std::shared_ptr<platform::Panel> SimulatedUserInterface::makePanel(
    const platform::PanelOptions& options) {
    auto state = std::make_shared<PanelState>();
    state->options = options;
    state->frame = options.contentRect;
    panels_.push_back(state);
    return std::make_shared<SimulatedPanel>(journal_, std::move(state));
}

std::shared_ptr<platform::WebView> SimulatedUserInterface::makeWebView(
    const platform::Rect& frame, const platform::WebViewConfiguration& configuration) {
    auto state = std::make_shared<PageState>();
    state->configuration = configuration;
    state->frame = frame;
    pages_.push_back(state);
    return std::make_shared<SimulatedWebView>(journal_, std::move(state));
}

WindowState& SimulatedUserInterface::window() {
    if (windows_.empty()) throw std::logic_error("no window was made");
    return *windows_.back();
}

Page SimulatedUserInterface::page(std::size_t index) {
    if (index >= pages_.size()) throw std::logic_error("no such web view was made");
    return {pages_[index], dispatch_};
}

PanelState& SimulatedUserInterface::panel() {
    if (panels_.empty()) throw std::logic_error("no panel was made");
    return *panels_.back();
}

Page SimulatedUserInterface::panelPage() {
    // The panel window has the first web view; each panel made later has one more.
    return page(panels_.size());
}

void SimulatedUserInterface::userClosesWindow() {
    // Keeps the window: the delegate may drop it.
    const auto closing = windows_.empty() ? nullptr : windows_.back();
    if (!closing) throw std::logic_error("no window was made");
    auto& closed = *closing;
    tellDelegate(closed);
    closed.visible = closed.key = false;
    closed.contentView.reset();
    journal_.add("window \"" + closed.title + "\" closed");
    const bool anyLeft =
        std::ranges::any_of(windows_, [](const auto& state) { return state->open; });
    if (!anyLeft && lastWindowWasClosed) lastWindowWasClosed();
}

}  // namespace stagehopper::simulated
