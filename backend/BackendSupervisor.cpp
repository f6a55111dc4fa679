#include "app/AppController.h"
#include "backend/LocalBackend.h"
#include "platform/ChildProcess.h"
#include "platform/Dispatch.h"
#include "platform/FileSystem.h"
#include "platform/Host.h"
#include "platform/SystemLog.h"

namespace stagehopper {

namespace {

constexpr const char* backendName = "StagehopperBackend-arm64";
constexpr platform::Duration retryDelay{1.0};

/// The backend's environment: ours and the ports on which it may listen.
platform::Environment backendEnvironment(platform::Environment environment) {
    environment["PORT"] = std::to_string(firstBackendPort);
    environment["PORT_EXTRA"] = std::to_string(lastBackendPort - firstBackendPort);
    return environment;
}

}  // namespace

void AppController::launchBackendUnlessHealthy() {
    if (firstHealthyLocalBackendBaseURL()) return;
    bundledBackendLaunchAttempt = 0;
    attemptLaunchBundledBackend(resourceDir(), backendName);
}

bool AppController::mayLaunchBundledBackend() const {
    return !bundledBackendUserStopped &&
           bundledBackendLaunchAttempt < maxBundledBackendLaunchAttempts;
}

void AppController::attemptLaunchBundledBackend(const std::filesystem::path& resourceDir,
                                                const std::string& name) {
    if (!mayLaunchBundledBackend()) return;
    // Counted before anything can fail, so that a missing file is also an attempt.
    ++bundledBackendLaunchAttempt;

    const auto executable = resourceDir / name;
    if (!platform_.fileSystem.isExecutableFile(executable)) {
        platform_.systemLog.write("Stagehopper: bundled backend not found at " +
                                  executable.string() +
                                  " (build with: cd backend && npm run pkg:mac:…)");
        return;
    }

    auto process = platform_.childProcesses.makeChildProcess({
        .executable = executable,
        .arguments = {"--ppid=" + std::to_string(platform_.host.processIdentifier())},
        .environment = backendEnvironment(platform_.host.environment()),
        .currentDirectory = resourceDir,
    });
    const auto launched =
        process->launch([weak = weak_from_this(), resourceDir, name](std::int32_t status) {
            const auto self = weak.lock();
            if (!self || self->appIsTerminating) return;
            self->platform_.dispatch.asyncMain([weak, resourceDir, name, status] {
                if (const auto app = weak.lock())
                    app->bundledBackendDidExit(resourceDir, name, status);
            });
        });

    if (!launched) {
        platform_.systemLog.write("Stagehopper: failed to start bundled backend: " +
                                  launched.reason());
        if (mayLaunchBundledBackend() && !appIsTerminating) {
            scheduleBundledBackendRetry(resourceDir, name);
        }
        return;
    }
    backendProcess = std::move(process);
    platform_.systemLog.write("Stagehopper: started bundled backend " + name + " (attempt " +
                              std::to_string(bundledBackendLaunchAttempt) + "/" +
                              std::to_string(maxBundledBackendLaunchAttempts) + ")");
}

void AppController::bundledBackendDidExit(const std::filesystem::path& resourceDir,
                                          const std::string& name, std::int32_t status) {
    if (bundledBackendUserStopped) return;
    if (firstHealthyLocalBackendBaseURL()) return;
    if (bundledBackendLaunchAttempt >= maxBundledBackendLaunchAttempts) {
        platform_.systemLog.write(
            "Stagehopper: bundled backend exited; max launch attempts "
            "reached");
        return;
    }
    platform_.systemLog.write("Stagehopper: bundled backend exited (status " +
                              std::to_string(status) + "), will retry (" +
                              std::to_string(bundledBackendLaunchAttempt) + "/" +
                              std::to_string(maxBundledBackendLaunchAttempts) + ")");
    scheduleBundledBackendRetry(resourceDir, name);
}

void AppController::scheduleBundledBackendRetry(const std::filesystem::path& resourceDir,
                                                const std::string& name) {
    platform_.dispatch.asyncMainAfter(retryDelay, [weak = weak_from_this(), resourceDir, name] {
        const auto self = weak.lock();
        if (!self || self->appIsTerminating || self->bundledBackendUserStopped) return;
        if (self->firstHealthyLocalBackendBaseURL()) return;
        self->attemptLaunchBundledBackend(resourceDir, name);
    });
}

void AppController::stopBundledBackendFromUser() {
    bundledBackendUserStopped = true;
    // The task gets a copy of the handle because the main thread may replace the member.
    platform_.dispatch.asyncGlobal(
        platform::QualityOfService::userInitiated,
        [weak = weak_from_this(), dispatch = &platform_.dispatch, process = backendProcess] {
            if (process) {
                process->terminate();
                process->waitUntilExit();
            }
            dispatch->asyncMain([weak, process] {
                const auto self = weak.lock();
                if (!self) return;
                // A backend that the user has started since then must be ended at quit.
                if (self->backendProcess == process) self->backendProcess.reset();
                self->bundledBackendLaunchAttempt = 0;
            });
        });
}

}  // namespace stagehopper
