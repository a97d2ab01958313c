# The library of the core and the tests of it link no toolkit, so that one below ui/ does not link.
#   cmake -DCORE=<file> -DUI=<file> -P LinksOfTheCoreTest.cmake
# Each file lists libraries and include folders, one a line; UI is empty where pictures are not built.
cmake_policy(VERSION 3.25)
file(STRINGS ${CORE} core)
if(NOT "SQLite::SQLite3" IN_LIST core)
    message(FATAL_ERROR "These are not the libraries of the core: ${core}")
endif()
set(foreign ${core})
list(FILTER foreign INCLUDE REGEX "Qt|FX_Algen_ui")
if(foreign)
    message(FATAL_ERROR "The core and its tests link or include the toolkit: ${foreign}")
endif()
if(UI)
    # The counterpart shows that the toolkit would have been found by its name.
    file(STRINGS ${UI} ui)
    if(NOT "Qt6::Widgets" IN_LIST ui)
        message(FATAL_ERROR "The toolkit has another name than this test looks for: ${ui}")
    endif()
endif()
