#include <string>
#include <utility>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSURLSession with its data tasks, and NSHTTPURLResponse.

namespace stagehopper::recording {

namespace {

struct DataTaskState {
    std::string address;
    Retained completion;
    bool resumed = false;
};

struct ResponseState {
    long statusCode = 0;
    std::string address;
};

/// What a request comes to.
struct Outcome {
    double delay = 0;
    Retained data{};
    Retained response{};
    Retained error{};
};

Outcome failure(double delay, const char* reason) {
    return {.delay = delay, .error = makeError(reason)};
}

Outcome outcomeOf(const std::string& asked) {
    auto address = asked;
    auto& servers = World::current().servers;
    ServerAnswer answer;
    double delay = 0;
    for (bool redirected = true; redirected;) {
        const auto* server = servers.serverOf(address);
        if (server == nullptr) return failure(delay, Servers::refused);
        delay += server->answersAfter.value_or(Servers::requestLimit);
        if (delay >= Servers::requestLimit)
            return failure(Servers::requestLimit, Servers::timedOut);
        const auto found = server->answers.find(Servers::pathOf(address));
        answer = found == server->answers.end() ? ServerAnswer{404} : found->second;
        if (answer.never) return failure(Servers::requestLimit, Servers::timedOut);
        redirected = !answer.location.empty();
        if (redirected) address = answer.location;
    }
    Outcome outcome{.delay = delay, .data = makeData(answer.body)};
    outcome.response = makeObject(answer.http ? "NSHTTPURLResponse" : "NSURLResponse");
    stateOf<ResponseState>(outcome.response.get()) = {answer.status, address};
    if (answer.breaksOff) outcome.error = makeError(Servers::lost);
    return outcome;
}

Value dataTask(Call& call) {
    const auto url = call.argument<cocoa::id>(0);
    if (url == nullptr) noteProblem("a data task for no URL");
    const auto task = call.make("NSURLSessionDataTask");
    stateOf<DataTaskState>(task) = {addressOf(url),
                                    Retained(call.argument<cocoa::BlockPointer>(1))};
    return task;
}

/// The session keeps the task until its completion has been called.
Value resume(Call& call) {
    auto& task = call.state<DataTaskState>();
    if (std::exchange(task.resumed, true)) return {};
    World::current().servers.requests.push_back(task.address);
    auto outcome = outcomeOf(task.address);
    const auto delay = outcome.delay;
    queues::after(delay, "session",
                  [self = Retained(call.receiver()), outcome = std::move(outcome),
                   completion = std::exchange(task.completion, Retained())] {
                      callBlock(completion, outcome.data.get(), outcome.response.get(),
                                outcome.error.get());
                  });
    return {};
}

}  // namespace

void defineUrlSessions() {
    defineShared("NSURLSession", "sharedSession");
    define("NSURLSession", MessageKind::instance, "dataTaskWithURL:completionHandler:", dataTask);
    define("NSURLSessionDataTask", MessageKind::instance, "resume", resume);
    define("NSURLResponse", MessageKind::instance, "URL",
           [](Call& call) -> Value { return makeUrl(call, call.state<ResponseState>().address); });
    define("NSHTTPURLResponse", MessageKind::instance, "statusCode",
           [](Call& call) -> Value { return call.state<ResponseState>().statusCode; });
}

}  // namespace stagehopper::recording
