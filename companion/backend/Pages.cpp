#include "companion/backend/Pages.h"

#include <fstream>
#include <iterator>

#include "companion/backend/PageTable.h"

namespace stagehopper::companion {

Pages::Pages(const std::string& directory) {
    for (const PageEntry& page : pageTable) {
        std::ifstream file(directory + "/" + std::string(page.fileName), std::ios::binary);
        if (!file) {
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
