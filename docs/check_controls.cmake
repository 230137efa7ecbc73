# docs/controls.md is what tools/list-controls makes of the windows' headers.
execute_process(COMMAND ${PYTHON} -B ${ROOT}/tools/list-controls OUTPUT_FILE ${MADE} RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "tools/list-controls failed.")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${MADE} ${ROOT}/docs/controls.md RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "docs/controls.md is out of date: tools/list-controls >docs/controls.md")
endif()
