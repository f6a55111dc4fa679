#pragma once

#include <webkit2/webkit2.h>

#include <filesystem>

namespace stagehopper::linux_port {

/// Keeps a view on its one page. Otherwise a drop by the user, a link, or a frame that targets the
/// main frame could replace the page, and the new page would have its rights.
///
/// Frames may show what this machine serves at 127.0.0.1, nothing else. No window is opened and
/// nothing is printed. Main thread only; the view must not outlive it.
class PageNavigation {
public:
    explicit PageNavigation(WebKitWebView* view);
    ~PageNavigation();
    PageNavigation(const PageNavigation&) = delete;
    PageNavigation& operator=(const PageNavigation&) = delete;

    /// Sets the allowed page.
    void setPage(const std::filesystem::path& page) { page_ = page; }

private:
    static gboolean decide(WebKitWebView* view, WebKitPolicyDecision* decision,
                           WebKitPolicyDecisionType type, void* self) noexcept;

    [[nodiscard]] bool isRefused(WebKitPolicyDecision* decision,
                                 WebKitPolicyDecisionType type) const;
    [[nodiscard]] bool isPage(const char* uri) const;

    WebKitWebView* view_;
    std::filesystem::path page_;
};

}  // namespace stagehopper::linux_port
