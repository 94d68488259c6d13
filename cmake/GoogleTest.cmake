# GoogleTest as GTest::gtest and GTest::gtest_main: Debian's library, or, for a machine that Debian has none for, built
# from the sources that its package googletest holds.

if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

set(googletest /usr/src/googletest/googletest)
add_library(gtest STATIC EXCLUDE_FROM_ALL ${googletest}/src/gtest-all.cc ${googletest}/src/gtest_main.cc)
target_include_directories(gtest SYSTEM PUBLIC ${googletest}/include PRIVATE ${googletest})
add_library(GTest::gtest ALIAS gtest)
add_library(GTest::gtest_main ALIAS gtest)
