#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/drivers/phone/DebuggerPipe.h"

namespace stagehopper::desktop {

/// A page of a browser that we talk to over its debugger. One thread. The pipe must outlive it.
class BrowserPage {
public:
    /// Opens an empty page; all calls over the pipe are for it from then on. Throws DesktopError.
    explicit BrowserPage(DebuggerPipe& pipe);
    BrowserPage(const BrowserPage&) = delete;
    BrowserPage& operator=(const BrowserPage&) = delete;

    /// Waits until the page is loaded; throws DesktopError when it does not load.
    void open(const std::string& url);

    /// The value of a JavaScript expression, after its promise when it is one. Throws DesktopError
    /// with the page's words when the expression does.
    [[nodiscard]] nlohmann::json evaluate(const std::string& expression);
    /// Waits until an expression, or its promise, is true. What it throws until then counts as not
    /// yet; so does a change to another document. Throws DesktopError.
    void waitFor(const std::string& expression, Limit limit);

    /// The errors that the page has met so far: exceptions that it did not catch, what it wrote
    /// to its console as an error, and what the browser reported, such as files not found; in no
    /// certain order.
    [[nodiscard]] std::vector<std::string> consoleMessages();

private:
    void hear(const std::string& method, const nlohmann::json& parameters);

    DebuggerPipe& pipe_;
    int loads_ = 0;
    std::vector<std::string> consoleMessages_;
};

}  // namespace stagehopper::desktop
