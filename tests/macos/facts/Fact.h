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

/// What is known of one message. The encoding is the compiler's for arm64 macOS, without offsets:
/// the answer, then the receiver and the selector ("@:"), then each argument.
struct MethodFact {
    std::string_view className;
    Kind kind = Kind::instance;
    std::string_view selector;
    std::string_view encoding;
    Returns returns = Returns::plain;
    /// The encoding of the block that the message takes; empty without a block.
    std::string_view block = {};
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
    Returns returns = Returns::plain;
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
