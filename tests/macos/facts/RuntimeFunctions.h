#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// The Objective-C runtime. Source: Darwin's <objc/runtime.h> and <objc/message.h>, as C sees them.
inline constexpr FunctionFact runtimeFunctions[] = {
    {"class_addIvar", "B(#,r*,Q,C,r*)", Library::libobjc},
    {"class_addMethod", "B(#,:,^?,r*)", Library::libobjc},
    {"class_addProtocol", "B(#,@)", Library::libobjc},
    {"class_getClassMethod", "^{objc_method=}(#,:)", Library::libobjc},
    {"class_getInstanceMethod", "^{objc_method=}(#,:)", Library::libobjc},
    {"class_getInstanceVariable", "^{objc_ivar=}(#,r*)", Library::libobjc},
    {"class_getMethodImplementation", "^?(#,:)", Library::libobjc},
    {"class_getName", "r*(#)", Library::libobjc},
    {"class_getSuperclass", "#(#)", Library::libobjc},
    {"class_respondsToSelector", "B(#,:)", Library::libobjc},
    {"ivar_getOffset", "q(^{objc_ivar=})", Library::libobjc},
    {"method_getImplementation", "^?(^{objc_method=})", Library::libobjc},
    {"method_getTypeEncoding", "r*(^{objc_method=})", Library::libobjc},
    {"objc_allocateClassPair", "#(#,r*,Q)", Library::libobjc},
    {"objc_disposeClassPair", "v(#)", Library::libobjc},
    {"objc_getClass", "#(r*)", Library::libobjc},
    {"objc_getMetaClass", "#(r*)", Library::libobjc},
    {"objc_getProtocol", "@(r*)", Library::libobjc},
    {"objc_lookUpClass", "#(r*)", Library::libobjc},
    {"objc_msgSend", "v()", Library::libobjc},
    {"objc_msgSendSuper", "v()", Library::libobjc},
    {"objc_msgSend_stret", "v()", Library::libobjc},
    {"objc_registerClassPair", "v(#)", Library::libobjc},
    {"object_getClass", "#(@)", Library::libobjc},
    {"object_getClassName", "r*(@)", Library::libobjc},
    {"sel_getName", "r*(:)", Library::libobjc},
    {"sel_registerName", ":(r*)", Library::libobjc},
};

// What compilers call on their own. Source: clang's documentation of automatic reference counting.
inline constexpr FunctionFact compilerFunctions[] = {
    {"objc_autorelease", "@(@)", Library::libobjc},
    {"objc_autoreleasePoolPop", "v(^v)", Library::libobjc},
    {"objc_autoreleasePoolPush", "^v()", Library::libobjc},
    {"objc_release", "v(@)", Library::libobjc},
    {"objc_retain", "@(@)", Library::libobjc},
};

// Blocks. Source: Darwin's <Block.h>.
inline constexpr FunctionFact blockFunctions[] = {
    {"_Block_copy", "^v(r^v)", Library::libSystem, Returns::retained},
    {"_Block_release", "v(r^v)", Library::libSystem},
};

// Queues and semaphores. Source: Darwin's <dispatch/*.h> and <pthread.h>, as C sees them.
inline constexpr FunctionFact dispatchFunctions[] = {
    {"dispatch_after_f", "v(Q,^{dispatch_queue_s=},^v,^?)", Library::libSystem},
    {"dispatch_async_f", "v(^{dispatch_queue_s=},^v,^?)", Library::libSystem},
    {"dispatch_get_global_queue", "^{dispatch_queue_s=}(q,Q)", Library::libSystem},
    {"dispatch_main", "v()", Library::libSystem},
    {"dispatch_queue_attr_make_with_qos_class",
     "^{dispatch_queue_attr_s=}(^{dispatch_queue_attr_s=},I,i)", Library::libSystem},
    {"dispatch_queue_create", "^{dispatch_queue_s=}(r*,^{dispatch_queue_attr_s=})",
     Library::libSystem, Returns::retained},
    {"dispatch_release", "v(^{dispatch_object_s=})", Library::libSystem},
    {"dispatch_retain", "v(^{dispatch_object_s=})", Library::libSystem},
    {"dispatch_semaphore_create", "^{dispatch_semaphore_s=}(q)", Library::libSystem,
     Returns::retained},
    {"dispatch_semaphore_signal", "q(^{dispatch_semaphore_s=})", Library::libSystem},
    {"dispatch_semaphore_wait", "q(^{dispatch_semaphore_s=},Q)", Library::libSystem},
    {"dispatch_sync_f", "v(^{dispatch_queue_s=},^v,^?)", Library::libSystem},
    {"dispatch_time", "Q(Q,q)", Library::libSystem},
    {"pthread_main_np", "i()", Library::libSystem},
};

}  // namespace stagehopper::macos_facts
