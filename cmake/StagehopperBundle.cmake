# stagehopper_bundle(TARGET): makes Stagehopper.app at the root of the build tree, with the
# executable TARGET, the pages and the backend, if that is built, and signs it.
#
# It is laid out anew in each build, in a moment, so that nothing of an earlier one stays in it.

set(STAGEHOPPER_SIGNING_IDENTITY "-" CACHE STRING
  "On a Mac: the code signing identity, which keeps the Accessibility grant; - for none")

find_program(STAGEHOPPER_RSVG_CONVERT rsvg-convert)
find_program(STAGEHOPPER_PNG2ICNS png2icns)

function(stagehopper_bundle target)
  set(from "${PROJECT_SOURCE_DIR}/packaging/macos")
  set(app "${PROJECT_BINARY_DIR}/Stagehopper.app")
  set(parts "${PROJECT_BINARY_DIR}/bundle")

  file(STRINGS "${PROJECT_SOURCE_DIR}/LICENSE" copyright REGEX "^Copyright" LIMIT_COUNT 1)
  string(REPLACE "(c)" "©" STAGEHOPPER_COPYRIGHT "${copyright}")
  configure_file("${from}/Info.plist.in" "${parts}/Info.plist" @ONLY)
  file(WRITE "${parts}/PkgInfo" "APPL????")

  _stagehopper_icon("${from}/Stagehopper.svg" "${parts}/Stagehopper.icns" icon)
  _stagehopper_signing("${app}" sign)

  set(install_backend "")
  if(TARGET stagehopper_backend)
    set(install_backend COMMAND "${CMAKE_COMMAND}" --install
      "${PROJECT_BINARY_DIR}/companion/backend" --prefix "${parts}/installed")
  endif()

  # What gets installed is listed file by file; the folder beside the executable may hold more.
  add_custom_target(stagehopper_bundle ALL
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${app}" "${parts}/installed"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${app}/Contents/MacOS"
    COMMAND "${CMAKE_COMMAND}" -E copy "${parts}/Info.plist" "${parts}/PkgInfo" "${app}/Contents/"
    COMMAND "${CMAKE_COMMAND}" -E copy "$<TARGET_FILE:${target}>"
      "${app}/Contents/MacOS/Stagehopper"
    COMMAND "${CMAKE_COMMAND}" --install "${PROJECT_BINARY_DIR}/companion/pages"
      --prefix "${parts}/installed"
    ${install_backend}
    COMMAND "${CMAKE_COMMAND}" -E copy_directory "${parts}/installed/share/stagehopper"
      "${app}/Contents/Resources"
    COMMAND "${CMAKE_COMMAND}" -E copy_directory "${from}/en.lproj"
      "${app}/Contents/Resources/en.lproj"
    COMMAND "${CMAKE_COMMAND}" -E copy_directory "${from}/zh-Hans.lproj"
      "${app}/Contents/Resources/zh-Hans.lproj"
    COMMAND "${CMAKE_COMMAND}" -E copy ${icon} "${app}/Contents/Resources/"
    ${sign}
    DEPENDS ${icon} "${target}" $<TARGET_NAME_IF_EXISTS:stagehopper_backend> stagehopper_pages
    COMMENT "Making Stagehopper.app"
    VERBATIM)
endfunction()

# Command line tools of a Mac draw no SVG: without these two programs there is no icon.
function(_stagehopper_icon picture icon result)
  if(STAGEHOPPER_RSVG_CONVERT AND STAGEHOPPER_PNG2ICNS)
    add_custom_command(OUTPUT "${icon}"
      COMMAND "${PROJECT_SOURCE_DIR}/packaging/macos/make-icon" "${picture}" "${icon}"
      DEPENDS "${picture}" "${PROJECT_SOURCE_DIR}/packaging/macos/make-icon"
      VERBATIM)
    set(${result} "${icon}" PARENT_SCOPE)
  else()
    message(WARNING "The bundle will have no icon: there is no rsvg-convert or no png2icns.")
    set(${result} "" PARENT_SCOPE)
  endif()
endfunction()

# A Mac has codesign; elsewhere there is our own, which can sign without an identity only.
function(_stagehopper_signing app result)
  if(CMAKE_HOST_APPLE)
    set(commands "")
    # Inside out: the seal covers what is signed before.
    if(TARGET stagehopper_backend)
      list(APPEND commands
        COMMAND codesign --force --sign "${STAGEHOPPER_SIGNING_IDENTITY}"
          --identifier org.stagehopper.Stagehopper.StagehopperBackend-arm64
          "${app}/Contents/Resources/StagehopperBackend-arm64")
    endif()
    list(APPEND commands
      COMMAND codesign --force --sign "${STAGEHOPPER_SIGNING_IDENTITY}" "${app}")
  else()
    set(commands
      COMMAND "${PROJECT_SOURCE_DIR}/packaging/macos/sign-bundle" "${app}")
  endif()
  set(${result} ${commands} PARENT_SCOPE)
endfunction()
