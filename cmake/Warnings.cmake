# The warnings that all of our own code is built with. Only presets turn them into errors, so that a
# newer compiler of a user never breaks the build.
function(zvxmllib_set_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
        -Woverloaded-virtual -Wformat=2)
    if(CMAKE_UNITY_BUILD) # what one source names for itself may be a local name in the next
        target_compile_options(${target} PRIVATE -Wno-shadow)
    endif()
    if(ZVXMLLIB_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()
