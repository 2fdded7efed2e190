# Tries CheckIncludes.cmake on small houses: one that keeps the rules, and one for each way to break them.
#
# cmake -D SCRATCH_DIR=<folder to be emptied> -P CheckIncludesTest.cmake
cmake_minimum_required(VERSION 3.25)

# Writes a house that keeps the rules, with one more include line in one of its files, and checks it.
function(expect p_outcome p_file p_line)
    file(REMOVE_RECURSE "${SCRATCH_DIR}")
    file(WRITE "${SCRATCH_DIR}/host/Model.h" "#include <string>\n")
    file(WRITE "${SCRATCH_DIR}/PreVariables/include/Checker.h" "#include \"Model.h\"\n#include <vector>\n")
    file(WRITE "${SCRATCH_DIR}/PreVariables/src/checks/Bounds.h" "#include \"Checker.h\"\n")
    file(WRITE "${SCRATCH_DIR}/PreVariables/src/checks/Bounds.cpp" "#include \"Bounds.h\"\n")
    file(WRITE "${SCRATCH_DIR}/standalone/Case.h" "#include \"Checker.h\"\n#include <fmt/format.h>\n")
    file(WRITE "${SCRATCH_DIR}/tests/Support.h" "\n")
    file(APPEND "${SCRATCH_DIR}/${p_file}" "${p_line}\n")
    execute_process(
        COMMAND ${CMAKE_COMMAND} -D SOURCE_DIR=${SCRATCH_DIR} -P ${CMAKE_CURRENT_LIST_DIR}/CheckIncludes.cmake
        RESULT_VARIABLE status ERROR_VARIABLE text OUTPUT_QUIET)
    if(p_outcome STREQUAL "allowed" AND NOT status EQUAL 0)
        message(SEND_ERROR "Refused, but allowed: ${p_line} in ${p_file}\n${text}")
    elseif(p_outcome STREQUAL "refused" AND (status EQUAL 0 OR NOT text MATCHES "${p_file}"))
        message(SEND_ERROR "Not found, or not by its file's name: ${p_line} in ${p_file}\n${text}")
    endif()
endfunction()

expect(allowed host/Model.h "")
expect(allowed PreVariables/src/checks/Bounds.cpp "#include \"checks/Bounds.h\"")
expect(allowed PreVariables/src/checks/Bounds.cpp "#include \"Model.h\"")
expect(allowed standalone/Case.h "#include \"Model.h\"")

expect(refused host/Model.h "#include \"Checker.h\"")
expect(refused host/Model.h "#include \"../PreVariables/include/Checker.h\"")
expect(refused host/Model.h "#include <fmt/format.h>")
expect(refused PreVariables/include/Checker.h "#include \"checks/Bounds.h\"")
expect(refused PreVariables/include/Checker.h "#include \"../src/checks/Bounds.h\"")
expect(refused PreVariables/src/checks/Bounds.cpp "#include \"Case.h\"")
expect(refused PreVariables/src/checks/Bounds.cpp "#include \"../../../standalone/Case.h\"")
expect(refused PreVariables/src/checks/Bounds.cpp "#  include <fmt/format.h>")
expect(refused PreVariables/src/checks/Bounds.cpp "#include SOME_MACRO")
expect(refused standalone/Case.h "#include \"checks/Bounds.h\"")
expect(refused standalone/Case.h "#include \"../PreVariables/src/checks/Bounds.h\"")
expect(refused standalone/Case.h "#include \"Support.h\"")
