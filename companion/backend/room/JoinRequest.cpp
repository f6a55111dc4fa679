#include "companion/backend/room/JoinRequest.h"

#include <algorithm>
#include <map>

#include "companion/backend/room/Names.h"
#include "text/Ascii.h"
#include "text/Percent.h"

namespace stagehopper::companion {

namespace {

using Values = std::map<std::string, std::string, std::less<>>;

/// Null if a name is repeated: two readers could pick different values.
std::optional<Values> parseQuery(std::string_view query) {
    Values values;
    while (!query.empty()) {
        const std::string_view item = query.substr(0, query.find('&'));
        query.remove_prefix(std::min(query.size(), item.size() + 1));
        if (item.empty()) continue;
        const std::size_t equals = item.find('=');
        if (equals == std::string_view::npos) return std::nullopt;
        const auto name = percentDecoded(item.substr(0, equals));
        const auto value = percentDecoded(item.substr(equals + 1));
        if (!name || !value || !values.try_emplace(*name, *value).second) return std::nullopt;
    }
    return values;
}

bool isColor(std::string_view text) {
    return text.size() == 7 && text.front() == '#' &&
           std::ranges::all_of(text.substr(1), isHexDigit);
}

std::optional<Role> roleFromName(std::string_view name) {
    for (const Role role : {Role::host, Role::guest}) {
        if (name == nameOf(role)) return role;
    }
    return std::nullopt;
}

}  // namespace

std::string_view nameOf(Role role) {
    return role == Role::host ? "host" : "guest";
}

std::optional<JoinRequest> parseJoinRequest(std::string_view query) {
    const auto values = parseQuery(query);
    if (!values) return std::nullopt;
    const auto find = [&](std::string_view name) -> std::optional<std::string> {
        const auto found = values->find(name);
        return found == values->end() ? std::nullopt : std::optional(found->second);
    };

    const auto roomCode = find("roomCode");
    const auto userId = find("userId");
    const auto role = roleFromName(find("role").value_or(""));
    const auto displayName = find("displayName");
    const auto cursorColor = find("cursorColor");
    if (!roomCode || !userId || !role || !displayName || !cursorColor) return std::nullopt;
    if (!isRoomCode(*roomCode) || !isUserId(*userId)) return std::nullopt;
    if (!isDisplayText(*displayName) || !isColor(*cursorColor)) return std::nullopt;
    return JoinRequest{*roomCode, *userId, *displayName, *role, *cursorColor, find("secret")};
}

}  // namespace stagehopper::companion
