#include "companion/backend/log/BackendLog.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <utility>

namespace stagehopper::companion {

namespace {

std::string timestamp() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    const auto milliseconds = static_cast<int>(
        duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000);
    std::tm utc{};
    if (::gmtime_r(&seconds, &utc) == nullptr) return "?";
    char text[40];
    const std::size_t length = std::strftime(text, sizeof(text), "%Y-%m-%dT%H:%M:%S", &utc);
    char fraction[8];
    std::snprintf(fraction, sizeof(fraction), ".%03dZ", milliseconds);
    return std::string(text, length) + fraction;
}

}  // namespace

std::string escaped(std::string_view text) {
    constexpr std::size_t maxLength = 300;
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string safe;
    for (const char c : text.substr(0, maxLength)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F && c != '\\') {
            safe += c;
        } else {
            safe += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        }
    }
    if (text.size() > maxLength) safe += "...";
    return safe;
}

BackendLog::BackendLog(std::string path, Settings settings)
    : file_(std::move(path), settings.maxBytes),
      errorOutput_(settings.errorOutput),
      now_(std::move(settings.now)) {}

BackendLog::~BackendLog() {
    for (const auto& [cause, budget] :
         {std::pair("participants", &participants_), std::pair("strangers", &strangers_)}) {
        const std::size_t leftOut = budget->takeLeftOut();
        if (leftOut > 0) {
            write("left_out", "by=" + std::string(cause) + " left_out=" + std::to_string(leftOut));
        }
    }
}

void BackendLog::line(std::string_view event, std::string_view detail, Cause cause) {
    std::string whole(detail);
    if (LineBudget* budget = budgetOf(cause)) {
        if (!budget->allow(now_())) return;
        const std::size_t leftOut = budget->takeLeftOut();
        if (leftOut > 0) whole += " left_out=" + std::to_string(leftOut);
    }
    write(event, whole);
}

LineBudget* BackendLog::budgetOf(Cause cause) {
    switch (cause) {
        case Cause::program:
            return nullptr;
        case Cause::participant:
            return &participants_;
        case Cause::stranger:
            return &strangers_;
    }
    return nullptr;
}

void BackendLog::write(std::string_view event, const std::string& detail) {
    const std::string text = timestamp() + " " + std::string(event) + " " + escaped(detail) + "\n";
    errorOutput_.write(text);
    file_.append(text);
}

}  // namespace stagehopper::companion
