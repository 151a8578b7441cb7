# Compiler options shared by every target of the project.
# tw_set_options(target) turns the warnings on and, with TW_SANITIZE, the sanitizers.

add_library(tw_options INTERFACE)
# Contract violations name source files relative to the project root. A
# compiler launcher such as ccache with a base directory hands the compiler
# source paths relative to the build directory; those are mapped too.
file(RELATIVE_PATH TW_SOURCE_FROM_BUILD "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
target_compile_options(tw_options INTERFACE -Wall -Wextra -Wpedantic
  "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/="
  "-fmacro-prefix-map=${TW_SOURCE_FROM_BUILD}/=")
if(TW_WERROR)
  target_compile_options(tw_options INTERFACE -Werror)
endif()
if(TW_SANITIZE)
  target_compile_options(tw_options INTERFACE
    -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(tw_options INTERFACE -fsanitize=address,undefined)
endif()

function(tw_set_options target)
  target_link_libraries(${target} PRIVATE tw_options)
endfunction()

# tw_add_layer(NAME DIRS... [LINKS ...]): one static library per layer; its
# public headers are those of its own source directories.
function(tw_add_layer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;INCLUDES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${ARG_INCLUDES})
  if(ARG_LINKS)
    target_link_libraries(${name} PUBLIC ${ARG_LINKS})
  endif()
  tw_set_options(${name})
endfunction()
