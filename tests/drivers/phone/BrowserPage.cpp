#include "tests/drivers/phone/BrowserPage.h"

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

using Json = nlohmann::json;

constexpr std::chrono::seconds loadLimit{20};

std::string wordsOf(const Json& exception) {
    const auto object = exception.value("exception", Json::object());
    return object.value("description", exception.value("text", "an exception"));
}

std::string consoleText(const Json& arguments) {
    std::string text;
    for (const auto& argument : arguments) {
        if (!text.empty()) text += ' ';
        const auto value = argument.value("value", Json());
        if (value.is_string()) {
            text += value.get<std::string>();
        } else {
            text += value.is_null() ? argument.value("description", "null") : value.dump();
        }
    }
    return text;
}

/// Lets the page itself poll, long enough to make calls rare, and short enough that a vanished page
/// costs little. Timers rather than animation frames: a page at rest may draw none.
std::string lookFor(const std::string& expression) {
    return R"js((async () => {
        let error = '';
        for (const end = performance.now() + 200; ;) {
            try {
                if (await ()js" +
           expression + R"js()) return null;
                error = '';
            } catch (thrown) {
                error = ' (' + thrown + ')';
            }
            if (performance.now() > end) return error;
            await new Promise(done => setTimeout(done, 10));
        }
    })())js";
}

}  // namespace

BrowserPage::BrowserPage(DebuggerPipe& pipe) : pipe_(pipe) {
    pipe_.onEvent([this](const auto& method, const auto& parameters) { hear(method, parameters); });
    const auto page = pipe_.call("Target.createTarget", {{"url", "about:blank"}});
    const auto attached =
        pipe_.call("Target.attachToTarget", {{"targetId", page.at("targetId")}, {"flatten", true}});
    pipe_.setSession(attached.at("sessionId"));
    for (const char* domain : {"Page", "Runtime", "Log", "Network", "Inspector"}) {
        pipe_.call(domain + std::string(".enable"));
    }
}

void BrowserPage::open(const std::string& url) {
    // By way of an empty page: an address that differs only behind its # would else not load.
    for (const std::string& each : {std::string("about:blank"), url}) {
        const int loadsBefore = loads_;
        const auto answer = pipe_.call("Page.navigate", {{"url", each}});
        if (answer.contains("errorText")) {
            throw DesktopError(each +
                               " could not be opened: " + answer["errorText"].get<std::string>());
        }
        if (!pipe_.listenUntil([&] { return loads_ > loadsBefore; }, loadLimit)) {
            throw DesktopError(each + " did not load");
        }
    }
}

Json BrowserPage::evaluate(const std::string& expression) {
    const auto answer =
        pipe_.call("Runtime.evaluate",
                   {{"expression", expression}, {"awaitPromise", true}, {"returnByValue", true}});
    if (answer.contains("exceptionDetails")) {
        throw DesktopError(expression + ": " + wordsOf(answer["exceptionDetails"]));
    }
    return answer.at("result").value("value", Json());
}

void BrowserPage::waitFor(const std::string& expression, Limit limit) {
    std::string error;
    const auto holds = [&] {
        try {
            const auto found = evaluate(lookFor(expression));
            error = found.is_string() ? found.get<std::string>() : "";
            return found.is_null();
        } catch (const DesktopError& notYet) {
            error = std::string(" (") + notYet.what() + ")";
            return false;
        }
    };
    if (!desktop::waitFor(holds, limit)) {
        throw DesktopError("it did not come true in the page: " + expression + error);
    }
}

std::vector<std::string> BrowserPage::consoleMessages() {
    // Events sent before this reply have been handled by then.
    pipe_.call("Runtime.evaluate", {{"expression", "0"}});
    return consoleMessages_;
}

void BrowserPage::hear(const std::string& method, const Json& parameters) {
    if (method == "Page.loadEventFired") {
        ++loads_;
    } else if (method == "Inspector.targetCrashed") {
        throw DesktopError("the page crashed");
    } else if (method == "Runtime.exceptionThrown") {
        consoleMessages_.push_back(wordsOf(parameters.at("exceptionDetails")));
    } else if (method == "Runtime.consoleAPICalled" && parameters.at("type") == "error") {
        consoleMessages_.push_back(consoleText(parameters.at("args")));
    } else if (method == "Log.entryAdded" && parameters.at("entry").at("level") == "error") {
        const auto& entry = parameters.at("entry");
        consoleMessages_.push_back(entry.at("text").get<std::string>() + " " +
                                   entry.value("url", ""));
    }
}

}  // namespace stagehopper::desktop
