#include <cctype>
#include <string>
#include <string_view>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Definitions.h"

namespace stagehopper::recording {

namespace {

/// What a URL may be made of ("Uniform Resource Identifier", RFC 3986). Older systems answer nil
/// for anything else, newer ones escape it; callers must not count on either.
bool isUrl(std::string_view text) {
    static constexpr std::string_view punctuation = "-._~:/?#[]@!$&'()*+,;=%";
    for (const char character : text) {
        const bool letterOrDigit = std::isalnum(static_cast<unsigned char>(character)) != 0;
        if (!letterOrDigit && punctuation.find(character) == std::string_view::npos) return false;
    }
    return !text.empty();
}

cocoa::id fileUrl(Call& call, std::string path, bool isDirectory) {
    if (path.empty() || path.front() != '/') noteProblem("a file URL of \"" + path + "\"");
    const auto made = call.make("NSURL");
    auto& state = stateOf<UrlState>(made);
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    state.path = path;
    state.address = "file://" + path + (isDirectory ? "/" : "");
    return made;
}

Value urlWithString(Call& call) {
    const auto argument = call.argument<cocoa::id>(0);
    if (argument == nullptr) noteProblem("a URL of no text");
    const auto text = textOf(argument);
    return isUrl(text) ? makeUrl(call, text) : cocoa::id{};
}

Value fileUrlWithPath(Call& call) {
    return fileUrl(call, textOf(call.argument<cocoa::id>(0)), false);
}

Value fileUrlWithPathIsDirectory(Call& call) {
    return fileUrl(call, textOf(call.argument<cocoa::id>(0)), call.argument<cocoa::BOOL>(1));
}

Value path(Call& call) {
    const auto& state = call.state<UrlState>();
    if (!state.path.empty()) return makeString(call, state.path);
    const auto authority = state.address.find("://");
    const auto begin =
        authority == std::string::npos ? authority : state.address.find('/', authority + 3);
    if (begin == std::string::npos) return makeString(call, "");
    return makeString(call, state.address.substr(begin, state.address.find('?') - begin));
}

}  // namespace

void defineUrls() {
    define("NSURL", MessageKind::classLevel, "URLWithString:", urlWithString);
    define("NSURL", MessageKind::classLevel, "fileURLWithPath:", fileUrlWithPath);
    define("NSURL", MessageKind::classLevel,
           "fileURLWithPath:isDirectory:", fileUrlWithPathIsDirectory);
    define("NSURL", MessageKind::instance, "path", path);
    define("NSURL", MessageKind::instance, "absoluteString",
           [](Call& call) -> Value { return makeString(call, addressOf(call.receiver())); });
    describeAs("NSURL", [](cocoa::id url) { return "<" + addressOf(url) + ">"; });
    keepOutOfJournal("NSURL");
}

}  // namespace stagehopper::recording
