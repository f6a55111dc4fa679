#include "tests/macos/recording/system/World.h"

#include <stdexcept>

#include "tests/macos/recording/foundation/Bridged.h"
#include "tests/macos/recording/runtime/Classes.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Recording.h"

namespace stagehopper::recording {

namespace {

World* standing = nullptr;

/// Objects of Core Foundation: references are counted as for other objects, but they take no
/// messages.
void registerOpaqueClass(const char* name) {
    const auto made = cocoa::objc_allocateClassPair(cocoa::objc_getClass("NSObject"), name, 0);
    cocoa::objc_registerClassPair(made);
    made->ours = false;
}

void defineEverything() {
    registerOpaqueClass(elementClass);
    registerOpaqueClass(eventClass);
    for (const auto& defineOneSubject :
         {defineStrings, defineCollections, defineValues, defineUrls, defineNotifications,
          defineTimers, defineTasks, defineProcessInformation, defineUrlSessions, defineApplication,
          defineWindows, defineMenus, defineWorkspace, defineWebViews, defineJson}) {
        defineOneSubject();
    }
}

}  // namespace

World::World() {
    if (standing != nullptr) throw std::logic_error("two worlds");
    static const bool done = (defineEverything(), true);
    static_cast<void>(done);
    standing = this;
    reset();
}

World::~World() {
    end();
    reset();
    standing = nullptr;
}

World& World::current() {
    if (standing == nullptr) throw std::logic_error("the program meets no world");
    return *standing;
}

void World::end() {
    tasks.forget();
    accessibility.instead.clear();
    forgetSharedInstances();
}

}  // namespace stagehopper::recording
