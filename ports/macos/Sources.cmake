# The sources of the port, without its entry point. Tests also build them, against runtimes other
# than Apple's.
set(STAGEHOPPER_MACOS_SOURCES
  Services.cpp
  accessibility/MacAccessibility.cpp
  accessibility/MacKeyboardEvents.cpp
  accessibility/MacUIElement.cpp
  accessibility/MacWorkspace.cpp
  appkit/AppControllerObject.cpp
  appkit/BridgeHandlerObject.cpp
  appkit/MacApplication.cpp
  appkit/MacMainMenu.cpp
  appkit/MacPanel.cpp
  appkit/MacScreens.cpp
  appkit/MacUserInterface.cpp
  appkit/MacWebView.cpp
  appkit/MacWindow.cpp
  appkit/PageGuard.cpp
  dispatch/MacDispatch.cpp
  dispatch/MacSemaphore.cpp
  dispatch/MacTimer.cpp
  dispatch/MacWorkItem.cpp
  dispatch/Queue.cpp
  network/FailureQueue.cpp
  network/MacUrlSession.cpp
  network/MacWebSocketTask.cpp
  network/UnreachableWebSocketTask.cpp
  processes/MacChildProcess.cpp
  processes/MacChildProcesses.cpp
  system/JsonSyntax.cpp
  system/MacClock.cpp
  system/MacHost.cpp
  system/MacJson.cpp
  system/MacSystemLog.cpp
  system/MacText.cpp)
list(TRANSFORM STAGEHOPPER_MACOS_SOURCES PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
