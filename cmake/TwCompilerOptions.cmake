# Compiler options shared by every target of the project.
# tw_set_options(target) turns the warnings on and, with TW_SANITIZE, the sanitizers.

add_library(tw_options INTERFACE)
# Contract violations name source files relative to the project root. ccache
# with a base directory (CCACHE_BASEDIR) hands the compiler source paths
# relative to the build directory ("../../Trn/src/..."), so that form is
# mapped as well.
file(RELATIVE_PATH tw_source_from_build "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
string(REGEX REPLACE "/+$" "" tw_source_from_build "${tw_source_from_build}")
target_compile_options(tw_options INTERFACE -Wall -Wextra -Wpedantic
  "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/="
  "$<$<BOOL:${tw_source_from_build}>:-fmacro-prefix-map=${tw_source_from_build}/=>")
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
