#include "tests/drivers/phone/TapTarget.h"

namespace stagehopper::desktop {

namespace {

using Json = nlohmann::json;

/// The middle of an element, or words about why a finger would not hit it there.
constexpr const char* reach = R"js(async function() {
    if (this.disabled || this.getAttribute('aria-disabled') === 'true') return 'is disabled';
    this.scrollIntoView({block: 'nearest', inline: 'nearest', behavior: 'instant'});
    const before = this.getBoundingClientRect();
    await new Promise(done => setTimeout(done, 20));
    const now = this.getBoundingClientRect();
    if (before.x !== now.x || before.y !== now.y) return 'moves';
    const x = now.x + now.width / 2, y = now.y + now.height / 2;
    const hit = document.elementFromPoint(x, y);
    return this.contains(hit) ? {x, y} : 'is covered or off the screen';
})js";

Json elementsOf(DebuggerPipe& page, const std::string& accessibleName, const std::string& role) {
    const auto document = page.call("Runtime.evaluate", {{"expression", "document"}});
    return page
        .call("Accessibility.queryAXTree", {{"objectId", document.at("result").at("objectId")},
                                            {"accessibleName", accessibleName},
                                            {"role", role}})
        .at("nodes");
}

}  // namespace

TapTarget findTapTarget(DebuggerPipe& page, const std::string& accessibleName,
                        const std::string& role) {
    TapTarget target{std::nullopt, "is not there"};
    for (const auto& node : elementsOf(page, accessibleName, role)) {
        if (node.value("ignored", false)) continue;
        const auto element =
            page.call("DOM.resolveNode", {{"backendNodeId", node.at("backendDOMNodeId")}});
        const auto answer =
            page.call("Runtime.callFunctionOn", {{"objectId", element.at("object").at("objectId")},
                                                 {"functionDeclaration", reach},
                                                 {"awaitPromise", true},
                                                 {"returnByValue", true}});
        const auto value = answer.at("result").value("value", Json("went away"));
        if (value.is_object()) return {ScreenPoint{value.at("x"), value.at("y")}, ""};
        target.obstacle = value.get<std::string>();
    }
    return target;
}

}  // namespace stagehopper::desktop
