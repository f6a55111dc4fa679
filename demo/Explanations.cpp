#include "demo/Explanations.h"

#include <array>

namespace stagehopper::desktop {

namespace {

struct Explanation {
    /// The beginning of the line.
    std::string_view line;
    std::string_view words;
};

constexpr std::array explanations{
    Explanation{"app_launched Stagehopper starting up", "The program is up."},
    Explanation{"app_launched backend",
                "It has looked for a backend on ports 3000 to 3050, and started its own if none "
                "answered."},
    Explanation{"app_launched nativeSlideDiscovery",
                "From now on it looks every four seconds for a meeting to join."},
    Explanation{"native_ws_connecting",
                "A meeting was found. The program joins it, to hear of the phone's steps."},
    Explanation{"native_ws_ready", "It has joined."},
    Explanation{"native_ws_received",
                "The phone asked for a step; the backend gave it its number."},
    Explanation{"native_ws_disconnected", "It has left the meeting; reason= says why."},
    Explanation{"app_launched no_auto_prompts",
                "It asks for no permission by itself, only when the user acts in the panel."},
    Explanation{"native_bridge_received",
                "A step, from the panel or from the phone (source=). The number after seq= makes "
                "sure that a repeated message counts once."},
    Explanation{"exec_context",
                "The situation: ax= says whether accessibility is on, front= which program has the "
                "focus."},
    Explanation{"target_resolved detected_profiled_front",
                "The program that shows the slides, which is also the one in front, and the kind "
                "of keys that it understands."},
    Explanation{"target_resolved detected_profiled_background",
                "The program that shows the slides, which is not in front, and the kind of keys "
                "that it understands."},
    Explanation{"menu_path_skipped", "As it is not in front, its menu is left alone."},
    Explanation{"menu_path_sent", "Its own menu item for this was pressed; no key is needed."},
    Explanation{"menu_path", "Its menu was of no use this time, so a key must do."},
    Explanation{"key_sent",
                "The key goes to that program alone (dispatch=pid). 121 is Page Down, 116 Page Up. "
                "The focus stays with the user."},
    Explanation{"key_undelivered", "The key could not be handed over; reason= says why."},
    Explanation{"completed", "Done. The same program will get the next step, too."},
    Explanation{"accessibility_prompt_on_toggle_on",
                "The user switched slide control on, so the permission is looked at now."},
    Explanation{"accessibility_check already_authorized", "It is there: nothing to ask for."},
    Explanation{"panel_debug", "A line that the panel page wanted to be in the log."},
    Explanation{"blocked", "The step was not carried out; the words behind it say why."},
};

}  // namespace

std::string explanationOf(std::string_view diagnosticLine) {
    for (const auto& [line, words] : explanations) {
        if (diagnosticLine.starts_with(line)) return std::string(words);
    }
    return {};
}

}  // namespace stagehopper::desktop
