# Installs the build in BUILD, then builds and runs the consumer project against what was installed, with the same tool
# chain. OPTIONS are the settings of the build that the consumer's build needs too.
set(work ${BUILD}/consumer)
file(REMOVE_RECURSE ${work})
foreach(step IN ITEMS
    "--install;${BUILD};--prefix;${work}/installed"
    "-G;Ninja;-S;${CMAKE_CURRENT_LIST_DIR};-B;${work}/build;-DCMAKE_PREFIX_PATH=${work}/installed;-DCMAKE_FIND_ROOT_PATH=${work}/installed;${OPTIONS}"
    "--build;${work}/build"
    "--build;${work}/build;--target;test")
  execute_process(COMMAND ${CMAKE_COMMAND} ${step} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# The README shows the first program as it was compiled here.
file(READ ${CMAKE_CURRENT_LIST_DIR}/first.cpp program)
file(READ ${CMAKE_CURRENT_LIST_DIR}/../../README.md readme)
string(FIND "${readme}" "${program}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "README.md shows another program than tests/consumer/first.cpp")
endif()
