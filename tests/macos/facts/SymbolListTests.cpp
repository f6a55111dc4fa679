#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "tests/macos/facts/Facts.h"

// The lists from which the linker knows the system's libraries (cmake/macos-symbols) are written by
// hand: a name that no library has would only be found on a Mac.

namespace stagehopper::macos_facts {
namespace {

constexpr std::pair<std::string_view, Library> libraryOfList[] = {
    {"AppKit", Library::appKit},
    {"ApplicationServices", Library::applicationServices},
    {"CoreFoundation", Library::coreFoundation},
    {"CoreGraphics", Library::coreGraphics},
    {"Foundation", Library::foundation},
    {"WebKit", Library::webKit},
    {"libobjc", Library::libobjc},
};

/// Where the table has that symbol.
std::optional<Library> libraryOf(std::string_view symbol) {
    if (const auto* function = functionNamed(symbol)) return function->library;
    if (const auto* variable = symbolNamed(symbol)) return variable->library;
    return std::nullopt;
}

int expectSymbolsOf(const std::filesystem::path& list, Library library) {
    std::ifstream file(list);
    EXPECT_TRUE(file) << list;
    int count = 0;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string symbol;
        if (!(words >> symbol) || symbol == "library") continue;
        const auto known = libraryOf(symbol);
        EXPECT_TRUE(known.has_value()) << symbol << " is not in the table";
        EXPECT_TRUE(!known || *known == library) << symbol << " is not in " << list;
        ++count;
    }
    return count;
}

TEST(SymbolLists, NameOnlySymbolsOfThatLibrary) {
    int count = 0;
    for (const auto& [name, library] : libraryOfList) {
        const auto list = std::string(name).append(".txt");
        count += expectSymbolsOf(std::filesystem::path(STAGEHOPPER_SYMBOL_LISTS) / list, library);
    }
    std::printf("%d symbols\n", count);
    EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace stagehopper::macos_facts
