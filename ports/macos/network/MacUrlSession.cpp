#include "ports/macos/network/MacUrlSession.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "ports/macos/cocoa/foundation/NSURLSession.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/network/FailureQueue.h"
#include "ports/macos/network/MacWebSocketTask.h"
#include "ports/macos/network/Once.h"
#include "ports/macos/network/UnreachableWebSocketTask.h"
#include "ports/macos/system/ErrorText.h"
#include "text/Ascii.h"

namespace stagehopper::macos_port {

namespace {

/// "Found": the status that we report for any redirect.
constexpr int redirectStatus = 302;

/// `asked` is the address of the request.
platform::DataResult resultOf(const std::string& asked, cocoa::NSData body,
                              cocoa::NSURLResponse response, cocoa::NSError error) {
    const auto http = response.as<cocoa::NSHTTPURLResponse>();
    if (!http) return {.response = {}, .error = platform::UrlError{errorText(error)}};
    platform::DataResult result{.response = platform::HttpResponse{}, .error = {}};
    // The shared session followed a redirect; it has no delegate that could forbid that.
    if (cocoa::text(http.URL().absoluteString()) != asked) {
        result.response->statusCode = redirectStatus;
        return result;
    }
    result.response->statusCode = static_cast<int>(http.statusCode());
    if (error) {
        result.error = platform::UrlError{errorText(error)};
    } else {
        result.response->body = cocoa::bytes(body);
    }
    return result;
}

/// The address with its scheme in lower case; empty unless it is a WebSocket's, since the system
/// raises an exception for other schemes.
std::string webSocketAddress(std::string url) {
    const auto scheme = std::min(url.find("://"), url.size());
    url.replace(0, scheme, asciiLowered(url.substr(0, scheme)));
    return url.starts_with("ws://") || url.starts_with("wss://") ? url : std::string();
}

}  // namespace

MacUrlSession::MacUrlSession() : failures_(std::make_shared<FailureQueue>()) {}

void MacUrlSession::startDataTask(const std::string& url,
                                  std::function<void(platform::DataResult)> completion) {
    // A caller may ask thousands of times before its own pool ends.
    const cocoa::AutoreleasePool pool;
    const auto address = cocoa::NSURL::URLWithString(cocoa::string(url));
    if (!address) {
        failures_->reportBadAddress([completion = std::move(completion)](auto error) {
            completion({.response = {}, .error = std::move(error)});
        });
        return;
    }
    const Once<platform::DataResult> once(std::move(completion));
    const auto task = cocoa::NSURLSession::sharedSession().dataTaskWithURL(
        address, cocoa::NSURLSession::DataReceiver(
                     [once, asked = cocoa::text(address.absoluteString())](
                         cocoa::NSData body, cocoa::NSURLResponse response, cocoa::NSError error) {
                         once(resultOf(asked, body, response, error));
                     }));
    task.resume();
}

std::shared_ptr<platform::WebSocketTask> MacUrlSession::makeWebSocketTask(const std::string& url) {
    const cocoa::AutoreleasePool pool;
    const auto text = webSocketAddress(url);
    const auto address =
        text.empty() ? cocoa::NSURL() : cocoa::NSURL::URLWithString(cocoa::string(text));
    if (!address) return std::make_shared<UnreachableWebSocketTask>(failures_);
    return std::make_shared<MacWebSocketTask>(
        cocoa::NSURLSession::sharedSession().webSocketTaskWithURL(address));
}

}  // namespace stagehopper::macos_port
