# Checks that EXECUTABLE exports the four names that the installer looks up, and no other. NM is the nm of its format.

set(expected LanguageSelector MyFactory XCodMain ___procinfo)

execute_process(
  COMMAND ${NM} --dynamic --defined-only --format=posix ${EXECUTABLE}
  OUTPUT_VARIABLE symbols
  COMMAND_ERROR_IS_FATAL ANY
)
string(REGEX MATCHALL "[^\n]+" symbols "${symbols}")
list(TRANSFORM symbols REPLACE " .*" "")
list(SORT symbols)
if(NOT symbols STREQUAL expected)
  message(FATAL_ERROR "${EXECUTABLE} exports\n  ${symbols}\nand should export\n  ${expected}")
endif()
