# GoogleTest as GTest::gtest and GTest::gtest_main: Debian's library, or, for a machine that Debian has none for, built
# from the sources that its package googletest holds.

if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

set(INSTALL_GTEST OFF CACHE BOOL "GoogleTest is for this build alone")
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
