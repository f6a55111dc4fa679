#include "ports/macos/system/MacHost.h"

#include <utility>

#include "ports/macos/cocoa/foundation/NSBundle.h"
#include "ports/macos/cocoa/foundation/NSDateFormatter.h"
#include "ports/macos/cocoa/foundation/NSFileManager.h"
#include "ports/macos/cocoa/foundation/NSProcessInfo.h"
#include "ports/macos/cocoa/foundation/NSUUID.h"
#include "ports/macos/system/Dates.h"

namespace stagehopper::macos_port {

std::optional<std::string> MacHost::bundleIdentifier() {
    const auto identifier = cocoa::NSBundle::mainBundle().bundleIdentifier();
    if (!identifier) return std::nullopt;
    return cocoa::text(identifier);
}

std::optional<std::filesystem::path> MacHost::bundleResourceDirectory() {
    const auto directory = cocoa::NSBundle::mainBundle().resourceURL();
    if (!directory) return std::nullopt;
    return cocoa::text(directory.path());
}

std::vector<std::string> MacHost::arguments() {
    std::vector<std::string> arguments;
    const auto known = cocoa::NSProcessInfo::processInfo().arguments();
    for (const auto argument : cocoa::elements<cocoa::NSString>(known)) {
        arguments.push_back(cocoa::text(argument));
    }
    return arguments;
}

std::filesystem::path MacHost::currentDirectory() {
    return cocoa::text(cocoa::NSFileManager::defaultManager().currentDirectoryPath());
}

platform::Environment MacHost::environment() {
    platform::Environment variables;
    const auto known = cocoa::NSProcessInfo::processInfo().environment();
    for (const auto name : cocoa::elements<cocoa::NSString>(known.allKeys())) {
        const auto value = known.objectForKey(name).as<cocoa::NSString>();
        if (auto key = cocoa::text(name); !key.empty()) {
            variables.emplace(std::move(key), cocoa::text(value));
        }
    }
    return variables;
}

platform::Pid MacHost::processIdentifier() {
    return cocoa::NSProcessInfo::processInfo().processIdentifier();
}

std::string MacHost::makeUuid() {
    return cocoa::text(cocoa::NSUUID::UUID().UUIDString());
}

std::string MacHost::localizedTime(platform::Date date) {
    return cocoa::text(cocoa::NSDateFormatter::localizedStringFromDate(
        dateFor(date), cocoa::NSDateFormatterNoStyle, cocoa::NSDateFormatterMediumStyle));
}

}  // namespace stagehopper::macos_port
