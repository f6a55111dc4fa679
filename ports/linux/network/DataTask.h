#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/UrlSession.h"
#include "ports/linux/network/NetworkThread.h"

namespace stagehopper::linux_port {

/// GETs `url` and posts the completion with the result. On the network thread.
void startDataTask(NetworkThread& thread, const std::string& url, std::chrono::milliseconds limit,
                   std::function<void(platform::DataResult)> completion);

}  // namespace stagehopper::linux_port
