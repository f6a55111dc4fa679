# Toolchain for macOS on Linux: Debian's clang and lld, and the folder that tools/macos-sdk creates.
#
#   STAGEHOPPER_MACOS_ARCHITECTURE   arm64 or x86_64
#   STAGEHOPPER_MACOS_SDK            that folder

set(STAGEHOPPER_MACOS_ARCHITECTURE arm64 CACHE STRING "arm64 or x86_64")
set(STAGEHOPPER_MACOS_SDK "${CMAKE_CURRENT_LIST_DIR}/../build/macos-sdk" CACHE PATH
  "The folder that tools/macos-sdk created")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES
  STAGEHOPPER_MACOS_ARCHITECTURE STAGEHOPPER_MACOS_SDK)
get_filename_component(_sdk "${STAGEHOPPER_MACOS_SDK}" ABSOLUTE)
if(NOT EXISTS "${_sdk}/stamp")
  message(FATAL_ERROR "${_sdk} is missing: run 'tools/macos-sdk ${_sdk}' first.")
endif()

# A change of a symbol list triggers configuring, which writes the stubs for the linker again.
get_property(_is_try_compile GLOBAL PROPERTY IN_TRY_COMPILE)
if(NOT _is_try_compile)
  file(GLOB _lists "${CMAKE_CURRENT_LIST_DIR}/macos-symbols/*.txt")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_lists})
  execute_process(
    COMMAND "${CMAKE_CURRENT_LIST_DIR}/../tools/macos-stubs"
      "${CMAKE_CURRENT_LIST_DIR}/macos-symbols" "${_sdk}"
    COMMAND_ERROR_IS_FATAL ANY)
endif()

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 21)
set(CMAKE_SYSTEM_PROCESSOR "${STAGEHOPPER_MACOS_ARCHITECTURE}")
set(CMAKE_OSX_ARCHITECTURES "${STAGEHOPPER_MACOS_ARCHITECTURE}" CACHE STRING "")
set(CMAKE_OSX_DEPLOYMENT_TARGET 12.0 CACHE STRING "")
set(CMAKE_OSX_SYSROOT "${_sdk}" CACHE PATH "")

set(_llvm /usr/lib/llvm-19/bin)
set(CMAKE_C_COMPILER "${_llvm}/clang")
set(CMAKE_CXX_COMPILER "${_llvm}/clang++")
set(CMAKE_C_COMPILER_TARGET "${STAGEHOPPER_MACOS_ARCHITECTURE}-apple-macos")
set(CMAKE_CXX_COMPILER_TARGET "${STAGEHOPPER_MACOS_ARCHITECTURE}-apple-macos")
foreach(_tool ar ranlib install-name-tool otool lipo strip nm)
  string(TOUPPER "${_tool}" _variable)
  string(REPLACE "-" "_" _variable "CMAKE_${_variable}")
  set(${_variable} "${_llvm}/llvm-${_tool}" CACHE FILEPATH "")
endforeach()

# libc++ comes from the folder and is linked statically, so that functions such as std::format run
# on the oldest system that we support. Only the runtime for exceptions, libc++abi, is the system's.
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem ${_sdk}/usr/include/c++/v1 \
-fvisibility=hidden -fvisibility-inlines-hidden \
-fvisibility-global-new-delete=force-hidden")
set(CMAKE_CXX_STANDARD_LIBRARIES "-lc++ -lc++abi")
# lld signs ad hoc, which reserves the space that packaging/macos/sign-bundle fills.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -nostdlib++ -Wl,-dead_strip -Wl,-x -Wl,-S -Wl,-adhoc_codesign")

# Finds none of this machine's own headers and libraries.
set(CMAKE_FIND_ROOT_PATH "${_sdk}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
