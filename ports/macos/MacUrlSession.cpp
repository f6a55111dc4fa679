#include "ports/macos/MacUrlSession.h"

#include <utility>

#include "ports/macos/ErrorText.h"
#include "ports/macos/FailureQueue.h"
#include "ports/macos/MacWebSocketTask.h"
#include "ports/macos/Once.h"
#include "ports/macos/UnreachableWebSocketTask.h"
#include "ports/macos/cocoa/NSURLSession.h"

namespace stagehopper::macos_port {

namespace {

platform::DataResult resultOf(cocoa::NSData body, cocoa::NSURLResponse response,
                              cocoa::NSError error) {
    const auto http = response.as<cocoa::NSHTTPURLResponse>();
    if (!http) return platform::UrlError{errorText(error)};
    // Where the transfer broke off after the head, the status counts and half a body does not.
    return platform::HttpResponse{static_cast<int>(http.statusCode()),
                                  error ? std::string() : cocoa::bytes(body)};
}

/// With another scheme the system would raise an exception.
bool isWebSocketAddress(std::string_view url) {
    return url.starts_with("ws://") || url.starts_with("wss://");
}

}  // namespace

MacUrlSession::MacUrlSession() : failures_(std::make_shared<FailureQueue>()) {}

void MacUrlSession::startDataTask(const std::string& url,
                                  std::function<void(platform::DataResult)> completion) {
    const auto address = cocoa::NSURL::URLWithString(cocoa::string(url));
    if (!address) {
        failures_->reportBadAddress(
            [completion = std::move(completion)](auto error) { completion(std::move(error)); });
        return;
    }
    const Once<platform::DataResult> once(std::move(completion));
    const auto task = cocoa::NSURLSession::sharedSession().dataTaskWithURL(
        address, cocoa::NSURLSession::DataReceiver(
                     [once](cocoa::NSData body, cocoa::NSURLResponse response,
                            cocoa::NSError error) { once(resultOf(body, response, error)); }));
    task.resume();
}

std::shared_ptr<platform::WebSocketTask> MacUrlSession::makeWebSocketTask(const std::string& url) {
    const auto address = cocoa::NSURL::URLWithString(cocoa::string(url));
    if (!address || !isWebSocketAddress(url))
        return std::make_shared<UnreachableWebSocketTask>(failures_);
    return std::make_shared<MacWebSocketTask>(
        cocoa::NSURLSession::sharedSession().webSocketTaskWithURL(address));
}

}  // namespace stagehopper::macos_port
