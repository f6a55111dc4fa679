#include <cctype>
#include <string>
#include <string_view>

#include "tests/macos/recording/foundation/Foundation.h"

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

cocoa::id fileUrl(Call& call, bool isDirectory) {
    auto path = textOf(call.argument<cocoa::id>(0));
    if (!path.starts_with('/')) noteProblem("a file URL of \"" + path + "\"");
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return call.made(makeUrl("file://" + path + (isDirectory ? "/" : ""), path));
}

cocoa::id urlWithString(Call& call) {
    const auto argument = call.argument<cocoa::id>(0);
    if (argument == nullptr) noteProblem("a URL of no text");
    const auto text = textOf(argument);
    return isUrl(text) ? call.made(makeUrl(text)) : nullptr;
}

}  // namespace

void defineUrls() {
    MessagesOf("NSURL")
        .onClass("URLWithString:", urlWithString)
        .onClass("fileURLWithPath:", [](Call& call) { return fileUrl(call, false); })
        .onClass("fileURLWithPath:isDirectory:",
                 [](Call& call) { return fileUrl(call, call.argument<cocoa::BOOL>(1)); })
        .on("path", [](Call& call) { return makeString(call, pathOf(call.receiver())); })
        .on("absoluteString",
            [](Call& call) { return makeString(call, addressOf(call.receiver())); })
        .describedBy([](cocoa::id url) { return "<" + addressOf(url) + ">"; })
        .notInJournal();
}

}  // namespace stagehopper::recording
