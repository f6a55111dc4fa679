#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

struct InjectedScript {
    std::string source;
    /// 0: before any script of the page.
    long injectionTime = 0;
    bool mainFrameOnly = false;
};

/// The state of a WKUserContentController.
struct ContentController {
    std::map<std::string, Retained> handlers;
    std::vector<InjectedScript> scripts;
};

/// The page of one web view. Main thread only.
class WebPage {
public:
    explicit WebPage(cocoa::id view) : view_(view) {}

    /// The page posts a string to a named handler; delivered when the main thread is free.
    void posts(std::string_view handler, std::string_view text) const;
    /// Any other value.
    void posts(std::string_view handler, Retained body) const;
    /// As a page in a frame of this one; handlers exist in frames as well.
    void postsFromFrame(std::string_view handler, std::string_view text) const;
    /// The user drops a file or a link on the view; handled when the main thread is free. The main
    /// frame goes there unless the program refuses.
    void userDrops(std::string_view address);
    /// The same for a frame in the page, and for a new window.
    [[nodiscard]] bool frameMayGoTo(std::string_view address) const;
    [[nodiscard]] bool mayOpenWindow(std::string_view address) const;
    /// The process that shows the page dies; reported when the main thread is free.
    void processDies();

    /// Nil after it is destroyed.
    [[nodiscard]] cocoa::id view() const { return view_.get(); }
    [[nodiscard]] bool drawsBackground() const;
    /// The handlers that the page can post to, and the scripts that run before it at each load.
    /// Requires the view.
    [[nodiscard]] ContentController& controller() const;

    /// The file loaded or dropped last, and the folder that it may read.
    std::string file;
    std::string readAccess;
    int loads = 0;
    /// False from the death of its process to the next load.
    bool alive = true;
    /// Scripts that the program ran in the page, oldest first; without scripts that ran before a
    /// load or in a dead page, which do nothing.
    std::vector<std::string> evaluated;

    /// For WKWebView: asks the program about the load that it has begun.
    void loadBegins(const std::string& address) const;

private:
    void post(std::string_view handler, Retained body, bool fromMainFrame) const;

    Weak view_;
};

/// All pages ever created, including destroyed ones. Main thread only.
class WebPages {
public:
    /// Throws when there is none.
    [[nodiscard]] WebPage& newest() const { return *pages_.at(pages_.size() - 1); }
    /// In the order of creation; throws if there is none.
    [[nodiscard]] WebPage& at(std::size_t index) const { return *pages_.at(index); }
    /// The page in that view; throws for an unknown view.
    [[nodiscard]] WebPage& in(cocoa::id view) const;

    /// For WKWebView.
    void add(cocoa::id view) { pages_.push_back(std::make_shared<WebPage>(view)); }

private:
    std::vector<std::shared_ptr<WebPage>> pages_;
};

}  // namespace stagehopper::recording
