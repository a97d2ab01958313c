# House rules that a compiler does not see, checked over the sources:
#   cmake -DSOURCE_DIR=<project> -P HouseRules.cmake
# Prints every break with file and reason and fails if there is one.

cmake_policy(VERSION 3.25)
file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR}
    ${SOURCE_DIR}/src/*.h ${SOURCE_DIR}/src/*.cpp
    ${SOURCE_DIR}/apps/*.h ${SOURCE_DIR}/apps/*.cpp
    ${SOURCE_DIR}/include/*.h
    ${SOURCE_DIR}/tests/*.h ${SOURCE_DIR}/tests/*.cpp
    ${SOURCE_DIR}/bench/*.h ${SOURCE_DIR}/bench/*.cpp)
list(LENGTH sources count)
if(count EQUAL 0)
    message(FATAL_ERROR "No sources below ${SOURCE_DIR}")
endif()

set(longest 700)
set(breaks "")
macro(fx_break file reason)
    list(APPEND breaks "${file}: ${reason}")
endmacro()

# A lower layer must not know a higher one; the folders are in that order.
set(layers store manager calc wrrl controls synonyms taxonomy charts catalogue export entry reports host ui)

foreach(source IN LISTS sources)
    file(STRINGS ${SOURCE_DIR}/${source} includes REGEX "^[ \t]*#[ \t]*include")
    foreach(line IN LISTS includes)
        string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*[<\"]([^>\"]*)[>\"].*" "\\1" header "${line}")
        if(header MATCHES "sqlite3" AND NOT source MATCHES "^(src/store/sqlite/|bench/|tests/store/)")
            fx_break("${source}" "includes ${header}; the engine's header belongs to src/store/sqlite/")
        endif()
        if(header MATCHES "^Q[A-Z]" AND NOT source MATCHES "^(src/ui/|include/FX_Algen/ui/|apps/fluvix/|tests/ui/|tests/install/consumer_ui/)")
            fx_break("${source}" "includes ${header}; the toolkit belongs to src/ui/")
        endif()
        if(source MATCHES "^(apps/|include/)" AND header MATCHES "^(store|calc|host|manager|wrrl|controls|charts|export|reports|synonyms|taxonomy|catalogue|entry|ui)/")
            fx_break("${source}" "includes ${header}; programs and public headers know public headers only")
        endif()
        if(source MATCHES "^src/([a-z]+)/")
            list(FIND layers ${CMAKE_MATCH_1} own)
            if(header MATCHES "^([a-z]+)/")
                list(FIND layers ${CMAKE_MATCH_1} other)
                if(own GREATER_EQUAL 0 AND other GREATER own)
                    fx_break("${source}" "includes ${header}; a layer knows only those below it")
                endif()
            endif()
        endif()
    endforeach()

    file(READ ${SOURCE_DIR}/${source} text)
    string(REGEX REPLACE "[^\n]" "" newlines "${text}")
    string(LENGTH "${newlines}" lines)
    if(lines GREATER longest)
        fx_break("${source}" "has ${lines} lines; ${longest} are the most, split it by subject")
    endif()
endforeach()

if(breaks)
    list(JOIN breaks "\n" text)
    message(FATAL_ERROR "House rules broken:\n${text}")
endif()
message(STATUS "${count} files keep the house rules")
