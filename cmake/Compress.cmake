# compress(FILE NAME): makes FILE into NAME.gz in the current folder of the build tree, and again when FILE has changed.
# Without a time or a name in it, so that the same file always makes the same bytes.
function(compress file name)
  set(made ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
  execute_process(COMMAND gzip -9nc ${file} OUTPUT_FILE ${made}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
endfunction()
