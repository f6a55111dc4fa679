# embed_text(SOURCE HEADER NAME): writes HEADER, which defines stagehopper::NAME as the text of
# SOURCE, without the final line feed.
function(embed_text source header name)
  set(path "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${path}")
  file(READ "${path}" text)
  string(REGEX REPLACE "\n$" "" text "${text}")
  file(CONFIGURE OUTPUT "${header}" @ONLY CONTENT [[
// Made from @source@.
#pragma once
#include <string_view>
namespace stagehopper {
inline constexpr std::string_view @name@ = R"text(@text@)text";
}  // namespace stagehopper
]])
endfunction()
