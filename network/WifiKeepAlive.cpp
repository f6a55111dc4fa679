#include "app/AppController.h"
#include "network/DefaultRoute.h"
#include "platform/ChildProcess.h"

namespace stagehopper {

namespace {

constexpr const char* routeTableTool = "/usr/sbin/netstat";
constexpr const char* pingTool = "/sbin/ping";
/// The usual address of a router at home, for when the table names none.
constexpr const char* fallbackGateway = "192.168.0.1";

}  // namespace

std::optional<std::string> AppController::getDefaultGateway() {
    const auto tool = platform_.childProcesses.makeChildProcess(
        {.executable = routeTableTool, .arguments = {"-rn"}, .capturesOutput = true});
    if (!tool->launch({})) return std::nullopt;
    // Read first: a table larger than a pipe would keep the tool from ever exiting.
    const auto table = tool->readOutputToEnd();
    tool->waitUntilExit();
    return defaultGateway(table);
}

void AppController::startWifiKeepAlive() {
    const auto gateway = getDefaultGateway().value_or(fallbackGateway);
    // One echo request a second with one byte in it, until it is ended.
    keepAliveProcess = platform_.childProcesses.makeChildProcess(
        {.executable = pingTool, .arguments = {"-i", "1", "-s", "1", gateway}, .endsWithUs = true});
    // A machine without ping goes without.
    (void)keepAliveProcess->launch({});
}

}  // namespace stagehopper
