# zvxmllib_generate(TARGET t SCHEMAS file... [NAME stem] [NAMESPACES uri=a::b ...] [LOCATIONS from=file ...]
#     [EXTERNS uri=header ...] [PARTS n] [OPTIONS option...] [OUT_DIR dir])
#
# Compiles XML schemas to C++ classes and adds them to the target, whose include path then has STEM.h. They are made
# anew when one of the schemas changes, also one that is included. The program is zvxmllib::zvxml-gen, or, when
# cross-compiling, the file that ZVXMLLIB_GEN_EXECUTABLE names. EXTERNS names headers that another target generates;
# link the target with that one.
function(zvxmllib_generate)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET;NAME;PARTS;OUT_DIR" "SCHEMAS;NAMESPACES;LOCATIONS;EXTERNS;OPTIONS")
    if(NOT arg_TARGET OR NOT arg_SCHEMAS OR arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "zvxmllib_generate takes TARGET and SCHEMAS; not understood: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    list(GET arg_SCHEMAS 0 first)
    if(NOT arg_NAME)
        get_filename_component(arg_NAME "${first}" NAME_WLE)
    endif()
    if(NOT arg_PARTS)
        set(arg_PARTS 1)
    endif()
    if(NOT arg_OUT_DIR)
        set(arg_OUT_DIR "${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}-generated")
    endif()
    if(ZVXMLLIB_GEN_EXECUTABLE)
        set(generator "${ZVXMLLIB_GEN_EXECUTABLE}")
    elseif(TARGET zvxmllib::zvxml-gen)
        set(generator zvxmllib::zvxml-gen)
    else()
        message(FATAL_ERROR "There is no zvxml-gen: build zvxmllib with ZVXMLLIB_BUILD_GENERATOR, or set "
            "ZVXMLLIB_GEN_EXECUTABLE")
    endif()
    set(schemas)
    foreach(schema IN LISTS arg_SCHEMAS)
        get_filename_component(schema "${schema}" ABSOLUTE)
        list(APPEND schemas "${schema}")
    endforeach()
    set(options ${arg_OPTIONS})
    foreach(namespace IN LISTS arg_NAMESPACES)
        list(APPEND options --namespace "${namespace}")
    endforeach()
    foreach(extern IN LISTS arg_EXTERNS)
        list(APPEND options --extern "${extern}")
    endforeach()
    foreach(location IN LISTS arg_LOCATIONS)
        string(FIND "${location}" "=" at REVERSE)
        string(SUBSTRING "${location}" 0 ${at} from)
        math(EXPR at "${at} + 1")
        string(SUBSTRING "${location}" ${at} -1 file)
        get_filename_component(file "${file}" ABSOLUTE)
        list(APPEND options --location "${from}=${file}")
    endforeach()
    set(header "${arg_OUT_DIR}/${arg_NAME}.h")
    set(sources)
    foreach(part RANGE 1 ${arg_PARTS})
        list(APPEND sources "${arg_OUT_DIR}/${arg_NAME}-${part}.cpp")
    endforeach()
    # The stamp is new after each run; the files only when their text is.
    set(stamp "${arg_OUT_DIR}/${arg_NAME}.stamp")
    file(MAKE_DIRECTORY "${arg_OUT_DIR}")
    add_custom_command(OUTPUT "${stamp}"
        BYPRODUCTS "${header}" "${arg_OUT_DIR}/${arg_NAME}-fwd.h" ${sources}
        COMMAND ${generator} --out "${arg_OUT_DIR}" --name "${arg_NAME}" --parts ${arg_PARTS}
            --depfile "${stamp}.d" --depfile-target "${stamp}" ${options} ${schemas}
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        DEPENDS ${schemas} ${generator}
        DEPFILE "${stamp}.d"
        COMMENT "Generating ${arg_NAME}.h from XML schemas"
        VERBATIM)
    add_custom_target(${arg_TARGET}-${arg_NAME}-classes DEPENDS "${stamp}")
    set_source_files_properties(${sources} "${header}" PROPERTIES GENERATED ON)
    add_dependencies(${arg_TARGET} ${arg_TARGET}-${arg_NAME}-classes)
    target_sources(${arg_TARGET} PRIVATE ${sources})
    target_include_directories(${arg_TARGET} PUBLIC "$<BUILD_INTERFACE:${arg_OUT_DIR}>")
    target_link_libraries(${arg_TARGET} PUBLIC zvxmllib::generated)
endfunction()
