# Grids a small scan whose result is known: two points in one cell, negative places, blanks as separators, a
# cell without points. Then: what can't be gridded ends with a message and leaves no file.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(WRITE ${WORK}/scan.txt "0.11,-0.09,1.5\n0.09,-0.11,2.25\n-0.2 0.1 -3\n0.31,0.1,4\n")
execute_process(COMMAND ${PYTHON} ${TOOL} scan.txt 0.1 out.dat WORKING_DIRECTORY ${WORK}
  RESULT_VARIABLE result OUTPUT_VARIABLE said)
file(READ ${WORK}/out.dat found HEX)
string(HEX "0.1,-0.1,2.25\r\n-0.2,0.1,-3\r\n0.3,0.1,4\r\n" expected)
if(result OR NOT found STREQUAL expected)
  message(FATAL_ERROR "Found ${found}, expected ${expected} (status ${result}).")
endif()
if(NOT said STREQUAL "out.dat: 6 columns, 3 rows, 3 of 18 cells hold a point\n")
  message(FATAL_ERROR "Said: ${said}")
endif()

# check_refused(SCAN STEP MESSAGE)
function(check_refused scan step message)
  file(WRITE ${WORK}/bad.txt "${scan}")
  execute_process(COMMAND ${PYTHON} ${TOOL} bad.txt ${step} none.dat WORKING_DIRECTORY ${WORK}
    RESULT_VARIABLE result ERROR_VARIABLE said)
  if(NOT result EQUAL 1 OR NOT said STREQUAL "grid-highest: ${message}\n" OR EXISTS ${WORK}/none.dat)
    message(FATAL_ERROR "For \"${scan}\" and ${step}: status ${result}, said ${said}")
  endif()
endfunction()
check_refused("1,2,3\n4,5\n" 0.1 "bad.txt, line 2: x, y and z expected")
check_refused("1,2,nan\n" 0.1 "bad.txt, line 1: not a finite number")
check_refused("" 0.1 "bad.txt: no point")
check_refused("1,2,3\n" 0 "STEP must be above 0")
