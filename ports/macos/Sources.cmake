# The sources of the port, without its entry point. Tests also build them, against runtimes other
# than Apple's.
set(STAGEHOPPER_MACOS_SOURCES
  AppControllerObject.cpp
  BridgeHandlerObject.cpp
  FailureQueue.cpp
  MacAccessibility.cpp
  MacApplication.cpp
  MacChildProcess.cpp
  MacChildProcesses.cpp
  MacClock.cpp
  MacDispatch.cpp
  MacHost.cpp
  MacKeyboardEvents.cpp
  MacMainMenu.cpp
  MacPanel.cpp
  MacScreens.cpp
  MacSemaphore.cpp
  MacSystemLog.cpp
  MacText.cpp
  MacTimer.cpp
  MacUIElement.cpp
  MacUrlSession.cpp
  MacUserInterface.cpp
  MacWebSocketTask.cpp
  MacWebView.cpp
  MacWindow.cpp
  MacWorkItem.cpp
  MacWorkspace.cpp
  PageGuard.cpp
  Queue.cpp
  Services.cpp
  UnreachableWebSocketTask.cpp)
list(TRANSFORM STAGEHOPPER_MACOS_SOURCES PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
