#include "tests/macos/recording/foundation/SharedInstances.h"

#include <map>
#include <string>
#include <utility>

#include "tests/macos/recording/runtime/Behaviors.h"

namespace stagehopper::recording {

namespace {

using Instances = std::map<std::pair<std::string, std::string>, Retained>;

Instances& instances() {
    static Instances made;
    return made;
}

}  // namespace

cocoa::id sharedInstance(std::string_view className, std::string_view which) {
    auto& instance = instances()[{std::string(className), std::string(which)}];
    if (!instance) instance = makeObject(className);
    return instance.get();
}

void defineShared(std::string_view className, std::string_view selector) {
    define(className, MessageKind::classLevel, selector,
           [name = std::string(className)](Call&) -> Value { return sharedInstance(name); });
}

void forgetSharedInstances() {
    instances().clear();
}

}  // namespace stagehopper::recording
