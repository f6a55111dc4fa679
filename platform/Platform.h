#pragma once

#include <vector>

#include "platform/SlideApplication.h"

namespace stagehopper::platform {

class Accessibility;
class Application;
class ChildProcesses;
class Clock;
class Dispatch;
class FileSystem;
class Host;
class Json;
class KeyboardEvents;
class Screens;
class SystemLog;
class Text;
class UrlSession;
class UserInterface;
class Workspace;

/// Everything the application needs from the machine it runs on. The entry point owns the objects
/// and keeps them alive longer than the controller.
struct Platform {
    Accessibility& accessibility;
    Application& application;
    ChildProcesses& childProcesses;
    Clock& clock;
    Dispatch& dispatch;
    FileSystem& fileSystem;
    Host& host;
    Json& json;
    KeyboardEvents& keyboardEvents;
    Screens& screens;
    SystemLog& systemLog;
    Text& text;
    UrlSession& urlSession;
    UserInterface& userInterface;
    Workspace& workspace;
    /// Programs that exist only on this platform. They follow the common ones.
    std::vector<SlideApplication> slideApplications;
};

}  // namespace stagehopper::platform
