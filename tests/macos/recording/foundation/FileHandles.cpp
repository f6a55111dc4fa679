#include "tests/macos/recording/foundation/FileHandles.h"

#include <utility>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/Tasks.h"

// NSPipe and NSFileHandle.

namespace stagehopper::recording {

namespace {

/// What both ends of a pipe share.
struct Stream {
    /// Null until a task is started with the pipe.
    std::shared_ptr<LaunchedTask> writer;
    bool read = false;
};

struct PipeState {
    std::shared_ptr<Stream> stream = std::make_shared<Stream>();
    Retained reading;
};

struct FileHandleState {
    /// Null for the null device.
    std::shared_ptr<Stream> stream;
};

Value fileHandleForReading(Call& call) {
    auto& pipe = call.state<PipeState>();
    if (!pipe.reading) {
        pipe.reading = makeObject("NSFileHandle");
        stateOf<FileHandleState>(pipe.reading.get()).stream = pipe.stream;
    }
    return pipe.reading.get();
}

/// Blocks until the writer has gone; for ever when there never was one.
std::string readToEnd(const Stream& stream) {
    const auto ended = [&stream] { return stream.writer && !stream.writer->running; };
    queues::waitUntil(ended, queues::forever);
    return stream.writer ? stream.writer->program.output : std::string();
}

Value readDataToEndOfFile(Call& call) {
    const auto stream = call.state<FileHandleState>().stream;
    if (!stream || std::exchange(stream->read, true)) return makeData(call, "");
    return makeData(call, readToEnd(*stream));
}

cocoa::id nullDevice() {
    return sharedInstance("NSFileHandle", "null device");
}

}  // namespace

std::string describeStream(cocoa::id stream) {
    if (stream == nullptr) return "inherited";
    if (isKindOf(stream, "NSPipe")) return "pipe";
    return stream == nullDevice() ? "null device" : "file";
}

void setWriter(cocoa::id stream, std::shared_ptr<LaunchedTask> task) {
    if (isKindOf(stream, "NSPipe")) stateOf<PipeState>(stream).stream->writer = std::move(task);
}

void defineFileHandles() {
    define("NSPipe", MessageKind::classLevel, "pipe",
           [](Call& call) -> Value { return call.make("NSPipe"); });
    define("NSPipe", MessageKind::instance, "fileHandleForReading", fileHandleForReading);
    define("NSFileHandle", MessageKind::classLevel, "fileHandleWithNullDevice",
           [](Call&) -> Value { return nullDevice(); });
    define("NSFileHandle", MessageKind::instance, "readDataToEndOfFile", readDataToEndOfFile);
    // Without an error object a failed read goes unreported; here reads never fail.
    define("NSFileHandle", MessageKind::instance,
           "readDataToEndOfFileAndReturnError:", readDataToEndOfFile);
}

}  // namespace stagehopper::recording
