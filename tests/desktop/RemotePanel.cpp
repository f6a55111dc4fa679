#include "tests/desktop/RemotePanel.h"

#include <utility>

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/desktop/FileWriting.h"

namespace stagehopper::desktop {

namespace {

// Commands come as files, one after another. A page may not read files, but it may load scripts.
constexpr const char* page = R"(<!doctype html>
<meta charset="utf-8">
<title>Remote panel</title>
<textarea id="text" aria-label="Text" style="width: 90%; height: 8em"></textarea>
<script>
    let commands = 0;
    function listen() {
        const script = document.createElement("script");
        script.onload = () => { commands += 1; script.remove(); listen(); };
        script.onerror = () => { script.remove(); setTimeout(listen, 20); };
        script.src = `command-${commands + 1}.js`;
        document.head.append(script);
    }
    window.post = (body) => webkit.messageHandlers.bridge.postMessage(body);
    listen();
    electronAPI.sendDebugLog("the page listens");
</script>
)";

}  // namespace

std::filesystem::path writeRemotePage(const VirtualDesktop& desktop) {
    // Each gets its own, as it starts with its own first command.
    static int made = 0;
    auto folder = desktop.folder() / ("pages-" + std::to_string(++made));
    std::filesystem::create_directories(folder);
    writeFile(folder / "panel.html", page);
    return folder;
}

RemotePanel::RemotePanel(const VirtualDesktop& desktop)
    : RemotePanel(desktop, writeRemotePage(desktop)) {}

RemotePanel::RemotePanel(const VirtualDesktop& desktop, std::filesystem::path pages)
    : pages_(std::move(pages)), driven_(desktop, pages_) {
    if (!driven_.logs("the page listens", 0)) {
        throw DesktopError("the page did not start; the program wrote:\n" + driven_.output());
    }
}

void RemotePanel::run(const std::string& script) {
    const auto name = "command-" + std::to_string(++commands_) + ".js";
    // In place at once: the page must never see half of it.
    writeFile(pages_ / "unfinished", script);
    std::filesystem::rename(pages_ / "unfinished", pages_ / name);
}

std::string RemotePanel::value(const std::string& expression) {
    const auto mark = driven_.mark();
    const auto tag = "value-" + std::to_string(commands_) + ":";
    run("electronAPI.sendDebugLog('" + tag + "' + (" + expression + "))");
    if (!driven_.logs(tag, mark)) {
        throw DesktopError("the page did not answer to: " + expression);
    }
    for (const auto& line : driven_.diagnosticsSince(mark)) {
        const auto start = line.find(tag);
        if (start != std::string::npos) return line.substr(start + tag.size());
    }
    return {};
}

}  // namespace stagehopper::desktop
