# Fails when the shared library needs more than the C++ runtime and its host, or lets more out than it declares.
#
# cmake -D LIBRARY=<.so> -D NM=<nm> -D READELF=<readelf> -D SOURCE_DIR=<checkout> -P CheckSymbols.cmake
cmake_minimum_required(VERSION 3.25)

# The names of the classes that the headers below p_folder mark with p_macro, and the namespaces they stand in.
function(exported_names p_result p_macro p_folder)
    set(names "")
    file(GLOB_RECURSE headers "${SOURCE_DIR}/${p_folder}/*.h")
    foreach(header IN LISTS headers)
        file(STRINGS "${header}" lines REGEX "(class|struct)[ ]+${p_macro}[ ]+[A-Za-z_]+")
        foreach(line IN LISTS lines)
            string(REGEX REPLACE ".*${p_macro}[ ]+([A-Za-z_0-9]+).*" "\\1" name "${line}")
            list(APPEND names "${name}")
        endforeach()
    endforeach()
    list(REMOVE_DUPLICATES names)
    if(NOT names)
        message(FATAL_ERROR "No class is marked ${p_macro} below ${p_folder}")
    endif()
    set(${p_result} "${names}" PARENT_SCOPE)
endfunction()

# The demangled symbols of the library, one a list element, without address and type.
function(symbols p_result p_which)
    execute_process(COMMAND ${NM} -DC ${p_which} "${LIBRARY}" OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "[][;]" "" text "${text}")    # "[abi:cxx11]" would part or join list elements
    string(REPLACE "\n" ";" lines "${text}")
    set(result "")
    foreach(line IN LISTS lines)
        if(line MATCHES "^[0-9a-f ]* ([A-Za-z]) (.+)$")
            list(APPEND result "${CMAKE_MATCH_2}")
        endif()
    endforeach()
    set(${p_result} "${result}" PARENT_SCOPE)
endfunction()

# Whether a symbol is a member of one of the classes, or their virtual table or type information.
function(belongs_to p_result p_symbol)
    string(REGEX REPLACE
        "^(typeinfo for|typeinfo name for|vtable for|VTT for|guard variable for|non-virtual thunk to) " "" name
        "${p_symbol}")
    string(REGEX REPLACE "^qen::(data|expressions|units|DimExprErrors)::" "qen::" name "${name}")
    set(${p_result} FALSE PARENT_SCOPE)
    if(name MATCHES "^qen::([A-Za-z_0-9]+)($|::|<)" AND CMAKE_MATCH_1 IN_LIST ARGN)
        set(${p_result} TRUE PARENT_SCOPE)
    endif()
endfunction()

exported_names(hostClasses QEN_HOST_API host)
exported_names(libraryClasses QEN_PREVARIABLES_API PreVariables)

set(broken "")

execute_process(COMMAND ${READELF} -dW "${LIBRARY}" OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*" neededLines "${dynamic}")
foreach(line IN LISTS neededLines)
    if(NOT line MATCHES "\\[(libstdc\\+\\+|libm|libgcc_s|libc|ld-linux[-_a-z0-9]*)\\.so\\.[0-9]+\\]")
        list(APPEND broken "needs another library: ${line}")
    endif()
endforeach()

symbols(imported --undefined-only)
set(importedFromHost 0)
foreach(symbol IN LISTS imported)
    if(symbol MATCHES "@(GLIBCXX|CXXABI|GLIBC|GCC)_" OR symbol MATCHES "^(_ITM_|__gmon_start__)")
        continue()
    endif()
    belongs_to(fromHost "${symbol}" ${hostClasses})
    if(fromHost)
        math(EXPR importedFromHost "${importedFromHost} + 1")
    else()
        list(APPEND broken "imports what no header in host/ declares: ${symbol}")
    endif()
endforeach()

symbols(exported --defined-only)
set(exportedByLibrary 0)
foreach(symbol IN LISTS exported)
    # Templates of the standard library and the inline members of host classes are emitted wherever they are used.
    if(symbol MATCHES "^(typeinfo for |typeinfo name for |vtable for |guard variable for )?(std|__gnu_cxx)::")
        continue()
    endif()
    belongs_to(declared "${symbol}" ${libraryClasses} ${hostClasses})
    if(declared)
        math(EXPR exportedByLibrary "${exportedByLibrary} + 1")
    elseif(symbol MATCHES "^[A-Za-z_0-9:]+.*[ <](std|__gnu_cxx)::" AND NOT symbol MATCHES "^qen::")
        continue()    # a function template of the standard library begins with its result
    else()
        list(APPEND broken "lets out what is not marked QEN_PREVARIABLES_API: ${symbol}")
    endif()
endforeach()

if(importedFromHost EQUAL 0 OR exportedByLibrary EQUAL 0)
    list(APPEND broken "shows no symbols to its host at all")
endif()
if(broken)
    list(JOIN broken "\n  " text)
    message(FATAL_ERROR "${LIBRARY}\n  ${text}")
endif()
message(STATUS "${exportedByLibrary} symbols exported, ${importedFromHost} imported from the host")
