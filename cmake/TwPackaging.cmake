# The Debian package, made by CPack from the install rules:
#   cpack --config BUILD/CPackConfig.cmake -G DEB      (or `make package`)
# Its run-time dependencies come from dpkg-shlibdeps; the files Debian asks
# of every package (the copyright file and the compressed changelog in
# /usr/share/doc/tidewright) are written here at configure time.
set(TW_PACKAGE_NAME tidewright)
set(TW_MAINTAINER "${TW_COMPANY_NAME} maintainers <maintainers@tidewright.invalid>"
  CACHE STRING "The Debian package's maintainer: a name and a mail address")
set(TW_COPYRIGHT_YEAR 2026)

set(CPACK_PACKAGE_NAME ${TW_PACKAGE_NAME})
set(CPACK_PACKAGE_VENDOR "${TW_COMPANY_NAME}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "${TW_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "C and C++ source formatter with named layout schemes")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_FILE_NAME "${TW_PACKAGE_NAME}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_NAME ${TW_PACKAGE_NAME})
set(CPACK_DEBIAN_PACKAGE_VERSION "${PROJECT_VERSION}-1")
set(CPACK_DEBIAN_PACKAGE_RELEASE "")
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)
# The long description; CPack puts the summary above in front of it as the
# synopsis line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Tidewright C++ re-lays out the white space, braces, alignment and line
breaks of C and C++ source files after a named scheme of about 150 layout
options. It never reorders or drops a token or a comment, and leaves a file
that does not parse exactly as it was.
.
The package holds the tidewright command (single files, standard input,
folder trees, projects and compilation databases; --check and --diff for
continuous integration), the tidewright-gui desktop application with its
scheme editor and live preview, the built-in schemes, the documentation,
man pages, bash and zsh completions and a git pre-commit hook.")
if(TW_WEB_ADDRESS MATCHES "^https?://")
  set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${TW_WEB_ADDRESS}")
endif()

# The date of this version in the changelog's form.
set(saved_epoch "$ENV{SOURCE_DATE_EPOCH}")
set(ENV{SOURCE_DATE_EPOCH} "${TW_RELEASE_EPOCH}")
string(TIMESTAMP TW_RELEASE_DATE_RFC2822 "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(ENV{SOURCE_DATE_EPOCH} "${saved_epoch}")

set(TW_PACKAGE_DOC_DIR "${PROJECT_BINARY_DIR}/packaging")
configure_file("${PROJECT_SOURCE_DIR}/packaging/copyright.in" "${TW_PACKAGE_DOC_DIR}/copyright" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/packaging/changelog.Debian.in" "${TW_PACKAGE_DOC_DIR}/changelog.Debian" @ONLY)
find_program(TW_GZIP gzip)
if(TW_GZIP)
  execute_process(COMMAND "${TW_GZIP}" -9 -n -f -k "${TW_PACKAGE_DOC_DIR}/changelog.Debian" COMMAND_ERROR_IS_FATAL ANY)
  install(FILES "${TW_PACKAGE_DOC_DIR}/changelog.Debian.gz" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
endif()
install(FILES "${TW_PACKAGE_DOC_DIR}/copyright" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

include(CPack)
