#pragma once

#include <string>
#include <string_view>

namespace stagehopper::macos_facts {

/// Finds what a file of `ports/macos` declares of the vendor's and returns it as one macro
/// call a line, between the file's own conditions of the preprocessor:
///
///     FUNCTION(objc_getClass)  VARIABLE(_dispatch_main_q)  ENUMERATOR(NSTaskReason, NSTaskExit)
///     CONSTANT(NSUTF8StringEncoding)  HANDLE(NSMenu, NSObject)  MESSAGE("addItem:")
///     SELECTOR("terminate:")  BLOCK("setHandler:", void(NSTask))
///     ACCESSIBILITY_NAME("AXTitle")
///     CALLBACK("NSWindowDelegate", "windowWillClose:", WindowObject, windowWillClose)
///
/// A BLOCK names the block that the function around a message takes. A CALLBACK names the member
/// function that handles a message of the system to a class of ours, and the class's protocols.
/// Reads the text, not the language: it knows just the forms in which our files are written. What
/// it takes for a constant has a vendor's name: a capital first, or after a `k`. Pure; any thread.
[[nodiscard]] std::string scanDeclarations(std::string_view source);

}  // namespace stagehopper::macos_facts
