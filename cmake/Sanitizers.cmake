# Instruments a target with the sanitizers named in ZVXMLLIB_SANITIZE; a finding ends the program.
function(zvxmllib_set_sanitizers target)
    if(ZVXMLLIB_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${ZVXMLLIB_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE -fsanitize=${ZVXMLLIB_SANITIZE})
    endif()
endfunction()
