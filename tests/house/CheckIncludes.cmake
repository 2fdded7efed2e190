# Fails when a source includes what its part of the house may not see:
#   host/                  host/ and the standard library
#   PreVariables/include/  its own headers, host/ and the standard library
#   PreVariables/src/      PreVariables/, host/ and the standard library
#   standalone/            of the library, PreVariables/include/ only; and no tests
#
# cmake -D SOURCE_DIR=<checkout> -P CheckIncludes.cmake
cmake_minimum_required(VERSION 3.25)

# C++20's headers, and those of C that C++ knows by a name of their own.
set(standardHeaders
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
    clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint
    cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
    memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
    semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view
    strstream syncstream system_error thread tuple typeindex typeinfo type_traits unordered_map unordered_set utility
    valarray variant vector version)

set(broken "")
set(filesSeen 0)

# Checks each #include of the sources below p_folder. A quoted one must name a file that is found beside the source or
# below one of the folders that follow, in this order; one in angle brackets a header of the standard library, unless
# LIBRARIES_WELCOME is given.
function(check_includes p_folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "LIBRARIES_WELCOME" "" "MAY_SEE")
    file(GLOB_RECURSE sources LIST_DIRECTORIES false
        "${SOURCE_DIR}/${p_folder}/*.h" "${SOURCE_DIR}/${p_folder}/*.cpp")
    foreach(source IN LISTS sources)
        math(EXPR filesSeen "${filesSeen} + 1")
        file(RELATIVE_PATH name "${SOURCE_DIR}" "${source}")
        cmake_path(GET source PARENT_PATH besides)
        file(STRINGS "${source}" lines REGEX "^[ \t]*#[ \t]*include")
        foreach(line IN LISTS lines)
            if(line MATCHES "<([^>]+)>")
                if(NOT arg_LIBRARIES_WELCOME AND NOT CMAKE_MATCH_1 IN_LIST standardHeaders)
                    list(APPEND broken "${name}: <${CMAKE_MATCH_1}> is not of the standard library")
                endif()
                continue()
            endif()
            if(NOT line MATCHES "\"([^\"]+)\"")
                list(APPEND broken "${name}: cannot read the include '${line}'")
                continue()
            endif()
            set(included "${CMAKE_MATCH_1}")

            set(found "")
            foreach(folder IN LISTS arg_MAY_SEE)
                set(visible "${SOURCE_DIR}/${folder}")
                foreach(root IN ITEMS "${besides}" "${visible}")
                    cmake_path(SET candidate NORMALIZE "${root}/${included}")
                    cmake_path(IS_PREFIX visible "${candidate}" inside)
                    if(inside AND EXISTS "${candidate}")
                        set(found "${candidate}")
                    endif()
                endforeach()
            endforeach()
            if(NOT found)
                list(JOIN arg_MAY_SEE ", " maySee)
                list(APPEND broken "${name}: \"${included}\" is not in ${maySee}")
            endif()
        endforeach()
    endforeach()
    set(broken "${broken}" PARENT_SCOPE)
    set(filesSeen "${filesSeen}" PARENT_SCOPE)
endfunction()

check_includes(host                 MAY_SEE host)
check_includes(PreVariables/include MAY_SEE PreVariables/include host)
check_includes(PreVariables/src     MAY_SEE PreVariables/src PreVariables/include host)
check_includes(standalone           MAY_SEE standalone PreVariables/include host LIBRARIES_WELCOME)

if(filesSeen EQUAL 0)
    message(FATAL_ERROR "No sources below ${SOURCE_DIR}")
endif()
if(broken)
    list(JOIN broken "\n  " text)
    message(FATAL_ERROR "Includes that their part of the house may not see:\n  ${text}")
endif()
message(STATUS "${filesSeen} files include only what they may see")
