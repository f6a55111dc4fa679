#include "app/BridgeHandler.h"

#include "app/AppController.h"

namespace stagehopper {

void BridgeHandler::didReceive(const platform::ScriptMessage& message) {
    if (!message.text) return;
    if (const auto controller = app.lock()) controller->handleBridgeRaw(*message.text);
}

}  // namespace stagehopper
