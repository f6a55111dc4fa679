#include "companion/backend/room/ClientMessage.h"

#include <nlohmann/json.hpp>

namespace stagehopper::companion {

namespace {

using Json = nlohmann::json;

constexpr std::size_t maxIdLength = 64;

const std::string* textAt(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : found->get_ptr<const std::string*>();
}

std::optional<double> fractionAt(const Json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number()) return std::nullopt;
    const auto fraction = found->get<double>();
    if (!(fraction >= 0 && fraction <= 1)) return std::nullopt;
    return fraction;
}

std::optional<Direction> directionNamed(const std::string& name) {
    if (name == "next") return Direction::next;
    if (name == "prev") return Direction::previous;
    return std::nullopt;
}

std::optional<ClientMessage> step(const Json& object) {
    const std::string* name = textAt(object, "direction");
    const std::string* id = textAt(object, "id");
    if (name == nullptr || id == nullptr || id->empty() || id->size() > maxIdLength) {
        return std::nullopt;
    }
    const auto direction = directionNamed(*name);
    if (!direction) return std::nullopt;
    return StepMessage{*direction, *id};
}

std::optional<ClientMessage> pointer(const Json& object) {
    const auto x = fractionAt(object, "x");
    const auto y = fractionAt(object, "y");
    const auto visible = object.find("visible");
    if (!x || !y || visible == object.end() || !visible->is_boolean()) return std::nullopt;
    return PointerMessage{*x, *y, visible->get<bool>()};
}

}  // namespace

std::optional<ClientMessage> parseClientMessage(std::string_view text) {
    const Json object = Json::parse(text, nullptr, false);
    if (!object.is_object()) return std::nullopt;
    const std::string* type = textAt(object, "type");
    if (type == nullptr) return std::nullopt;
    if (*type == "slide_nav") return step(object);
    if (*type == "pointer") return pointer(object);
    return std::nullopt;
}

}  // namespace stagehopper::companion
