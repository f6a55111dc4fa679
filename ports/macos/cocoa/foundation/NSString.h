#pragma once

#include <string>
#include <string_view>

#include "ports/macos/cocoa/foundation/Utf16.h"
#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

class NSLocale;

inline constexpr NSUInteger NSUTF8StringEncoding = 4;

enum NSStringCompareOptions : NSUInteger {
    NSCaseInsensitiveSearch = 1,
    NSDiacriticInsensitiveSearch = 128,
};
constexpr NSStringCompareOptions operator|(NSStringCompareOptions left,
                                           NSStringCompareOptions right) {
    return static_cast<NSStringCompareOptions>(+left | +right);
}

/// NSString. Any thread.
class NSString : public Handle<NSString, NSObject> {
public:
    static constexpr FixedString className{"NSString"};
    using Handle::Handle;

    /// Nil when the bytes are not well-formed. Unlike a C string it may contain zeros.
    static Owned<NSString> make(std::string_view bytes) {
        return Owned<NSString>::adopt(
            allocate().initWithBytes(bytes.data(), bytes.size(), NSUTF8StringEncoding));
    }

    /// Null if the string has an unpaired surrogate, which UTF-8 cannot represent.
    [[nodiscard]] const char* UTF8String() const { return send<"UTF8String", const char*()>(); }
    [[nodiscard]] NSUInteger lengthOfBytesUsingEncoding(NSUInteger encoding) const {
        return send<"lengthOfBytesUsingEncoding:", NSUInteger(NSUInteger)>(encoding);
    }
    /// In units of UTF-16, as `characterAtIndex:` counts them.
    [[nodiscard]] NSUInteger length() const { return send<"length", NSUInteger()>(); }
    [[nodiscard]] unsigned short characterAtIndex(NSUInteger index) const {
        return send<"characterAtIndex:", unsigned short(NSUInteger)>(index);
    }
    [[nodiscard]] NSString stringByFoldingWithOptions(NSStringCompareOptions options,
                                                      NSLocale locale) const;
    /// The same in every language.
    [[nodiscard]] NSString lowercaseString() const { return send<"lowercaseString", NSString()>(); }

private:
    [[nodiscard]] NSString initWithBytes(const void* bytes, NSUInteger length,
                                         NSUInteger encoding) const {
        return send<"initWithBytes:length:encoding:",
                    NSString(const void*, NSUInteger, NSUInteger)>(bytes, length, encoding);
    }
};

/// The UTF-8 bytes; empty for nil. An unpaired surrogate becomes bytes that are not well-formed.
[[nodiscard]] inline std::string text(NSString string) {
    if (const auto size = string.lengthOfBytesUsingEncoding(NSUTF8StringEncoding); size > 0) {
        if (const char* bytes = string.UTF8String()) return {bytes, size};
    }
    // The string is empty, or UTF-8 cannot represent it.
    std::u16string units(string.length(), u'\0');
    for (NSUInteger index = 0; index < units.size(); ++index) {
        units[index] = string.characterAtIndex(index);
    }
    return utf8Of(units);
}

/// For arguments: `window.setTitle(string(title))`. Lives as long as the current pool. If the bytes
/// are not well-formed UTF-8, only the ASCII survives, so that a message is never lost entirely.
[[nodiscard]] inline NSString string(std::string_view bytes) {
    auto made = NSString::make(bytes);
    if (!made) {
        std::string ascii(bytes);
        for (char& character : ascii) {
            if (static_cast<unsigned char>(character) >= 0x80) character = '?';
        }
        made = NSString::make(ascii);
    }
    return NSString(made.detach().autorelease().pointer());
}

inline void NSObject::setValueForKey(NSObject value, NSString key) const {
    send<"setValue:forKey:", void(NSObject, NSString)>(value, key);
}

}  // namespace stagehopper::cocoa
