#include "slidechannel/SlideMessage.h"

#include <cmath>
#include <cstdint>

#include "slidechannel/ReceivedJson.h"

namespace stagehopper {

namespace {

using nlohmann::json;

std::string textOf(const json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string{};
}

/// A value as text: strings unchanged, numbers in plain decimal. 17 and 17.0 are the same tag,
/// because senders write whole numbers in both ways.
std::string described(const json& value) {
    constexpr double exactlyCounted = 9007199254740992.0;  // 2^53
    if (value.is_string()) return value.get<std::string>();
    if (value.is_null()) return "<null>";
    if (value.is_boolean()) return value.get<bool>() ? "1" : "0";
    if (value.is_number_float()) {
        const auto number = value.get<double>();
        if (std::trunc(number) == number && std::abs(number) <= exactlyCounted) {
            return std::to_string(static_cast<std::int64_t>(number));
        }
    }
    return value.dump();
}

}  // namespace

SlideMessage parseSlideMessage(std::string_view text) {
    const auto message = parseReceivedJson(text);
    if (!message || !message->is_object()) return OtherMessage{};
    const auto type = textOf(*message, "type");
    if (type == "welcome") return WelcomeMessage{};
    if (type != "slide_nav") return OtherMessage{};
    const auto seq = message->find("seq");
    return SlideNavMessage{textOf(*message, "direction"),
                           seq == message->end() ? std::string{} : described(*seq)};
}

}  // namespace stagehopper
