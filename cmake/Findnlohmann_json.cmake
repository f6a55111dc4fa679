# Finds the JSON library: the system's if there is one, otherwise the copy in third-party/, so that a
# Mac needs no package for it.
find_package(nlohmann_json ${nlohmann_json_FIND_VERSION} QUIET CONFIG)
if(NOT nlohmann_json_FOUND)
  if(NOT TARGET nlohmann_json::nlohmann_json)
    add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
    target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE
      "${CMAKE_CURRENT_LIST_DIR}/../third-party")
  endif()
  set(nlohmann_json_FOUND TRUE)
endif()
