#include "companion/backend/http/Pages.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "companion/backend/access/PageTable.h"

namespace stagehopper::companion {

Pages::Pages(const std::string& directory) {
    for (const PageEntry& page : pageTable) {
        const auto path = std::filesystem::path(directory) / page.fileName;
        std::ifstream file(path, std::ios::binary);
        // A folder can be opened, but to read it is an error.
        if (std::error_code error; !file || !std::filesystem::is_regular_file(path, error)) {
            missing_.emplace_back(page.fileName);
            continue;
        }
        std::string bytes(std::istreambuf_iterator<char>(file), {});
        files_.emplace(page.path, File{std::string(page.contentType), std::move(bytes)});
    }
}

const Pages::File* Pages::at(std::string_view path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : &found->second;
}

}  // namespace stagehopper::companion
