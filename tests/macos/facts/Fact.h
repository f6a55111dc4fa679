#pragma once

#include <string_view>

namespace stagehopper::macos_facts {

/// Whether a message goes to an instance or to the class itself.
enum class Kind { instance, classLevel };

/// Whether the caller owns one reference to the answer (the families alloc, new, copy, init).
enum class Returns { plain, retained };

enum class Need { optional, required };

/// Whose library a name is linked from.
enum class Library {
    libSystem,
    libobjc,
    coreFoundation,
    foundation,
    coreGraphics,
    applicationServices,
    appKit,
    webKit
};
using enum Library;

/// What is known of one message. The encoding is the compiler's for arm64 macOS, without offsets:
/// the answer, then the receiver and the selector ("@:"), then each argument.
struct MethodFact {
    /// A "+" before the selector marks a message to the class itself.
    constexpr MethodFact(std::string_view receiver, std::string_view signedSelector,
                         std::string_view types, std::string_view blockTypes = {})
        : className(receiver),
          kind(signedSelector.starts_with('+') ? Kind::classLevel : Kind::instance),
          selector(signedSelector.substr(kind == Kind::classLevel ? 1 : 0)),
          encoding(types),
          returns(isOwnedByTheCaller() ? Returns::retained : Returns::plain),
          block(blockTypes) {}

    std::string_view className;
    Kind kind;
    std::string_view selector;
    std::string_view encoding;
    Returns returns;
    /// The encoding of the block that the message takes; empty without a block.
    std::string_view block;

private:
    [[nodiscard]] constexpr bool isOwnedByTheCaller() const {
        for (const std::string_view family : {"alloc", "new", "copy", "mutableCopy", "init"}) {
            if (!encoding.starts_with('@') || !selector.starts_with(family)) continue;
            const auto rest = selector.substr(family.size());
            if (rest.empty() || rest[0] == ':' || (rest[0] >= 'A' && rest[0] <= 'Z')) return true;
        }
        return false;
    }
};

struct ClassFact {
    std::string_view name;
    /// Empty for a root class.
    std::string_view superclass;
    Library library = Library::foundation;
};

/// A message that the system sends to an object of ours.
struct CallbackFact {
    std::string_view protocol;
    std::string_view selector;
    std::string_view encoding;
    Need need = Need::optional;
    std::string_view block = {};
};

/// A C function: the encoding of its answer and, in brackets, those of its arguments. Opaque types
/// are pointers to their structure ("^{__CFString=}"), a `Boolean` is "C", a `bool` "B".
struct FunctionFact {
    std::string_view name;
    std::string_view signature;
    Library library = Library::libSystem;
};

/// A variable that a library exports.
struct SymbolFact {
    std::string_view name;
    std::string_view encoding;
    Library library = Library::foundation;
};

struct EnumeratorFact {
    std::string_view enumeration;
    /// The encoding of the enumeration's underlying type.
    std::string_view type;
    std::string_view name;
    long long value = 0;
};

/// A number that the vendor's headers define by name, outside any enumeration.
struct NumberFact {
    std::string_view name;
    std::string_view type;
    unsigned long long value = 0;
};

/// A text that the vendor's headers define by name.
struct TextFact {
    std::string_view name;
    std::string_view text;
};

}  // namespace stagehopper::macos_facts
