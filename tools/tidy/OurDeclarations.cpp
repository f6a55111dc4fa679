// A plugin that makes clang-tidy look only at what is to be looked at.
//
// By itself it lets every check walk through all declarations that a file sees, those of the
// standard library and of GoogleTest included, and drops what it finds there: more than half of its
// time. And it looks at a header of ours anew in each file that includes it. With this the checks
// walk through the file itself and the headers named beside it, and find the same there.
//
//   OUR_HEADERS=/path/One.h:/path/Two.h clang-tidy --load=OurDeclarations.so ... File.cpp
//
// Built by tools/check-tidy with the headers of the very version that loads it.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/AST/DeclGroup.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <cstdlib>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

class OurDeclarations : public clang::ASTConsumer {
public:
    explicit OurDeclarations(const clang::SourceManager& sources) : sources_(sources) {
        const char* headers = std::getenv("OUR_HEADERS");
        std::istringstream list(headers != nullptr ? headers : "");
        for (std::string header; std::getline(list, header, ':');) headers_.insert(header);
    }

    bool HandleTopLevelDecl(clang::DeclGroupRef group) override {
        for (auto* declaration : group) {
            // Of what a macro makes, the place that uses it counts: a test case is ours.
            if (isOurs(sources_.getExpansionLoc(declaration->getLocation()))) {
                ours_.push_back(declaration);
            }
        }
        return true;
    }
    void HandleTranslationUnit(clang::ASTContext& context) override {
        context.setTraversalScope(ours_);
    }

private:
    bool isOurs(clang::SourceLocation place) const {
        return place.isValid() && (sources_.isInMainFile(place) ||
                                   headers_.count(sources_.getFilename(place).str()) != 0);
    }

    const clang::SourceManager& sources_;
    std::set<std::string> headers_;
    std::vector<clang::Decl*> ours_;
};

class LimitToOurDeclarations : public clang::PluginASTAction {
protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& compiler,
                                                          llvm::StringRef /*file*/) override {
        return std::make_unique<OurDeclarations>(compiler.getSourceManager());
    }
    bool ParseArgs(const clang::CompilerInstance& /*compiler*/,
                   const std::vector<std::string>& /*arguments*/) override {
        return true;
    }
    // Before the checks, which are the main action.
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<LimitToOurDeclarations> registration(
    "our-declarations", "limits the checks to a file and some of its headers");

}  // namespace
