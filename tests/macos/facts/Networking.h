#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Messages of Foundation's addresses and connections, sorted by class and selector. Source: objc2's
// generated bindings of Apple's headers, commit fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and
// type encodings only).
inline constexpr MethodFact networkingMethods[] = {
    {"NSHTTPURLResponse", Kind::instance, "statusCode", "q@:"},
    {"NSMutableURLRequest", Kind::classLevel, "requestWithURL:", "@@:@"},
    {"NSURL", Kind::classLevel, "URLWithString:", "@@:@"},
    {"NSURL", Kind::instance, "absoluteString", "@@:"},
    {"NSURL", Kind::classLevel, "fileURLWithPath:", "@@:@"},
    {"NSURL", Kind::classLevel, "fileURLWithPath:isDirectory:", "@@:@B"},
    {"NSURL", Kind::instance, "path", "@@:"},
    {"NSURLComponents", Kind::instance, "URL", "@@:"},
    {"NSURLComponents", Kind::instance, "string", "@@:"},
    {"NSURLQueryItem", Kind::instance, "name", "@@:"},
    {"NSURLRequest", Kind::instance, "URL", "@@:"},
    {"NSURLRequest", Kind::classLevel, "requestWithURL:", "@@:@"},
    {"NSURLResponse", Kind::instance, "URL", "@@:"},
    {"NSURLSession", Kind::instance, "dataTaskWithURL:completionHandler:", "@@:@@?", Returns::plain,
     "v@?@@@"},
    {"NSURLSession", Kind::classLevel, "sharedSession", "@@:"},
    {"NSURLSession", Kind::instance, "webSocketTaskWithURL:", "@@:@"},
    {"NSURLSessionTask", Kind::instance, "error", "@@:"},
    {"NSURLSessionTask", Kind::instance, "response", "@@:"},
    {"NSURLSessionTask", Kind::instance, "resume", "v@:"},
    {"NSURLSessionWebSocketMessage", Kind::instance, "data", "@@:"},
    {"NSURLSessionWebSocketMessage", Kind::instance, "string", "@@:"},
    {"NSURLSessionWebSocketMessage", Kind::instance, "type", "q@:"},
    {"NSURLSessionWebSocketTask", Kind::instance, "cancelWithCloseCode:reason:", "v@:q@"},
    {"NSURLSessionWebSocketTask", Kind::instance, "receiveMessageWithCompletionHandler:", "v@:@?",
     Returns::plain, "v@?@@"},
    {"NSURLSessionWebSocketTask", Kind::instance, "sendPingWithPongReceiveHandler:", "v@:@?",
     Returns::plain, "v@?@"},
};

}  // namespace stagehopper::macos_facts
