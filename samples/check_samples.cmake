# What README.md promises of the samples: the patch count of the crown, and a multi-tooth file that reads to its end.
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
