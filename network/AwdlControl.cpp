#include <chrono>

#include "app/AppController.h"
#include "network/AwdlScripts.h"
#include "network/InterfaceState.h"
#include "platform/ChildProcess.h"
#include "platform/Dispatch.h"
#include "platform/SystemLog.h"

namespace stagehopper {

namespace {

using namespace std::chrono_literals;

constexpr const char* interfaceTool = "/sbin/ifconfig";
constexpr const char* appleScriptRunner = "/usr/bin/osascript";
constexpr auto readinessLimit = 45s;
constexpr auto pauseBetweenPasses = 250ms;
constexpr platform::Duration promptDelay{0.5};

}  // namespace

std::optional<bool> AppController::isAWDLUp() {
    const auto tool = platform_.childProcesses.makeChildProcess(
        {.executable = interfaceTool, .arguments = {"awdl0"}, .capturesOutput = true});
    if (!tool->launch({})) return std::nullopt;
    const auto output = tool->readOutputToEnd();
    tool->waitUntilExit();
    return isInterfaceUp(output);
}

void AppController::disableAWDLIfNeeded() {
    platform_.dispatch.asyncGlobal(
        platform::QualityOfService::userInitiated, [weak = weak_from_this()] {
            const auto self = weak.lock();
            if (!self) return;
            const auto isUp = self->isAWDLUp();
            // If the system cannot be asked, there is nothing to switch off.
            if (!isUp) return;
            if (!*isUp) {
                // Already off, probably because of an earlier run of ours: restored at quit anyway.
                self->awdlDisabled = true;
                return;
            }
            const auto prompt = self->startAppleScript(disableAwdlScript);
            if (!prompt) return;
            prompt->waitUntilExit();
            if (prompt->terminationStatus() == 0) self->awdlDisabled = true;
        });
}

void AppController::scheduleAwdlOptimizationAfterBackendReady() {
    platform_.dispatch.asyncGlobal(platform::QualityOfService::userInitiated,
                                   [weak = weak_from_this()] {
                                       if (const auto self = weak.lock())
                                           self->waitForBackendThenDisableAWDL();
                                   });
}

void AppController::waitForBackendThenDisableAWDL() {
    const auto start = platform_.clock.now();
    while (platform_.clock.now() - start < readinessLimit) {
        if (bundledBackendUserStopped) return;
        if (firstHealthyLocalBackendBaseURL()) {
            platform_.dispatch.asyncMainAfter(promptDelay, [weak = weak_from_this()] {
                const auto self = weak.lock();
                if (self && !self->bundledBackendUserStopped) self->disableAWDLIfNeeded();
            });
            return;
        }
        platform_.clock.sleep(pauseBetweenPasses);
    }
    platform_.systemLog.write("Stagehopper: backend /health not ready within " +
                              std::to_string(readinessLimit.count()) + "s; skip AWDL admin prompt");
}

void AppController::restoreAWDL() {
    auto prompt = startAppleScript(restoreAwdlScript);
    if (!prompt) return;
    // The wait lets the system release the process. The program may exit before.
    platform_.dispatch.asyncGlobal(platform::QualityOfService::standard,
                                   [prompt = std::move(prompt)] { prompt->waitUntilExit(); });
}

std::shared_ptr<platform::ChildProcess> AppController::startAppleScript(std::string_view script) {
    auto runner = platform_.childProcesses.makeChildProcess(
        {.executable = appleScriptRunner, .arguments = {"-e", std::string(script)}});
    if (!runner->launch({})) return nullptr;
    return runner;
}

}  // namespace stagehopper
