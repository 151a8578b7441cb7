# Installed beside the programs: shell completions, the git pre-commit hook
# and the editor recipes (docs/integration.md). The programs, schemes and
# documentation are installed by their own directories.
install(FILES "${PROJECT_SOURCE_DIR}/completion/tidewright.bash"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME tidewright)
install(FILES "${PROJECT_SOURCE_DIR}/completion/_tidewright"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
install(PROGRAMS "${PROJECT_SOURCE_DIR}/tools/pre-commit"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/tidewright/git-hooks")
install(FILES "${PROJECT_SOURCE_DIR}/tools/editors/tidewright.vim" "${PROJECT_SOURCE_DIR}/tools/editors/tidewright.el"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/tidewright/editors")
