# The man pages tidewright(1) and tidewright-gui(1), written at build time by
# help2man from each program's --help and --version and the hand-kept text of
# docs/man/PROGRAM.h2m, then compressed for installation. The page carries the
# date of this version (TW_RELEASE_EPOCH), so that one version always makes
# the same page. Without help2man the pages are neither built nor installed.
find_program(TW_HELP2MAN help2man)
find_program(TW_GZIP gzip)
if(NOT TW_HELP2MAN OR NOT TW_GZIP)
  message(STATUS "help2man or gzip not found: the man pages are not built (tools/bootstrap.sh installs them)")
  return()
endif()

set(TW_MAN_DIR "${PROJECT_BINARY_DIR}/man")
set(TW_MAN_SCRIPT "${PROJECT_SOURCE_DIR}/tools/man-page")
set(man_pages)
foreach(program tidewright tidewright-gui)
  set(page "${TW_MAN_DIR}/${program}.1")
  add_custom_command(OUTPUT "${page}" "${page}.gz"
    COMMAND "${TW_MAN_SCRIPT}" "$<TARGET_FILE:${program}>" "${PROJECT_SOURCE_DIR}/docs/man/${program}.h2m"
            "${TW_RELEASE_EPOCH}" "${page}"
    COMMAND "${TW_GZIP}" -9 -n -f -k "${page}"
    DEPENDS ${program} "${PROJECT_SOURCE_DIR}/docs/man/${program}.h2m" "${TW_MAN_SCRIPT}"
    COMMENT "Writing the man page ${program}(1)"
    VERBATIM)
  list(APPEND man_pages "${page}")
  install(FILES "${page}.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endforeach()
add_custom_target(man-pages ALL DEPENDS ${man_pages})
