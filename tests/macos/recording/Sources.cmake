# The runtime itself. WorldSources.cmake has the behavior of the system's classes.
set(STAGEHOPPER_RECORDING_RUNTIME
  runtime/Behaviors.cpp
  runtime/Blocks.cpp
  runtime/Callbacks.cpp
  runtime/Classes.cpp
  runtime/Dispatch.cpp
  runtime/Heap.cpp
  runtime/Journal.cpp
  runtime/Memory.cpp
  runtime/ObjectiveC.cpp
  runtime/Recording.cpp
  runtime/Retained.cpp
  runtime/Scheduler.cpp
  runtime/SendMessage.cpp
  runtime/Value.cpp)
