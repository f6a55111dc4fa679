#include "tests/macos/gnustep/UrlSession.h"

#include <cstdio>
#include <memory>
#include <utility>

#include "ports/macos/cocoa/foundation/NSData.h"
#include "ports/macos/cocoa/foundation/NSURLSession.h"
#include "ports/macos/cocoa/objc/RuntimeClass.h"
#include "tests/macos/gnustep/GnustepBlocks.h"
#include "tests/macos/gnustep/Threads.h"

namespace stagehopper::cocoa {

namespace {

class NSURLRequest : public Handle<NSURLRequest, NSObject> {
public:
    static constexpr FixedString className{"NSURLRequest"};
    using Handle::Handle;

    static NSURLRequest requestWithURL(NSURL url) {
        return sendToClass<"requestWithURL:", NSURLRequest(NSURL)>(url);
    }
};

class NSURLConnection : public Handle<NSURLConnection, NSObject> {
public:
    static constexpr FixedString className{"NSURLConnection"};
    using Handle::Handle;

    /// Blocks until the answer is here.
    static NSData sendSynchronousRequest(NSURLRequest request, id& response, id& error) {
        return sendToClass<"sendSynchronousRequest:returningResponse:error:",
                           NSData(NSURLRequest, id*, id*)>(request, &response, &error);
    }
};

/// One NSURLSessionDataTask; lives until it has completed.
class DataTask : public std::enable_shared_from_this<DataTask> {
public:
    static NSObject make(NSURL url, BlockPointer completion) {
        static const auto runtimeClass = RuntimeClass<DataTask>("NSURLSessionDataTask")
                                             .method<"resume", &DataTask::resume>()
                                             .registerClass();
        const auto task = std::make_shared<DataTask>();
        task->url_ = Owned<NSURL>::share(url);
        task->completion_.reset(_Block_copy(completion.pointer), &_Block_release);
        task->self_ = task;
        return runtimeClass.makeInstance(task).detach().autorelease();
    }

private:
    void resume() {
        gnustep::runOnNewThread([self = std::exchange(self_, nullptr)] {
            const AutoreleasePool pool;
            id response = nullptr;
            id error = nullptr;
            const auto data = NSURLConnection::sendSynchronousRequest(
                NSURLRequest::requestWithURL(self->url_.get()), response, error);
            gnustep::callBlock(self->completion_.get(), data, NSURLResponse(response),
                               NSError(error));
        });
    }

    Owned<NSURL> url_;
    std::shared_ptr<void> completion_;
    std::shared_ptr<DataTask> self_;
};

id sharedSession(id self, SEL /*name*/) {
    static const id made =
        Message<NSObject, MessageKind::classLevel, "new", NSObject()>::send(self).pointer();
    return made;
}

id dataTask(id /*self*/, SEL /*name*/, id url, BlockPointer completion) {
    return DataTask::make(NSURL(url), completion).pointer();
}

}  // namespace

namespace gnustep {

void supplyUrlSession() {
    const char* name = NSURLSession::className.c_str();
    if (objc_getClass(name) != nullptr) return;  // a later GNUstep has it
    std::printf("GNUstep has no %s: in its place NSURLConnection\n", name);
    std::fflush(stdout);
    const auto made = objc_allocateClassPair(classOf<NSObject>(), name, 0);
    class_addMethod(object_getClass(reinterpret_cast<id>(made)), selector<"sharedSession">(),
                    reinterpret_cast<IMP>(&sharedSession), methodEncoding<NSURLSession>);
    class_addMethod(made, selector<"dataTaskWithURL:completionHandler:">(),
                    reinterpret_cast<IMP>(&dataTask),
                    methodEncoding<NSURLSessionDataTask, NSURL, BlockPointer>);
    objc_registerClassPair(made);
}

}  // namespace gnustep

}  // namespace stagehopper::cocoa
