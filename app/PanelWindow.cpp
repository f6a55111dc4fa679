#include <exception>

#include "app/AppController.h"
#include "app/BridgeHandler.h"
#include "platform/FileSystem.h"
#include "platform/Host.h"
#include "platform/SystemLog.h"
#include "platform/UserInterface.h"
#include "resources/PanelScript.h"

namespace stagehopper {

namespace {

constexpr const char* panelPage = "panel.html";
constexpr platform::Rect panelContentRect{0, 0, {520, 680}};
constexpr platform::Size panelMinimumSize{380, 480};

}  // namespace

std::filesystem::path AppController::resourceDir() {
    const auto holdsPanel = [this](const std::filesystem::path& directory) {
        return platform_.fileSystem.fileExists(directory / panelPage);
    };
    if (const auto bundled = platform_.host.bundleResourceDirectory();
        bundled && holdsPanel(*bundled)) {
        return *bundled;
    }

    const auto arguments = platform_.host.arguments();
    if (arguments.empty()) {
        platform_.systemLog.write("Stagehopper: started without a program path");
        std::terminate();
    }
    const auto workingDirectory = platform_.host.currentDirectory();
    const auto executable =
        platform_.fileSystem.resolvingSymlinks(workingDirectory / arguments.front());
    const auto besideExecutable = executable.parent_path() / "Resources";
    if (holdsPanel(besideExecutable)) return besideExecutable;

    return workingDirectory / "Resources";
}

void AppController::buildPanelWindow() {
    platform::WebViewConfiguration configuration;
    configuration.messageHandlers["bridge"] = bridge;
    configuration.userScripts.push_back({std::string(panelScript)});
    panelWebView = platform_.userInterface.makeWebView({}, configuration);

    platform::WindowOptions options;
    options.contentRect = panelContentRect;
    options.styleMask = platform::windowTitled | platform::windowClosable |
                        platform::windowMiniaturizable | platform::windowResizable;
    panelWindow = platform_.userInterface.makeWindow(options);
    panelWindow->setTitle("Stagehopper");
    panelWindow->setMinimumSize(panelMinimumSize);
    panelWindow->setContentView(panelWebView);
    panelWindow->center();
    panelWindow->setDelegate(weak_from_this());
    panelWindow->makeKeyAndOrderFront();

    const auto resources = resourceDir();
    panelWebView->loadFile(resources / panelPage, resources);
}

}  // namespace stagehopper
