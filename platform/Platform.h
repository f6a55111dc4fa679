#pragma once

#include <vector>

#include "platform/SlideApplication.h"

namespace stagehopper::platform {

class Accessibility;
class Application;
class Clock;
class Dispatch;
class FileSystem;
class Host;
class KeyboardEvents;
class SystemLog;
class Text;
class UserInterface;
class Workspace;

/// Everything the application needs from the machine it runs on. The entry point owns the objects
/// and keeps them alive longer than the controller.
struct Platform {
    Accessibility& accessibility;
    Application& application;
    Clock& clock;
    Dispatch& dispatch;
    FileSystem& fileSystem;
    Host& host;
    KeyboardEvents& keyboardEvents;
    SystemLog& systemLog;
    Text& text;
    UserInterface& userInterface;
    Workspace& workspace;
    /// Programs that exist only on this platform. They stand behind the ones known everywhere.
    std::vector<SlideApplication> slideApplications;
};

}  // namespace stagehopper::platform
