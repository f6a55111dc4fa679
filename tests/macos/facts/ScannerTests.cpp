#include <gtest/gtest.h>

#include "tests/macos/facts/DeclarationScanner.h"

// A check of declarations is worth what finds them.

namespace stagehopper::macos_facts {
namespace {

TEST(DeclarationScanner, FindsFunctionsAndVariablesOfCButNotTheTypes) {
    EXPECT_EQ(scanDeclarations(R"(
        // void commentedOut(void);
        extern "C" {
        struct opaque_s;
        extern struct opaque_s theOne;
        extern void* many[32];
        const void* CFRetain(const void* object);
        void later(int when, void (*work)(void*));
        }
        void ofOurOwn();)"),
              "VARIABLE(theOne)\nVARIABLE(many)\nFUNCTION(CFRetain)\nFUNCTION(later)\n");
}

TEST(DeclarationScanner, FindsEnumeratorsWithAndWithoutValues) {
    EXPECT_EQ(
        scanDeclarations("enum NSStyle : NSUInteger { NSFirst, NSSecond = 1 << (2), /* NSNo = "
                         "3, */ NSThird = NSFirst | NSSecond, };\n"
                         "enum class Ours { plain };\nenum class MessageKind;"),
        "ENUMERATOR(NSStyle, NSFirst)\nENUMERATOR(NSStyle, NSSecond)\n"
        "ENUMERATOR(NSStyle, NSThird)\n");
}

TEST(DeclarationScanner, FindsConstantsOfTheVendorsAndLeavesOursAlone) {
    EXPECT_EQ(
        scanDeclarations("inline constexpr NSUInteger NSUTF8StringEncoding = 4;\n"
                         "inline constexpr std::string_view kAXPressAction{\"AXPress\"};\n"
                         "inline constexpr int ours = NSOther;\n"
                         "template <> inline constexpr std::string_view encoding<Class> = \"#\";\n"
                         "inline constexpr bool Function(int x) { return x == 0; }"),
        "CONSTANT(NSUTF8StringEncoding)\nCONSTANT(kAXPressAction)\n"
        "ACCESSIBILITY_NAME(\"AXPress\")\n");
}

TEST(DeclarationScanner, FindsHandlesMessagesAndSelectors) {
    EXPECT_EQ(scanDeclarations(R"(
        class NSMenu : public Handle<NSMenu, NSObject> {
            void add(NSMenuItem item) { send<"addItem:", void(NSMenuItem)>(item); }
            static NSMenu menu() { return sendToClass<
                "menu", NSMenu()>(); }
        };
        using Init = Message<NSObject, MessageKind::instance, "init", NSObject()>;
        auto quit = selector<"terminate:">();)"),
              "HANDLE(NSMenu, NSObject)\nMESSAGE(\"addItem:\")\nMESSAGE(\"menu\")\n"
              "MESSAGE(\"init\")\nSELECTOR(\"terminate:\")\n");
}

TEST(DeclarationScanner, FindsTheBlockThatAMessageTakesDirectlyOrByAnotherName) {
    EXPECT_EQ(scanDeclarations(R"(
        using Receiver = Block<void(NSData, NSError)>;
        void onExit(const Block<void(NSTask)>& handler) { send<"setHandler:", void(BlockPointer)>(handler.get()); }
        void receive(const Receiver& receiver) { send<"receive:", void(BlockPointer)>(receiver.get()); }
        void resume() { send<"resume", void()>(); })"),
              "MESSAGE(\"setHandler:\")\nBLOCK(\"setHandler:\", void(NSTask))\n"
              "MESSAGE(\"receive:\")\nBLOCK(\"receive:\", void(NSData, NSError))\n"
              "MESSAGE(\"resume\")\n");
}

TEST(DeclarationScanner, FindsTheMethodsOfOurClassesWithTheirProtocols) {
    EXPECT_EQ(scanDeclarations(R"(
        using Self = WindowObject;
        static const auto made = cocoa::RuntimeClass<Self>("Window")
            .conformsTo("NSWindowDelegate").conformsTo("NSOtherDelegate")
            .method<"windowWillClose:", &Self::windowWillClose>();
        static const auto other = cocoa::RuntimeClass<Guard>("Guard").method<"go", &Guard::go>();)"),
              "CALLBACK(\"NSWindowDelegate NSOtherDelegate\", \"windowWillClose:\", WindowObject, "
              "windowWillClose)\nCALLBACK(\"\", \"go\", Guard, go)\n");
}

TEST(DeclarationScanner, FindsNamesOfTheAccessibilityInterface) {
    EXPECT_EQ(scanDeclarations("return \"AXTitle\"; // not \"AXRole\"\nlog(\"MAX\");"),
              "ACCESSIBILITY_NAME(\"AXTitle\")\n");
}

TEST(DeclarationScanner, KeepsTheConditionsUnderWhichSomethingIsDeclared) {
    EXPECT_EQ(scanDeclarations("#pragma once\n#include <cstdint>\nextern \"C\" {\n#if defined(A)\n"
                               "void one(void);\n#else\nvoid two(void);\n#endif\n}\n"),
              "#if defined(A)\nFUNCTION(one)\n#else\nFUNCTION(two)\n#endif\n");
}

}  // namespace
}  // namespace stagehopper::macos_facts
