# stagehopper_bundle(TARGET): creates Stagehopper.app at the root of the build tree, with the
# executable TARGET, the pages and the backend (if it is built), and signs it.
#
# Each build creates the bundle from scratch, so that it contains nothing of an earlier build. This
# takes a moment.

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

  # Installing copies a fixed list of files; the folder beside the executable may contain others.
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
    COMMENT "Creating Stagehopper.app"
    VERBATIM)
endfunction()

# A Mac's command line tools cannot draw SVG, so without these two programs there is no icon.
function(_stagehopper_icon picture icon result)
  if(STAGEHOPPER_RSVG_CONVERT AND STAGEHOPPER_PNG2ICNS)
    add_custom_command(OUTPUT "${icon}"
      COMMAND "${PROJECT_SOURCE_DIR}/packaging/macos/make-icon" "${picture}" "${icon}"
      DEPENDS "${picture}" "${PROJECT_SOURCE_DIR}/packaging/macos/make-icon"
      VERBATIM)
    set(${result} "${icon}" PARENT_SCOPE)
  else()
    message(WARNING "The bundle will have no icon: rsvg-convert or png2icns is missing.")
    set(${result} "" PARENT_SCOPE)
  endif()
endfunction()

# Signs with codesign on a Mac and with our own script elsewhere, which can only sign without an
# identity.
function(_stagehopper_signing app result)
  if(CMAKE_HOST_APPLE)
    set(commands "")
    # From the inside out: the seal covers the backend with its signature.
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
