# Run by CPack when the packages are made: a host that depends on nothing would not run where it is installed.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  execute_process(COMMAND dpkg-deb --field ${package} Depends OUTPUT_VARIABLE depends COMMAND_ERROR_IS_FATAL ANY)
  if(package MATCHES "/visex-host_" AND NOT depends MATCHES "libqt6core6")
    message(FATAL_ERROR "${package} does not say what it depends on, but for '${depends}'")
  endif()
endforeach()
