# The library of regular expressions: PCRE where it is installed, otherwise PCRE2. Gives the target of each that
# is found, zvxmllib_pcre and zvxmllib_pcre2, and ZVXMLLIB_REGEX_USED, pcre or pcre2.
set(ZVXMLLIB_REGEX auto CACHE STRING "Library of regular expressions: auto, pcre or pcre2")
set_property(CACHE ZVXMLLIB_REGEX PROPERTY STRINGS auto pcre pcre2)

find_path(PCRE_INCLUDE_DIR pcre.h)
find_library(PCRE_LIBRARY pcre)
find_path(PCRE2_INCLUDE_DIR pcre2.h)
find_library(PCRE2_LIBRARY pcre2-8)
mark_as_advanced(PCRE_INCLUDE_DIR PCRE_LIBRARY PCRE2_INCLUDE_DIR PCRE2_LIBRARY)

set(ZVXMLLIB_REGEX_USED)
foreach(candidate IN ITEMS pcre pcre2)
    string(TOUPPER "${candidate}" prefix)
    if(${prefix}_INCLUDE_DIR AND ${prefix}_LIBRARY)
        add_library(zvxmllib_${candidate} UNKNOWN IMPORTED GLOBAL)
        set_target_properties(zvxmllib_${candidate} PROPERTIES
            IMPORTED_LOCATION "${${prefix}_LIBRARY}"
            INTERFACE_INCLUDE_DIRECTORIES "${${prefix}_INCLUDE_DIR}")
        if(NOT ZVXMLLIB_REGEX_USED AND (ZVXMLLIB_REGEX STREQUAL auto OR ZVXMLLIB_REGEX STREQUAL candidate))
            set(ZVXMLLIB_REGEX_USED "${candidate}")
        endif()
    endif()
endforeach()
if(NOT ZVXMLLIB_REGEX_USED)
    message(FATAL_ERROR "No library of regular expressions is found (ZVXMLLIB_REGEX is ${ZVXMLLIB_REGEX}): "
        "install PCRE or PCRE2 with its header.")
endif()
message(STATUS "Regular expressions by ${ZVXMLLIB_REGEX_USED}")
