# The language standard, warnings and sanitizers of all our targets.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

find_package(Threads REQUIRED)

# The linkers for macOS always search all libraries repeatedly, and CMake has no option for it.
if(APPLE)
  set(CMAKE_CXX_LINK_GROUP_USING_RESCAN "" "")
  set(CMAKE_CXX_LINK_GROUP_USING_RESCAN_SUPPORTED TRUE)
endif()

add_library(stagehopper_options INTERFACE)
target_include_directories(stagehopper_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(stagehopper_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wundef -Werror)
if(STAGEHOPPER_SANITIZE)
  target_compile_options(stagehopper_options INTERFACE
    "-fsanitize=${STAGEHOPPER_SANITIZE}" -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(stagehopper_options INTERFACE "-fsanitize=${STAGEHOPPER_SANITIZE}"
    "-Wl,--version-script=${CMAKE_SOURCE_DIR}/tests/sanitizers/symbols.map")
  if(STAGEHOPPER_TESTS)
    target_sources(stagehopper_options INTERFACE
      "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:$<TARGET_OBJECTS:stagehopper_sanitizer_options>>")
  endif()
endif()
target_link_libraries(stagehopper_options INTERFACE Threads::Threads)

# stagehopper_room(NAME FILES...): adds one room as a static library.
function(stagehopper_room name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PRIVATE stagehopper_options)
endfunction()
