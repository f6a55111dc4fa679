#include <filesystem>
#include <string>

#include "app/AppController.h"
#include "app/LogLine.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Host.h"
#include "platform/SystemLog.h"
#include "text/Utf8.h"

namespace stagehopper {

namespace {

constexpr const char* debugLogFile = "/tmp/stagehopper_debug.log";

}  // namespace

void AppController::slideNavLog(std::string_view event, std::string_view detail) {
    const std::string message = diagnosticMessage(event, detail);
    platform_.systemLog.write(message);

    // The whole file is UTF-8: invalid text is left out rather than altered.
    if (!isValidUtf8(message)) return;
    const std::string line =
        diagnosticFileLine(platform_.host.localizedTime(platform_.clock.now()), message);

    // The file is opened for every line, so that a deleted file is created again.
    const std::filesystem::path file = debugLogFile;
    const bool exists = platform_.fileSystem.fileExists(file);
    // If another thread creates the file in between, this line is appended.
    if (exists || !platform_.fileSystem.createFile(file, line)) {
        platform_.fileSystem.appendToFile(file, line);
    }
}

}  // namespace stagehopper
