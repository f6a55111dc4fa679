#include "app/AppController.h"

#include <utility>

#include "app/BridgeHandler.h"
#include "app/SlideSocketIdentity.h"
#include "platform/Dispatch.h"
#include "platform/Host.h"

namespace stagehopper {

std::shared_ptr<AppController> AppController::create(platform::Platform platform) {
    // Not make_shared: the constructor is private.
    std::shared_ptr<AppController> controller(new AppController(std::move(platform)));
    controller->bridge->app = controller;
    return controller;
}

AppController::AppController(platform::Platform platform)
    : platform_(std::move(platform)),
      bridge(std::make_shared<BridgeHandler>()),
      nativeSlideSocketUserId(slideSocketUserId(platform_.host.makeUuid())) {}

AppController::~AppController() = default;

}  // namespace stagehopper
