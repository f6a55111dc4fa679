#include "ports/linux/x11/ProgramIdentity.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "text/Ascii.h"

namespace stagehopper::linux_port {

namespace {

struct KnownProgram {
    /// An application id, the instance or class name of a window, or an executable's base name;
    /// in lower case.
    std::string_view trace;
    std::string_view identity;
};

constexpr std::string_view impress = "org.libreoffice.Impress";

constexpr std::array knownPrograms{
    KnownProgram{"wpp", "com.kingsoft.wpsoffice.mac"},
    KnownProgram{"google-chrome", "com.google.Chrome"},
    KnownProgram{"com.google.chrome", "com.google.Chrome"},
    KnownProgram{"chrome", "com.google.Chrome"},
    KnownProgram{"microsoft-edge", "com.microsoft.edgemac"},
    KnownProgram{"com.microsoft.edge", "com.microsoft.edgemac"},
    KnownProgram{"msedge", "com.microsoft.edgemac"},
    KnownProgram{"firefox", "org.mozilla.firefox"},
    KnownProgram{"firefox-esr", "org.mozilla.firefox"},
    KnownProgram{"firefox-bin", "org.mozilla.firefox"},
    KnownProgram{"firefox_firefox", "org.mozilla.firefox"},
    KnownProgram{"chromium", "org.chromium.Chromium"},
    KnownProgram{"chromium-browser", "org.chromium.Chromium"},
    KnownProgram{"evince", "org.gnome.Evince"},
    KnownProgram{"okular", "org.kde.okular"},
    KnownProgram{"libreoffice-impress", impress},
};

std::optional<std::string> lookUp(std::string_view trace) {
    // The table is all ASCII.
    const std::string wanted = asciiLowered(trace);
    for (const auto& program : knownPrograms) {
        if (wanted == program.trace || wanted == asciiLowered(program.identity)) {
            return std::string(program.identity);
        }
    }
    return std::nullopt;
}

std::optional<std::string> knownIdentity(const ProgramTraces& traces) {
    // A better kind of name in any window wins over a worse kind in the first window.
    for (const auto member :
         {&WindowNames::gtkApplicationId, &WindowNames::instanceName, &WindowNames::className}) {
        for (const auto& window : traces.windows) {
            if (auto identity = lookUp(window.*member)) return identity;
        }
    }
    return lookUp(traces.executable);
}

/// The office suite is one process for all its documents, and its slide show has no name of its
/// own: a full-screen window of the suite itself, in a process without a window of a suite member.
bool isShowWithoutEditor(const ProgramTraces& traces) {
    if (traces.executable != "soffice.bin") return false;
    const auto isShow = [](const WindowNames& window) {
        return window.fullScreen && asciiLowered(window.className) == "soffice";
    };
    return !traces.windows.empty() && std::ranges::all_of(traces.windows, isShow);
}

}  // namespace

std::optional<std::string> programIdentity(const ProgramTraces& traces) {
    if (auto identity = knownIdentity(traces)) return identity;
    if (isShowWithoutEditor(traces)) return std::string(impress);
    for (const auto member : {&WindowNames::gtkApplicationId, &WindowNames::className}) {
        for (const auto& window : traces.windows) {
            if (!(window.*member).empty()) return window.*member;
        }
    }
    if (!traces.executable.empty()) return traces.executable;
    return std::nullopt;
}

}  // namespace stagehopper::linux_port
