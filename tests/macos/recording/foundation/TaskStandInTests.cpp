#include <gmock/gmock.h>

#include "ports/macos/cocoa/foundation/NSFileHandle.h"
#include "ports/macos/cocoa/foundation/NSPipe.h"
#include "ports/macos/cocoa/foundation/NSTask.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper::recording {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

class StandInOfATask : public RecordedTest {
protected:
    StandInOfATask() { world.tasks.programs["/bin/talk"] = {.output = "hello\n"}; }

    cocoa::Owned<cocoa::NSTask> make(const char* executable) {
        auto task = cocoa::NSTask::make();
        task->setExecutableURL(cocoa::NSURL::fileURLWithPath(cocoa::string(executable)));
        task->setStandardInput(cocoa::NSFileHandle::fileHandleWithNullDevice());
        return task;
    }
    bool launch(const cocoa::Owned<cocoa::NSTask>& task) {
        cocoa::NSError error;
        const bool launched = task->launchAndReturnError(error);
        if (error) reason_ = cocoa::text(error.localizedDescription());
        return launched;
    }
    ProgramFile& program() { return world.tasks.programs["/bin/talk"]; }

    cocoa::AutoreleasePool pool_;
    std::string reason_;
};

TEST_F(StandInOfATask, ShowsWhatItWasStartedWith) {
    const auto task = make("/bin/talk");
    task->setArguments(cocoa::NSArray::arrayWithObjects<cocoa::NSString>({cocoa::string("-v")}));
    task->setStandardOutput(cocoa::NSPipe::pipe());
    ASSERT_TRUE(launch(task));
    const auto& started = world.tasks.last("/bin/talk");
    EXPECT_THAT(started.arguments, ElementsAre("-v"));
    EXPECT_THAT(started.environment, Contains(Pair("HOME", "/Users/presenter")));
    EXPECT_EQ(started.input, "null device");
    EXPECT_EQ(started.output, "pipe");
    EXPECT_EQ(started.error, "inherited");
}

TEST_F(StandInOfATask, ReportsWhyAProgramCannotStart) {
    EXPECT_FALSE(launch(make("/bin/none")));
    EXPECT_EQ(reason_, "The file doesn’t exist.");
    program().launchError = "Permission denied";
    EXPECT_FALSE(launch(make("/bin/talk")));
    EXPECT_EQ(reason_, "Permission denied");
    EXPECT_TRUE(world.tasks.launched().empty());
}

TEST_F(StandInOfATask, CallsItsHandlerOnASystemQueueAtItsEnd) {
    program().exitsAfter = platform::Duration{2};
    program().exitStatus = 3;
    std::vector<std::string> calls;
    {
        const auto task = make("/bin/talk");
        task->setTerminationHandler(
            cocoa::Block<void(cocoa::NSTask)>([&calls](cocoa::NSTask ended) {
                calls.push_back(queues::current() + std::to_string(ended.terminationStatus()));
            }));
        ASSERT_TRUE(launch(task));
    }
    queues::advance(1);
    EXPECT_THAT(calls, ElementsAre());
    queues::advance(2);
    EXPECT_THAT(calls, ElementsAre("task3"));
}

TEST_F(StandInOfATask, MayCallItsHandlerBeforeTheLaunchReturns) {
    world.tasks.launchTakes = 1;
    program().exitsAfter = platform::Duration{0.5};
    double endedAt = 0;
    const auto task = make("/bin/talk");
    task->setTerminationHandler(
        cocoa::Block<void(cocoa::NSTask)>([&endedAt](cocoa::NSTask) { endedAt = queues::now(); }));
    ASSERT_TRUE(launch(task));
    EXPECT_DOUBLE_EQ(endedAt, 0.5);
    EXPECT_DOUBLE_EQ(queues::now(), 1);
}

TEST_F(StandInOfATask, MakesAReaderWaitForTheEndOfItsOutput) {
    program().exitsAfter = platform::Duration{5};
    const auto task = make("/bin/talk");
    const auto pipe = cocoa::NSPipe::pipe();
    task->setStandardOutput(pipe);
    ASSERT_TRUE(launch(task));
    cocoa::NSError error;
    const auto output = pipe.fileHandleForReading().readDataToEndOfFileAndReturnError(error);
    EXPECT_EQ(cocoa::bytes(output), "hello\n");
    EXPECT_DOUBLE_EQ(queues::now(), 5);
}

TEST_F(StandInOfATask, EndsSomeTimeAfterARequest) {
    program().endsWithin = platform::Duration{0.5};
    const auto task = make("/bin/talk");
    ASSERT_TRUE(launch(task));
    task->terminate();
    EXPECT_TRUE(task->isRunning());
    queues::advance(0.5);
    EXPECT_FALSE(task->isRunning());
    EXPECT_EQ(task->terminationStatus(), 15);
}

TEST_F(StandInOfATask, NotesQuestionsBeforeTheLaunchAsProblems) {
    const auto task = make("/bin/talk");
    task->terminate();
    static_cast<void>(task->terminationStatus());
    EXPECT_THAT(takeProblems(),
                ElementsAre(HasSubstr("-[NSTask terminate] of a task that was never launched"),
                            HasSubstr("-[NSTask terminationStatus] of a task")));
}

TEST_F(StandInOfATask, NotesAQuestionForTheStatusOfARunningTaskAsAProblem) {
    const auto task = make("/bin/talk");
    ASSERT_TRUE(launch(task));
    static_cast<void>(task->terminationStatus());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("still runs")));
}

}  // namespace

}  // namespace stagehopper::recording
