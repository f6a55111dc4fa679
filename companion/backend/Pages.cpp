#include "companion/backend/Pages.h"

#include <array>
#include <fstream>
#include <iterator>

namespace stagehopper::companion {
namespace {

struct Listed {
    std::string_view path;
    std::string_view name;
    std::string_view contentType;
};

constexpr std::array listed{
    Listed{"/link", "link.html", "text/html; charset=utf-8"},
    Listed{"/link.js", "link.js", "text/javascript; charset=utf-8"},
    Listed{"/phone", "phone.html", "text/html; charset=utf-8"},
    Listed{"/phone.js", "phone.js", "text/javascript; charset=utf-8"},
    Listed{"/phone.css", "phone.css", "text/css; charset=utf-8"},
    Listed{"/phone-texts.js", "phone-texts.js", "text/javascript; charset=utf-8"},
    Listed{"/awake.mp4", "awake.mp4", "video/mp4"},
    Listed{"/awake.webm", "awake.webm", "video/webm"},
    Listed{"/stagehopper.svg", "stagehopper.svg", "image/svg+xml"},
};

}  // namespace

Pages::Pages(const std::string& directory) {
    for (const Listed& one : listed) {
        std::ifstream file(directory + "/" + std::string(one.name), std::ios::binary);
        if (!file) {
            missing_.emplace_back(one.name);
            continue;
        }
        std::string bytes(std::istreambuf_iterator<char>(file), {});
        files_.emplace(one.path, File{std::string(one.contentType), std::move(bytes)});
    }
}

const Pages::File* Pages::at(std::string_view path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : &found->second;
}

}  // namespace stagehopper::companion
