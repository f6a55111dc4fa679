#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

#include "tests/macos/facts/DeclarationScanner.h"

namespace {

/// An include of the header that stands beside a source that makes a class.
void printOwner(std::string_view source, std::string_view declarations) {
    if (declarations.find("CALLBACK(") == std::string_view::npos) return;
    std::cout << "#include \"" << source.substr(0, source.rfind('.')) << ".h\"\n";
}

}  // namespace

// Prints what the files named on the command line declare, file by file; after `--owners` the
// headers of those that make classes.
int main(int argc, char** argv) {
    const bool owners = argc > 1 && std::string_view(argv[1]) == "--owners";
    for (int i = owners ? 2 : 1; i < argc; ++i) {
        std::ifstream file(argv[i]);
        if (!file) {
            std::cerr << argv[i] << ": cannot be read\n";
            return 1;
        }
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        const auto declarations = stagehopper::macos_facts::scanDeclarations(text);
        if (owners) {
            printOwner(argv[i], declarations);
        } else {
            std::cout << "// " << argv[i] << '\n' << declarations;
        }
    }
    return 0;
}
