#include "app/AppController.h"
#include "network/DefaultRoute.h"
#include "platform/ChildProcess.h"

namespace stagehopper {

namespace {

constexpr const char* routeTableTool = "/usr/sbin/netstat";
constexpr const char* pingTool = "/sbin/ping";
/// The usual address of a home router, used if the route table names no gateway.
constexpr const char* fallbackGateway = "192.168.0.1";

}  // namespace

std::optional<std::string> AppController::getDefaultGateway() {
    const auto tool = platform_.childProcesses.makeChildProcess(
        {.executable = routeTableTool, .arguments = {"-rn"}, .capturesOutput = true});
    if (!tool->launch({})) return std::nullopt;
    // Read before waiting: with a full pipe the tool would never exit.
    const auto table = tool->readOutputToEnd();
    tool->waitUntilExit();
    return defaultGateway(table);
}

void AppController::startWifiKeepAlive() {
    const auto gateway = getDefaultGateway().value_or(fallbackGateway);
    // Sends one echo request of one byte a second until it is ended.
    keepAliveProcess = platform_.childProcesses.makeChildProcess(
        {.executable = pingTool, .arguments = {"-i", "1", "-s", "1", gateway}, .endsWithUs = true});
    // A machine without ping runs without the keep-alive.
    (void)keepAliveProcess->launch({});
}

}  // namespace stagehopper
