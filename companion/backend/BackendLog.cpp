#include "companion/backend/BackendLog.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <system_error>

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
    constexpr std::size_t longest = 300;
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string safe;
    for (const char c : text.substr(0, longest)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F && c != '\\') {
            safe += c;
        } else {
            safe += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        }
    }
    if (text.size() > longest) safe += "...";
    return safe;
}

BackendLog::BackendLog(std::string path, std::size_t mostBytes)
    : path_(std::move(path)), mostBytes_(mostBytes) {
    openFile();
}

void BackendLog::line(std::string_view event, std::string_view detail) {
    const std::string text = timestamp() + " " + std::string(event) + " " + escaped(detail) + "\n";
    std::fwrite(text.data(), 1, text.size(), stderr);
    if (!file_.is_open()) return;
    if (written_ + text.size() > mostBytes_) {
        file_.close();
        openFile();
    }
    file_ << text << std::flush;
    written_ += text.size();
}

void BackendLog::openFile() {
    if (path_.empty()) return;
    namespace fs = std::filesystem;
    std::error_code error;
    fs::create_directories(fs::path(path_).parent_path(), error);
    const auto size = fs::file_size(path_, error);
    const bool fits = !error && size + 512 <= mostBytes_;
    written_ = fits ? static_cast<std::size_t>(size) : 0;
    file_.open(path_, fits ? std::ios::app : std::ios::trunc);
    // Names of people and rooms stand in it.
    fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, error);
}

}  // namespace stagehopper::companion
