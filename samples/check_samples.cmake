# What README.md promises of the samples: the road of the scan, the patch count of the crown, and a multi-tooth file
# that reads to its end.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(COPY ${SAMPLES}/crown.csv ${SAMPLES}/teeth.csv DESTINATION ${WORK})

# check_play(SCRIPT FILE LINES...): plays the script on the file; LINES is all it may print.
function(check_play script file)
  execute_process(COMMAND ${PLAYER} ${script} FOLDER=${WORK} FILE=${file} WORKING_DIRECTORY ${WORK}
    RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE complained)
  list(JOIN ARGN "\n" expected)
  if(result OR NOT said STREQUAL "${expected}\n")
    message(FATAL_ERROR "${script} on ${file}: status ${result}\n${said}${complained}\nexpected\n${expected}")
  endif()
endfunction()

check_play(${SAMPLES}/patch_count.play crown.csv
  "show frmCSVView.lblClumpNameID = \"cl_asp8_2\""
  "show frmCSVView.lblNoClumps = \"121\""
  "show frmCSVView.lblPDClumped = \"35.214\"")
foreach(name crown-asp8.bmp cl_asp8_2/crown-cl_asp8_2.bmp cl_asp8_2/crown-cl_asp8_2.csv
    cl_asp8_2/crown-cl_asp8_2results.csv)
  if(NOT EXISTS ${WORK}/${name})
    message(FATAL_ERROR "The patch count wrote no ${name}.")
  endif()
endforeach()

file(WRITE ${WORK}/teeth.play "open frmCSVView\nset frmCSVView.Dir1 $FOLDER\nset frmCSVView.Text1 $FILE\n"
  "press frmCSVView.cmdReadMultiCSV\nshow frmCSVView.lblNoTeeth\nshow frmCSVView.txtParam(11)\n")
# No spacing is ever found in such a file, which each tooth with points says.
set(box "box \"\" \"Error\" -> OK")
check_play(teeth.play teeth.csv ${box} ${box} ${box} ${box} ${box}
  "show frmCSVView.lblNoTeeth = \"6\"" "show frmCSVView.txtParam(11) = \"12000\"")

# The road: the proposed settings, all files where docs/road.md says, and a surface that is whole inside its outline.
file(COPY ${SAMPLES}/scan.txt DESTINATION ${WORK})
execute_process(COMMAND ${SETTINGS} ${WORK}/scan.txt OUTPUT_VARIABLE settings OUTPUT_STRIP_TRAILING_WHITESPACE
  RESULT_VARIABLE result)
if(result OR NOT settings STREQUAL "0.064 0.192 -uct256_064")
  message(FATAL_ERROR "scan-settings: status ${result}, said ${settings}")
endif()
set(base scan-uct256_064)
execute_process(COMMAND ${PLAYER} ${SAMPLES}/road.play FOLDER=${WORK} FILE=scan.txt RADIUS=0.064 BIN=0.192 BASE=${base}
    ROWS=150 WORKING_DIRECTORY ${WORK} RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE complained)
if(result OR NOT said MATCHES "show frmCSVView.lblNoClumps = \"117\"\nshow frmCSVView.lblPDClumped = \"24.815\"\n$")
  message(FATAL_ERROR "road.play: status ${result}\n${said}${complained}")
endif()
foreach(name ${base}.txt ${base}_rej.txt ${base}pblnpts.bln ${base}p.txt ${base}p_.grd 150_grd/${base}p_150.grd
    150b_grd/${base}p_150b.grd 150b_dat/${base}p_150b.dat 150b_dat/cl_asp8_2/${base}p_150b-cl_asp8_2results.csv)
  if(NOT EXISTS ${WORK}/${name})
    message(FATAL_ERROR "The road wrote no ${name}.")
  endif()
endforeach()

# A radius of one's own has three decimals; what can't be a scan or a radius is told.
execute_process(COMMAND ${SETTINGS} ${WORK}/scan.txt 0.05 OUTPUT_VARIABLE settings OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT settings STREQUAL "0.050 0.15 -uct200_050")
  message(FATAL_ERROR "scan-settings with a radius: ${settings}")
endif()
file(WRITE ${WORK}/bad.txt "1,2,3\n4,5\n")
execute_process(COMMAND ${SETTINGS} ${WORK}/bad.txt RESULT_VARIABLE result ERROR_VARIABLE complained)
if(NOT result EQUAL 1 OR NOT complained STREQUAL "${WORK}/bad.txt, line 2: x, y and z expected\n")
  message(FATAL_ERROR "scan-settings of a short line: status ${result}, said ${complained}")
endif()
execute_process(COMMAND ${SETTINGS} ${WORK}/scan.txt -1 RESULT_VARIABLE result ERROR_VARIABLE complained)
if(NOT result EQUAL 1 OR NOT complained STREQUAL "the radius -1 is not a number above 0\n")
  message(FATAL_ERROR "scan-settings of a negative radius: status ${result}, said ${complained}")
endif()
