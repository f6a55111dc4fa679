#include "app/LogLine.h"

namespace stagehopper {

namespace {

constexpr std::string_view dash = "-";

}  // namespace

std::string diagnosticMessage(std::string_view event, std::string_view detail) {
    std::string message = "[slide_nav] ";
    message += event;
    if (!detail.empty()) {
        message += ' ';
        message += detail;
    }
    return message;
}

std::string diagnosticFileLine(std::string_view time, std::string_view message) {
    std::string line = "[";
    line += time;
    line += "] ";
    line += message;
    line += '\n';
    return line;
}

std::string logDetail(
    std::initializer_list<std::pair<std::string_view, std::string_view>> keysAndValues) {
    std::string detail;
    for (const auto& [key, value] : keysAndValues) {
        if (!detail.empty()) detail += ' ';
        detail += key;
        detail += '=';
        detail += value;
    }
    return detail;
}

std::string_view dashIfEmpty(std::string_view text) {
    return text.empty() ? dash : text;
}

std::string_view dashIfAbsent(const std::optional<std::string>& text) {
    return text ? std::string_view(*text) : dash;
}

}  // namespace stagehopper
